#include "catalogue/catalogue_reader.h"

#include <cstring>
#include <utility>

#include "base/errors.h"
#include "base/quoted_format.h"

namespace plimo {

CatalogueReader::CatalogueReader(std::string_view bytes, std::string path, std::size_t from)
    : bytes_(bytes), position_(from == 0 ? skipBom(bytes) : from), path_(std::move(path)) {}

// A record as the program writes it: each text between quotes, then CR LF. False, and nothing read, for any other.
bool CatalogueReader::nextAsWritten(CatalogueRecord& record) {
  const char* at = bytes_.data() + position_;
  const char* const end = bytes_.data() + bytes_.size();
  for (std::string_view* field : {&record.path, &record.artist, &record.second, &record.title}) {
    if (at == end || *at != '"') return false;
    ++at;
    const auto* quote = static_cast<const char*>(std::memchr(at, '"', static_cast<std::size_t>(end - at)));
    if (quote == nullptr || end - quote < 3 || quote[1] != '\r' || quote[2] != '\n') return false;
    *field = {at, static_cast<std::size_t>(quote - at)};
    at = quote + 3;
  }
  position_ = static_cast<std::size_t>(at - bytes_.data());
  return true;
}

std::string_view CatalogueReader::value(std::size_t field) {
  if (position_ == bytes_.size()) throw RuntimeError(ErrorNumber::inputPastEnd, path_);
  return readField(bytes_, position_, unescaped_[field]).text;
}

bool CatalogueReader::next(CatalogueRecord& record) {
  if (position_ == bytes_.size()) return false;
  inBytes_ = nextAsWritten(record);
  if (inBytes_) return true;
  record.path = value(0);
  record.artist = value(1);
  record.second = value(2);
  record.title = value(3);
  return true;
}

void appendRecord(std::string& catalogue, const CatalogueRecord& record) {
  writeText(catalogue, record.path);
  writeText(catalogue, record.artist);
  writeText(catalogue, record.second);
  writeText(catalogue, record.title);
}

}  // namespace plimo
