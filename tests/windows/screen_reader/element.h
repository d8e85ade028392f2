// An element of the window as a screen reader gets it: what the toolkit hands to UI Automation.
//
// Wine's own client of UI Automation stops at the window, so the elements are taken where the toolkit hands them over.
#pragma once

#include <windows.h>
// It comes first: this one needs it.
#include <uiautomationcore.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/directshow/com.h"

namespace plimo {

class Element {
 public:
  // The element of a window of this process. Throws std::runtime_error if the window has none.
  static Element ofWindow(HWND window);

  std::string name() const;
  // UIA_...ControlTypeId.
  int controlType() const;
  bool isOffscreen() const;
  std::vector<Element> children() const;
  // The first one of this type and name among the elements below it that are not hidden.
  std::optional<Element> find(int type, const std::string& name) const;
  // Calls the function for it and all that are below it, rows included.
  void visit(const std::function<void(const Element&)>& call) const;

  // True if its box is ticked; nullopt if it has none.
  std::optional<bool> ticked() const;
  // Ticks or unticks its box. False if it has none.
  bool toggle() const;
  // Presses it. False if it is nothing to press.
  bool press() const;

 private:
  explicit Element(ComPtr<IRawElementProviderSimple> provider) : provider_(std::move(provider)) {}
  long number(PROPERTYID property) const;

  ComPtr<IRawElementProviderSimple> provider_;
};

}  // namespace plimo
