// What the files of this folder need of COM.
#pragma once

#include <windows.h>
#include <wrl/client.h>

namespace plimo {

using Microsoft::WRL::ComPtr;

// The other interface of an object; null if it has none. Some interfaces have no identifier that the compiler knows.
template <class Interface, class Object>
ComPtr<Interface> queryInterface(const ComPtr<Object>& object, REFIID id) {
  ComPtr<Interface> result;
  if (object != nullptr) object->QueryInterface(id, reinterpret_cast<void**>(result.GetAddressOf()));
  return result;
}

// COM in a thread with a message loop, while the object exists.
class ComApartment {
 public:
  ComApartment() : result_(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment() {
    if (SUCCEEDED(result_)) ::CoUninitialize();
  }

 private:
  HRESULT result_;
};

}  // namespace plimo
