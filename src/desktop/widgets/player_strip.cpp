#include "desktop/widgets/player_strip.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "desktop/theme/art.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "platform/mpv/mpv_player.h"

namespace plimo {

namespace {

constexpr int seekSteps = 1000;  // of a song, on its slider
constexpr int seekStep = 5;      // seconds, by arrow key
constexpr int volumeStep = 5;    // percent

// Shortens its text where it does not fit, and gives the whole as tooltip.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width()));
  }
};

QString themed(const char* art) {
  return QLatin1String(art) + (theme().dark ? QLatin1String("-light") : QLatin1String("-dark"));
}

}  // namespace

PlayerStrip::PlayerStrip(MpvPlayer& player, QWidget* parent)
    : QWidget(parent),
      player_(player),
      song_(new ElidedLabel(this)),
      note_(new ElidedLabel(this)),
      times_(new QLabel(this)) {
  song_->setObjectName(QStringLiteral("playerSong"));
  note_->setObjectName(QStringLiteral("playerNote"));
  times_->setObjectName(QStringLiteral("playerTimes"));
  QFont bold;
  bold.setBold(true);
  song_->setFont(bold);
  song_->setTextFormat(Qt::PlainText);
  note_->setTextFormat(Qt::PlainText);
  note_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (QLabel* quiet : {note_, times_}) {
    QPalette faded = quiet->palette();
    faded.setColor(QPalette::WindowText, theme().quiet);
    quiet->setPalette(faded);
  }
  times_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  previous_ = addButton(QStringLiteral("playerPrevious"), "previous", QStringLiteral("Previous song"));
  play_ = addButton(QStringLiteral("playerPlay"), "play", QStringLiteral("Play"));
  stop_ = addButton(QStringLiteral("playerStop"), "stop", QStringLiteral("Stop"));
  next_ = addButton(QStringLiteral("playerNext"), "next", QStringLiteral("Next song"));
  seek_ = addSlider(QStringLiteral("playerSeek"), QStringLiteral("Place in the song"));
  seek_->setRange(0, seekSteps);
  mute_ = addButton(QStringLiteral("playerMute"), "volume", QStringLiteral("Mute"));
  mute_->setCheckable(true);
  volume_ = addSlider(QStringLiteral("playerVolume"), QStringLiteral("Volume"));
  volume_->setRange(0, 100);
  volume_->setSingleStep(volumeStep);
  volume_->setPageStep(2 * volumeStep);

  connect(previous_, &QToolButton::clicked, this, [this] { player_.previous(); });
  connect(play_, &QToolButton::clicked, this, [this] { player_.playOrPause(); });
  connect(stop_, &QToolButton::clicked, this, [this] { player_.stop(); });
  connect(next_, &QToolButton::clicked, this, [this] { player_.next(); });
  connect(mute_, &QToolButton::clicked, this, [this] { player_.setMuted(!player_.state().muted); });
  connect(volume_, &QSlider::valueChanged, this, [this](int value) {
    if (!updating_) player_.setVolume(value);
  });
  connect(seek_, &QSlider::valueChanged, this, [this](int value) {
    if (!updating_) player_.seek(player_.state().duration * value / seekSteps);
  });
  setFocusProxy(play_);
  applyStyle();
  player_.changed = [this] { showState(); };
  showState();
}

PlayerStrip::~PlayerStrip() { player_.changed = nullptr; }

QToolButton* PlayerStrip::addButton(const QString& name, const char* art, const QString& tip) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setIcon(artIcon(themed(art)));
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

QSlider* PlayerStrip::addSlider(const QString& name, const QString& meaning) {
  auto* slider = new QSlider(Qt::Horizontal, this);
  slider->setObjectName(name);
  slider->setToolTip(meaning);
  slider->setAccessibleName(meaning);
  slider->setFocusPolicy(Qt::TabFocus);
  return slider;
}

void PlayerStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme().border, 1));
  painter.setBrush(theme().card);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius(), radius());
}

void PlayerStrip::resizeEvent(QResizeEvent*) { layOut(); }

void PlayerStrip::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange && next_ != nullptr) {
    applyStyle();
    layOut();
  }
  QWidget::changeEvent(event);
}

// What follows the window's scale.
void PlayerStrip::applyStyle() { note_->setFont(smallFont()); }

