#include "catalogue/catalogue_file.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/catalogue_join.h"
#include "support/native_files.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

using Texts = std::vector<std::string>;

// All four fields of each record of one reader.
struct CollectedFields {
  Texts fields;
};

class CatalogueFileTest : public testing::Test {
 protected:
  // Large enough for two readers with several windows each.
  static constexpr std::size_t large = std::size_t{12} << 20;

  void add(const Texts& record) {
    appendRecord(bytes_, {record[0], record[1], record[2], record[3]});
    fields_.insert(fields_.end(), record.begin(), record.end());
  }

  // Adds songs until the catalogue has this size; every seventh has quotes in its name.
  void addSongs(std::size_t size) {
    for (std::size_t number = 0; bytes_.size() < size; ++number) {
      const std::string title = (number % 7 == 0 ? " \"Song\" " : " Song ") + std::to_string(number) + ".mp3";
      const std::string artist = "Artist " + std::to_string(number % 10);
      add({"/music/" + std::string(number % 90, 'f') + "/" + artist + " -" + title, artist, "Don't know!", title});
    }
  }

  std::string writeCatalogue() {
    writeFile(folder_ / "plimo.kvx", bytes_);
    return folder_ / "plimo.kvx";
  }

  // All fields in order; checks the number of readers.
  Texts collect(std::size_t readers, OnTruncation end = OnTruncation::fail) {
    CatalogueFile catalogue(*files_, writeCatalogue());
    const auto parts = catalogue.parallelCollect<CollectedFields>(
        end, [](CollectedFields& part, std::span<const CatalogueRecord> records) {
          for (const CatalogueRecord& record : records) {
            for (const std::string_view text : {record.path, record.artist, record.second, record.title}) {
              part.fields.emplace_back(text);
            }
          }
        });
    EXPECT_EQ(parts.size(), readers);
    Texts all;
    for (const CollectedFields& part : parts) all.insert(all.end(), part.fields.begin(), part.fields.end());
    truncation_ = catalogue.truncation().has_value();
    return all;
  }

  TemporaryFolder folder_;
  std::unique_ptr<FileSystemObject> files_ = nativeFilesIn(folder_.path());
  std::string bytes_;
  Texts fields_;
  bool truncation_ = false;
  std::atomic<bool> truncatedMeanwhile_ = false;
};

TEST_F(CatalogueFileTest, ReadsASmallCatalogueWithOneReader) {
  addSongs(1000);
  EXPECT_EQ(collect(1), fields_);
  bytes_.clear();
  EXPECT_TRUE(collect(1).empty());
}

TEST_F(CatalogueFileTest, ReadsALargeCatalogueWithTwoReaders) {
  addSongs(large);
  EXPECT_TRUE(collect(2) == fields_);
}

TEST_F(CatalogueFileTest, DiscardsAWrongGuessOfARecordsStart) {
  // Read from its second field on, each record looks like that of a song: "x.mp3" contains the following first field.
  while (bytes_.size() < large) add({"", "x.mp3", "second", "title.mp3"});
  const std::size_t middle = findRecordNearMiddle(bytes_);
  ASSERT_EQ(bytes_.substr(middle, 7), "\"x.mp3\"");
  EXPECT_TRUE(collect(1) == fields_);
}

TEST_F(CatalogueFileTest, ReadsWithOneReaderIfNoRecordStartIsFound) {
  while (bytes_.size() < large) add({"a", "b", "c", "d"});
  EXPECT_TRUE(collect(1) == fields_);
}

TEST_F(CatalogueFileTest, ReportsATruncatedEnd) {
  addSongs(large);
  bytes_ += "\"half a record\"\r\n";
  EXPECT_TRUE(collect(2, OnTruncation::ignore) == fields_);
  EXPECT_TRUE(truncation_);
  EXPECT_THROW(collect(2, OnTruncation::fail), RuntimeError);
}

TEST_F(CatalogueFileTest, AStrayValueShiftsAllRecordsAfterIt) {
  addSongs(large / 4);
  bytes_ += "\"stray\"\r\n";
  fields_.emplace_back("stray");
  addSongs(large);
  fields_.resize(fields_.size() / 4 * 4);
  EXPECT_TRUE(collect(1, OnTruncation::ignore) == fields_);
  EXPECT_TRUE(truncation_);
}

TEST_F(CatalogueFileTest, AJoinReturnsEachKeysRecordsInOrder) {
  addSongs(large);
  CatalogueFile catalogue(*files_, writeCatalogue());
  const std::vector<std::string_view> keys = {"Artist 3", "nobody", "Artist 8", "Artist 3"};
  const CatalogueJoin<std::string_view> titles(
      catalogue, keys, OnTruncation::fail, [](const CatalogueRecord& record) { return std::optional(record.artist); },
      [](const CatalogueRecord& record, StringArena& texts) { return texts.store(record.title); });
  for (std::size_t key = 0; key < keys.size(); ++key) {
    Texts expected;
    for (std::size_t i = 0; i < fields_.size(); i += 4) {
      if (fields_[i + 1] == keys[key]) expected.push_back(fields_[i + 3]);
    }
    EXPECT_TRUE(Texts(titles.of(key).begin(), titles.of(key).end()) == expected) << keys[key];
  }
  EXPECT_TRUE(titles.of(1).empty());
  EXPECT_GT(titles.of(0).size(), 1000U);
}

// Another program truncates the catalogue while it is read.
TEST_F(CatalogueFileTest, FailsIfItIsTruncatedMeanwhile) {
  if (!largeViewsAreMapped) GTEST_SKIP() << "what has been opened is a copy here";
  const auto errorOf = [](const std::function<void()>& call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  };
  for (const std::size_t size : {large / 8, large}) {  // one reader, two readers
    addSongs(size);
    const auto truncateOnce = [this] {
      if (!truncatedMeanwhile_.exchange(true)) std::filesystem::resize_file(folder_ / "plimo.kvx", 5000);
    };
    for (const OnTruncation end : {OnTruncation::fail, OnTruncation::ignore}) {
      CatalogueFile catalogue(*files_, writeCatalogue());
      truncatedMeanwhile_ = false;
      EXPECT_EQ(errorOf([&] {
                  catalogue.parallelCollect<CollectedFields>(
                      end, [&](CollectedFields&, std::span<const CatalogueRecord>) { truncateOnce(); });
                }),
                75);
    }
    CatalogueFile catalogue(*files_, writeCatalogue());
    truncatedMeanwhile_ = false;
    EXPECT_EQ(errorOf([&] {
                catalogue.read([&](const CatalogueRecord&) {
                  truncateOnce();
                  return true;
                });
              }),
              75);
  }
}

TEST_F(CatalogueFileTest, ReadStopsOnRequest) {
  addSongs(large);
  CatalogueFile catalogue(*files_, writeCatalogue());
  std::size_t read = 0;
  catalogue.read([&read](const CatalogueRecord&) { return ++read < 1000; });
  EXPECT_EQ(read, 1000U);
}

}  // namespace
}  // namespace plimo
