#include "catalogue/batch_reader.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/song_name.h"

namespace plimo {

namespace {

// So much of a large catalogue is in memory at a time for each reader.
constexpr std::size_t windowSize = std::size_t{4} << 20;

}  // namespace

BatchReader::BatchReader(FileView& view, const std::string& path, std::size_t from)
    : view_(view), reader_(view.bytes(), path, from), windowBegin_(from), windowEnd_(from) {}

std::span<const CatalogueRecord> BatchReader::next(std::size_t end) {
  moveWindow();
  copies_.clear();
  std::size_t count = 0;
  try {
    while (count < batchSize && reader_.position() < end && reader_.next(batch_[count])) {
      if (!reader_.inBytes()) keepTexts(batch_[count]);
      ++count;
    }
  } catch (const RuntimeError& error) {
    truncation_ = error;
  }
  return std::span(batch_).first(count);
}

// Behind the window, nothing is looked at again; ahead, all of it will be.
void BatchReader::moveWindow() {
  if (position() < windowEnd_) return;
  view_.dontNeed(windowBegin_, position());
  windowBegin_ = position();
  windowEnd_ = std::min(position() + windowSize, view_.bytes().size());
  view_.willNeed(windowBegin_, windowEnd_);
}

void BatchReader::keepTexts(CatalogueRecord& record) {
  for (std::string_view* text : {&record.path, &record.artist, &record.second, &record.title}) {
    if (!isSubview(view_.bytes(), *text)) *text = copies_.emplace_back(*text);
  }
}

std::size_t findRecordNearMiddle(std::string_view catalogue) {
  // A record is known by a path that is a song's and holds the record's title.
  constexpr std::string_view edge = "\r\n\"";
  constexpr int tries = 16;
  std::size_t place = catalogue.size() / 2;
  for (int i = 0; i < tries; ++i) {
    place = catalogue.find(edge, place);
    if (place == std::string_view::npos) break;
    place += edge.size() - 1;
    CatalogueReader reader(catalogue, {}, place);
    CatalogueRecord record;
    try {
      if (reader.next(record) && isSongFile(record.path) && record.path.find(record.title) != std::string_view::npos) {
        return place;
      }
    } catch (const RuntimeError&) {  // not where a record begins, or the last one
    }
  }
  return catalogue.size();
}

}  // namespace plimo
