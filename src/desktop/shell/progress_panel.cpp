#include "desktop/shell/progress_panel.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>

#include "desktop/theme/scaling.h"
#include "desktop/theme/style_parts.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/elided_label.h"

namespace plimo {

namespace {

constexpr int barSteps = 1000;

void setTextColour(QWidget& widget, const QColor& colour) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, colour);
  widget.setPalette(palette);
}

}  // namespace

ProgressPanel::ProgressPanel(QWidget* window)
    : QWidget(window),
      cancel_(new QPushButton(QStringLiteral("Cancel"), this)),
      title_(new QLabel(this)),
      item_(new ElidedLabel(Qt::ElideMiddle, this)),
      amount_(new ElidedLabel(Qt::ElideMiddle, this)),
      bar_(new QProgressBar(this)),
      rows_(new QVBoxLayout) {
  setObjectName(QStringLiteral("progressPanel"));
  cancel_->setObjectName(QStringLiteral("progressCancel"));
  connect(cancel_, &QPushButton::clicked, this, [this] {
    cancelled_ = true;
    cancel_->setEnabled(false);
  });
  setFont(windowFont());
  title_->setFont(titleFont());
  setTextColour(*title_, theme().accent);
  setTextColour(*item_, theme().quiet);
  bar_->setTextVisible(false);
  bar_->setFixedHeight(scaled(6));

  const int edge = 2 * spacing();
  rows_->setContentsMargins(edge, edge, edge, edge);
  rows_->setSpacing(spacing() / 2);
  rows_->addWidget(title_);
  rows_->addSpacing(spacing() / 2);
  rows_->addWidget(item_);
  rows_->addWidget(amount_);
  rows_->addWidget(bar_);
  rows_->addSpacing(spacing());
  rows_->addWidget(cancel_, 0, Qt::AlignRight);
  auto* centred = new QGridLayout(this);
  centred->addLayout(rows_, 1, 1);
  for (const int side : {0, 2}) {
    centred->setRowStretch(side, 1);
    centred->setColumnStretch(side, 1);
  }
  hide();
}

void ProgressPanel::begin(const QString& title, bool cancellable) {
  title_->setText(title);
  setAccessibleName(title);
  setGeometry(parentWidget()->rect());
  bar_->setFixedWidth(std::min(scaled(460), width() - 2 * spacing()) - 4 * spacing());
  cancel_->setVisible(cancellable);
  show();
  raise();
  if (cancellable) cancel_->setFocus();
}

void ProgressPanel::update(const QString& item, const QString& amount, double part) {
  item_->setText(item);
  amount_->setText(amount);
  bar_->setRange(0, part < 0 ? 0 : barSteps);
  bar_->setValue(static_cast<int>(part * barSteps));
  bar_->update();  // without a range it moves with the time
  if (geometry() != parentWidget()->rect()) setGeometry(parentWidget()->rect());
  setAccessibleName(title_->text() + QStringLiteral(". ") + amount);
}

void ProgressPanel::paintEvent(QPaintEvent*) {
  QColor veil = theme().window;
  veil.setAlpha(160);
  QPainter painter(this);
  painter.fillRect(rect(), veil);
  paintCard(painter, rows_->geometry());
}

void ProgressPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && cancel_->isVisible()) cancel_->click();
}

}  // namespace plimo
