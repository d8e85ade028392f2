// SIMD within a register: operations on the eight bytes of a 64-bit word at once, independent of byte order.
#pragma once

#include <cstdint>

namespace plimo {

inline constexpr std::uint64_t repeatedOnes = 0x0101010101010101;
inline constexpr std::uint64_t highBits = repeatedOnes * 0x80;

inline bool isAllAscii(std::uint64_t word) { return (word & highBits) == 0; }

// Non-zero if and only if the word contains a zero byte.
inline std::uint64_t zeroByteMask(std::uint64_t word) { return (word - repeatedOnes) & ~word & highBits; }

// Replaces A to Z by a to z. The word must be all ASCII: then no sum carries into the next byte, and its high bit tells
// whether the byte is at least 'A' or above 'Z'.
inline std::uint64_t asciiToLower(std::uint64_t word) {
  const std::uint64_t atLeastA = word + repeatedOnes * (0x80 - 'A');
  const std::uint64_t aboveZ = word + repeatedOnes * (0x80 - 'Z' - 1);
  return word | (((atLeastA & ~aboveZ) & highBits) >> 2);
}

}  // namespace plimo
