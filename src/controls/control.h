// What every control has: a name, a geometry, colours, texts, visibility and whether it is enabled.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/colour.h"

namespace plimo {

class Form;

// An event without arguments. The program's wiring sets its handler once; unwired events do nothing.
using Event = std::function<void()>;

// In twips (1440 to an inch, 15 to a pixel at 96 dpi), relative to the containing frame or form.
struct Geometry {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  friend bool operator==(const Geometry&, const Geometry&) = default;
};

enum class Property {
  visible,
  enabled,
  caption,
  tooltip,
  accessibleName,
  geometry,
  colours,
  picture,
  value,
  contents,
  interval
};

class ControlObserver {
 public:
  ControlObserver() = default;
  ControlObserver(const ControlObserver&) = delete;
  ControlObserver& operator=(const ControlObserver&) = delete;
  virtual ~ControlObserver() = default;
  virtual void propertyChanged(Property property) = 0;
};

enum class ControlKind {
  commandButton,
  checkBox,
  optionButton,
  picture,
  label,
  frame,
  shape,
  slider,
  listBox,
  treeView,
  driveList,
  folderList,
  mediaPlayer,
  timer,
  menu,
};

class Control {
 public:
  Control(Form& form, ControlKind kind, std::string_view name, Control* container = nullptr);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  Form& form() const { return form_; }
  ControlKind kind() const { return kind_; }
  const std::string& name() const { return name_; }
  Control* container() const { return container_; }  // a frame; null: the form itself

  // --- Program API: none of these raises an event ---
  bool visible() const { return visible_; }
  void setVisible(bool visible);
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  const std::string& caption() const { return caption_; }
  void setCaption(std::string_view caption);
  const std::string& tooltip() const { return tooltip_; }
  void setTooltip(std::string_view tooltip);
  // What assistive tools call a control that has no caption; empty if the caption is enough.
  const std::string& accessibleName() const { return accessibleName_; }
  void setAccessibleName(std::string_view name);
  const Geometry& geometry() const { return geometry_; }
  void setGeometry(const Geometry& geometry);
  Colour foreColour() const { return foreColour_; }
  Colour backColour() const { return backColour_; }
  void setForeColour(Colour colour);
  void setBackColour(Colour colour);

  // Visible, and so are all its containers.
  virtual bool showing() const;
  // Showing and enabled: the user can operate it.
  bool usable() const { return showing() && enabled_; }

  // Notifies the observer of the whole present state, then of every change. Remove an observer before it is destroyed.
  void addObserver(ControlObserver& observer);
  void removeObserver(ControlObserver& observer);

  // --- Events ---
  Event click;
  Event mouseMove;

  // --- User-input API ---
  // Press and release; takes the keyboard focus where the kind of control takes one.
  virtual void userClick();
  void userMouseMove();

 protected:
  void notify(Property property);
  // Notifies a new observer of the present state; a kind with more state adds its own.
  virtual void replay(ControlObserver& observer);
  // Runs a handler for something that the user did.
  void raise(const std::function<void()>& handler);

 private:
  template <class T>
  void change(T& member, const T& value, Property property);

  Form& form_;
  ControlKind kind_;
  std::string name_;
  Control* container_;
  bool visible_ = true;
  bool enabled_ = true;
  std::string caption_;
  std::string tooltip_;
  std::string accessibleName_;
  Geometry geometry_;
  Colour foreColour_ = 0;
  Colour backColour_ = 0xFFFFFF;
  std::vector<ControlObserver*> observers_;
};

}  // namespace plimo
