// A program for the tests: begins to replace the file "old" in the current folder, reports it by the file "begun", and
// waits to be killed.
#include <windows.h>

#include <string>

#include "platform/windows/windows_files.h"

int main() {
  plimo::WindowsFiles files;
  const auto replacement = files.replaceFile("old", plimo::Force::no);
  replacement->write(std::string(3 * 1024 * 1024, 'x'));
  plimo::replaceWhole(files, "begun", "", plimo::Force::no);
  ::Sleep(INFINITE);
}
