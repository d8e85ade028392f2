// Case folding, sorting, interning and the names of songs. The input is a separator and texts separated by it.
#include <map>
#include <numeric>

#include "base/case_insensitive_sort.h"
#include "base/string_interner.h"
#include "base/text.h"
#include "catalogue/path_arena.h"
#include "catalogue/song_name.h"
#include "fileops/rename_target.h"
#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "playlists/row_operations.h"

using namespace plimo;

namespace {

int sign(int order) { return (order > 0) - (order < 0); }

void checkOrder(const std::vector<std::string_view>& texts) {
  std::vector<std::string> folded;
  for (const std::string_view text : texts) folded.push_back(foldCase(text));
  std::vector<std::uint32_t> wanted(texts.size());
  std::iota(wanted.begin(), wanted.end(), 0U);
  std::stable_sort(wanted.begin(), wanted.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return folded[a] < folded[b]; });
  fuzz::expect(caseInsensitiveOrder(texts.size(), [&](std::size_t i) { return texts[i]; }) == wanted,
               "the order of the standard library");
  for (std::size_t i = 1; i < texts.size(); ++i) {
    fuzz::expect(sign(compareFolded(texts[i - 1], texts[i])) == sign(folded[i - 1].compare(folded[i])),
                 "the comparison of the folded texts");
  }
  for (const std::string& text : folded) fuzz::expect(foldCase(text) == text, "a folded text stays as it is");
}

void checkInterning(const std::vector<std::string_view>& texts) {
  StringInterner interner;
  std::vector<std::uint32_t> ids(texts.size());
  interner.add(texts, ids);
  std::map<std::string_view, std::uint32_t> wanted;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto id = wanted.try_emplace(texts[i], static_cast<std::uint32_t>(wanted.size())).first->second;
    fuzz::expect(ids[i] == id && interner.text(id) == texts[i], "one id for each text");
  }
  std::vector<std::uint32_t> found(texts.size());
  interner.find(texts, found);
  fuzz::expect(found == ids, "the ids are found again");
}

void checkNames(const std::vector<std::string_view>& texts) {
  PathArena paths;
  std::vector<StoredPath> stored;
  for (const std::string_view text : texts) {
    stored.push_back(paths.store(text));
    const SongName name = splitFileName(text);
    fuzz::expect(trimBlanks(name.artist) == name.artist, "the artist is trimmed");
    if (const auto shown = displayName(name.title)) {
      fuzz::expect(shown->find('.') == std::string_view::npos, "a display name ends before the first dot");
    }
    fuzz::expect(text.starts_with(proposedName(text)), "the proposed name is the front of the file name");
    const std::string valid = toValidUtf8(text);
    fuzz::expect(toValidUtf8(valid) == valid, "valid UTF-8 stays as it is");
    fuzz::expect(elideMiddle(text, 20).size() <= std::max<std::size_t>(20, text.size()), "an elided text is shorter");
  }
  for (std::size_t i = 0; i < texts.size(); ++i) fuzz::expect(stored[i].text() == texts[i], "a stored path");
}

void checkRemoval(const std::vector<std::string_view>& texts) {
  const std::span all(texts);
  const auto rows = all.first(texts.size() / 2);
  const auto names = all.subspan(texts.size() / 2);
  const std::vector<std::size_t> removed = removedByWalks(rows, names);
  fuzz::expect(std::is_sorted(removed.begin(), removed.end()), "removed rows in order");
  for (const std::size_t row : removed) {
    fuzz::expect(std::find(names.begin(), names.end(), rows[row]) != names.end(), "only named rows are removed");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const bool many = (input.byte() & 1U) != 0;
  const char separator = static_cast<char>(input.byte());
  const fuzz::ExactView view(input.rest());
  std::vector<std::string_view> texts = split(view.bytes(), separator);
  checkNames(texts);
  checkRemoval(texts);
  // Beyond a threshold, sorting is another algorithm on two threads.
  if (many && texts.size() > 4) {
    const std::vector<std::string_view> once = texts;
    while (texts.size() < 20'000) texts.insert(texts.end(), once.begin(), once.end());
  }
  checkOrder(texts);
  checkInterning(texts);
  return 0;
}
