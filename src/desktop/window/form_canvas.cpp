#include "desktop/window/form_canvas.h"

#include <QLocale>
#include <QPainter>
#include <algorithm>

#include "desktop/theme/art.h"
#include "desktop/theme/contrast.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "desktop/theme/units.h"

namespace plimo {

namespace {

QString logoName() { return QStringLiteral("plimo"); }
QString programTitle() { return QStringLiteral("Plimo!"); }

QRect rectOf(const Control& control) { return pixelRect(control.geometry()); }

// "1 song", "1,234 songs".
QString counted(std::size_t count, const char* singular, const char* plural) {
  const QLocale english(QLocale::English);
  return english.toString(static_cast<qulonglong>(count)) + QLatin1Char(' ') +
         QString::fromLatin1(count == 1 ? singular : plural);
}

// One line of text, elided if it does not fit.
void paintLine(QPainter& painter, const QRect& area, Qt::Alignment alignment, const QString& text) {
  painter.drawText(area, static_cast<int>(alignment) | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
}

}  // namespace

// A column of the main window: its list and the handles of its strip.
struct FormCanvas::Column {
  const ListBox& list;
  const Picture& closedHandle;
  const Picture& openHandle;
};

FormCanvas::FormCanvas(const Form1Controls* controls) : controls_(controls) { setObjectName(QStringLiteral("canvas")); }

void FormCanvas::refresh(bool compact) {
  compact_ = compact;
  if (QByteArray now = paintFingerprint(); now != painted_) {
    painted_ = std::move(now);
    update();
  }
}

// Everything that the painting depends on.
QByteArray FormCanvas::paintFingerprint() const {
  QByteArray state;
  const auto put = [&state](auto value) { state.append(reinterpret_cast<const char*>(&value), sizeof value); };
  put(compact_);
  if (controls_ == nullptr) return state;
  for (const Control* control : controls_->List1.form().controls()) {
    if (control->container() != nullptr || control->kind() == ControlKind::menu) continue;
    put(control->visible());
    if (control->kind() == ControlKind::slider) put(static_cast<const Slider*>(control)->value());
    if (control->kind() != ControlKind::listBox) continue;
    put(static_cast<const ListBox*>(control)->count());
    put(static_cast<const ListBox*>(control)->selectedCount());
  }
  return state;
}

void FormCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // In the compact view the player, which is a card, fills the window.
  painter.fillRect(rect(), compact_ ? theme().card : theme().window);
  if (compact_ || controls_ == nullptr) return;
  const Form1Controls& c = *controls_;
  const ListBox& finalList = c.List4.showing() ? c.List4 : c.List6;
  paintHeading(painter, {c.List2, c.Picture1, c.Picture4});
  paintHeading(painter, {c.List1, c.Picture2, c.Picture5});
  paintHeading(painter, {finalList, c.Picture3, c.Picture6});
  paintLogoUnderArtists(painter);
  paintHint(painter);
  paintLogoBesidePanel(painter);
  paintFirstRunBand(painter);
  paintMixedColour(painter);
}

QString FormCanvas::countText(const ListBox& list) const {
  const bool artists = &list == &controls_->List2;
  QString count = counted(list.count(), artists ? "artist" : "song", artists ? "artists" : "songs");
  if (list.selectedCount() > 0) {
    const char* state = list.style() == ListBox::Style::checkBoxes ? "ticked" : "selected";
    count += QStringLiteral("  ·  ") + counted(list.selectedCount(), state, state);
  }
  return count;
}

bool FormCanvas::counts(const ListBox& list) const {
  return controls_ != nullptr && (&list == &controls_->List2 || &list == &controls_->List1 ||
                                  &list == &controls_->List4 || &list == &controls_->List6);
}

void FormCanvas::paintHeading(QPainter& painter, const Column& column) const {
  const ListBox& list = column.list;
  // A handle that is hidden during a command leaves the heading as it is. The colour editor takes the headings' area.
  const bool folded = !column.openHandle.showing();
  if (!list.showing() || controls_->Slider1.showing()) return;
  const QRect listRect = rectOf(list);
  const QRect handle = rectOf(column.closedHandle);
  const QString count = countText(list);
  if (!folded) {
    // The strip's buttons cover the heading: only the count is shown, next to the handle.
    const int left = handle.right() + spacing();
    QRect countRect(left, handle.top(), listRect.right() - left, handle.height());
    const QRect play = rectOf(controls_->Picture7);
    if (controls_->Picture7.showing() && play.intersects(countRect)) countRect.setRight(play.left() - spacing());
    painter.setFont(font());
    painter.setPen(theme().quiet);
    paintLine(painter, countRect, Qt::AlignRight | Qt::AlignVCenter, count);
    return;
  }
  const int top = handle.bottom() + spacing();
  const int height = listRect.top() - spacing() / 2 - top;
  constexpr double titleShare = 0.55;  // of the height
  QFont large = titleFont();
  large.setPixelSize(std::clamp(static_cast<int>(height * titleShare * 0.8), scaled(14), height > 100 ? 40 : 26));
  painter.setFont(large);
  painter.setPen(theme().text);
  const QRect titleRect(listRect.left() + 2, top, listRect.width() - 4, static_cast<int>(height * titleShare));
  paintLine(painter, titleRect, Qt::AlignLeft | Qt::AlignBottom, qstring(list.accessibleName()));
  painter.setFont(font());
  painter.setPen(theme().quiet);
  const QRect countRect(titleRect.left(), titleRect.bottom() + 1, titleRect.width(), top + height - titleRect.bottom());
  paintLine(painter, countRect, Qt::AlignLeft | Qt::AlignVCenter, count);
}

void FormCanvas::paintLogoUnderArtists(QPainter& painter) const {
  if (!controls_->List2.showing()) return;
  const QRect list = rectOf(controls_->List2);
  const QRect player = rectOf(controls_->MediaPlayer1);
  const int side = std::clamp(player.height() / 2, scaled(24), 88);
  const QRect logo(list.left(), player.center().y() - side / 2, side, side);
  paintArt(painter, logoName(), logo, Qt::KeepAspectRatio);
  const QRect title(logo.right() + spacing(), logo.top(), list.right() - logo.right() - spacing(), side);
  painter.setFont(titleFont());
  painter.setPen(theme().text);
  painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter, programTitle());
}

