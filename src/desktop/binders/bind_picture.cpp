#include "desktop/binders/binder.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/picture_button.h"

namespace plimo {

namespace {

class PictureBinder : public Binder {
 public:
  PictureBinder(Picture& picture, QWidget* parent)
      : Binder(picture, new PictureButton(picture.stretched(), parent)),
        picture_(picture),
        button_(static_cast<PictureButton*>(widget())) {
    QObject::connect(button_, &QAbstractButton::clicked, button_, [this] {
      if (acceptsClicks()) this->control().userClick();
    });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::picture) button_->setArt(qstring(picture_.picture()));
    if (property == Property::tooltip && picture_.tooltip().empty()) button_->setToolTip(button_->accessibleName());
  }

 private:
  Picture& picture_;
  PictureButton* button_;
};

}  // namespace

std::unique_ptr<Binder> bindPicture(Picture& picture, QWidget* parent) {
  return makeBinder<PictureBinder>(picture, parent);
}

}  // namespace plimo
