#include "fileops/copy_songs.h"

#include <cctype>
#include <vector>

#include "base/errors.h"
#include "base/text.h"
#include "catalogue/song_lookup.h"

namespace plimo {

CopyResult copySongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                     const CopyRequest& request, const std::string& folder, const PresentFile& present) {
  if (request.names.empty()) {  // each row is looked up, selected or not, so a damaged catalogue is reported
    CatalogueFile(files, catalogue).read([](const CatalogueRecord&) { return true; });
    return {};
  }
  const SongPaths found(files, catalogue, request.names, OnTruncation::ignore);
  CopyResult result;
  ProgressUpdate update;
  for (std::size_t name = 0; name < request.names.size(); ++name) update.total += found.of(name).size();
  // The truncated record is read after the first row's files; only copying those makes errors be ignored before that.
  const bool alreadyIgnored = request.firstRowSelected && !found.of(0).empty();
  if (found.truncation() && !alreadyIgnored) throw *found.truncation();

  ProgressScope scope(progress, Task::copy);
  for (std::size_t name = 0; name < request.names.size(); ++name) {
    for (const StoredPath& stored : found.of(name)) {
      const std::string path = stored.text();
      ++update.done;
      update.name = files.fileName(path);
      update.bytes = update.size = 0;
      if (!scope.update(update)) return result;  // files that turn out not to be copied take their time, too
      if (!files.fileExists(path)) {
        if (update.done == 1) throw RuntimeError(ErrorNumber::fileNotFound, path);
        ++result.missing;
        continue;
      }
      if (!files.folderExists(folder)) {
        const RuntimeError error(ErrorNumber::pathNotFound, folder);
        if (update.done == 1) throw RuntimeError(error);
        if (result.failed++ == 0) result.reason = error.what();
        continue;
      }
      const std::string target = files.join(folder, update.name);
      if (files.fileExists(target)) {
        ++result.alreadyThere;
        present(update.name);
        continue;
      }
      try {
        const bool complete = files.copyFile(path, target, false, [&](std::uint64_t copied, std::uint64_t size) {
          update.bytes = copied;
          update.size = size;
          return scope.update(update);
        });
        if (!complete) return result;
        ++result.copied;
      } catch (const RuntimeError& error) {  // that copy is missing; the others go on
        if (result.failed++ == 0) result.reason = error.what();
      }
    }
  }
  return result;
}

std::string copyStatus(const CopyResult& result, std::string_view folder) {
  std::string text = counted(result.copied, "song") + " copied to " + elideMiddle(folder, longestShownText);
  const std::size_t leftOut = result.alreadyThere + result.missing + result.failed;
  if (leftOut == 0) return text;
  text += ", " + std::to_string(leftOut) + " left out: ";
  std::vector<std::string> reasons;
  if (result.alreadyThere > 0) reasons.push_back("already there " + std::to_string(result.alreadyThere));
  if (result.missing > 0) reasons.push_back("missing " + std::to_string(result.missing));
  if (result.failed > 0) {
    std::string reason = result.reason;
    reason.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(reason.front())));
    reasons.push_back("failed " + std::to_string(result.failed) + " (" + reason + ")");
  }
  for (std::size_t i = 0; i < reasons.size(); ++i) text.append(i == 0 ? "" : ", ").append(reasons[i]);
  return text;
}

}  // namespace plimo
