// Settings of the whole process, to be made before anything else.
#pragma once

namespace plimo {

// The system shows no box of its own when a drive is empty: the call fails instead. Programs that this one starts are
// not affected.
void disableDriveMessages();

// Libraries are loaded from the system's folder only, unless a full path is given: never from the current folder, the
// program's own or along PATH. A damaged heap ends the program. To be called first in main.
void hardenProcess();

}  // namespace plimo
