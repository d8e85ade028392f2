#include "desktop/widgets/list_view.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/theme/contrast.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/find_bar.h"

namespace plimo {

namespace {

constexpr int outline = 3;  // pixels, of the frame, which a Shape may cover

int margin() { return scaled(4); }      // between the frame and the rows' texts
int rowPadding() { return scaled(6); }  // above and below a row's text together

}  // namespace

ListView::ListView(ListBox& model, QWidget* parent) : QAbstractScrollArea(parent), model_(model), rows_(model) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setLineWidth(outline);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::ArrowCursor);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  measure();
  constexpr int dragInterval = 60;
  dragTimer_.setInterval(dragInterval);
  connect(&dragTimer_, &QTimer::timeout, this, [this] { extendToPointer(viewport()->mapFromGlobal(QCursor::pos())); });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    if (!programScrolls_) model_.userScroll();
  });
}

void ListView::measure() { rowHeight_ = fontMetrics().height() + rowPadding(); }

std::size_t ListView::top() const { return static_cast<std::size_t>(verticalScrollBar()->value()); }

std::size_t ListView::pageRows() const {
  return static_cast<std::size_t>(std::max(1, viewport()->height() / rowHeight_));
}

void ListView::updateRange() {
  const int rows = static_cast<int>(std::min<std::size_t>(rows_.count(), 1U << 30));
  const int page = static_cast<int>(pageRows());
  programScrolls_ = true;
  verticalScrollBar()->setPageStep(page);
  verticalScrollBar()->setRange(0, std::max(0, rows - page));
  programScrolls_ = false;
}

void ListView::rowsChanged() {
  if (rows_.filtered()) rows_.showSelected();
  if (findBar_ != nullptr) findBar_->rowsChanged();
  updateRange();
  dragged_.reset();
  carried_.reset();
  dropBelow_.reset();
  viewport()->update();
  rememberStates();
}

void ListView::rowsAppended(std::size_t first) {
  if (findBar_ != nullptr) findBar_->rowsChanged();
  updateRange();
  if (rows_.positionFrom(first) <= top() + pageRows()) viewport()->update();
  rememberStates();
}

std::map<std::size_t, bool> ListView::statesInView() const {
  std::map<std::size_t, bool> states;
  if (!QAccessible::isActive()) return states;
  const std::size_t end = std::min(rows_.count(), top() + pageRows() + 1);
  for (std::size_t position = top(); position < end; ++position) {
    const std::size_t row = rows_.rowAt(position);
    states[row] = model_.selected(row);
  }
  if (model_.current() && *model_.current() < model_.count()) {
    states[*model_.current()] = model_.selected(*model_.current());
  }
  return states;
}

void ListView::rememberStates() { announced_ = statesInView(); }

