#include "desktop/window/form_canvas.h"

#include <QLocale>
#include <QPainter>
#include <algorithm>

#include "controls/simple_controls.h"
#include "desktop/theme/art.h"
#include "desktop/theme/contrast.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"
#include "desktop/theme/units.h"

namespace plimo {

namespace {

QString counted(std::size_t number, const char* one, const char* many) {
  const QLocale english(QLocale::English);
  return english.toString(static_cast<qulonglong>(number)) + QLatin1Char(' ') +
         QString::fromUtf8(number == 1 ? one : many);
}

}  // namespace

FormCanvas::FormCanvas(const Form& form, QWidget* parent) : QWidget(parent), form_(form) {
  setObjectName(QStringLiteral("canvas"));
}

void FormCanvas::refresh(bool compact) {
  compact_ = compact;
  if (QByteArray now = paintFingerprint(); now != painted_) {
    painted_ = std::move(now);
    update();
  }
}

// Everything that the painting depends on, in one row of bytes.
QByteArray FormCanvas::paintFingerprint() const {
  QByteArray state;
  const auto put = [&state](auto value) { state.append(reinterpret_cast<const char*>(&value), sizeof value); };
  put(compact_);
  for (const Control* control : form_.controls()) {
    if (control->container() != nullptr || control->kind() == ControlKind::menu) continue;
    put(control->visible());
    if (control->kind() == ControlKind::slider) put(static_cast<const Slider*>(control)->value());
    if (control->kind() != ControlKind::listBox) continue;
    put(static_cast<const ListBox*>(control)->count());
    put(static_cast<const ListBox*>(control)->selectedCount());
  }
  return state;
}

const Control* FormCanvas::shown(const char* name) const {
  const Control* control = form_.find(name);
  return control != nullptr && control->showing() ? control : nullptr;
}

QRect FormCanvas::placeOf(const char* name) const {
  const Control* control = form_.find(name);
  return control == nullptr ? QRect() : pixelRect(control->geometry());
}

void FormCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // The player is a card: alone, it has the whole window.
  painter.fillRect(rect(), compact_ ? theme().card : theme().window);
  if (compact_ || form_.find("List2") == nullptr) return;
  static constexpr Column columns[] = {
      {"List2", "List2", "Picture1", "Picture4", "Artists", "artist", "artists"},
      {"List1", "List1", "Picture2", "Picture5", "Scratch playlist", "song", "songs"},
      {"List4", "List6", "Picture3", "Picture6", "Final playlist", "song", "songs"},
  };
  for (const Column& column : columns) paintHeading(painter, column);
  paintFoot(painter);
  paintBrand(painter);
  paintBand(painter);
  paintMixedColour(painter);
}

void FormCanvas::paintHeading(QPainter& painter, const Column& column) const {
  const Control* control = shown(column.list);
  if (control == nullptr) control = shown(column.otherList);
  if (control == nullptr) return;
  const auto& list = static_cast<const ListBox&>(*control);
  const bool folded = shown(column.closedHandle) != nullptr;
  if (!folded && shown(column.openHandle) == nullptr) return;
  const QRect listPlace = pixelRect(list.geometry());
  const QRect handle = placeOf(column.closedHandle);
  const QString title = QString::fromUtf8(column.title);
  QString count = counted(list.count(), column.oneRow, column.manyRows);
  if (list.selectedCount() > 0) {
    const bool boxes = list.style() == ListBox::Style::checkBoxes;
    count += QStringLiteral("  ·  ") +
             counted(list.selectedCount(), boxes ? "ticked" : "selected", boxes ? "ticked" : "selected");
  }
  if (!folded) {
    // The strip's buttons stand where the heading was: a short one next to the handle.
    const int left = handle.right() + spacing();
    QRect countPlace(left, handle.top(), listPlace.right() - left, handle.height());
    if (shown("Picture7") != nullptr && placeOf("Picture7").intersects(countPlace)) {
      countPlace.setRight(placeOf("Picture7").left() - spacing());
    }
    painter.setFont(font());
    painter.setPen(theme().quiet);
    painter.drawText(countPlace, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(count, Qt::ElideRight, countPlace.width()));
    return;
  }
  QFont large = titleFont();
  const int top = handle.bottom() + spacing();
  const int height = listPlace.top() - spacing() / 2 - top;
  constexpr double share = 0.55;  // of the height, for the title
  const int wanted = std::clamp(static_cast<int>(height * share * 0.8), scaled(14), height > 100 ? 40 : 26);
  large.setPixelSize(wanted);
  painter.setFont(large);
  painter.setPen(theme().text);
  const QRect titlePlace(listPlace.left() + 2, top, listPlace.width() - 4, static_cast<int>(height * share));
  painter.drawText(titlePlace, Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(title, Qt::ElideRight, titlePlace.width()));
  painter.setFont(font());
  painter.setPen(theme().quiet);
  const QRect countPlace(titlePlace.left(), titlePlace.bottom() + 1, titlePlace.width(),
                         top + height - titlePlace.bottom());
  painter.drawText(countPlace, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(count, Qt::ElideRight, countPlace.width()));
}

