#include <QPainter>

#include "desktop/binders/binder.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/return_activates_button.h"

namespace plimo {

namespace {

class PictureWidget : public ReturnActivatesButton {
 public:
  PictureWidget(bool stretched, QWidget* parent) : ReturnActivatesButton(parent), stretched_(stretched) {
    setFocusPolicy(stretched ? Qt::NoFocus : Qt::TabFocus);
    if (!stretched) setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
  }

  void setArt(const QString& name) {
    art_ = name;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF place = rect();
    if (!stretched_) place.adjust(2, 2, -2, -2);
    if (isDown() && !stretched_) place.translate(0, 1);
    if (!stretched_ && !underMouse() && !hasFocus()) painter.setOpacity(0.92);
    const QRectF taken = paintArt(painter, art_, place, stretched_ ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio);
    painter.setOpacity(1);
    if (hasFocus()) paintRing(painter, taken.adjusted(-2, -2, 2, 2), taken.height() / 2 + 2);
  }

 private:
  bool stretched_;
  QString art_;
};

class PictureBinder : public Binder {
 public:
  PictureBinder(Picture& picture, QWidget* parent)
      : Binder(picture, new PictureWidget(picture.form().find("List1") == nullptr, parent)),
        picture_(picture),
        shown_(static_cast<PictureWidget*>(widget())) {
    QObject::connect(shown_, &QAbstractButton::clicked, shown_, [&picture] { picture.userClick(); });
  }

 protected:
  void changed(Property property) override {
    if (property == Property::picture) shown_->setArt(qstring(picture_.picture()));
    if (property == Property::tooltip && picture_.tooltip().empty()) shown_->setToolTip(shown_->accessibleName());
  }

 private:
  Picture& picture_;
  PictureWidget* shown_;
  ObserverScope observerScope_{picture_, *this};
};

}  // namespace

std::unique_ptr<Binder> bindPicture(Picture& picture, QWidget* parent) {
  return std::make_unique<PictureBinder>(picture, parent);
}

}  // namespace plimo
