// The window of one form: its menu bar, and the canvas with the widgets of its controls.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "controls/form.h"
#include "controls/menu.h"
#include "desktop/binders/binder.h"
#include "desktop/window/panel_stack.h"

class QMenu;
class QMenuBar;
class QToolButton;

namespace plimo {

class BoundMenus;
class FormCanvas;
class PlayerStrip;
class ListBox;
class ListView;
class StatusLine;
struct Form1Controls;
class TimerBinder;

class FormWindow : public QWidget {
  Q_OBJECT

 public:
  // `controls` are those of the main window; null for another one. `compact` returns whether only the player is
  // visible. All of them must outlive the window.
  FormWindow(Form& form, Form1Controls* controls, PlaylistPlayer& player, std::function<bool()> compact);
  ~FormWindow() override;

  // Reports form windows to assistive tools as windows. To be called once, before the first window is made.
  static void installAccessible();

  Form& form() const { return form_; }

  // Shows the window in the form's state; the splash window is centred on the screen and has no frame.
  void present();
  // Applies the form's state: normal, minimised or maximised.
  void applyState();
  // Outer size in twips; applied as soon as the window manager has carried out earlier requests.
  void resizeOuter(double width, double height);
  void popUp(Menu& menu);
  // Applies the visibility of the controls and the focus; called before the window is painted. If panels have been
  // opened or closed, the focus moves with them, and the form is notified.
  void refresh();

  // Shows the form's status at the foot of the window, and announces it to assistive tools.
  void showStatus();

  // The window's own input (moving the pointer, Escape) is ignored while this returns false.
  std::function<bool()> acceptsInput = [] { return true; };
  // Asks the user a question with Yes and No; true for Yes.
  std::function<bool(const std::string& question)> confirm = [](const std::string&) { return true; };
  // The user closes the window, at any time. It stays until the form is unloaded.
  std::function<void()> closed = [this] { form_.userClose(); };
  // The user has dropped files of another program on the window, at least one of them a playlist. Absolute paths.
  // Without this function nothing can be dropped. The other program waits until it returns.
  std::function<void(const std::vector<std::string>& files)> filesDropped;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // --- form_window.cpp ---
  void bind(Control& control);
  std::unique_ptr<Binder> makeBinderFor(Control& control, QWidget* parent);
  void applyVisibility(bool compactView);
  void describeLists();
  ListView& listView(const ListBox& list) const;
  void prepareLists(const Form1Controls& controls);
  void reportHover(Control* control);
  Control* controlOf(const QWidget* widget) const;
  Binder* binderOf(const Control* control) const;

  // --- The window's size and state: form_window_size.cpp ---
  void applyOuterSize();
  void applyMinimumSize();
  void resized();
  void fitFonts();
  void layOut();
  void placePlayer();
  void reportSize();
  int statusHeight() const;  // pixels; 0 if the window shows no status

  // --- Shortcuts and finding: form_window_shortcuts.cpp ---
  void addShortcuts(Form1Controls& controls);
  void addFindButton();
  void placeFindButton();
  void find();
  void scanAgain(Form1Controls& controls);

  // --- What plays: form_window_player.cpp ---
  void followPlayer();
  void showPlaying();
  void showHiddenPlayer();

  // --- The keyboard focus: form_window_focus.cpp ---
  void setTabOrders();
  void applyFocus(bool compactView);
  void reportFocus(QWidget* now);
  // The first visible list, which has the focus at first; null for none.
  Control* firstList() const;
  // The controls in a panel, in the order of the Tab key; empty for no panel.
  std::span<Binder* const> bindersIn(const Control* panel) const;
  // The first control in a panel that the Tab key reaches; null for none.
  Control* firstFocusableIn(const Control& panel) const;
  bool focusable(const Control* control) const;
  // The control that gets the focus because panels have been opened or closed since the last call; null for no change.
  Control* focusAfterPanelChange();
  // The same after the compact view has been left.
  Control* focusAfterCompactView();
  // The button that closes the panel with the focus; null if there is none.
  CommandButton* cancelButton() const;

  Form& form_;
  Form1Controls* controls_;
  PlaylistPlayer& player_;
  std::function<bool()> compact_;
  QMenuBar* menuBar_ = nullptr;
  QToolButton* findButton_ = nullptr;
  FormCanvas* canvas_ = nullptr;
  PlayerStrip* hiddenPlayer_ = nullptr;  // made when it is first needed
  std::shared_ptr<void> playing_;        // the observation of the player
  StatusLine* status_ = nullptr;
  std::vector<std::unique_ptr<Binder>> binders_;
  std::unordered_map<const Control*, Binder*> byControl_;
  std::unordered_map<const QWidget*, Control*> byWidget_;
  PanelStack panels_;
  std::map<const Control*, std::vector<Binder*>> panelOrder_;
  std::vector<std::unique_ptr<TimerBinder>> timers_;
  std::unique_ptr<BoundMenus> menus_;
  const Control* hovered_ = nullptr;  // under the pointer; null: the form itself
  bool hoverKnown_ = false;
  bool movingFocus_ = false;  // the program moves the focus, not the user
  QSize wantedOuter_;         // requested and not yet reached
  bool menuByKey_ = false;
  QPoint menuPosition_;  // where the user last asked for a menu, in global coordinates
  bool presented_ = false;
  bool wasCompact_ = false;
  bool leftCompact_ = false;  // the focus is to return to where it was before
  Control* focusBeforeCompact_ = nullptr;
};

}  // namespace plimo
