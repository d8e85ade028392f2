#include "controls/row_store.h"

#include <numeric>

namespace plimo {

std::size_t RowStore::append(std::string_view text) {
  const std::size_t offset = size();
  if (!bytes_ || bytes_.use_count() > 1) reserve(text.size());
  bytes_->append(text);
  return offset;
}

std::size_t RowStore::append(std::span<const std::string_view> texts) {
  const std::size_t offset = size();
  reserve(std::accumulate(texts.begin(), texts.end(), std::size_t{0},
                          [](std::size_t bytes, std::string_view text) { return bytes + text.size(); }));
  for (const std::string_view text : texts) bytes_->append(text);
  return offset;
}

std::size_t RowStore::append(const RowStore& other) {
  const std::shared_ptr<const std::string> bytes = other.bytes_;  // keeps them if this store shares them
  return append(bytes ? std::string_view(*bytes) : std::string_view());
}

void RowStore::reserve(std::size_t more) {
  if (bytes_ && bytes_.use_count() == 1) {
    bytes_->reserve(size() + more);
    return;
  }
  auto copy = std::make_shared<std::string>();
  copy->reserve(size() + more);
  if (bytes_) copy->append(*bytes_);
  bytes_ = std::move(copy);
}

}  // namespace plimo
