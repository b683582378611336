// Eight decimal digits at a time, in one 64-bit word: stored as a
// little-endian word, the lowest byte is the first character, so the most
// significant digit sits there. Numbers are printed through these instead of
// a digit at a time.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace quelcnv {

static_assert(std::endian::native == std::endian::little,
              "the eight-digit words assume a little-endian machine");

inline constexpr std::uint64_t eachByte(std::uint8_t value) {
    return 0x0101010101010101ULL * value;
}

inline void storeEight(char* out, std::uint64_t word) { std::memcpy(out, &word, sizeof word); }

// The eight digits of a number below 10^8, leading zeros included, as the
// characters of a word: split in fours, then in pairs, then in single digits,
// each step in every lane of the word at once. The multiplications divide
// exactly in the ranges used (by 100 below 10^4, by 10 below 100).
inline std::uint64_t eightDigitsText(std::uint32_t value) {
    std::uint64_t word = (value / 10000) | (static_cast<std::uint64_t>(value % 10000) << 32);
    std::uint64_t hundreds = ((word * 5243) >> 19) & 0x000000FF000000FFULL;
    word = hundreds | ((word - hundreds * 100) << 16);
    std::uint64_t tens = ((word * 103) >> 10) & 0x000F000F000F000FULL;
    word = tens | ((word - tens * 10) << 8);
    return word | eachByte('0');
}

}  // namespace quelcnv
