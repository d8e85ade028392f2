#include "catalogue/catalogue_reader.h"

#include <cstring>
#include <utility>

#include "base/errors.h"
#include "base/quoted_format.h"

namespace plimo {

CatalogueReader::CatalogueReader(std::string_view bytes, std::string path, std::size_t from)
    : bytes_(bytes), position_(from == 0 ? skipBom(bytes) : from), path_(std::move(path)) {}

// Fast path for the form that the program itself writes: quoted strings without quotes inside, each followed by CR LF.
// Returns false without reading anything for any other form.
bool CatalogueReader::readFast(CatalogueRecord& record) {
  const char* next = bytes_.data() + position_;
  const char* const end = bytes_.data() + bytes_.size();
  for (std::string_view* field : {&record.path, &record.artist, &record.second, &record.title}) {
    if (next == end || *next != '"') return false;
    ++next;
    const auto* quote = static_cast<const char*>(std::memchr(next, '"', static_cast<std::size_t>(end - next)));
    if (quote == nullptr || end - quote < 3 || quote[1] != '\r' || quote[2] != '\n') return false;
    *field = {next, static_cast<std::size_t>(quote - next)};
    next = quote + 3;
  }
  position_ = static_cast<std::size_t>(next - bytes_.data());
  return true;
}

std::string_view CatalogueReader::value(std::size_t field) {
  if (position_ == bytes_.size()) throw RuntimeError(ErrorNumber::inputPastEnd, path_);
  return readField(bytes_, position_, unescaped_[field]).text;
}

bool CatalogueReader::next(CatalogueRecord& record) {
  if (position_ == bytes_.size()) return false;
  inBytes_ = readFast(record);
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
