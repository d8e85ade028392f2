#include "desktop/binders/binder.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/text_area.h"

namespace plimo {

namespace {

class LabelBinder : public Binder {
 public:
  LabelBinder(Control& label, QWidget* parent)
      : Binder(label, new TextArea(parent)), text_(static_cast<TextArea*>(widget())) {}

 protected:
  void changed(Property property) override {
    if (property != Property::caption) return;
    text_->setText(qstring(control().caption()));
    text_->setAccessibleName(qstring(control().caption()).trimmed());
  }

 private:
  TextArea* text_;
};

}  // namespace

std::unique_ptr<Binder> bindLabel(Control& label, QWidget* parent) { return makeBinder<LabelBinder>(label, parent); }

}  // namespace plimo
