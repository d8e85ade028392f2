#include <QGroupBox>

#include "desktop/binders/binder.h"
#include "desktop/theme/strings.h"

namespace plimo {

namespace {

class FrameBinder : public Binder {
 public:
  FrameBinder(Control& frame, QWidget* parent) : Binder(frame, new QGroupBox(parent)) {}

 protected:
  void changed(Property property) override {
    if (property == Property::caption) static_cast<QGroupBox*>(widget())->setTitle(qstring(control().caption()));
  }
};

}  // namespace

std::unique_ptr<Binder> bindFrame(Control& frame, QWidget* parent) { return makeBinder<FrameBinder>(frame, parent); }

}  // namespace plimo
