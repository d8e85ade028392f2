// Small operations on texts. A text is a run of bytes; where letters matter it is read as UTF-8, and bytes that are
// not valid UTF-8 stand for themselves.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// Without the blanks (space characters only) at both ends.
std::string_view trimBlanks(std::string_view text);

// The letters a to z replaced by A to Z; every other byte unchanged.
std::string upperAscii(std::string_view text);
void appendUpperAscii(std::string& target, std::string_view text);

// The text folded for comparison without regard to case, by Unicode's simple case folding. Two texts are the same but
// for case when their folded forms are equal; folded forms are ordered by their bytes.
std::string foldCase(std::string_view text);
void appendFolded(std::string& target, std::string_view text);

// Less than 0, 0 or more than 0: the order of two texts without regard to case.
int compareFolded(std::string_view left, std::string_view right);

// The pieces between the separators; always at least one.
std::vector<std::string_view> split(std::string_view text, char separator);

// The part before the first separator; the whole text where there is none.
std::string_view prefixBefore(std::string_view text, char separator);

// True where the text is a part of the bytes, in their place in the memory.
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
