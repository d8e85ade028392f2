#include "desktop/widgets/list_outline.h"

#include <QPainter>

#include "controls/form.h"
#include "desktop/theme/list_colours.h"
#include "desktop/theme/units.h"

namespace plimo {

ListOutline::ListOutline(Shape& model, QWidget* parent) : QWidget(parent), model_(model) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
}

void ListOutline::updateMask() {
  const int width = model_.borderWidth();
  const bool rectangle = model_.outline() == Shape::Outline::rectangle;
  const QRegion::RegionType shape = rectangle ? QRegion::Rectangle : QRegion::Ellipse;
  setMask(QRegion(rect(), shape).subtracted(QRegion(rect().adjusted(width, width, -width, -width), shape)));
}

void ListOutline::resizeEvent(QResizeEvent*) { updateMask(); }

void ListOutline::paintEvent(QPaintEvent*) {
  const Control* list = framedList();
  if (list == nullptr) return;
  const ListColours colours = listColours(list->foreColour(), list->backColour());
  const bool focused = model_.form().focus() == list;
  QPainter(this).fillRect(rect(), qcolor(focused ? colours.mark : colours.quiet));
}

const Control* ListOutline::framedList() const {
  for (const Control* control : model_.form().controls()) {
    const bool list = control->kind() == ControlKind::listBox && control->container() == model_.container();
    if (list && control->showing() && pixelRect(control->geometry()) == geometry()) return control;
  }
  return nullptr;
}

}  // namespace plimo
