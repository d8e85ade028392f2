#include "catalogue/catalogue_reader.h"

#include <cstring>
#include <utility>

#include "base/errors.h"
#include "base/notation.h"

namespace plimo {

CatalogueReader::CatalogueReader(std::string_view bytes, std::string path)
    : bytes_(bytes), position_(startOfItems(bytes)), path_(std::move(path)) {}

std::string_view CatalogueReader::value(std::size_t field) {
  // As the program writes it: a quote, the text, a quote, CR LF. Anything else takes the general way.
  const char* start = bytes_.data() + position_;
  const std::size_t left = bytes_.size() - position_;
  if (left > 3 && *start == '"') {
    const auto* quote = static_cast<const char*>(std::memchr(start + 1, '"', left - 1));
    if (quote != nullptr && bytes_.data() + bytes_.size() - quote >= 3 && quote[1] == '\r' && quote[2] == '\n') {
      position_ = static_cast<std::size_t>(quote + 3 - bytes_.data());
      return {start + 1, static_cast<std::size_t>(quote - start - 1)};
    }
  }
  if (left == 0) throw RuntimeError(ErrorNumber::inputPastEnd, path_);
  return readItem(bytes_, position_, unescaped_[field]).text;
}

bool CatalogueReader::next(CatalogueRecord& record) {
  if (position_ == bytes_.size()) return false;
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
