// Reads a stretch of a catalogue some records at a time.
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

  // Begins `from` bytes into the file, where a record begins; at 0, behind what may stand before the first one.
  BatchReader(FileView& view, const std::string& path, std::size_t from);

  // The next records, as many as a batch takes, up to the first one that begins at `end` or behind it; good until the
  // next call. None where there is none: at a record that breaks off, too.
  std::span<const CatalogueRecord> next(std::size_t end);

  // Where the next record begins.
  std::size_t position() const { return reader_.position(); }
  // Why no record comes any more, where the last one breaks off.
  const std::optional<RuntimeError>& truncation() const { return truncation_; }

 private:
  void moveWindow();
  void keepTexts(CatalogueRecord& record);

  FileView& view_;
  CatalogueReader reader_;
  std::size_t windowBegin_;
  std::size_t windowEnd_;
  std::array<CatalogueRecord, batchSize> batch_;
  std::deque<std::string> copies_;  // of texts that do not stand in the file as they are
  std::optional<RuntimeError> truncation_;
};

// Where a record probably begins in the middle of a catalogue; the catalogue's size where nothing looks like it.
std::size_t findRecordNearMiddle(std::string_view catalogue);

}  // namespace plimo
