// A catalogue opened for one sequential read.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/parallel.h"
#include "catalogue/batch_reader.h"
#include "platform/file_system_object.h"

namespace plimo {

inline constexpr std::string_view catalogueName = "plimo.kvx";

// How a truncated last record is handled.
enum class OnTruncation { fail, ignore };

class CatalogueFile {
 public:
  // Throws as FileSystemObject::openForReading does.
  CatalogueFile(FileSystemObject& files, const std::string& path)
      : files_(files), view_(files.openForReading(path)), path_(path) {}

  // Calls `each` with every record, in order, until it returns false. A record is valid until `each` returns. Throws
  // RuntimeError 62 at a truncated record, and 75 at the end if another program has changed the file meanwhile: what
  // `each` has collected must not be used then.
  template <class Each>
  void read(Each each) {
    files_.runInBackground([&] {
      BatchReader reader(*view_, path_, 0);
      const bool complete = readAll(reader, each);
      view_->throwIfChanged();
      if (complete && reader.truncation()) throw RuntimeError(*reader.truncation());
    });
  }

  // FileSystemObject::runInBackground, for what is made of the records.
  void runInBackground(const std::function<void()>& work) { files_.runInBackground(work); }

  // Calls `each(part, records)` with all records, in batches and in order; `each` collects its results in `part`. A
  // large catalogue is read by two threads with a part each, so `each` must be safe to call concurrently. Returns the
  // parts in the order of their records. The records are valid until `each` returns. A truncated record throws
  // RuntimeError 62, or is stored in truncation() if it is to be ignored. Throws 75 if another program has changed the
  // file meanwhile.
  template <class Part, class Each>
  std::vector<Part> parallelCollect(OnTruncation onTruncation, Each each) {
    std::vector<Part> parts;
    files_.runInBackground([&] { parts = collect<Part>(onTruncation, each); });
    return parts;
  }

  // The truncated record that parallelCollect ignored, if any.
  const std::optional<RuntimeError>& truncation() const { return truncation_; }

 private:
  // In bytes; below it, starting a second thread costs more than it saves.
  static constexpr std::size_t parallelThreshold = std::size_t{1} << 21;

  template <class Part, class Each>
  std::vector<Part> collect(OnTruncation onTruncation, Each& each) {
    struct Range {
      BatchReader reader;
      Part part{};
    };
    const auto continueTo = [&each](Range& range, std::size_t end) {
      for (auto batch = range.reader.next(end); !batch.empty(); batch = range.reader.next(end)) {
        each(range.part, batch);
      }
    };
    const auto read = [&](std::size_t begin, std::size_t end) {
      auto range = std::make_unique<Range>(Range{BatchReader(*view_, path_, begin)});
      continueTo(*range, end);
      return range;
    };
    const std::size_t middle = size() < parallelThreshold ? size() : findRecordNearMiddle(view_->bytes());
    std::unique_ptr<Range> first;
    std::unique_ptr<Range> second;
    if (middle == size()) {
      first = read(0, size());
    } else {
      std::tie(first, second) = parallelResults([&] { return read(0, middle); }, [&] { return read(middle, size()); });
    }
    if (second && first->reader.position() != middle) {  // the guess was wrong: discard what was read from there
      second.reset();
      continueTo(*first, size());
    }
    view_->throwIfChanged();  // before anything that was read is used
    truncation_ = (second ? second : first)->reader.truncation();
    if (truncation_ && onTruncation == OnTruncation::fail) throw RuntimeError(*truncation_);
    std::vector<Part> parts;
    parts.push_back(std::move(first->part));
    if (second) parts.push_back(std::move(second->part));
    return parts;
  }

  // False if `each` ended the reading.
  template <class Each>
  bool readAll(BatchReader& reader, Each& each) {
    for (auto batch = reader.next(size()); !batch.empty(); batch = reader.next(size())) {
      for (const CatalogueRecord& record : batch) {
        if (!each(record)) return false;
      }
    }
    return true;
  }

  std::size_t size() const { return view_->bytes().size(); }

  FileSystemObject& files_;
  std::unique_ptr<FileView> view_;
  std::string path_;
  std::optional<RuntimeError> truncation_;
};

}  // namespace plimo
