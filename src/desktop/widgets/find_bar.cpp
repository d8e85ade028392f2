#include "desktop/widgets/find_bar.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QToolButton>
#include <utility>

#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/announcement.h"
#include "desktop/widgets/list_view.h"

namespace plimo {

namespace {

QString number(std::size_t count) { return QLocale(QLocale::English).toString(static_cast<qulonglong>(count)); }

}  // namespace

FindBar::FindBar(ListView& view) : QWidget(&view), view_(view), search_(view.model(), this) {
  setObjectName(QStringLiteral("findBar"));
  setCursor(Qt::ArrowCursor);
  auto* row = new QHBoxLayout(this);
  field_ = new QLineEdit(this);
  field_->setObjectName(QStringLiteral("findField"));
  field_->setPlaceholderText(QStringLiteral("Find"));
  field_->setAccessibleName(QStringLiteral("Find in the list"));
  field_->installEventFilter(this);
  row->addWidget(field_, 1);
  // A click on a button leaves the focus in the field: otherwise the list below would take it.
  setFocusProxy(field_);
  setFocusPolicy(Qt::ClickFocus);
  count_ = new QLabel(this);
  count_->setObjectName(QStringLiteral("findCount"));
  markAsAnnounced(*count_);
  row->addWidget(count_);
  const auto button = [&](const QString& name, const QString& tip, Qt::ArrowType arrow, const QString& text) {
    QToolButton* added = addButton(name, tip);
    added->setArrowType(arrow);
    added->setText(text);
    return added;
  };
  QToolButton* up = button(QStringLiteral("findPrevious"), QStringLiteral("Previous (Shift+Enter)"), Qt::UpArrow, {});
  QToolButton* down = button(QStringLiteral("findNext"), QStringLiteral("Next (Enter)"), Qt::DownArrow, {});
  if (view.model().style() == ListBox::Style::checkBoxes) {
    tickedOnly_ = button(QStringLiteral("tickedOnly"), QStringLiteral("Show only what is ticked"), Qt::NoArrow,
                         QStringLiteral("\u2713"));
    tickedOnly_->setCheckable(true);
    connect(tickedOnly_, &QToolButton::toggled, this, &FindBar::tickedOnlyToggled);
  }
  QToolButton* end =
      button(QStringLiteral("findClose"), QStringLiteral("Close (Esc)"), Qt::NoArrow, QStringLiteral("\u00D7"));
  connect(up, &QToolButton::clicked, this, [this] { step(Step::previous); });
  connect(down, &QToolButton::clicked, this, [this] { step(Step::next); });
  connect(end, &QToolButton::clicked, this, &FindBar::close);
  connect(field_, &QLineEdit::textEdited, this, &FindBar::search);
  connect(&search_, &RowSearch::advanced, this, [this] {
    carryOut();
    showCount();
  });
  fit();
  hide();
}

QToolButton* FindBar::addButton(const QString& name, const QString& tip) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  static_cast<QBoxLayout*>(layout())->addWidget(button);
  return button;
}

void FindBar::open() {
  show();
  raise();
  origin_ = view_.model().current().value_or(0);
  field_->setFocus(Qt::ShortcutFocusReason);
  field_->selectAll();
  search();
}

void FindBar::close() {
  search_.start(SearchText(), 0);
  match_.reset();
  pending_ = Step::none;
  if (tickedOnly_ != nullptr) tickedOnly_->setChecked(false);
  const bool focused = isAncestorOf(QApplication::focusWidget());
  hide();
  if (focused) view_.setFocus(Qt::OtherFocusReason);
  Q_EMIT closed();
}

void FindBar::rowsChanged() {
  match_.reset();
  if (isVisible()) search_.restart();
}

void FindBar::search() {
  match_.reset();
  pending_ = Step::first;
  search_.start(SearchText(field_->text()), origin_);
  if (search_.wanted().empty()) showCount();
  Q_EMIT marksChanged();
}

void FindBar::step(Step direction) {
  // What typing has found becomes the current row first.
  const bool here = match_ && view_.model().current() == match_;
  if (here || !match_) {
    pending_ = here ? direction : Step::first;
    carryOut();
  }
  if (match_ && view_.model().current() != match_) view_.model().userMoveCurrent(*match_);
}

// Carries out the step that is waited for, if the search has come far enough.
void FindBar::carryOut() {
  if (pending_ == Step::none) return;
  const bool moves = pending_ != Step::first;
  std::optional<std::size_t> to;
  if (pending_ == Step::first) to = search_.first();
  if (pending_ == Step::next) to = search_.after(*match_);
  if (pending_ == Step::previous) to = search_.before(*match_);
  if (search_.finished()) pending_ = Step::none;
  if (!to) return;
  pending_ = Step::none;
  match_ = to;
  view_.reveal(*to);
  if (moves) view_.model().userMoveCurrent(*to);
  showCount();
  Q_EMIT marksChanged();
}

void FindBar::showCount() {
  QString text;
  if (!search_.wanted().empty()) {
    const std::size_t found = search_.found();
    if (!search_.finished()) {
      text = number(found) + QStringLiteral("\u2026");
    } else if (found == 0) {
      text = QStringLiteral("none");
    } else if (match_) {
      text = QStringLiteral("%1 of %2").arg(number(search_.placeOf(*match_)), number(found));
    } else {
      text = number(found);
    }
  }
  if (text == count_->text()) return;
  count_->setText(text);
  if (search_.finished()) announce(*count_);
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == field_ && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      step(key->modifiers().testFlag(Qt::ShiftModifier) ? Step::previous : Step::next);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

// The list gets only keys that move in it: letters and Backspace are commands there.
void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  const bool command = !event->text().isEmpty() || event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
  if (!command) event->ignore();
}

void FindBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) fit();
  QWidget::changeEvent(event);
}

void FindBar::fit() {
  const int gap = scaled(4);
  layout()->setContentsMargins(gap, gap, gap, gap);
  layout()->setSpacing(gap);
}

void FindBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme().card);
  painter.setPen(theme().border);
  painter.drawLine(rect().bottomLeft(), rect().bottomRight());
}

}  // namespace plimo
