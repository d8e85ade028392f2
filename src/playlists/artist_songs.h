// The songs of ticked artists.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

class ListBox;

// Appends the display names of each artist's songs, artist by artist in the order given, each artist's in the order of
// the catalogue; a song whose title holds no "." adds nothing. The catalogue is read once. A failure, or a record that
// breaks off, ends the reading; what was read counts.
void appendSongs(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> artists,
                 ListBox& songs);

// Takes one artist's songs out again: for each of the artist's records in turn, a walk over the rows that removes those
// equal to the title's part before its first ".".
void removeSongs(FileSystemObject& files, const std::string& catalogue, std::string_view artist, ListBox& songs);

}  // namespace plimo
