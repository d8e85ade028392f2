// Converts between UTF-16, as Windows has it in file names, and WTF-8: UTF-8 that also encodes unpaired surrogates, in
// three bytes each. Every name of Windows survives the way there and back (https://simonsapin.github.io/wtf-8/).
#pragma once

#include <string>
#include <string_view>

namespace plimo {

// A byte that is not part of a valid sequence becomes `replacement`.
std::u16string wtf8ToUtf16(std::string_view text, char16_t replacement = u'\uFFFD');
std::string utf16ToWtf8(std::u16string_view text);
void appendWtf8(std::string& target, std::u16string_view text);

}  // namespace plimo
