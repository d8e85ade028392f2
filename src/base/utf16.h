// UTF-8 to UTF-16 and back, for systems whose names are UTF-16. Nothing is lost: an unpaired surrogate becomes the
// three bytes that UTF-8 would have for it, which is known as WTF-8.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

// A byte that is not part of a valid sequence becomes U+FFFD.
std::u16string utf16FromUtf8(std::string_view text);
std::string utf8FromUtf16(std::u16string_view text);

}  // namespace plimo
