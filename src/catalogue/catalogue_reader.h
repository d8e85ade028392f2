// The catalogue file: four values a song in the quoted notation, without header or trailer.
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
  std::string_view title;  // the file name's last part, with its extension
};

// Reads records one after the other. A record's views are good until the next one; those that lie in the bytes are
// good as long as these.
class CatalogueReader {
 public:
  // Begins at the file's start, or `from` bytes into it. `path` names the file in the error of `next`.
  CatalogueReader(std::string_view bytes, std::string path, std::size_t from = 0);

  // False at the end. Throws RuntimeError 62 where a record breaks off.
  bool next(CatalogueRecord& record);
  // True where the record read last lies in the bytes with all its texts.
  bool inBytes() const { return inBytes_; }
  // Where the next record begins.
  std::size_t position() const { return position_; }

 private:
  bool nextAsWritten(CatalogueRecord& record);
  std::string_view value(std::size_t field);

  std::string_view bytes_;
  std::size_t position_;
  bool inBytes_ = true;
  std::string path_;
  std::array<std::string, 4> unescaped_;
};

// Appends one record to a catalogue's text.
void appendRecord(std::string& catalogue, const CatalogueRecord& record);

}  // namespace plimo
