#include "element.h"

#include <uiautomationclient.h>

#include <cstring>
#include <stdexcept>

#include "platform/windows/native_path.h"

namespace plimo {

// Not in the unnamed namespace: the compiler would assume that nothing implements them.
struct ToggleProvider : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Toggle() = 0;
  virtual HRESULT STDMETHODCALLTYPE get_ToggleState(int* state) = 0;  // 0: off, 1: on
};

struct InvokeProvider : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Invoke() = 0;
};

namespace {

// The headers of mingw-w64 lack these (UIAutomationClient.h, UIAutomationCoreApi.h).
constexpr LPARAM rootObject = -25;  // UiaRootObjectId
constexpr IID toggleProviderId = {0x56d00bd0, 0xc4f4, 0x433c, {0xa8, 0x36, 0x1a, 0x52, 0xa5, 0x7e, 0x08, 0x92}};
constexpr IID invokeProviderId = {0x54fcb24b, 0xe18e, 0x47a2, {0xb4, 0xd3, 0xec, 0xcb, 0xe7, 0x75, 0x99, 0xa2}};

ComPtr<IRawElementProviderSimple> handedOver;

// Takes the place of UiaReturnRawElementProvider.
LRESULT WINAPI keepProvider(HWND, WPARAM, LPARAM, IRawElementProviderSimple* provider) {
  handedOver = provider;
  return 1;
}

// Overwrites the function's beginning with a jump: mov rax, ADDRESS; jmp rax.
void interceptProviders() {
  const HMODULE library = ::LoadLibraryW(L"uiautomationcore.dll");
  const FARPROC function = library == nullptr ? nullptr : ::GetProcAddress(library, "UiaReturnRawElementProvider");
  unsigned char jump[12] = {0x48, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xe0};
  const auto target = &keepProvider;
  std::memcpy(jump + 2, &target, sizeof target);
  void* code = nullptr;
  std::memcpy(&code, &function, sizeof code);
  DWORD protection = 0;
  if (code == nullptr || !::VirtualProtect(code, sizeof jump, PAGE_EXECUTE_READWRITE, &protection)) {
    throw std::runtime_error("UI Automation cannot be intercepted");
  }
  std::memcpy(code, jump, sizeof jump);
  ::VirtualProtect(code, sizeof jump, protection, &protection);
  ::FlushInstructionCache(::GetCurrentProcess(), code, sizeof jump);
}

template <class Pattern>
ComPtr<Pattern> patternOf(const ComPtr<IRawElementProviderSimple>& provider, PATTERNID pattern, REFIID id) {
  ComPtr<IUnknown> found;
  if (FAILED(provider->GetPatternProvider(pattern, found.GetAddressOf()))) return {};
  return queryInterface<Pattern>(found, id);
}

}  // namespace

Element Element::ofWindow(HWND window) {
  static const bool intercepted = [] {
    interceptProviders();
    return true;
  }();
  handedOver.Reset();
  ::SendMessageW(window, WM_GETOBJECT, 0, rootObject);
  if (!intercepted || handedOver == nullptr) throw std::runtime_error("the window has no element");
  return Element(handedOver);
}

std::string Element::name() const {
  VARIANT value{};
  if (FAILED(provider_->GetPropertyValue(UIA_NamePropertyId, &value)) || value.vt != VT_BSTR) return {};
  std::string text = fromWide(value.bstrVal == nullptr ? L"" : value.bstrVal);
  ::VariantClear(&value);
  return text;
}

long Element::number(PROPERTYID property) const {
  VARIANT value{};
  if (FAILED(provider_->GetPropertyValue(property, &value))) return 0;
  return value.vt == VT_BOOL ? static_cast<long>(value.boolVal) : value.vt == VT_I4 ? value.lVal : 0;
}

int Element::controlType() const { return static_cast<int>(number(UIA_ControlTypePropertyId)); }
bool Element::isOffscreen() const { return number(UIA_IsOffscreenPropertyId) != 0; }

std::vector<Element> Element::children() const {
  std::vector<Element> found;
  auto fragment = queryInterface<IRawElementProviderFragment>(provider_, __uuidof(IRawElementProviderFragment));
  auto direction = NavigateDirection_FirstChild;
  while (fragment != nullptr) {
    ComPtr<IRawElementProviderFragment> next;
    if (FAILED(fragment->Navigate(direction, next.GetAddressOf()))) break;
    direction = NavigateDirection_NextSibling;
    fragment = next;
    auto simple = queryInterface<IRawElementProviderSimple>(next, __uuidof(IRawElementProviderSimple));
    if (simple != nullptr) found.push_back(Element(simple));
  }
  return found;
}

std::optional<Element> Element::find(int type, const std::string& name) const {
  for (const Element& child : children()) {
    if (child.isOffscreen()) continue;
    if (child.controlType() == type && child.name() == name) return child;
    if (auto found = child.find(type, name)) return found;
  }
  return std::nullopt;
}

void Element::visit(const std::function<void(const Element&)>& call) const {
  call(*this);
  for (const Element& child : children()) child.visit(call);
}

std::optional<bool> Element::ticked() const {
  const auto pattern = patternOf<ToggleProvider>(provider_, UIA_TogglePatternId, toggleProviderId);
  int state = 0;
  if (pattern == nullptr || FAILED(pattern->get_ToggleState(&state))) return std::nullopt;
  return state == 1;
}

bool Element::toggle() const {
  const auto pattern = patternOf<ToggleProvider>(provider_, UIA_TogglePatternId, toggleProviderId);
  return pattern != nullptr && SUCCEEDED(pattern->Toggle());
}

bool Element::press() const {
  const auto pattern = patternOf<InvokeProvider>(provider_, UIA_InvokePatternId, invokeProviderId);
  return pattern != nullptr && SUCCEEDED(pattern->Invoke());
}

}  // namespace plimo
