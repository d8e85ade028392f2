// Small string operations. A string is a sequence of bytes; operations on letters decode it as UTF-8 and leave bytes
// that are not valid UTF-8 unchanged.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// Without leading and trailing blanks (only the space character counts).
std::string_view trimBlanks(std::string_view text);

// The letters a to z replaced by A to Z; every other byte unchanged.
std::string upperAscii(std::string_view text);
void appendUpperAscii(std::string& target, std::string_view text);

// Unicode simple case folding. Two strings are equal without regard to case if their folded forms are equal; folded
// forms are ordered by their bytes.
std::string foldCase(std::string_view text);
void appendFolded(std::string& target, std::string_view text);

// Case-insensitive comparison: negative, 0 or positive, as foldCase(left).compare(foldCase(right)).
int compareFolded(std::string_view left, std::string_view right);

// The parts between the separators; always at least one.
std::vector<std::string_view> split(std::string_view text, char separator);

// The part before the first separator; the whole string if there is none.
std::string_view prefixBefore(std::string_view text, char separator);

// True if `text` points into the memory of `bytes`.
bool isSubview(std::string_view bytes, std::string_view text);

// A count with its noun: "1 song", "2 songs".
std::string counted(std::size_t count, std::string_view noun);

// The text, with its middle replaced by "..." if it is longer than `most` bytes; never cuts a UTF-8 sequence in two.
std::string elideMiddle(std::string_view text, std::size_t most);
// Titles and paths longer than this are elided when they are shown, in bytes.
inline constexpr std::size_t longestShownText = 500;

// The bytes as valid UTF-8: each byte that is not part of a valid sequence becomes U+FFFD.
std::string toValidUtf8(std::string_view bytes);

}  // namespace plimo
