// A catalogue opened to be read from its start to its end, once.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/at_once.h"
#include "base/errors.h"
#include "catalogue/batch_reader.h"
#include "platform/file_system_object.h"

namespace plimo {

// What a record that breaks off at the catalogue's end means.
enum class BrokenEnd { fails, ignored };

class OpenCatalogue {
 public:
  // Throws as FileSystemObject::openForReading does.
  OpenCatalogue(FileSystemObject& files, const std::string& path) : view_(files.openForReading(path)), path_(path) {}

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
    if (reader.broken()) throw RuntimeError(*reader.broken());
  }

  // Calls `each(part, records)` with all records, some at a time and each time in order, to gather what it wants from
  // them in `part`. A large catalogue is read by two threads, each of which fills a part of its own. The parts, which
  // follow one another as the records do. The records are good until `each` returns. Throws 62 where a record breaks
  // off and that fails; where it is ignored, `broken` tells of it.
  template <class Part, class Each>
  std::vector<Part> gather(BrokenEnd end, Each each) {
    const auto fill = [&each](BatchReader& reader, std::size_t to, Part& part) {
      for (auto batch = reader.next(to); !batch.empty(); batch = reader.next(to)) each(part, batch);
    };
    const std::size_t middle = size() < worthTwoReaders ? size() : likelyMiddle(view_->bytes());
    std::vector<Part> parts(middle < size() ? 2 : 1);
    BatchReader first(*view_, path_, 0);
    BatchReader second(*view_, path_, middle);
    if (parts.size() == 1) {
      fill(first, size(), parts[0]);
    } else {
      atOnce([&] { fill(first, middle, parts[0]); }, [&] { fill(second, size(), parts[1]); });
    }
    const bool met = parts.size() == 2 && first.position() == middle;
    if (parts.size() == 2 && !met) {  // no record begins there after all
      parts.pop_back();
      fill(first, size(), parts[0]);
    }
    broken_ = (met ? second : first).broken();
    if (broken_ && end == BrokenEnd::fails) throw RuntimeError(*broken_);
    return parts;
  }

  // The broken end that gathering ignored, if it met one.
  const std::optional<RuntimeError>& broken() const { return broken_; }

 private:
  // Bytes from which on a second thread is worth its start.
  static constexpr std::size_t worthTwoReaders = std::size_t{1} << 21;

  std::size_t size() const { return view_->bytes().size(); }

  std::unique_ptr<FileView> view_;
  std::string path_;
  std::optional<RuntimeError> broken_;
};

}  // namespace plimo
