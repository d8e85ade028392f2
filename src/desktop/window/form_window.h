// The window of one form: its menu bar, and the ground on which its controls stand.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "controls/form.h"
#include "controls/menu.h"
#include "desktop/binders/binder.h"
#include "desktop/window/panel_stack.h"

class QMenu;
class QMenuBar;

namespace plimo {

class BoundMenus;
class FormCanvas;
struct Form1Controls;
class TimerBinder;

class FormWindow : public QWidget {
  Q_OBJECT

 public:
  // `compact` tells whether only the player is to be painted. All of them must outlive the window.
  FormWindow(Form& form, const Form1Controls* controls, MpvPlayer& player, std::function<bool()> compact);
  ~FormWindow() override;

  Form& form() const { return form_; }

  // Shows the window in the form's state; the splash window stands in the middle of the screen, without a frame.
  void present();
  void followState();
  // Outer size in twips; kept until the window manager has done what was asked of it before.
  void resizeOuter(double width, double height);
  void popUp(Menu& menu);
  // Brings visibility and focus up to the models; called before the window is painted. Where panels have been opened or
  // closed, the focusTarget follows them, and the model hears of it.
  void refresh();

  // What the user does to the window itself is let through only while this is true.
  std::function<bool()> acceptsInput = [] { return true; };

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void bind(Control& control);
  void setTabOrders();
  void fitFonts();
  void layOut();
  void reportSize();
  // The first list that shows, where the focusTarget begins; null where none does.
  Control* firstList() const;
  // What stands in a panel, in the order of the Tab key; nothing for no panel.
  std::span<Binder* const> bindersIn(const Control* panel) const;
  // The control in a panel that the Tab key comes to first; null where it comes to none.
  Control* firstFocusableIn(const Control& panel) const;
  bool focusable(const Control* control) const;
  // Where the focusTarget is to go because of the panels opened and closed since the last time; null where it stays.
  Control* focusAfterPanelChange();
  // The button that closes the panel which has the focusTarget; null where none has.
  CommandButton* cancelButton() const;
  void applyOuterSize();
  void reportFocus(QWidget* now);
  void reportHover(Control* control);
  Control* controlOf(const QWidget* widget) const;
  Binder* binderOf(const Control* control) const;

  Form& form_;
  MpvPlayer& player_;
  std::function<bool()> compact_;
  QMenuBar* menuBar_ = nullptr;
  FormCanvas* canvas_ = nullptr;
  std::vector<std::unique_ptr<Binder>> binders_;
  std::unordered_map<const Control*, Binder*> byControl_;
  std::unordered_map<const QWidget*, Control*> byWidget_;
  PanelStack panels_;
  std::map<const Control*, std::vector<Binder*>> panelOrder_;
  std::vector<std::unique_ptr<TimerBinder>> timers_;
  std::unique_ptr<BoundMenus> menus_;
  const Control* hovered_ = nullptr;  // what the pointer is over; null: the bare form
  bool hoverKnown_ = false;
  bool movingFocus_ = false;  // the program moves the focus, not the user
  QSize wantedOuter_;         // asked for and not yet there
  bool menuByKey_ = false;
  QPoint menuPosition_;  // where the user last asked for a menu
  bool presented_ = false;
  bool wasCompact_ = false;
};

}  // namespace plimo
