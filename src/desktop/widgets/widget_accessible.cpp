#include "desktop/widgets/widget_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <cmath>

#include "desktop/theme/strings.h"
#include "desktop/widgets/announcement.h"
#include "desktop/widgets/player_strip.h"
#include "desktop/widgets/seek_slider.h"

namespace plimo {

namespace {

// The toolkit reports an option button that is not auto-exclusive as a check box, and toggles it without a click, so
// that the model would not be changed.
class ChoiceAccessible : public QAccessibleWidget {
 public:
  ChoiceAccessible(QAbstractButton& button, QAccessible::Role role)
      : QAccessibleWidget(&button, role), button_(button) {}

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

// A text that may scroll is a single text without children. (The toolkit also reports its scroll bars as children, by
// an index that is out of range once a bar is hidden.)
class TextAccessible : public QAccessibleWidget {
 public:
  explicit TextAccessible(QScrollArea& area) : QAccessibleWidget(&area, QAccessible::StaticText) {}

  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
};

// The toolkit has no announcements; a notification whose name changes is one.
class AnnouncedLabel : public QAccessibleWidget {
 public:
  explicit AnnouncedLabel(QLabel& label) : QAccessibleWidget(&label, QAccessible::Notification), label_(label) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? label_.text() : QAccessibleWidget::text(kind);
  }

 private:
  QLabel& label_;
};

// The position in a song in seconds, with a text for it.
class SeekAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SeekAccessible(SeekSlider& slider) : QAccessibleWidget(&slider, QAccessible::Slider), slider_(slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Value && kind != QAccessible::Description) return QAccessibleWidget::text(kind);
    return clockText(slider_.seconds()) + QStringLiteral(" of ") + clockText(slider_.duration());
  }

  QVariant currentValue() const override { return std::floor(slider_.seconds()); }
  void setCurrentValue(const QVariant& value) override { slider_.seek(value.toDouble()); }
  QVariant maximumValue() const override { return std::floor(slider_.duration()); }
  QVariant minimumValue() const override { return 0.0; }
  QVariant minimumStepSize() const override { return 1.0; }

 private:
  SeekSlider& slider_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  if (auto* label = qobject_cast<QLabel*>(object)) return isAnnounced(*label) ? new AnnouncedLabel(*label) : nullptr;
  if (auto* seek = dynamic_cast<SeekSlider*>(object)) return new SeekAccessible(*seek);
  const bool isGroup =
      qobject_cast<PlayerStrip*>(object) != nullptr || object->objectName() == QLatin1String("progressPanel");
  if (isGroup) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Grouping);
  }
  if (auto* option = qobject_cast<QRadioButton*>(object))
    return new ChoiceAccessible(*option, QAccessible::RadioButton);
  if (auto* box = qobject_cast<QCheckBox*>(object)) return new ChoiceAccessible(*box, QAccessible::CheckBox);
  if (auto* text = qobject_cast<QScrollArea*>(object)) return new TextAccessible(*text);
  return nullptr;
}

}  // namespace

void installWidgetAccessible() { QAccessible::installFactory(makeAccessible); }

}  // namespace plimo
