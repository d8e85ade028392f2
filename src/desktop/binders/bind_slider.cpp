#include "desktop/binders/binder.h"
#include "desktop/widgets/colour_slider.h"

namespace plimo {

namespace {

class SliderBinder : public Binder {
 public:
  SliderBinder(Slider& slider, QWidget* parent)
      : Binder(slider, new ColourSlider(slider, parent)), slider_(slider), view_(static_cast<ColourSlider*>(widget())) {
    // Assistive tools set the widget's value directly.
    QObject::connect(view_, &QSlider::valueChanged, view_, [&slider](int value) {
      if (value != slider.value()) slider.userDrag(value);
    });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::value) view_->setValue(slider_.value());
  }

 private:
  Slider& slider_;
  ColourSlider* view_;
};

}  // namespace

std::unique_ptr<Binder> bindSlider(Slider& slider, QWidget* parent) { return makeBinder<SliderBinder>(slider, parent); }

}  // namespace plimo
