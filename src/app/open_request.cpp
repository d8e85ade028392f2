#include "app/open_request.h"

#include <algorithm>

#include "playlists/m3u.h"

namespace plimo {

OpenRequest requestToOpen(const std::vector<std::string>& files) {
  if (files.empty()) return {};
  const auto playlist = std::find_if(files.begin(), files.end(), isPlaylistFile);
  return {playlist == files.end() ? files.front() : *playlist, files.size() - 1};
}

}  // namespace plimo