void FormCanvas::paintFoot(QPainter& painter) const {
  if (shown("List2") == nullptr) return;
  const QRect list = placeOf("List2");
  const QRect player = placeOf("MediaPlayer1");
  const int side = std::clamp(player.height() / 2, scaled(24), 88);
  const QRect mark(list.left(), player.center().y() - side / 2, side, side);
  paintArt(painter, QStringLiteral("plimo"), mark, Qt::KeepAspectRatio);
  const QRect words(mark.right() + spacing(), mark.top(), list.right() - mark.right() - spacing(), side);
  painter.setFont(titleFont());
  painter.setPen(theme().text);
  painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Plimo!"));
  const bool handles = shown("Picture3") != nullptr || shown("Picture6") != nullptr;
  if (shown("MediaPlayer1") != nullptr || player.left() < list.right() || !handles) return;
  painter.setFont(font());
  painter.setPen(theme().quiet);
  QPen dashes(theme().border, 1, Qt::DashLine);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(dashes);
  painter.drawRoundedRect(QRectF(player).adjusted(0.5, 0.5, -0.5, -0.5), radius(), radius());
  painter.restore();
  paintCaption(painter, player.adjusted(spacing(), 0, -spacing(), 0),
               QStringLiteral("Double-click a song on the final playlist to play from there on."), Qt::AlignCenter);
}

// The settings or the welcome alone leave half of the ground bare.
void FormCanvas::paintBrand(QPainter& painter) const {
  const bool settings = shown("Frame1") != nullptr;
  if (settings == (shown("Frame2") != nullptr)) return;
  const QRect panel = placeOf(settings ? "Frame1" : "Frame2");
  QRect bare(0, panel.top(), panel.left(), panel.height());
  if (!settings) bare = QRect(panel.right(), panel.top(), width() - panel.right(), panel.height());
  const int side = std::min(bare.width(), bare.height()) / 2;
  QRect mark(0, 0, side, side);
  mark.moveCenter(bare.center() - QPoint(0, side / 6));
  paintArt(painter, QStringLiteral("plimo"), mark, Qt::KeepAspectRatio);
  painter.setFont(titleFont());
  painter.setPen(theme().quiet);
  const QRect words(bare.left(), mark.bottom() + spacing(), bare.width(), painter.fontMetrics().height() + spacing());
  painter.drawText(words, Qt::AlignCenter, QStringLiteral("Plimo!"));
}

// The first run leaves the band between the handles and the panels bare; strips unfolded stand there.
void FormCanvas::paintBand(QPainter& painter) const {
  if (shown("List2") != nullptr || shown("Frame2") == nullptr || shown("Frame1") == nullptr) return;
  if (shown("Picture1") == nullptr || shown("Picture2") == nullptr || shown("Picture3") == nullptr) return;
  const QRect panel = placeOf("Frame2");
  const int top = placeOf("Picture1").bottom() + spacing();
  const QRect band(panel.left(), top, placeOf("Frame1").right() - panel.left(), panel.top() - spacing() - top);
  const int side = std::min(band.height(), scaled(96));
  const QRect mark(band.left(), band.center().y() - side / 2, side, side);
  paintArt(painter, QStringLiteral("plimo"), mark, Qt::KeepAspectRatio);
  const QRect words(mark.right() + 2 * spacing(), mark.top(), band.right() - mark.right() - 2 * spacing(), side);
  QFont large = titleFont();
  large.setPixelSize(std::max(6, side * 2 / 5));
  painter.setFont(large);
  painter.setPen(theme().text);
  painter.drawText(words.adjusted(0, 0, 0, -side * 2 / 5), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   QStringLiteral("Plimo!"));
  painter.setFont(readingFont());
  painter.setPen(theme().quiet);
  paintCaption(painter, words.adjusted(0, side * 3 / 5, 0, 0),
               QStringLiteral("Choose the drives that hold your songs, and accept: the rest is listening."),
               Qt::AlignLeft | Qt::AlignVCenter);
}

void FormCanvas::paintMixedColour(QPainter& painter) const {
  const Control* red = shown("Slider1");
  const Control* green = shown("Slider2");
  const Control* blue = shown("Slider3");
  if (red == nullptr || green == nullptr || blue == nullptr) return;
  const auto value = [](const Control* slider) { return static_cast<const Slider*>(slider)->value(); };
  const Rgb mixed{value(red), value(green), value(blue)};
  const QRect sliders = placeOf("Slider1").united(placeOf("Slider3"));
  const QRect next = placeOf("accept");
  QRect swatch(sliders.right() + 2 * spacing(), sliders.top(), next.left() - sliders.right() - 4 * spacing(),
               sliders.height());
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
