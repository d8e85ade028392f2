// A catalogue opened to be read from its start to its end, once.
#pragma once

#include <cstddef>
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

// What a record that breaks off at the catalogue's end means.
enum class OnTruncation { fail, ignore };

class CatalogueFile {
 public:
  // Throws as FileSystemObject::openForReading does.
  CatalogueFile(FileSystemObject& files, const std::string& path) : view_(files.openForReading(path)), path_(path) {}

  // Calls `each` with every record, in order, until it returns false. A record is good until `each` returns. Throws 62
  // where it meets a record that breaks off.
  template <class Each>
  void read(Each each) {
    BatchReader reader(*view_, path_, 0);
    for (auto batch = reader.next(size()); !batch.empty(); batch = reader.next(size())) {
      for (const CatalogueRecord& record : batch) {
        if (!each(record)) return;
      }
    }
    if (reader.truncation()) throw RuntimeError(*reader.truncation());
  }

  // Calls `each(part, records)` with all records, some at a time and each time in order, to gather what it wants from
  // them in `part`. A large catalogue is read by two threads, each of which fills a part of its own. The parts, which
  // follow one another as the records do. The records are good until `each` returns. Throws 62 where a record breaks
  // off and that fails; where it is ignored, `broken` tells of it.
  template <class Part, class Each>
  std::vector<Part> parallelCollect(OnTruncation end, Each each) {
    struct Stretch {
      BatchReader reader;
      Part part{};
    };
    const auto readOn = [&each](Stretch& stretch, std::size_t to) {
      for (auto batch = stretch.reader.next(to); !batch.empty(); batch = stretch.reader.next(to)) {
        each(stretch.part, batch);
      }
    };
    const auto read = [&](std::size_t from, std::size_t to) {
      auto stretch = std::make_unique<Stretch>(Stretch{BatchReader(*view_, path_, from)});
      readOn(*stretch, to);
      return stretch;
    };
    const std::size_t middle = size() < worthTwoReaders ? size() : findRecordNearMiddle(view_->bytes());
    std::unique_ptr<Stretch> first;
    std::unique_ptr<Stretch> second;
    if (middle == size()) {
      first = read(0, size());
    } else {
      std::tie(first, second) = parallelResults([&] { return read(0, middle); }, [&] { return read(middle, size()); });
    }
    if (second && first->reader.position() != middle) {  // no record begins there after all
      second.reset();
      readOn(*first, size());
    }
    truncation_ = (second ? second : first)->reader.truncation();
    if (truncation_ && end == OnTruncation::fail) throw RuntimeError(*truncation_);
    std::vector<Part> parts;
    parts.push_back(std::move(first->part));
    if (second) parts.push_back(std::move(second->part));
    return parts;
  }

  // The broken end that gathering ignored, if it met one.
  const std::optional<RuntimeError>& truncation() const { return truncation_; }

 private:
  // Bytes from which on a second thread is worth its start.
  static constexpr std::size_t worthTwoReaders = std::size_t{1} << 21;

  std::size_t size() const { return view_->bytes().size(); }

  std::unique_ptr<FileView> view_;
  std::string path_;
  std::optional<RuntimeError> truncation_;
};

}  // namespace plimo
