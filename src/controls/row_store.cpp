#include "controls/row_store.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <numeric>

#include "base/parallel.h"

namespace plimo {

void RowStore::Free::operator()(char* data) const { std::free(data); }

std::size_t RowStore::append(std::string_view text) {
  if (!bytes_ || bytes_.use_count() > 1 || text.size() > bytes_->capacity - bytes_->size) makeRoom(text.size());
  const std::size_t offset = bytes_->size;
  if (!text.empty()) std::memcpy(bytes_->data.get() + offset, text.data(), text.size());
  bytes_->size += text.size();
  return offset;
}

std::size_t RowStore::append(std::span<const std::string_view> texts) {
  // Texts from all over the memory are waited for, one by one: two threads wait for half as long.
  constexpr std::size_t worthTwoThreads = 32768;
  const auto sizeOf = [](std::span<const std::string_view> some) {
    return std::accumulate(some.begin(), some.end(), std::size_t{0},
                           [](std::size_t bytes, std::string_view text) { return bytes + text.size(); });
  };
  const std::span<const std::string_view> first =
      texts.first(texts.size() < worthTwoThreads ? texts.size() : texts.size() / 2);
  const std::span<const std::string_view> second = texts.subspan(first.size());
  const std::size_t firstSize = sizeOf(first);
  const std::size_t bytes = firstSize + sizeOf(second);
  makeRoom(bytes);
  const auto copy = [](std::span<const std::string_view> some, char* to) {
    for (const std::string_view text : some) to = std::copy(text.begin(), text.end(), to);
  };
  const std::size_t offset = bytes_->size;
  char* const begin = bytes_->data.get() + offset;
  if (second.empty()) {
    copy(first, begin);
  } else {
    parallelInvoke([&] { copy(first, begin); }, [&] { copy(second, begin + firstSize); });
  }
  bytes_->size += bytes;
  return offset;
}

std::size_t RowStore::append(const RowStore& other) {
  const std::shared_ptr<const Bytes> theirs = other.bytes_;  // they stay where they are, should this share them
  return append(theirs ? std::string_view(theirs->data.get(), theirs->size) : std::string_view());
}

void RowStore::makeRoom(std::size_t more) {
  const std::size_t used = size();
  if (!bytes_ || bytes_.use_count() > 1) {
    auto own = std::make_shared<Bytes>();
    own->data.reset(static_cast<char*>(std::malloc(std::max(used + more, std::size_t{1}))));
    if (!own->data) throw std::bad_alloc();
    own->capacity = used + more;
    own->size = used;
    if (used > 0) std::memcpy(own->data.get(), bytes_->data.get(), used);
    bytes_ = std::move(own);
    return;
  }
  if (more <= bytes_->capacity - used) return;
  const std::size_t wanted = std::max(used + more, bytes_->capacity + bytes_->capacity / 2);
  auto* const grown = static_cast<char*>(std::realloc(bytes_->data.get(), wanted));
  if (grown == nullptr) throw std::bad_alloc();
  static_cast<void>(bytes_->data.release());
  bytes_->data.reset(grown);
  bytes_->capacity = wanted;
}

}  // namespace plimo
