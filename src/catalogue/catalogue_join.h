// A hash join of a list of keys with the catalogue.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/string_arena.h"
#include "base/string_interner.h"
#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_reader.h"

namespace plimo {

// The keys of a batch of records, for one batched lookup. Consecutive records with the same source share a lookup,
// because an artist's songs are mostly adjacent.
class KeyBatch {
 public:
  void clear() { recordCount_ = keyCount_ = 0; }

  // Adds the next record; nullopt if it has no key.
  template <class KeyOf>
  void add(std::optional<std::string_view> source, KeyOf& keyOf) {
    std::uint8_t& key = keyOfRecord_[recordCount_++];
    key = noKey;
    if (!source) return;
    if (keyCount_ == 0 || sources_[keyCount_ - 1] != *source) {
      sources_[keyCount_] = *source;
      keys_[keyCount_] = keyOf(*source, scratch_[keyCount_]);
      ++keyCount_;
    }
    key = static_cast<std::uint8_t>(keyCount_ - 1);
  }

  void lookUp(const StringInterner& interner) {
    interner.find(std::span(keys_).first(keyCount_), std::span(ids_).first(keyCount_));
  }

  // The id of a record's key after lookUp; StringInterner::none also if it has no key.
  std::uint32_t id(std::size_t record) const {
    return keyOfRecord_[record] == noKey ? StringInterner::none : ids_[keyOfRecord_[record]];
  }

 private:
  static constexpr std::size_t capacity = BatchReader::batchSize;
  static constexpr std::uint8_t noKey = UINT8_MAX;
  static_assert(capacity < noKey);

  std::size_t recordCount_ = 0;
  std::size_t keyCount_ = 0;
  std::array<std::uint8_t, capacity> keyOfRecord_{};
  std::array<std::string_view, capacity> sources_;
  std::array<std::string_view, capacity> keys_;
  std::array<std::string, capacity> scratch_;
  std::array<std::uint32_t, capacity> ids_{};
};

// For each key of a list, in order and with repetitions, the values of the matching records in record order: the result
// of reading the whole catalogue once per key. The keys are the build side of the hash join, the records its probe
// side.
template <class Value, class Arena = StringArena>
class CatalogueJoin {
 public:
  // `sourceOf(record)` returns the string that the record's key is derived from, or nullopt if it has no key;
  // `keyOf(source, scratch)` returns the key, stored in `scratch` unless it is a part of the source; `valueOf(record,
  // texts)` returns the value of a matching record, with its strings stored in the arena `texts`. All three are called
  // from two threads. Throws as CatalogueFile::parallelCollect does.
  template <class SourceOf, class KeyOf, class ValueOf>
  CatalogueJoin(CatalogueFile& catalogue, std::span<const std::string_view> keys, OnTruncation onTruncation,
                SourceOf sourceOf, KeyOf keyOf, ValueOf valueOf)
      : groupOfKey_(keys.size()) {
    catalogue.runInBackground([&] {
      StringInterner interner(keys.size());
      interner.add(keys, groupOfKey_);
      const auto probe = [&](Matches& matches, std::span<const CatalogueRecord> records) {
        matches.keys.clear();
        for (const CatalogueRecord& record : records) matches.keys.add(sourceOf(record), keyOf);
        matches.keys.lookUp(interner);
        for (std::size_t i = 0; i < records.size(); ++i) {
          const std::uint32_t group = matches.keys.id(i);
          if (group != StringInterner::none) matches.found.push_back({group, valueOf(records[i], matches.texts)});
        }
      };
      groupMatches(catalogue.parallelCollect<Matches>(onTruncation, probe), interner.size());
    });
  }

  // The same if the source itself is the key.
  template <class SourceOf, class ValueOf>
  CatalogueJoin(CatalogueFile& catalogue, std::span<const std::string_view> keys, OnTruncation onTruncation,
                SourceOf sourceOf, ValueOf valueOf)
      : CatalogueJoin(
            catalogue, keys, onTruncation, sourceOf, [](std::string_view source, std::string&) { return source; },
            valueOf) {}

  // The values for the key at this index in the list; valid as long as this object.
  std::span<const Value> of(std::size_t key) const {
    const std::uint32_t group = groupOfKey_[key];
    return std::span(values_).subspan(starts_[group], starts_[group + 1] - starts_[group]);
  }
  // The values of all keys, each key once.
  std::span<const Value> distinct() const { return values_; }

 private:
  struct Match {
    std::uint32_t group;
    Value value;
  };
  // The matches of one reader, in record order.
  struct Matches {
    KeyBatch keys;
    Arena texts;
    std::vector<Match> found;
  };

  // A counting sort by group, which keeps the record order within each group.
  void groupMatches(std::vector<Matches> parts, std::size_t groups) {
    const auto forEach = [&parts](auto each) {
      for (const Matches& matches : parts) {
        for (const Match& match : matches.found) each(match);
      }
    };
    starts_.resize(groups + 1);
    bool inOrder = true;  // usual if the keys were themselves read from the catalogue
    std::uint32_t last = 0;
    forEach([&](const Match& match) {
      ++starts_[match.group + 1];
      inOrder = inOrder && match.group >= last;
      last = match.group;
    });
    for (std::size_t group = 1; group <= groups; ++group) starts_[group] += starts_[group - 1];
    if (inOrder) {
      values_.reserve(starts_.back());
      forEach([this](const Match& match) { values_.push_back(match.value); });
    } else {
      values_.resize(starts_.back());
      std::vector<std::size_t> next = starts_;
      forEach([this, &next](const Match& match) { values_[next[match.group]++] = match.value; });
    }
    for (Matches& matches : parts) texts_.push_back(std::move(matches.texts));
  }

  std::vector<std::uint32_t> groupOfKey_;
  std::vector<std::size_t> starts_;  // of each group in values_, and the end of the last one
  std::vector<Value> values_;
  std::vector<Arena> texts_;
};

}  // namespace plimo