void PlayerStrip::layOut() {
  constexpr int tallest = 100;  // what stands in it stays together in a large window
  const int border = std::max(scaled(6), (height() - tallest) / 2);
  const QRect inner = rect().adjusted(spacing() + scaled(4), border, -spacing() - scaled(4), -border);
  const int lineHeight = std::max(fontMetrics().height() + 2, inner.height() * 2 / 5);
  const QRect top(inner.left(), inner.top(), inner.width(), lineHeight);
  const int noteWidth =
      note_->text().isEmpty() ? 0 : std::min(inner.width() / 2, note_->sizeHint().width() + spacing());
  song_->setGeometry(top.adjusted(0, 0, -noteWidth, 0));
  note_->setGeometry(top.adjusted(top.width() - noteWidth, 0, 0, 0));
  const int side = std::clamp(inner.height() - lineHeight - 2, scaled(20), 44);
  const int y = inner.bottom() - side + 1;
  int x = inner.left();
  for (QToolButton* button : {previous_, play_, stop_, next_}) {
    if (button->isHidden()) continue;
    button->setIconSize(QSize(side - scaled(10), side - scaled(10)));
    button->setGeometry(x, y, side, side);
    x += side + 2;
  }
  const int timesWidth = times_->fontMetrics().horizontalAdvance(QStringLiteral("0:00:00 / 0:00:00"));
  const int volumeWidth = std::clamp(inner.width() / 7, scaled(48), 120);
  int right = inner.right() + 1;
  volume_->setGeometry(right - volumeWidth, y, volumeWidth, side);
  right -= volumeWidth + 2;
  mute_->setIconSize(QSize(side - scaled(10), side - scaled(10)));
  mute_->setGeometry(right - side, y, side, side);
  right -= side + spacing();
  times_->setGeometry(right - timesWidth, y, timesWidth, side);
  right -= timesWidth + spacing();
  seek_->setGeometry(x + spacing(), y, std::max(20, right - x - spacing()), side);
}

void PlayerStrip::showState() {
  const MpvPlayer::State& state = player_.state();
  updating_ = true;
  const bool usable = state.enabled;
  const bool buttonsShown = state.showControls;
  bool changedButtons = false;
  for (QToolButton* button : {previous_, play_, stop_, next_}) {
    if (button->isHidden() == buttonsShown) {
      button->setVisible(buttonsShown);
      changedButtons = true;
    }
  }
  previous_->setEnabled(usable && state.count > 0);
  play_->setEnabled(usable && state.count > 0);
  stop_->setEnabled(usable && (state.opened || state.searching));
  next_->setEnabled(usable && state.index + 1 < state.count);
  seek_->setEnabled(usable && state.opened && state.duration > 0);
  if (!seek_->isSliderDown()) {
    const double part = state.duration > 0 ? state.position / state.duration : 0;
    seek_->setValue(static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * seekSteps)));
    seek_->setSingleStep(state.duration > 0 ? std::max(1, static_cast<int>(seekStep * seekSteps / state.duration)) : 1);
  }
  volume_->setValue(state.volume);
  volume_->setEnabled(usable);
  mute_->setEnabled(usable);
  mute_->setChecked(state.muted);
  updating_ = false;

  const bool playing = state.opened && !state.paused;
  if (const QString art = themed(playing ? "pause" : "play"); art != shownPlayArt_) {
    shownPlayArt_ = art;
    play_->setIcon(artIcon(art));
    play_->setToolTip(playing ? QStringLiteral("Pause") : QStringLiteral("Play"));
    play_->setAccessibleName(play_->toolTip());
  }
  if (const QString art = themed(state.muted ? "muted" : "volume"); art != shownMuteArt_) {
    shownMuteArt_ = art;
    mute_->setIcon(artIcon(art));
  }
  showTexts();
  if (changedButtons) layOut();
}

void PlayerStrip::showTexts() {
  const MpvPlayer::State& state = player_.state();
  QString song = qstring(state.song);
  if (song.isEmpty()) song = QStringLiteral("Nothing is playing");
  if (state.opened && state.count > 1) {
    song = QStringLiteral("%1 / %2   %3").arg(state.index + 1).arg(state.count).arg(song);
  }
  if (song != song_->text()) {
    song_->setText(song);
    song_->setToolTip(plainTip(song));
  }
  const QString times =
      state.opened ? clockText(state.position) + QStringLiteral(" / ") + clockText(state.duration) : QString();
  if (times != times_->text()) times_->setText(times);
  const QString note = qstring(state.note);
  if (note != note_->text()) {
    note_->setText(note);
    note_->setToolTip(plainTip(note));
    layOut();
  }
}

void PlayerStrip::keyPressEvent(QKeyEvent* event) {
  if (!player_.state().enabled) {
    QWidget::keyPressEvent(event);
    return;
  }
  switch (event->key()) {
    case Qt::Key_MediaTogglePlayPause:
    case Qt::Key_MediaPlay:
    case Qt::Key_MediaPause:
      player_.playOrPause();
      break;
    case Qt::Key_MediaStop:
      player_.stop();
      break;
    case Qt::Key_MediaNext:
      player_.next();
      break;
    case Qt::Key_MediaPrevious:
      player_.previous();
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace plimo
