#include "desktop/shell/progress_panel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"

namespace plimo {

ProgressPanel::ProgressPanel(QWidget* window) : QWidget(window), cancel_(new QPushButton(this)) {
  setObjectName(QStringLiteral("progressPanel"));
  cancel_->setObjectName(QStringLiteral("progressCancel"));
  cancel_->setText(QStringLiteral("Cancel"));
  connect(cancel_, &QPushButton::clicked, this, [this] {
    cancelled_ = true;
    cancel_->setEnabled(false);
  });
  hide();
}

int ProgressPanel::textHeight() const {
  return QFontMetrics(titleFont()).height() + spacing() + 2 * (QFontMetrics(font()).height() + spacing() / 2) + 2 +
         scaled(6);
}

QRect ProgressPanel::card() const {
  const int wanted = scaled(460);
  const int button = cancel_->isHidden() ? 0 : 2 * spacing() + cancel_->sizeHint().height();
  const int height = textHeight() + button + 4 * spacing();
  QRect place(0, 0, std::min(wanted, width() - 2 * spacing()), std::min(height, this->height() - 2 * spacing()));
  place.moveCenter(rect().center());
  return place;
}

void ProgressPanel::begin(const QString& title, bool cancellable) {
  title_ = title;
  what_.clear();
  howFar_.clear();
  part_ = -1;
  animationStep_ = 0;
  cancelled_ = false;
  setGeometry(parentWidget()->rect());
  cancel_->setVisible(cancellable);
  cancel_->setEnabled(true);
  show();
  raise();
  if (cancellable) cancel_->setFocus();
}

void ProgressPanel::resizeEvent(QResizeEvent*) {
  const QSize size = cancel_->sizeHint();
  const QRect inner = card().adjusted(0, 0, -2 * spacing(), -2 * spacing());
  cancel_->setGeometry(inner.right() - size.width(), inner.bottom() - size.height(), size.width(), size.height());
}

void ProgressPanel::tell(const QString& what, const QString& howFar, double part) {
  what_ = what;
  howFar_ = howFar;
  part_ = part;
  ++animationStep_;
  if (geometry() != parentWidget()->rect()) setGeometry(parentWidget()->rect());
  setAccessibleName(title_ + QStringLiteral(". ") + howFar_);
  update();
}

void ProgressPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor veil = theme().window;
  veil.setAlpha(160);
  painter.fillRect(rect(), veil);
  const QRect place = card();
  painter.setPen(QPen(theme().border, 1));
  painter.setBrush(theme().card);
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 2 * radius(), 2 * radius());
  const QRect inner = place.adjusted(2 * spacing(), 2 * spacing(), -2 * spacing(), -2 * spacing());
  painter.setFont(titleFont());
  painter.setPen(theme().accent);
  painter.drawText(inner, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, title_);
  int y = inner.top() + painter.fontMetrics().height() + spacing();
  const auto line = [&](const QString& text, const QColor& ink) {
    painter.setPen(ink);
    const int height = painter.fontMetrics().height();
    painter.drawText(QRect(inner.left(), y, inner.width(), height), Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideMiddle, inner.width()));
    y += height + spacing() / 2;
  };
  painter.setFont(font());
  line(what_, theme().quiet);
  line(howFar_, theme().text);
  const QRectF bar(inner.left(), y + 2, inner.width(), scaled(6));
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme().border);
  painter.drawRoundedRect(bar, 3, 3);
  painter.setBrush(theme().accent);
  QRectF filled = bar;
  if (part_ >= 0) {
    filled.setWidth(bar.width() * std::min(1.0, part_));
  } else {
    constexpr int beats = 24;
    const double at = animationStep_ % (2 * beats) < beats ? animationStep_ % beats : beats - animationStep_ % beats;
    filled.setWidth(bar.width() / 4);
    filled.moveLeft(bar.left() + (bar.width() - filled.width()) * at / beats);
  }
  painter.drawRoundedRect(filled, 3, 3);
}

void ProgressPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && cancel_->isVisible()) cancel_->click();
}

}  // namespace plimo
