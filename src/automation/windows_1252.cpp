#include "windows_1252.h"

#include <array>

namespace velmora {

namespace {

constexpr unsigned char kFirstDiffering = 0x80;
constexpr unsigned char kFirstLatin1 = 0xA0;
constexpr char32_t kUndefined = 0;

// 0x80-0x9F, where Windows-1252 puts printable characters in place of the
// C1 controls of ISO 8859-1; from 0xA0 on the two agree with Unicode.
constexpr std::array<char32_t, kFirstLatin1 - kFirstDiffering> kDiffering = {
    0x20AC,     kUndefined, 0x201A, 0x0192, 0x201E, 0x2026,     0x2020, 0x2021,      // 80-87
    0x02C6,     0x2030,     0x0160, 0x2039, 0x0152, kUndefined, 0x017D, kUndefined,  // 88-8F
    kUndefined, 0x2018,     0x2019, 0x201C, 0x201D, 0x2022,     0x2013, 0x2014,      // 90-97
    0x02DC,     0x2122,     0x0161, 0x203A, 0x0153, kUndefined, 0x017E, 0x0178,      // 98-9F
};

}  // namespace

std::optional<char32_t> Windows_1252_Character(unsigned char byte) {
  if (byte < kFirstDiffering || byte >= kFirstLatin1) return byte;
  const char32_t character = kDiffering[byte - kFirstDiffering];
  if (character == kUndefined) return std::nullopt;
  return character;
}

std::optional<unsigned char> Windows_1252_Byte(char32_t character) {
  if (character < kFirstDiffering || (character >= kFirstLatin1 && character <= 0xFF))
    return static_cast<unsigned char>(character);
  for (std::size_t i = 0; i < kDiffering.size(); ++i)
    if (kDiffering[i] == character && character != kUndefined) return static_cast<unsigned char>(kFirstDiffering + i);
  return std::nullopt;
}

}  // namespace velmora
