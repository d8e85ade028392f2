#include "catalogue/catalogue_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"

namespace plimo {
namespace {

std::vector<std::string> read(std::string_view bytes) {
  CatalogueReader reader(bytes, "plimo.kvx");
  CatalogueRecord record;
  std::vector<std::string> fields;
  while (reader.next(record)) {
    for (const std::string_view field : {record.path, record.artist, record.second, record.title}) {
      fields.emplace_back(field);
    }
  }
  return fields;
}

using Texts = std::vector<std::string>;

TEST(CatalogueReader, ReadsWhatAppendRecordWrites) {
  std::string bytes;
  appendRecord(bytes, {"/a \"b\"/c.mp3", "", "x,y", "c\r\nd.mp3"});
  appendRecord(bytes, {"p", "q", "r", "s"});
  EXPECT_EQ(read(bytes), (Texts{"/a \"b\"/c.mp3", "", "x,y", "c\r\nd.mp3", "p", "q", "r", "s"}));
}

TEST(CatalogueReader, ReadsUnquotedAndMixedForms) {
  EXPECT_EQ(read("\"p\",q, \"r\" ,s\np2\nq2\nr2\ns2"), (Texts{"p", "q", "r", "s", "p2", "q2", "r2", "s2"}));
}

TEST(CatalogueReader, UnescapesSeveralFieldsOfOneRecord) {
  EXPECT_EQ(read("\"a\"\"a\"\r\n\"b\"\"b\"\r\n\"c\"\r\n\"d\"\"d\"\r\n"), (Texts{"a\"a", "b\"b", "c", "d\"d"}));
}

TEST(CatalogueReader, FailsAtATruncatedRecord) {
  for (const char* bytes : {"\"p\"\r\n", "\"p\"\r\n\"q\"\r\n\"r\"\r\n", "\"p", "\"p\""}) {
    EXPECT_THROW(read(bytes), RuntimeError) << bytes;
  }
  EXPECT_TRUE(read("").empty());
}

}  // namespace
}  // namespace plimo
