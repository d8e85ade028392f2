// Eight bytes of a text looked at at once, as a number; which of them stands highest does not matter here.
#pragma once

#include <cstdint>

namespace plimo {

inline constexpr std::uint64_t repeatedOnes = 0x0101010101010101;
inline constexpr std::uint64_t highBits = repeatedOnes * 0x80;

inline bool isAllAscii(std::uint64_t eight) { return (eight & highBits) == 0; }

// 0 where none of the bytes is a zero.
inline std::uint64_t zeroByteMask(std::uint64_t eight) { return (eight - repeatedOnes) & ~eight & highBits; }

// Eight bytes of plain ASCII with A to Z replaced by a to z. A sum's high bit tells of each byte whether it has reached
// the letter.
inline std::uint64_t asciiToLower(std::uint64_t eight) {
  const std::uint64_t fromA = eight + repeatedOnes * (0x80 - 'A');
  const std::uint64_t behindZ = eight + repeatedOnes * (0x80 - 'Z' - 1);
  return eight | (((fromA & ~behindZ) & highBits) >> 2);
}

}  // namespace plimo
