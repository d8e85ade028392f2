// Check boxes and option buttons.
#include "desktop/binders/binder.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/choice_buttons.h"

namespace plimo {

namespace {

template <class Model>
class ChoiceBinder : public Binder {
 public:
  ChoiceBinder(Model& model, QAbstractButton* button) : Binder(model, button), model_(model), button_(button) {
    button_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(button_, &QAbstractButton::clicked, button_, [this] {
      if (acceptsClicks()) {
        model_.userClick();
      } else {
        changed(Property::value);
      }
    });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::caption) button_->setText(qstring(model_.caption()));
    if (property == Property::value) button_->setChecked(model_.value() != 0);
  }

 private:
  Model& model_;
  QAbstractButton* button_;
};

}  // namespace

std::unique_ptr<Binder> bindCheckBox(CheckBox& box, QWidget* parent) {
  return makeBinder<ChoiceBinder<CheckBox>>(box, new CheckBoxWidget(parent));
}

std::unique_ptr<Binder> bindOptionButton(OptionButton& option, QWidget* parent) {
  return makeBinder<ChoiceBinder<OptionButton>>(option, new OptionButtonWidget(option, parent));
}

}  // namespace plimo
