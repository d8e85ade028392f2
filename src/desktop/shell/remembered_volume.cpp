#include "desktop/shell/remembered_volume.h"

#include <QFile>
#include <QSettings>

#include "platform/player/playlist_player.h"

namespace plimo {

namespace {

QString volumeKey() { return QStringLiteral("player/volume"); }
QString mutedKey() { return QStringLiteral("player/muted"); }

}  // namespace

RememberedVolume::RememberedVolume(PlaylistPlayer& player, const QString& file) : player_(player), file_(file) {
  read();
  constexpr int delayMs = 500;  // a slider that is dragged changes the volume many times
  delay_.setInterval(delayMs);
  delay_.setSingleShot(true);
  QObject::connect(&delay_, &QTimer::timeout, &delay_, [this] { write(); });
  observation_ = player.observe({[this] {
                                   const PlaylistPlayer::State& now = player_.state();
                                   const bool changed = now.volume != volume_ || now.muted != muted_;
                                   // Not started again: the position changes all the time.
                                   if (changed && !delay_.isActive()) delay_.start();
                                 },
                                 {}});
}

RememberedVolume::~RememberedVolume() {
  if (delay_.isActive()) write();
}

void RememberedVolume::read() {
  if (QFile::exists(file_)) {
    const QSettings settings(file_, QSettings::IniFormat);
    bool isNumber = false;
    const int volume = settings.value(volumeKey()).toInt(&isNumber);
    if (isNumber && volume >= 0 && volume <= 100) player_.setVolume(volume);
    player_.setMuted(settings.value(mutedKey()).toBool());
  }
  volume_ = player_.state().volume;
  muted_ = player_.state().muted;
}

void RememberedVolume::write() {
  volume_ = player_.state().volume;
  muted_ = player_.state().muted;
  QSettings settings(file_, QSettings::IniFormat);
  settings.setValue(volumeKey(), volume_);
  settings.setValue(mutedKey(), muted_);
}

}  // namespace plimo
