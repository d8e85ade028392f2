// Answers many look-ups in the catalogue by reading it once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/text_arena.h"
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

  // The same in batches of records, which all are good until `each` returns: what takes long for one record (a look
  // into a large index) can be done for all of a batch at once.
  template <class Each>
  void readBatches(BrokenEnd end, Each each) {
    std::vector<CatalogueRecord> batch;
    batch.reserve(batchSize);
    std::deque<std::string> copies;
    CatalogueReader reader(view_->bytes(), path_);
    CatalogueRecord record;
    const auto next = [&] {
      try {
        return reader.next(record);
      } catch (const RuntimeError& error) {
        if (end == BrokenEnd::fails) throw;
        broken_ = error;
        return false;
      }
    };
    while (next()) {
      if (!reader.inBytes()) {
        for (std::string_view* text : {&record.path, &record.artist, &record.second, &record.title}) {
          if (!inFile(*text)) *text = copies.emplace_back(*text);
        }
      }
      batch.push_back(record);
      if (batch.size() < batchSize) continue;
      each(std::span<const CatalogueRecord>(batch));
      batch.clear();
      copies.clear();
    }
    if (!batch.empty()) each(std::span<const CatalogueRecord>(batch));
  }

  // The broken end that a reading ignored, if it met one.
  const std::optional<RuntimeError>& broken() const { return broken_; }

  // The text for as long as the catalogue is open.
  std::string_view keep(std::string_view text) { return inFile(text) ? text : kept_.keep(text); }

  static constexpr std::size_t batchSize = 64;

 private:
  bool inFile(std::string_view text) const {
    const std::string_view bytes = view_->bytes();
    const std::less_equal<> notBehind;
    return notBehind(bytes.data(), text.data()) && notBehind(text.data() + text.size(), bytes.data() + bytes.size());
  }

  std::unique_ptr<FileView> view_;
  std::string path_;
  TextArena kept_;
  std::optional<RuntimeError> broken_;
};

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

  void look(const TextIndex& index) { index.find(std::span(keys_).first(asked_), std::span(numbers_).first(asked_)); }

  // What the index has for the record at this place in the batch; TextIndex::none without a key too.
  std::uint32_t number(std::size_t record) const {
    return places_[record] == nowhere ? TextIndex::none : numbers_[places_[record]];
  }

 private:
  static constexpr std::size_t most = OpenCatalogue::batchSize;
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
template <class Value>
class CatalogueJoin {
 public:
  // `sourceOf(record)` gives the text that a record's key is made from, or nothing where it can match none;
  // `keyOf(source, scratch)` makes the key, in `scratch` where it is not the source itself; `valueOf(record)` gives the
  // value kept for a record that matches.
  template <class SourceOf, class KeyOf, class ValueOf>
  CatalogueJoin(OpenCatalogue& catalogue, std::span<const std::string_view> keys, BrokenEnd end, SourceOf sourceOf,
                KeyOf keyOf, ValueOf valueOf)
      : groupOfKey_(keys.size()) {
    TextIndex index(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) groupOfKey_[i] = index.add(keys[i]);
    struct Match {
      std::uint32_t group;
      Value value;
    };
    std::vector<std::vector<Match>> blocks;  // so that many matches need no copying while they grow
    std::size_t matches = 0;
    std::vector<std::size_t> sizes(index.size() + 1);
    KeyBatch wanted;
    catalogue.readBatches(end, [&](std::span<const CatalogueRecord> records) {
      wanted.clear();
      for (const CatalogueRecord& record : records) wanted.add(sourceOf(record), keyOf);
      wanted.look(index);
      for (std::size_t i = 0; i < records.size(); ++i) {
        const std::uint32_t group = wanted.number(i);
        if (group == TextIndex::none) continue;
        if (matches % matchesInBlock == 0) blocks.emplace_back().reserve(matchesInBlock);
        blocks.back().push_back({group, valueOf(records[i])});
        ++matches;
        ++sizes[group + 1];
      }
    });
    starts_ = std::move(sizes);
    for (std::size_t group = 1; group < starts_.size(); ++group) starts_[group] += starts_[group - 1];
    values_.resize(matches);
    std::vector<std::size_t> next = starts_;
    for (const std::vector<Match>& block : blocks) {
      for (const Match& match : block) values_[next[match.group]++] = match.value;
    }
  }

  // The same for a key that is the record's text as it stands.
  template <class SourceOf, class ValueOf>
  CatalogueJoin(OpenCatalogue& catalogue, std::span<const std::string_view> keys, BrokenEnd end, SourceOf sourceOf,
                ValueOf valueOf)
      : CatalogueJoin(
            catalogue, keys, end, sourceOf, [](std::string_view source, std::string&) { return source; }, valueOf) {}

  // The values for the key at this place in the list.
  std::span<const Value> of(std::size_t key) const {
    const std::uint32_t group = groupOfKey_[key];
    return std::span(values_).subspan(starts_[group], starts_[group + 1] - starts_[group]);
  }

 private:
  static constexpr std::size_t matchesInBlock = 4096;

  std::vector<std::uint32_t> groupOfKey_;
  std::vector<std::size_t> starts_;
  std::vector<Value> values_;
};

}  // namespace plimo
