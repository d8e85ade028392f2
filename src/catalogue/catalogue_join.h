// Answers many look-ups in the catalogue by reading it once.
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

// The keys of a batch of records, looked up together. Neighbours made from the same text share one look-up: an artist's
// songs mostly stand together.
class KeyBatch {
 public:
  void clear() { records_ = asked_ = 0; }

  // The next record's; nothing where it has none.
  template <class KeyOf>
  void add(std::optional<std::string_view> source, KeyOf& keyOf) {
    std::uint8_t& place = places_[records_++];
    place = nowhere;
    if (!source) return;
    if (asked_ == 0 || sources_[asked_ - 1] != *source) {
      sources_[asked_] = *source;
      keys_[asked_] = keyOf(*source, scratch_[asked_]);
      ++asked_;
    }
    place = static_cast<std::uint8_t>(asked_ - 1);
  }

  void look(const StringInterner& index) {
    index.find(std::span(keys_).first(asked_), std::span(numbers_).first(asked_));
  }

  // What the index has for the record at this place in the batch; StringInterner::none without a key too.
  std::uint32_t number(std::size_t record) const {
    return places_[record] == nowhere ? StringInterner::none : numbers_[places_[record]];
  }

 private:
  static constexpr std::size_t most = BatchReader::batchSize;
  static constexpr std::uint8_t nowhere = UINT8_MAX;
  static_assert(most < nowhere);

  std::size_t records_ = 0;
  std::size_t asked_ = 0;
  std::array<std::uint8_t, most> places_{};
  std::array<std::string_view, most> sources_;
  std::array<std::string_view, most> keys_;
  std::array<std::string, most> scratch_;
  std::array<std::uint32_t, most> numbers_{};
};

// For each of a list of keys, in order and with repetitions, the values of the records that match it, in record order:
// the same as reading the whole catalogue once for each key.
template <class Value, class Arena = StringArena>
class CatalogueJoin {
 public:
  // `sourceOf(record)` gives the text that a record's key is made from, or nothing where it can match none;
  // `keyOf(source, scratch)` makes the key, in `scratch` where it is not the source itself; `valueOf(record, texts)`
  // gives the value of a record that matches, with its texts kept in the arena `texts`. All three are called by several
  // threads. Throws as CatalogueFile::gather does.
  template <class SourceOf, class KeyOf, class ValueOf>
  CatalogueJoin(CatalogueFile& catalogue, std::span<const std::string_view> keys, OnTruncation end, SourceOf sourceOf,
                KeyOf keyOf, ValueOf valueOf)
      : groupOfKey_(keys.size()) {
    StringInterner index(keys.size());
    index.add(keys, groupOfKey_);
    const auto look = [&](Matches& found, std::span<const CatalogueRecord> records) {
      found.wanted.clear();
      for (const CatalogueRecord& record : records) found.wanted.add(sourceOf(record), keyOf);
      found.wanted.look(index);
      for (std::size_t i = 0; i < records.size(); ++i) {
        const std::uint32_t group = found.wanted.number(i);
        if (group != StringInterner::none) found.add({group, valueOf(records[i], found.texts)});
      }
    };
    order(catalogue.parallelCollect<Matches>(end, look), index.size());
  }

  // The same for a key that is the record's text as it stands.
  template <class SourceOf, class ValueOf>
  CatalogueJoin(CatalogueFile& catalogue, std::span<const std::string_view> keys, OnTruncation end, SourceOf sourceOf,
                ValueOf valueOf)
      : CatalogueJoin(
            catalogue, keys, end, sourceOf, [](std::string_view source, std::string&) { return source; }, valueOf) {}

  // The values for the key at this place in the list.
  std::span<const Value> of(std::size_t key) const {
    const std::uint32_t group = groupOfKey_[key];
    return std::span(values_).subspan(starts_[group], starts_[group + 1] - starts_[group]);
  }

 private:
  struct Match {
    std::uint32_t group;
    Value value;
  };
  // In record order.
  struct Matches {
    static constexpr std::size_t inBlock = 2048;

    void add(const Match& match) {
      if (count++ % inBlock == 0) blocks.emplace_back().reserve(inBlock);
      blocks.back().push_back(match);
    }

    KeyBatch wanted;
    Arena texts;
    std::vector<std::vector<Match>> blocks;  // so that many matches need no copying while they grow
    std::size_t count = 0;
  };

  // By group, each group's in record order.
  void order(std::vector<Matches> found, std::size_t groups) {
    const auto forEach = [&found](auto each) {
      for (const Matches& matches : found) {
        for (const std::vector<Match>& block : matches.blocks) {
          for (const Match& match : block) each(match);
        }
      }
    };
    starts_.resize(groups + 1);
    bool inOrder = true;  // as where the keys were taken from the catalogue, and none stands twice in it
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
    for (Matches& matches : found) texts_.push_back(std::move(matches.texts));
  }

  std::vector<std::uint32_t> groupOfKey_;
  std::vector<std::size_t> starts_;
  std::vector<Value> values_;
  std::vector<Arena> texts_;
};

}  // namespace plimo