void ListView::announceSelection(std::size_t row, bool selected) {
  const int child = static_cast<int>(row);
  if (model_.style() == ListBox::Style::checkBoxes) {
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    event.setChild(child);
    QAccessible::updateAccessibility(&event);
  } else {
    QAccessibleEvent event(this, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    event.setChild(child);
    QAccessible::updateAccessibility(&event);
  }
}

void ListView::selectionChanged() {
  if (rows_.filtered()) {
    rows_.addSelected();
    updateRange();
  }
  viewport()->update();
  if (!QAccessible::isActive()) return;
  const auto before = std::exchange(announced_, statesInView());
  if (!isVisible()) return;
  for (const auto& [row, selected] : announced_) {
    const auto known = before.find(row);
    if (known == before.end() || known->second == selected) continue;
    announceSelection(row, selected);
  }
  QAccessibleEvent within(this, QAccessible::SelectionWithin);
  QAccessible::updateAccessibility(&within);
}

void ListView::currentChanged() {
  viewport()->update();
  if (model_.current() == shownCurrent_) return;
  shownCurrent_ = model_.current();
  if (shownCurrent_) reveal(*shownCurrent_);
  for (const auto& [row, selected] : statesInView()) announced_.try_emplace(row, selected);
  announceCurrent();
}

void ListView::topChanged() {
  programScrolls_ = true;
  const auto row = static_cast<std::size_t>(std::clamp<long>(model_.top(), 0, 1L << 30));
  verticalScrollBar()->setValue(static_cast<int>(rows_.positionFrom(row)));
  programScrolls_ = false;
}

void ListView::setColours(const ListColours& colours) {
  colours_ = colours;
  QPalette handle = verticalScrollBar()->palette();
  handle.setColor(QPalette::Mid, qcolor(colours.quiet));
  handle.setColor(QPalette::Dark, qcolor(colours.mark));
  verticalScrollBar()->setPalette(handle);
  viewport()->update();
  update();
}

void ListView::reveal(std::size_t row) {
  if (!rows_.shows(row)) return;
  const std::size_t position = rows_.positionFrom(row);
  const std::size_t page = pageRows();
  std::size_t wanted = top();
  if (position < wanted) wanted = position;
  if (position >= wanted + page) wanted = position - page + 1;
  programScrolls_ = true;
  verticalScrollBar()->setValue(static_cast<int>(wanted));
  programScrolls_ = false;
}

QRect ListView::rowRect(std::size_t row) const {
  if (!rows_.shows(row)) return {};
  const auto offset = static_cast<long long>(rows_.positionFrom(row)) - static_cast<long long>(top());
  const auto y = std::clamp<long long>(offset * rowHeight_, -(1 << 28), 1 << 28);
  return {0, static_cast<int>(y), viewport()->width(), rowHeight_};
}

std::optional<std::size_t> ListView::rowAt(const QPoint& point) const {
  if (point.y() < 0) return std::nullopt;
  const std::size_t position = top() + static_cast<std::size_t>(point.y() / rowHeight_);
  if (position >= rows_.count()) return std::nullopt;
  return rows_.rowAt(position);
}

QPoint ListView::menuPosition() const {
  if (!model_.current()) return viewport()->mapToGlobal(QPoint(rowHeight_, 0));
  const QRect row = rowRect(*model_.current()).intersected(viewport()->rect());
  return viewport()->mapToGlobal(QPoint(rowHeight_, row.bottom()));
}

QString ListView::rowText(std::size_t row) const { return shownName(model_.text(row)); }

QString ListView::paintedText(std::size_t row) const {
  const std::string_view text = model_.text(row);
  return shownName(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

QString ListView::rowName(std::size_t row) const {
  const QString text = rowText(row);
  if (!text.isEmpty()) return text;
  return model_.style() == ListBox::Style::checkBoxes ? QStringLiteral("(no artist)") : QStringLiteral("(no title)");
}

QRect ListView::boxRect(const QRect& row) const {
  if (model_.style() != ListBox::Style::checkBoxes) return {};
  const int side = std::min(rowHeight_ - rowPadding(), scaled(16));
  return {row.left() + margin(), row.top() + (row.height() - side) / 2, side, side};
}

void ListView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), qcolor(colours_.background));
  const auto first = top() + static_cast<std::size_t>(std::max(0, event->rect().top()) / rowHeight_);
  for (std::size_t position = first; position < rows_.count(); ++position) {
    const std::size_t row = rows_.rowAt(position);
    if (row >= model_.count()) break;
    const QRect rect = rowRect(row);
    if (rect.top() > event->rect().bottom()) break;
    paintRow(painter, row, rect);
  }
  if (rows_.count() == 0) paintEmptyHint(painter);
  if (dropBelow_) paintDropLine(painter);
}

void ListView::paintDropLine(QPainter& painter) const {
  const int thickness = scaled(3);
  const QRect row = rowRect(*dropBelow_);
  painter.fillRect(QRect(row.left(), row.bottom() + 1 - thickness / 2, row.width(), thickness), qcolor(colours_.mark));
}

void ListView::paintEmptyHint(QPainter& painter) const {
  const QString hint = model_.empty() ? emptyHint_ : QStringLiteral("Nothing is ticked.");
  painter.setPen(qcolor(readable(mix(colours_.background, colours_.text, 0.7), colours_.background, 4.5)));
  const int gap = 2 * spacing();
  painter.drawText(viewport()->rect().adjusted(gap, gap, -gap, -gap), Qt::AlignCenter | Qt::TextWordWrap, hint);
}

QRect ListView::textRect(const QRect& row) const {
  QRect area = row.adjusted(margin(), 0, -margin(), 0);
  if (model_.style() == ListBox::Style::checkBoxes) area.setLeft(boxRect(row).right() + 1 + 2 * margin());
  return area;
}

