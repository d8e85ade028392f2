// File addresses (RFC 8089), with which programs of a desktop name files to each other.
#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// "file:///home/ana/A%20song.mp3" for an absolute path of Linux. Every byte of the path is kept.
QByteArray fileUri(std::string_view path);

// The absolute path of a local file, as the system writes it; nullopt for any other address.
std::optional<std::string> pathOfUri(QByteArrayView uri);

// The local files of a text/uri-list, in order.
std::vector<std::string> pathsOfUriList(const QByteArray& list);

}  // namespace plimo
