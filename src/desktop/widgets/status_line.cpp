#include "desktop/widgets/status_line.h"

#include <QEvent>

#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/announcement.h"

namespace plimo {

StatusLine::StatusLine(QWidget* parent) : ElidedLabel(Qt::ElideMiddle, parent) {
  setObjectName(QStringLiteral("statusLine"));
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setMouseTracking(true);
  QPalette faded = palette();
  faded.setColor(QPalette::WindowText, theme().quiet);
  setPalette(faded);
  markAsAnnounced(*this);
  applyMargins();
}

void StatusLine::showText(const QString& text) {
  if (text == this->text()) return;
  setText(text);
  setToolTip(plainTip(text));
  announce(*this);
}

void StatusLine::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) applyMargins();
  ElidedLabel::changeEvent(event);
}

void StatusLine::applyMargins() {
  const int side = 2 * spacing();
  setContentsMargins(side, 0, side, scaled(6));
}

}  // namespace plimo