void ListView::paintRow(QPainter& painter, std::size_t row, const QRect& rect) const {
  const bool boxes = model_.style() == ListBox::Style::checkBoxes;
  const bool selected = model_.selected(row) && !boxes;
  const bool isCurrent = model_.current() == row;
  QColor textColour = qcolor(colours_.text);
  if (selected) {
    painter.fillRect(rect, qcolor(colours_.selectedBackground));
    textColour = qcolor(colours_.selectedText);
  } else if (isCurrent) {
    painter.fillRect(rect, qcolor(colours_.currentBackground));
  }
  if (boxes) paintBox(painter, boxRect(rect), model_.selected(row), textColour);
  QRect area = textRect(rect);
  const bool playing = isPlaying(row);
  if (playing) area = paintPlaying(painter, area, textColour);
  QFont weight = font();
  weight.setBold(playing);
  painter.setFont(weight);
  const QString whole = paintedText(row);
  const QString text = painter.fontMetrics().elidedText(whole, Qt::ElideRight, area.width());
  if (findBar_ != nullptr) paintMatch(painter, row, area, text);
  painter.setPen(isEnabled() ? textColour : qcolor(colours_.quiet));
  // Right-to-left text is elided at its left end, but is aligned left like all other rows.
  painter.setLayoutDirection(whole.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  painter.drawText(area, Qt::AlignAbsolute | Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
  if (secondaryText) {
    const QRect rest = area.adjusted(painter.fontMetrics().horizontalAdvance(text) + 2 * spacing(), 0, 0, 0);
    if (!selected) painter.setPen(qcolor(colours_.quiet));
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(secondaryText(row), Qt::ElideMiddle, std::max(0, rest.width())));
  }
  if (!isCurrent) return;
  const Rgb ring = hasFocus() ? (selected ? colours_.selectedText : colours_.mark) : colours_.quiet;
  painter.setPen(QPen(qcolor(ring), 1, hasFocus() ? Qt::SolidLine : Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect.adjusted(1, 1, -2, -2));
}

void ListView::setPlaying(const std::string& song, std::optional<std::size_t> at) {
  if (song == playing_ && at == playingAt_) return;
  playing_ = song;
  playingAt_ = at;
  viewport()->update();
}

bool ListView::isPlaying(std::size_t row) const {
  if (playing_.empty() || model_.text(row) != playing_) return false;
  const bool known = playingAt_ && *playingAt_ < model_.count() && model_.text(*playingAt_) == playing_;
  return !known || row == *playingAt_;
}

// Paints the sign, and returns what it leaves for the text.
QRect ListView::paintPlaying(QPainter& painter, const QRect& area, const QColor& colour) const {
  const double size = painter.fontMetrics().ascent() * 0.8;
  const QPointF top(area.left(), area.center().y() - size / 2 + 0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(QPolygonF({top, top + QPointF(size * 0.85, size / 2), top + QPointF(0, size)}));
  painter.restore();
  return area.adjusted(static_cast<int>(size) + margin(), 0, 0, 0);
}

// What the search has found: a bar at the row's edge, also if the cut end of the text has it, and a line under it.
void ListView::paintMatch(QPainter& painter, std::size_t row, const QRect& area, const QString& text) const {
  const SearchText& wanted = findBar_->wanted();
  if (!wanted.isIn(model_.text(row))) return;
  const bool selected = model_.selected(row) && model_.style() != ListBox::Style::checkBoxes;
  const QColor mark = qcolor(selected ? colours_.selectedText : colours_.mark);
  const bool here = findBar_->match() == row;
  painter.fillRect(QRect(0, area.top(), scaled(here ? 4 : 2), area.height()), mark);
  const auto range = wanted.rangeIn(text);
  if (!range || text.isRightToLeft()) return;
  const QFontMetrics metrics = painter.fontMetrics();
  const int left = area.left() + metrics.horizontalAdvance(text.left(range->first));
  const int right = area.left() + metrics.horizontalAdvance(text.left(range->first + range->length));
  const int height = metrics.height();
  QColor wash = mark;
  wash.setAlphaF(0.25);
  const QRect under(left, area.center().y() - height / 2, right - left, height);
  painter.fillRect(under, wash);
  painter.fillRect(QRect(under.left(), under.bottom() - 1, under.width(), 2), mark);
}

void ListView::paintBox(QPainter& painter, const QRect& box, bool ticked, const QColor& textColour) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF square = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
  const QColor mark = qcolor(colours_.mark);
  painter.setPen(QPen(ticked ? mark : qcolor(colours_.quiet), 1.4));
  painter.setBrush(ticked ? QBrush(mark) : Qt::NoBrush);
  painter.drawRoundedRect(square, square.width() / 5, square.width() / 5);
  if (ticked) {
    paintTick(painter, square, qcolor(readable(colours_.background, colours_.mark, 3)));
  }
  painter.restore();
  painter.setPen(textColour);
}

void ListView::resizeEvent(QResizeEvent*) {
  layOutFindBar();
  updateRange();
  viewport()->update();
}

void ListView::find() {
  if (findBar_ == nullptr) {
    findBar_ = new FindBar(*this);
    connect(findBar_, &FindBar::marksChanged, this, [this] { viewport()->update(); });
    connect(findBar_, &FindBar::tickedOnlyToggled, this, &ListView::filterTicked);
    connect(findBar_, &FindBar::closed, this, [this] {
      layOutFindBar();
      viewport()->update();
    });
  }
  findBar_->open();
  layOutFindBar();
}

void ListView::closeFindBar() {
  if (openFindBar() != nullptr) findBar_->close();
}

QWidget* ListView::openFindBar() const {
  return findBar_ != nullptr && findBar_->isVisibleTo(this) ? findBar_ : nullptr;
}

// The field takes its height from the rows.
void ListView::layOutFindBar() {
  const bool shown = openFindBar() != nullptr;
  const int height = shown ? findBar_->sizeHint().height() : 0;
  if (viewportMargins().top() != height) setViewportMargins(0, height, 0, 0);
  if (shown) findBar_->setGeometry(frameWidth(), frameWidth(), width() - 2 * frameWidth(), height);
}

void ListView::filterTicked(bool on) {
  if (on) {
    rows_.showSelected();
  } else {
    rows_.showAll();
  }
  updateRange();
  if (model_.current()) reveal(*model_.current());
  viewport()->update();
}

void ListView::scrollContentsBy(int, int) {
  viewport()->update();
  for (const auto& [row, selected] : statesInView()) announced_.try_emplace(row, selected);
}

void ListView::focusInEvent(QFocusEvent*) {
  viewport()->update();
  update();
  announceCurrent();
}

void ListView::focusOutEvent(QFocusEvent*) {
  viewport()->update();
  update();
}

bool ListView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto row = rowAt(help->pos());
    QToolTip::showText(help->globalPos(), row ? plainTip(tipOf(*row)) : QString(), viewport());
    return true;
  }
  return QAbstractScrollArea::viewportEvent(event);
}

