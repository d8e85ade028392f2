// A window: its controls, its size and state, and the keyboard focus.
#pragma once

#include <chrono>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/dispatcher.h"

namespace plimo {

class Menu;

enum class WindowState { normal = 0, minimised = 1, maximised = 2 };

// The real window of a form. It reports its size through Form::windowResized, immediately or later.
class FormHost {
 public:
  FormHost() = default;
  FormHost(const FormHost&) = delete;
  FormHost& operator=(const FormHost&) = delete;
  virtual ~FormHost() = default;
  virtual void show(Form& form) = 0;
  virtual void unload(Form& form) = 0;  // closes the window; the program ends with its last window
  virtual void captionChanged(Form& form) = 0;
  virtual void statusChanged(Form& form) = 0;                          // to Form::status
  virtual void stateChanged(Form& form) = 0;                           // to Form::windowState
  virtual void resizeTo(Form& form, double width, double height) = 0;  // outer size, twips
  virtual void focusChanged(Form& form) = 0;                           // to Form::focus
  virtual void popUp(Form& form, Menu& menu) = 0;                      // where the user last pointed or typed
  // Paints what has changed and lets the time pass; no user input gets through meanwhile.
  virtual void pause(Form& form, std::chrono::milliseconds time) = 0;
};

class Form {
 public:
  Form(Dispatcher& dispatcher, std::string_view name);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& name() const { return name_; }
  Dispatcher& dispatcher() const { return dispatcher_; }
  // All controls, menus and timers, in the order in which they were declared.
  std::span<Control* const> controls() const { return controls_; }
  // Null if the form has no control of that name.
  Control* find(std::string_view name) const;

  // The host must outlive the form, or be removed with null.
  void setHost(FormHost* host) { host_ = host; }

  // --- Program API ---
  bool visible() const { return visible_; }
  void show();
  void unload();
  bool loaded() const { return loaded_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string_view caption);
  // One sentence about the last command, shown at the foot of the window; empty for none.
  const std::string& status() const { return status_; }
  void setStatus(std::string_view status);
  WindowState windowState() const { return state_; }
  void setWindowState(WindowState state);
  // Outer size including frame and title bar, in twips. Setting it asks the host, which reports windowResized.
  double width() const { return width_; }
  double height() const { return height_; }
  void setSize(double width, double height);
  // Inner size, the area of the controls, in twips.
  double scaleWidth() const { return scaleWidth_; }
  double scaleHeight() const { return scaleHeight_; }
  // The size as designed, before the window is shown: inner and outer alike; nothing is raised.
  void designSize(double width, double height);
  // The control that has the keyboard focus; null for none.
  Control* focus() const { return focus_; }
  void setFocus(Control* control);
  void popUp(Menu& menu);
  // Shows what has changed so far, then waits. For animations and for a caption that is to be seen during a command.
  void pause(std::chrono::milliseconds time);

  // --- Events ---
  Event load;
  Event resize;
  Event mouseMove;
  Event terminate;
  Event unloaded;  // the form has been unloaded

  // --- Host and user-input API ---
  // Loads the form: its load event runs as a handler.
  void runLoad();
  // The window has this size now, in twips; raises resize if the inner size has changed.
  void windowResized(double scaleWidth, double scaleHeight, double width, double height);
  // The user or the desktop changed the window's state.
  void windowStateChanged(WindowState state) { state_ = state; }
  // The user moved the keyboard focus.
  void userFocus(Control* control) { focus_ = control; }
  void userMouseMove();
  // The user closes the window by its frame. While a handler runs, it closes after the outermost one has ended.
  void userClose();
  // The user has closed the window while a handler runs.
  bool closing() const { return closePending_; }

 private:
  friend class Control;
  void enlist(Control& control) { controls_.push_back(&control); }

  Dispatcher& dispatcher_;
  std::string name_;
  std::vector<Control*> controls_;
  FormHost* host_ = nullptr;
  bool loaded_ = false;
  bool visible_ = false;
  bool closePending_ = false;
  std::string caption_;
  std::string status_;
  WindowState state_ = WindowState::normal;
  double width_ = 0;
  double height_ = 0;
  double scaleWidth_ = 0;
  double scaleHeight_ = 0;
  Control* focus_ = nullptr;
};

}  // namespace plimo
