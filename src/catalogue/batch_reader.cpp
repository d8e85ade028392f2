#include "catalogue/batch_reader.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/song_name.h"

namespace plimo {

namespace {

// The part of the mapped catalogue that each reader keeps resident.
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
      if (!reader_.inBytes()) copyUnescaped(batch_[count]);
      ++count;
    }
  } catch (const RuntimeError& error) {
    truncation_ = error;
  }
  return std::span(batch_).first(count);
}

// Sequential access: pages before the window are not read again, those in it all are.
void BatchReader::moveWindow() {
  if (position() < windowEnd_) return;
  view_.dontNeed(windowBegin_, position());
  windowBegin_ = position();
  windowEnd_ = std::min(position() + windowSize, view_.bytes().size());
  view_.willNeed(windowBegin_, windowEnd_);
}

void BatchReader::copyUnescaped(CatalogueRecord& record) {
  for (std::string_view* text : {&record.path, &record.artist, &record.second, &record.title}) {
    if (!isSubview(view_.bytes(), *text)) *text = copies_.emplace_back(*text);
  }
}

std::size_t findRecordNearMiddle(std::string_view catalogue) {
  // The heuristic: the first of four values is a song's path that contains the fourth, its title.
  constexpr std::string_view valueBoundary = "\r\n\"";
  constexpr int maxAttempts = 16;
  std::size_t offset = catalogue.size() / 2;
  for (int i = 0; i < maxAttempts; ++i) {
    offset = catalogue.find(valueBoundary, offset);
    if (offset == std::string_view::npos) break;
    offset += valueBoundary.size() - 1;
    CatalogueReader reader(catalogue, {}, offset);
    CatalogueRecord record;
    try {
      if (reader.next(record) && isSongFile(record.path) && record.path.find(record.title) != std::string_view::npos) {
        return offset;
      }
    } catch (const RuntimeError&) {  // not the start of a record, or a truncated one
    }
  }
  return catalogue.size();
}

}  // namespace plimo
