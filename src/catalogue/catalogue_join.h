// Answers many look-ups in the catalogue by reading it once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "base/text_index.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "platform/file_system_object.h"

namespace plimo {

// What a record that breaks off at the catalogue's end means.
enum class BrokenEnd { fails, ignored };

// An opened catalogue. What is read from it stays good as long as it is open.
class OpenCatalogue {
 public:
  // Throws as FileSystemObject::openForReading does.
  OpenCatalogue(FileSystemObject& files, const std::string& path) : view_(files.openForReading(path)), path_(path) {}

  // Calls `each` with every record, in order, until it returns false. Throws 62 where the end is broken and that fails;
  // where it is ignored, `broken` tells of it.
  template <class Each>
  void read(BrokenEnd end, Each each) {
    CatalogueReader reader(view_->bytes(), path_);
    CatalogueRecord record;
    try {
      while (reader.next(record)) {
        if (!each(record)) return;
      }
    } catch (const RuntimeError& error) {
      if (end == BrokenEnd::fails) throw;
      broken_ = error;
    }
  }

  // The broken end that a reading ignored, if it met one.
  const std::optional<RuntimeError>& broken() const { return broken_; }

  // The text for as long as the catalogue is open.
  std::string_view keep(std::string_view text) {
    const std::string_view bytes = view_->bytes();
    const std::less_equal<> notBehind;
    const bool inFile =
        notBehind(bytes.data(), text.data()) && notBehind(text.data() + text.size(), bytes.data() + bytes.size());
    return inFile ? text : std::string_view(kept_.emplace_back(text));
  }

 private:
  std::unique_ptr<FileView> view_;
  std::string path_;
  std::deque<std::string> kept_;
  std::optional<RuntimeError> broken_;
};

// For each of a list of keys, in order and with repetitions, the values of the records that match it, in record order:
// the same as reading the whole catalogue once for each key.
template <class Value>
class CatalogueJoin {
 public:
  // `keyOf(record, scratch)` gives a record's key, or nothing where it can match none; `valueOf(record)` gives the
  // value kept for it.
  template <class KeyOf, class ValueOf>
  CatalogueJoin(OpenCatalogue& catalogue, std::span<const std::string_view> keys, BrokenEnd end, KeyOf keyOf,
                ValueOf valueOf)
      : groupOfKey_(keys.size()) {
    TextIndex index(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) groupOfKey_[i] = index.add(keys[i]);
    struct Match {
      std::uint32_t group;
      Value value;
    };
    std::vector<Match> matches;
    std::vector<std::size_t> sizes(index.size() + 1);
    std::string scratch;
    catalogue.read(end, [&](const CatalogueRecord& record) {
      const std::optional<std::string_view> key = keyOf(record, scratch);
      if (!key) return true;
      const std::uint32_t group = index.find(*key);
      if (group == TextIndex::none) return true;
      matches.push_back({group, valueOf(record)});
      ++sizes[group + 1];
      return true;
    });
    starts_ = std::move(sizes);
    for (std::size_t group = 1; group < starts_.size(); ++group) starts_[group] += starts_[group - 1];
    values_.resize(matches.size());
    std::vector<std::size_t> next = starts_;
    for (const Match& match : matches) values_[next[match.group]++] = match.value;
  }

  // The values for the key at this place in the list.
  std::span<const Value> of(std::size_t key) const {
    const std::uint32_t group = groupOfKey_[key];
    return std::span(values_).subspan(starts_[group], starts_[group + 1] - starts_[group]);
  }

 private:
  std::vector<std::uint32_t> groupOfKey_;
  std::vector<std::size_t> starts_;
  std::vector<Value> values_;
};

}  // namespace plimo
