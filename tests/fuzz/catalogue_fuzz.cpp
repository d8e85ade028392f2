// A catalogue, read by one reader. The input is a list of names, separated by commas, and the catalogue.
#include "base/text.h"
#include "catalogue/catalogue_reader.h"
#include "fuzz/catalogue_checks.h"
#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/naive_reader.h"

using namespace plimo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const std::string_view names = input.text();
  const std::string_view content = input.rest();
  fuzz::checkCatalogue(content, split(names, ','));

  // What is read can be written, and is the same when it is read again.
  const fuzz::NaiveCatalogue naive = fuzz::naiveCatalogue(content);
  std::string written;
  for (const auto& [path, artist, second, title] : naive.records) appendRecord(written, {path, artist, second, title});
  fuzz::expect(fuzz::naiveCatalogue(written).records == naive.records, "the same records after writing them");
  return 0;
}
