#include "desktop/remote/linux/mpris_player.h"

#include <QDBusConnection>
#include <QDBusError>
#include <algorithm>
#include <cmath>

#include "catalogue/song_name.h"
#include "desktop/remote/linux/mpris_state.h"
#include "desktop/theme/file_uris.h"
#include "playlists/m3u.h"

namespace plimo {

namespace {

// Why a file is not opened; empty if it is. Whether it exists is not asked here, because its disk may not answer.
QString refusal(const std::optional<std::string>& path) {
  if (!path) return QStringLiteral("Only files of this computer are opened.");
  if (!isPlaylistFile(*path) && !isSongFile(*path)) return QStringLiteral("Only playlists and songs are opened.");
  return {};
}

}  // namespace

MprisPlayer::MprisPlayer(const RemoteHost& host, const QString& path, QObject* object)
    : QDBusAbstractAdaptor(object), host_(host), path_(path), announced_(announcedProperties(state())) {
  observation_ = host_.player.observe({[this] { announceLater(); }, [this] { announceJump(); }});
}

QString MprisPlayer::playbackStatus() const { return plimo::playbackStatus(state()); }
QVariantMap MprisPlayer::metadata() const { return trackMetadata(state()); }
double MprisPlayer::volume() const { return plimo::volume(state()); }
qlonglong MprisPlayer::position() const { return microseconds(state().position); }
bool MprisPlayer::canGoNext() const { return plimo::canGoNext(state()); }
bool MprisPlayer::canGoPrevious() const { return plimo::canGoPrevious(state()); }
bool MprisPlayer::canPlay() const { return plimo::canPlay(state()); }
bool MprisPlayer::canPause() const { return plimo::canPause(state()); }
bool MprisPlayer::canSeek() const { return plimo::canSeek(state()); }

void MprisPlayer::setRate(double rate) {
  if (rate == 0) Pause();
}

void MprisPlayer::setVolume(double volume) {
  if (!state().enabled || std::isnan(volume)) return;
  if (volume > 0 && state().muted) host_.player.setMuted(false);
  host_.player.setVolume(static_cast<int>(std::lround(std::clamp(volume, 0.0, 1.0) * 100)));
}

void MprisPlayer::Next() {
  if (canGoNext()) host_.player.next();
}

void MprisPlayer::Previous() {
  if (canGoPrevious()) host_.player.previous();
}

void MprisPlayer::Pause() {
  if (canPause() && state().opened && !state().paused) host_.player.playOrPause();
}

void MprisPlayer::Play() {
  if (canPlay() && !state().searching && (!state().opened || state().paused)) host_.player.playOrPause();
}

void MprisPlayer::PlayPause() {
  if (canPlay() && !state().searching) host_.player.playOrPause();
}

void MprisPlayer::Stop() {
  if (state().enabled && (state().opened || state().searching)) host_.player.stop();
}

// A place after the end is the next song, as the interface demands.
void MprisPlayer::Seek(qlonglong Offset) {
  if (!canSeek()) return;
  const double target = state().position + static_cast<double>(Offset) / 1e6;
  if (target > state().duration) {
    Next();
  } else {
    host_.player.seek(target);
  }
}

// A position that another program knows may belong to a song that has ended.
void MprisPlayer::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position) {
  if (!canSeek() || TrackId != trackId(state())) return;
  if (Position < 0 || Position > microseconds(state().duration)) return;
  host_.player.seek(static_cast<double>(Position) / 1e6);
}

void MprisPlayer::OpenUri(const QString& Uri, const QDBusMessage& message) {
  const auto path = pathOfUri(Uri.toUtf8());
  if (const QString reason = refusal(path); !reason.isEmpty()) {
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(message.createErrorReply(QDBusError::InvalidArgs, reason));
    return;
  }
  host_.openAndPlay(*path);
}

void MprisPlayer::announceLater() {
  if (pending_) return;
  pending_ = true;
  QMetaObject::invokeMethod(
      this, [this] { announce(); }, Qt::QueuedConnection);
}

void MprisPlayer::announce() {
  pending_ = false;
  const QVariantMap now = announcedProperties(state());
  QVariantMap changed;
  for (auto property = now.begin(); property != now.end(); ++property) {
    if (announced_.value(property.key()) != property.value()) changed.insert(property.key(), property.value());
  }
  if (changed.isEmpty()) return;
  announced_ = now;
  QDBusMessage signal = QDBusMessage::createSignal(path_, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                   QStringLiteral("PropertiesChanged"));
  signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << changed << QStringList();
  QDBusConnection::sessionBus().send(signal);
}

void MprisPlayer::announceJump() { Q_EMIT Seeked(position()); }

}  // namespace plimo
