// A program for the tests of the window: posts an application command to the main window of Plimo!, as the buttons of
// headsets and remote controls do. Its argument is the number of the command (APPCOMMAND_...).
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <iterator>

namespace {

BOOL CALLBACK compare(HWND window, LPARAM found) {
  constexpr const wchar_t title[] = L"Plimo!";
  wchar_t text[std::size(title)]{};
  ::GetWindowTextW(window, text, std::size(text));  // only as much of it as is compared
  if (std::wcscmp(text, title) != 0 || !::IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 2;
  HWND window = nullptr;
  ::EnumWindows(compare, reinterpret_cast<LPARAM>(&window));
  if (window == nullptr) {
    std::fputs("there is no window\n", stderr);
    return 1;
  }
  const auto command = static_cast<WORD>(std::atoi(words[1]) | FAPPCOMMAND_OEM);
  return ::PostMessageW(window, WM_APPCOMMAND, reinterpret_cast<WPARAM>(window), MAKELPARAM(0, command)) ? 0 : 1;
}
