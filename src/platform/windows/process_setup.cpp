#include "platform/windows/process_setup.h"

#include <windows.h>

namespace plimo {

void disableDriveMessages() { ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); }

// Each setting is a second line of defence, so the program also runs if one of them fails.
void hardenProcess() {
  ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  ::SetDllDirectoryW(L"");
  ::SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
  ::HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
  disableDriveMessages();
}

}  // namespace plimo
