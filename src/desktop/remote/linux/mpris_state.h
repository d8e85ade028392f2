// The player's state in the terms of MPRIS 2.2, the D-Bus interface of media players.
#pragma once

#include <QDBusObjectPath>
#include <QString>
#include <QVariantMap>

#include "platform/player/playlist_player.h"

namespace plimo {

// Times of the interface are in microseconds.
qlonglong microseconds(double seconds);

QString playbackStatus(const PlaylistPlayer::State& state);
// The object path that identifies the song; a song that is opened again has another one.
QDBusObjectPath trackId(const PlaylistPlayer::State& state);
// Artist and title are those of the file's name, as in the lists.
QVariantMap trackMetadata(const PlaylistPlayer::State& state);

bool canGoNext(const PlaylistPlayer::State& state);
bool canGoPrevious(const PlaylistPlayer::State& state);
bool canPlay(const PlaylistPlayer::State& state);
bool canPause(const PlaylistPlayer::State& state);
bool canSeek(const PlaylistPlayer::State& state);
double volume(const PlaylistPlayer::State& state);  // 0 to 1

// All properties that are announced when they change, which is all but the position.
QVariantMap announcedProperties(const PlaylistPlayer::State& state);

}  // namespace plimo
