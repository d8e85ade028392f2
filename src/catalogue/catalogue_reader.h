// The catalogue file: four quoted values per song, without header or trailer.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace plimo {

struct CatalogueRecord {
  std::string_view path;
  std::string_view artist;
  std::string_view second;
  std::string_view title;  // the last part of the file name, with its extension
};

// Reads consecutive records. The views of a record are valid until the next call, or as long as the catalogue's bytes
// if inBytes() is true.
class CatalogueReader {
 public:
  // Starts at the byte offset `from`. `path` is the file reported in errors.
  CatalogueReader(std::string_view bytes, std::string path, std::size_t from = 0);

  // Returns false at the end. Throws RuntimeError 62 at a truncated record.
  bool next(CatalogueRecord& record);
  // True if all views of the last record refer to the catalogue's bytes.
  bool inBytes() const { return inBytes_; }
  // The offset of the next record.
  std::size_t position() const { return position_; }

 private:
  bool readFast(CatalogueRecord& record);
  std::string_view value(std::size_t field);

  std::string_view bytes_;
  std::size_t position_;
  bool inBytes_ = true;
  std::string path_;
  std::array<std::string, 4> unescaped_;
};

// Appends one record in the file's format.
void appendRecord(std::string& catalogue, const CatalogueRecord& record);

}  // namespace plimo
