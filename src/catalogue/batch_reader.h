// Reads a range of a catalogue in batches of records.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/errors.h"
#include "catalogue/catalogue_reader.h"
#include "platform/file_system_object.h"

namespace plimo {

class BatchReader {
 public:
  static constexpr std::size_t batchSize = 64;

  // Starts at the byte offset `from`, which must be the start of a record; 0 also skips a byte-order mark.
  BatchReader(FileView& view, const std::string& path, std::size_t from);

  // The next records, up to a full batch, that start before the offset `end`; valid until the next call. Empty at the
  // end and at a truncated record.
  std::span<const CatalogueRecord> next(std::size_t end);

  // The offset of the next record.
  std::size_t position() const { return reader_.position(); }
  // The error of a truncated last record, if it was met.
  const std::optional<RuntimeError>& truncation() const { return truncation_; }

 private:
  void moveWindow();
  void copyUnescaped(CatalogueRecord& record);

  FileView& view_;
  CatalogueReader reader_;
  std::size_t windowBegin_;
  std::size_t windowEnd_;
  std::array<CatalogueRecord, batchSize> batch_;
  std::deque<std::string> copies_;  // of the batch's strings that contained doubled quotes
  std::optional<RuntimeError> truncation_;
};

// The offset in the second half at which a record probably starts; the catalogue's size if none is found. The caller
// must verify it by reading up to it from the start.
std::size_t findRecordNearMiddle(std::string_view catalogue);

}  // namespace plimo
