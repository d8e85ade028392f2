// What the handlers share.
#include "window/form1.h"

namespace plimo {

Form1::Form1(Dispatcher& dispatcher, Platform machine)
    : Form(dispatcher, "Form1"), Form1Controls(static_cast<Form&>(*this)), platform(machine) {
  design();
  provideDrivesAndFolders();
  wire();
}

std::string Form1::ownFile(std::string_view name) const { return platform.files.join(defdir, name); }

void Form1::deleteOwnFile(std::string_view name) { deleteIfPresent(platform.files, ownFile(name)); }

}  // namespace plimo