// The secondary text if there is one; otherwise the row's text, if it is cut.
QString ListView::tipOf(std::size_t row) const {
  if (secondaryText) return secondaryText(row);
  const QString text = paintedText(row);
  const bool cut = fontMetrics().horizontalAdvance(text) > textRect(rowRect(row)).width();
  return cut ? text : QString();
}

// The frame, which shows the focus, belongs to the area and not to the viewport.
bool ListView::event(QEvent* event) {
  const bool done = QAbstractScrollArea::event(event);
  if (event->type() == QEvent::Paint) {
    QPainter painter(this);
    const int width = hasFocus() ? 2 : 1;
    painter.setPen(QPen(qcolor(hasFocus() ? colours_.mark : mix(colours_.background, colours_.quiet, 0.5)), width,
                        Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const double half = width / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
  }
  return done;
}

void ListView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    measure();
    layOutFindBar();
    updateRange();
  }
  QAbstractScrollArea::changeEvent(event);
}

void ListView::announceCurrent() {
  if (!hasFocus() || !QAccessible::isActive()) return;
  const int child = model_.current() ? static_cast<int>(*model_.current()) : -1;
  for (const QAccessible::Event kind : {QAccessible::Focus, QAccessible::ActiveDescendantChanged}) {
    if (child < 0 && kind == QAccessible::ActiveDescendantChanged) continue;
    QAccessibleEvent event(this, kind);
    event.setChild(child);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace plimo