std::optional<QRect> FormCanvas::emptyPlayerPlace() const {
  if (compact_ || controls_ == nullptr) return std::nullopt;
  const Form1Controls& c = *controls_;
  const QRect player = rectOf(c.MediaPlayer1);
  const bool strips = c.Picture3.showing() || c.Picture6.showing();
  if (c.Frame1.showing() || c.Frame2.showing()) return std::nullopt;  // the panel would cut it
  if (!c.List2.showing() || !strips || c.MediaPlayer1.showing()) return std::nullopt;
  if (player.left() < rectOf(c.List2).right()) return std::nullopt;
  return player;
}

void FormCanvas::paintHint(QPainter& painter) const {
  const std::optional<QRect> place = emptyPlayerPlace();
  if (!place) return;
  const QRect player = *place;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme().border, 1, Qt::DashLine));
  painter.drawRoundedRect(QRectF(player).adjusted(0.5, 0.5, -0.5, -0.5), radius(), radius());
  painter.restore();
  painter.setFont(font());
  painter.setPen(theme().quiet);
  paintCaption(painter, player.adjusted(spacing(), 0, -spacing(), 0),
               QStringLiteral("Double-click a song on the final playlist to play from there on."), Qt::AlignCenter);
}

// The settings or the welcome alone leave half of the window empty.
void FormCanvas::paintLogoBesidePanel(QPainter& painter) const {
  const bool settings = controls_->Frame1.showing();
  if (settings == controls_->Frame2.showing() || controls_->List1.showing()) return;
  const QRect panel = rectOf(settings ? controls_->Frame1 : controls_->Frame2);
  QRect empty(0, panel.top(), panel.left(), panel.height());
  if (!settings) empty = QRect(panel.right(), panel.top(), width() - panel.right(), panel.height());
  const int side = std::min(empty.width(), empty.height()) / 2;
  QRect logo(0, 0, side, side);
  logo.moveCenter(empty.center() - QPoint(0, side / 6));
  paintArt(painter, logoName(), logo, Qt::KeepAspectRatio);
  painter.setFont(titleFont());
  painter.setPen(theme().quiet);
  const QRect title(empty.left(), logo.bottom() + spacing(), empty.width(), painter.fontMetrics().height() + spacing());
  painter.drawText(title, Qt::AlignCenter, programTitle());
}

// The first run leaves the band above the panels empty, unless a strip is open there.
void FormCanvas::paintFirstRunBand(QPainter& painter) const {
  const Form1Controls& c = *controls_;
  if (c.List2.showing() || !c.Frame2.showing() || !c.Frame1.showing()) return;
  if (c.Picture4.showing() || c.Picture5.showing() || c.Picture6.showing()) return;
  const QRect panel = rectOf(c.Frame2);
  const int top = rectOf(c.Picture1).bottom() + spacing();
  const QRect band(panel.left(), top, rectOf(c.Frame1).right() - panel.left(), panel.top() - spacing() - top);
  const int side = std::min(band.height(), scaled(96));
  const QRect logo(band.left(), band.center().y() - side / 2, side, side);
  paintArt(painter, logoName(), logo, Qt::KeepAspectRatio);
  const int left = logo.right() + 2 * spacing();
  const QRect text(left, logo.top(), band.right() - left, side);
  QFont large = titleFont();
  large.setPixelSize(std::max(6, side * 2 / 5));
  painter.setFont(large);
  painter.setPen(theme().text);
  painter.drawText(text.adjusted(0, 0, 0, -side * 2 / 5), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   programTitle());
  painter.setFont(readingFont());
  painter.setPen(theme().quiet);
  paintCaption(painter, text.adjusted(0, side * 3 / 5, 0, 0),
               QStringLiteral("Choose the drives that hold your songs, and accept: the rest is listening."),
               Qt::AlignLeft | Qt::AlignVCenter);
}

void FormCanvas::paintMixedColour(QPainter& painter) const {
  const Form1Controls& c = *controls_;
  if (!c.Slider1.showing() || !c.Slider2.showing() || !c.Slider3.showing()) return;
  const Rgb mixed{c.Slider1.value(), c.Slider2.value(), c.Slider3.value()};
  const QRect sliders = rectOf(c.Slider1).united(rectOf(c.Slider3));
  const int left = sliders.right() + 2 * spacing();
  const QRect swatch(left, sliders.top(), rectOf(c.accept).left() - 2 * spacing() - left, sliders.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme().border, 1));
  painter.setBrush(qcolor(mixed));
  painter.drawRoundedRect(QRectF(swatch).adjusted(0.5, 0.5, -0.5, -0.5), radius(), radius());
  painter.setPen(qcolor(readableOn(mixed)));
  const long number = mixed.red + 256L * mixed.green + 65536L * mixed.blue;
  paintCaption(painter, swatch.adjusted(4, 4, -4, -4),
               qcolor(mixed).name().toUpper() + QLatin1Char('\n') + QString::number(number), Qt::AlignCenter);
  painter.restore();
}

}  // namespace plimo
