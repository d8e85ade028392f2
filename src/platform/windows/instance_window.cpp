#include "platform/windows/instance_window.h"

#include "platform/windows/native_path.h"

namespace plimo {

namespace {

constexpr const wchar_t* windowClass = L"PlimoFolderOwner";
constexpr ULONG_PTR messageKind = 0x504c494d;  // of the messages of this program
constexpr DWORD retryDelay = 20;               // milliseconds

// Different for each existing folder; empty if it cannot be determined.
std::wstring nameOf(const std::string& folder) {
  const UniqueHandle handle(CreateFileW(nativePath(folder).c_str(), 0,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  if (!handle || GetFileInformationByHandle(handle.get(), &information) == 0) return {};
  return L"plimo-" + std::to_wstring(information.dwVolumeSerialNumber) + L'-' +
         std::to_wstring(information.nFileIndexHigh) + L'-' + std::to_wstring(information.nFileIndexLow);
}

}  // namespace

InstanceWindow::InstanceWindow(const std::string& folder) : name_(nameOf(folder)) {}

InstanceWindow::~InstanceWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
}

bool InstanceWindow::own() {
  UniqueHandle mutex(CreateMutexW(nullptr, FALSE, (L"Local\\" + name_).c_str()));
  const DWORD error = GetLastError();
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED) return false;
  mutex_ = std::move(mutex);
  WNDCLASSW description{};
  description.lpfnWndProc = &handle;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = windowClass;
  RegisterClassW(&description);
  window_ = CreateWindowExW(0, windowClass, name_.c_str(), 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, description.hInstance,
                            nullptr);
  if (window_ != nullptr) SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return true;
}

LRESULT CALLBACK InstanceWindow::handle(HWND window, UINT message, WPARAM wide, LPARAM data) {
  if (message != WM_COPYDATA) return DefWindowProcW(window, message, wide, data);
  const auto* self = reinterpret_cast<const InstanceWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(data);
  if (self == nullptr || !self->received || copy->dwData != messageKind) return FALSE;
  self->received(std::string(static_cast<const char*>(copy->lpData), copy->cbData));
  return TRUE;
}

Claim InstanceWindow::claim(std::string_view message, std::chrono::milliseconds patience) {
  if (name_.empty()) return Claim::granted;
  const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(patience.count());
  std::string bytes(message);
  COPYDATASTRUCT copy{messageKind, static_cast<DWORD>(bytes.size()), bytes.data()};
  for (;;) {
    if (own()) return Claim::granted;
    const ULONGLONG now = GetTickCount64();
    if (now >= deadline) return Claim::noAnswer;
    if (const HWND owner = FindWindowExW(HWND_MESSAGE, nullptr, windowClass, name_.c_str()); owner != nullptr) {
      DWORD process = 0;
      GetWindowThreadProcessId(owner, &process);
      AllowSetForegroundWindow(process);  // only this program, which the user has just started, may give the permission
      DWORD_PTR answer = FALSE;
      const LRESULT sent = SendMessageTimeoutW(owner, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&copy), SMTO_NORMAL,
                                               static_cast<UINT>(deadline - now), &answer);
      if (sent != 0 && answer == TRUE) return Claim::handedOver;
      if (sent == 0 && GetLastError() == ERROR_TIMEOUT) return Claim::noAnswer;
    }
    Sleep(retryDelay);  // the owner is just starting or ending
  }
}

}  // namespace plimo
