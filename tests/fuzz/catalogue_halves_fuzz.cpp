// A catalogue that is large enough for two readers. The input is a list of names and a piece of catalogue, which is
// repeated with a different piece in the middle, where the second reader begins.
#include "base/text.h"
#include "catalogue/batch_reader.h"
#include "fuzz/catalogue_checks.h"
#include "fuzz/fuzz_input.h"

using namespace plimo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const std::string_view names = input.text();
  const std::string_view middle = input.text();
  const std::string_view piece = input.rest();
  if (piece.size() < 32) return 0;
  constexpr std::size_t half = std::size_t{1} << 20;
  std::string content;
  content.reserve(2 * half + 2 * piece.size() + middle.size());
  while (content.size() < half) content += piece;
  content += middle;
  while (content.size() <= 2 * half) content += piece;
  fuzz::expect(findRecordNearMiddle(content) <= content.size(), "a place in the catalogue");
  const auto some = split(names, ',');
  fuzz::checkCatalogue(content, std::span(some).first(std::min<std::size_t>(some.size(), 4)));
  return 0;
}
