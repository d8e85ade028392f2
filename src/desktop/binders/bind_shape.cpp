#include "desktop/binders/binder.h"
#include "desktop/widgets/list_outline.h"

namespace plimo {

namespace {

class ShapeBinder : public Binder {
 public:
  ShapeBinder(Shape& shape, QWidget* parent) : Binder(shape, new ListOutline(shape, parent)) {}

 protected:
  void changed(Property property) override {
    if (property == Property::value) static_cast<ListOutline*>(widget())->updateMask();
    widget()->update();
  }
};

}  // namespace

std::unique_ptr<Binder> bindShape(Shape& shape, QWidget* parent) { return makeBinder<ShapeBinder>(shape, parent); }

}  // namespace plimo
