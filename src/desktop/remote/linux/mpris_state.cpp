#include "desktop/remote/linux/mpris_state.h"

#include <cmath>

#include "base/text.h"
#include "catalogue/song_name.h"
#include "desktop/theme/file_uris.h"
#include "desktop/theme/strings.h"

namespace plimo {

qlonglong microseconds(double seconds) { return std::llround(seconds * 1e6); }

QString playbackStatus(const PlaylistPlayer::State& state) {
  if (state.searching) return QStringLiteral("Playing");  // the next song is about to begin
  if (!state.opened) return QStringLiteral("Stopped");
  return state.paused ? QStringLiteral("Paused") : QStringLiteral("Playing");
}

QDBusObjectPath trackId(const PlaylistPlayer::State& state) {
  if (!state.opened) return QDBusObjectPath(QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack"));
  return QDBusObjectPath(QStringLiteral("/plimo/track/%1").arg(state.number));
}

QVariantMap trackMetadata(const PlaylistPlayer::State& state) {
  QVariantMap data;
  data[QStringLiteral("mpris:trackid")] = QVariant::fromValue(trackId(state));
  if (!state.opened) return data;
  const SongName name = splitFileName(state.song);
  const std::string_view title = displayName(name.title).value_or(name.title);
  data[QStringLiteral("xesam:title")] = shownText(trimBlanks(title));
  data[QStringLiteral("xesam:artist")] = QStringList{shownText(name.artist)};
  data[QStringLiteral("xesam:url")] = QString::fromLatin1(fileUri(state.path));
  if (state.duration > 0) data[QStringLiteral("mpris:length")] = microseconds(state.duration);
  return data;
}

bool canGoNext(const PlaylistPlayer::State& state) { return state.enabled && state.index + 1 < state.count; }

bool canGoPrevious(const PlaylistPlayer::State& state) { return state.enabled && state.count > 0; }

bool canPlay(const PlaylistPlayer::State& state) { return state.enabled && state.count > 0; }

bool canPause(const PlaylistPlayer::State& state) { return state.enabled && state.count > 0; }

bool canSeek(const PlaylistPlayer::State& state) { return state.enabled && state.opened && state.duration > 0; }

double volume(const PlaylistPlayer::State& state) { return state.muted ? 0 : state.volume / 100.0; }

QVariantMap announcedProperties(const PlaylistPlayer::State& state) {
  return {
      {QStringLiteral("PlaybackStatus"), playbackStatus(state)},
      {QStringLiteral("Metadata"), trackMetadata(state)},
      {QStringLiteral("Volume"), volume(state)},
      {QStringLiteral("CanGoNext"), canGoNext(state)},
      {QStringLiteral("CanGoPrevious"), canGoPrevious(state)},
      {QStringLiteral("CanPlay"), canPlay(state)},
      {QStringLiteral("CanPause"), canPause(state)},
      {QStringLiteral("CanSeek"), canSeek(state)},
  };
}

}  // namespace plimo
