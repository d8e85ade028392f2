// The D-Bus interface org.mpris.MediaPlayer2.Player: the player. Its names and types are those of MPRIS.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QVariantMap>
#include <memory>

#include "desktop/remote/remote_control.h"
#include "platform/player/playlist_player.h"

namespace plimo {

class MprisPlayer : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
  Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
  Q_PROPERTY(double Rate READ rate WRITE setRate)
  Q_PROPERTY(double MinimumRate READ rate)
  Q_PROPERTY(double MaximumRate READ rate)
  Q_PROPERTY(QVariantMap Metadata READ metadata)
  Q_PROPERTY(double Volume READ volume WRITE setVolume)
  Q_PROPERTY(qlonglong Position READ position)
  Q_PROPERTY(bool CanGoNext READ canGoNext)
  Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
  Q_PROPERTY(bool CanPlay READ canPlay)
  Q_PROPERTY(bool CanPause READ canPause)
  Q_PROPERTY(bool CanSeek READ canSeek)
  Q_PROPERTY(bool CanControl READ canControl)

 public:
  // The object becomes the owner. `path` is that of the object on the bus.
  MprisPlayer(const RemoteHost& host, const QString& path, QObject* object);

  QString playbackStatus() const;
  double rate() const { return 1; }
  void setRate(double rate);  // 0 pauses; others are out of range
  QVariantMap metadata() const;
  double volume() const;
  void setVolume(double volume);
  qlonglong position() const;
  bool canGoNext() const;
  bool canGoPrevious() const;
  bool canPlay() const;
  bool canPause() const;
  bool canSeek() const;
  bool canControl() const { return true; }

 public Q_SLOTS:
  void Next();
  void Previous();
  void Pause();
  void PlayPause();
  void Stop();
  void Play();
  void Seek(qlonglong Offset);
  void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
  void OpenUri(const QString& Uri, const QDBusMessage& message);

 Q_SIGNALS:
  void Seeked(qlonglong Position);

 private:
  const PlaylistPlayer::State& state() const { return host_.player.state(); }
  // Announces what has changed since the last time, once for all changes of this turn of the event loop.
  void announceLater();
  void announce();
  void announceJump();

  RemoteHost host_;
  QString path_;
  QVariantMap announced_;
  bool pending_ = false;
  std::shared_ptr<void> observation_;  // of the player
};

}  // namespace plimo
