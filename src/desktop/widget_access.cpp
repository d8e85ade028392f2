#include "desktop/widget_access.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRadioButton>
#include <QScrollArea>

#include "desktop/form_window.h"

namespace plimo {

namespace {

// The toolkit would take an option button that excludes no other by itself for a check box, and would turn its mark
// without a click, past the model.
class ChoiceAccess : public QAccessibleWidget {
 public:
  ChoiceAccess(QAbstractButton& button, QAccessible::Role role) : QAccessibleWidget(&button, role), button_(button) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? button_.text() : QAccessibleWidget::text(kind);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button_.isChecked();
    return state;
  }

  QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }

  void doAction(const QString& name) override {
    if (name == toggleAction()) {
      button_.animateClick();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  QAbstractButton& button_;
};

// A text that may scroll is one text. (The toolkit tells of its scroll bars by index too, and takes no care of an index
// that was right before a bar went.)
class TextAccess : public QAccessibleWidget {
 public:
  explicit TextAccess(QScrollArea& area) : QAccessibleWidget(&area, QAccessible::StaticText) {}

  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
};

QAccessibleInterface* makeAccess(const QString&, QObject* object) {
  if (auto* option = qobject_cast<QRadioButton*>(object)) return new ChoiceAccess(*option, QAccessible::RadioButton);
  if (auto* box = qobject_cast<QCheckBox*>(object)) return new ChoiceAccess(*box, QAccessible::CheckBox);
  if (auto* text = qobject_cast<QScrollArea*>(object)) return new TextAccess(*text);
  if (auto* window = qobject_cast<FormWindow*>(object)) return new QAccessibleWidget(window, QAccessible::Window);
  return nullptr;
}

}  // namespace

void installWidgetAccess() { QAccessible::installFactory(makeAccess); }

}  // namespace plimo
