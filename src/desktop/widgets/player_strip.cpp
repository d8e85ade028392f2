#include "desktop/widgets/player_strip.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QSlider>
#include <QToolButton>
#include <algorithm>

#include "desktop/theme/art.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/style_parts.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/announcement.h"
#include "desktop/widgets/elided_label.h"
#include "desktop/widgets/seek_slider.h"
#include "platform/player/playlist_player.h"

namespace plimo {

namespace {

constexpr int volumeStep = 5;  // percent

QString themed(const char* art) {
  return QLatin1String(art) + (theme().dark ? QLatin1String("-light") : QLatin1String("-dark"));
}

}  // namespace

PlayerStrip::PlayerStrip(PlaylistPlayer& player, QWidget* parent)
    : QWidget(parent),
      player_(player),
      song_(new ElidedLabel(Qt::ElideRight, this)),
      note_(new ElidedLabel(Qt::ElideMiddle, this)),  // the reason is at its end
      times_(new QLabel(this)),
      seek_(new SeekSlider(this)),
      volume_(new QSlider(Qt::Horizontal, this)) {
  song_->setObjectName(QStringLiteral("playerSong"));
  note_->setObjectName(QStringLiteral("playerNote"));
  times_->setObjectName(QStringLiteral("playerTimes"));
  QFont bold;
  bold.setBold(true);
  song_->setFont(bold);
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
  prepareSlider(*seek_, QStringLiteral("playerSeek"), QStringLiteral("Place in the song"));
  mute_ = addButton(QStringLiteral("playerMute"), "volume", QStringLiteral("Mute"));
  mute_->setCheckable(true);
  prepareSlider(*volume_, QStringLiteral("playerVolume"), QStringLiteral("Volume"));
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
  connect(seek_, &QSlider::valueChanged, this, [this] {
    if (!updating_) player_.seek(seek_->seconds());
  });
  for (QLabel* label : {song_, note_}) markAsAnnounced(*label);
  setFocusProxy(play_);
  buildLayout();
  applySizes();
  observation_ = player_.observe({[this] { showState(); }, {}});
  showState();
}

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

void PlayerStrip::prepareSlider(QSlider& slider, const QString& name, const QString& meaning) {
  slider.setObjectName(name);
  slider.setToolTip(meaning);
  slider.setAccessibleName(meaning);
  slider.setFocusPolicy(Qt::TabFocus);
  slider.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);  // as high as the buttons
}

void PlayerStrip::buildLayout() {
  auto* texts = new QHBoxLayout;
  texts->addWidget(song_, 1);
  texts->addWidget(note_);
  auto* controlRow = new QHBoxLayout;
  controlRow->setSpacing(2);
  for (QToolButton* button : {previous_, play_, stop_, next_}) controlRow->addWidget(button);
  controlRow->addSpacing(spacing());
  controlRow->addWidget(seek_, 2);
  controlRow->addWidget(times_);
  controlRow->addSpacing(spacing());
  controlRow->addWidget(mute_);
  controlRow->addWidget(volume_, 1);
  auto* rows = new QVBoxLayout(this);
  rows->setSpacing(2);
  rows->addLayout(texts, 1);
  rows->addLayout(controlRow);
}

void PlayerStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintCard(painter, rect());
}

void PlayerStrip::resizeEvent(QResizeEvent*) { applySizes(); }

void PlayerStrip::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange && layout() != nullptr) applySizes();
  QWidget::changeEvent(event);
}

void PlayerStrip::applySizes() {
  constexpr int tallest = 100;  // pixels that the contents take; they stay together in a taller strip
  const int top = std::max(scaled(6), (height() - tallest) / 2);
  const int side = spacing() + scaled(4);
  layout()->setContentsMargins(side, top, side, top);
  const int inner = height() - 2 * top;
  const int textHeight = std::max(fontMetrics().height() + 2, inner * 2 / 5);
  const int button = std::clamp(inner - textHeight - 2, scaled(20), 44);
  for (QToolButton* each : {previous_, play_, stop_, next_, mute_}) {
    each->setFixedSize(button, button);
    each->setIconSize(QSize(button - scaled(10), button - scaled(10)));
  }
  note_->setFont(smallFont());
  note_->setMaximumWidth(width() / 2);
  seek_->setMinimumWidth(scaled(20));
  volume_->setMinimumWidth(scaled(48));
  volume_->setMaximumWidth(120);
  times_->setMinimumWidth(times_->fontMetrics().horizontalAdvance(QStringLiteral("0:00:00 / 0:00:00")) + spacing());
}

void PlayerStrip::showState() {
  const PlaylistPlayer::State& state = player_.state();
  updating_ = true;
  const bool usable = state.enabled;
  const bool buttonsShown = state.showControls;
  for (QToolButton* button : {previous_, play_, stop_, next_}) {
    if (button->isHidden() == buttonsShown) button->setVisible(buttonsShown);
  }
  previous_->setEnabled(usable && state.count > 0);
  play_->setEnabled(usable && state.count > 0);
  stop_->setEnabled(usable && (state.opened || state.searching));
  next_->setEnabled(usable && state.index + 1 < state.count);
  seek_->setEnabled(usable && state.opened && state.duration > 0);
  seek_->showTime(state.position, state.duration);
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
}

void PlayerStrip::showTexts() {
  const PlaylistPlayer::State& state = player_.state();
  QString song = shownName(state.song);
  if (song.isEmpty()) song = QStringLiteral("Nothing is playing");
  if (state.opened && state.count > 1) {
    song = QStringLiteral("%1 / %2   %3").arg(state.index + 1).arg(state.count).arg(song);
  }
  if (song != song_->text()) {
    song_->setText(song);
    song_->setToolTip(plainTip(song));
    announce(*song_);
  }
  const QString times =
      state.opened ? clockText(state.position) + QStringLiteral(" / ") + clockText(state.duration) : QString();
  if (times != times_->text()) times_->setText(times);
  const QString note = state.note.empty() ? hint_ : shownText(state.note);
  if (note != note_->text()) {
    note_->setText(note);
    note_->setToolTip(plainTip(note));
    announce(*note_);
  }
}

void PlayerStrip::setHint(const QString& hint) {
  hint_ = hint;
  showTexts();
}

void PlayerStrip::keyPressEvent(QKeyEvent* event) {
  if (!playByKey(player_, event->key())) QWidget::keyPressEvent(event);
}

bool playByKey(PlaylistPlayer& player, int key) {
  if (!player.state().enabled) return false;
  switch (key) {
    case Qt::Key_MediaTogglePlayPause:
    case Qt::Key_MediaPlay:
    case Qt::Key_MediaPause:
      player.playOrPause();
      break;
    case Qt::Key_MediaStop:
      player.stop();
      break;
    case Qt::Key_MediaNext:
      player.next();
      break;
    case Qt::Key_MediaPrevious:
      player.previous();
      break;
    default:
      return false;
  }
  return true;
}

}  // namespace plimo
