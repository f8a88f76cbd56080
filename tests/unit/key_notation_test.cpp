#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "key_notation.h"

namespace velmora {

void PrintTo(const KeyInput& input, std::ostream* out) {
  if (input.isCharacter)
    *out << "Char(U+" << std::hex << static_cast<std::uint32_t>(input.character);
  else
    *out << "Key(0x" << std::hex << input.virtualKey;
  *out << (input.up ? " up)" : " down)") << std::dec;
}

namespace {

using Inputs = std::vector<KeyInput>;

// Virtual-key codes as Windows numbers them.
constexpr std::uint16_t kEnter = 0x0D, kTab = 0x09, kShift = 0x10, kCtrl = 0x11, kAlt = 0x12, kDown = 0x28;

void Append(Inputs& inputs, const Inputs& more) { inputs.insert(inputs.end(), more.begin(), more.end()); }
Inputs Down(std::uint16_t key) { return {{false, key, 0, false}}; }
Inputs Up(std::uint16_t key) { return {{false, key, 0, true}}; }
Inputs Press(std::uint16_t key) { return {{false, key, 0, false}, {false, key, 0, true}}; }
Inputs Type(std::u32string_view text) {
  Inputs inputs;
  for (char32_t c : text) Append(inputs, {{true, 0, c, false}, {true, 0, c, true}});
  return inputs;
}
Inputs Times(int count, const Inputs& once) {
  Inputs inputs;
  for (int time = 0; time < count; ++time) Append(inputs, once);
  return inputs;
}
// Seq(Down(kShift), Type(U"a"), Up(kShift)): the pieces in order.
template <typename... Pieces>
Inputs Seq(const Pieces&... pieces) {
  Inputs inputs;
  (Append(inputs, pieces), ...);
  return inputs;
}
Inputs Presses(std::initializer_list<std::uint16_t> keys) {
  Inputs inputs;
  for (std::uint16_t key : keys) Append(inputs, Press(key));
  return inputs;
}

TEST(KeyNotationTest, WellFormedStringsGiveTheirKeyEvents) {
  const std::pair<std::string, Inputs> rows[] = {
      {"C:\\Setup [x] 1!", Type(U"C:\\Setup [x] 1!")},
      {"a~\t\r\n\n\rb", Seq(Type(U"a"), Press(kEnter), Press(kTab), Times(3, Press(kEnter)), Type(U"b"))},
      // Names in any case, aliases, and the ends of the function keys.
      {"{ENTER}{esc}{Escape}{bksp}{DEL}{ins}{PgUp}{pgdn}{BREAK}{prtsc}{Help}{divide}{F1}{f16}{ScrollLock}",
       Presses({0x0D, 0x1B, 0x1B, 0x08, 0x2E, 0x2D, 0x21, 0x22, 0x03, 0x2C, 0x2F, 0x6F, 0x70, 0x7F, 0x91})},
      {"{down 4}{F12 2}{LEFT 007}", Seq(Times(4, Press(kDown)), Times(2, Press(0x7B)), Times(7, Press(0x25)))},
      {"{x 9999}", Times(9999, Type(U"x"))},
      {"+a^~%{F4}", Seq(Down(kShift), Type(U"a"), Up(kShift), Down(kCtrl), Press(kEnter), Up(kCtrl), Down(kAlt),
                        Press(0x73), Up(kAlt))},
      {"+ab^{x 3}", Seq(Down(kShift), Type(U"a"), Up(kShift), Type(U"b"), Down(kCtrl), Type(U"xxx"), Up(kCtrl))},
      {"+(a^b)c", Seq(Down(kShift), Type(U"a"), Down(kCtrl), Type(U"b"), Up(kCtrl), Up(kShift), Type(U"c"))},
      // Bytes are Windows-1252: the 0x80 row maps, the rest is Latin-1.
      {"\x80\x8A\x92\x97\x9F\xA0\xE9\xFF", Type(U"\u20AC\u0160\u2019\u2014\u0178\u00A0\u00E9\u00FF")}};
  for (const auto& [keys, expected] : rows) {
    const KeyParseResult result = Parse_Key_String(keys);
    EXPECT_TRUE(result.ok) << '"' << keys << "\": " << result.error;
    EXPECT_EQ(result.errorPosition, 0u) << '"' << keys << '"';
    EXPECT_EQ(result.inputs, expected) << '"' << keys << '"';
  }
}

TEST(KeyNotationTest, MalformedStringsSayWhatAndWhereAndSendNothing) {
  std::string million;  // 999,900 events
  for (int repeat = 0; repeat < 50; ++repeat) million += "{x 9999}";
  EXPECT_EQ(Parse_Key_String(million + std::string(50, 'a')).inputs.size(), 1000000u);
  // The keys, the position of the fault, and a part of the message.
  const std::tuple<std::string, std::size_t, std::string> rows[] = {
      {"{ENTER", 1, "no closing '}'"},
      {"{ENTER}}", 8, "no opening '{'"},
      {"+(ab", 2, "no closing ')'"},
      {"abc{Foo}", 4, "Unknown key name {Foo}"},
      {"{TAB x}", 1, "Bad repeat count in {TAB x}"},
      {"{TAB 10000}", 1, "from 0 to 9999"},
      {"ab^", 3, "'^' at position 3 has no key after it"},
      {"{}a}", 1, "Empty braces"},
      {"a+()", 3, "Empty parentheses"},
      {"x\x81", 2, "Byte 0x81"},
      {million + std::string(51, 'a'), 451, "Too many keys"},
      {million + "+{x 9999}", 402, "Too many keys"}};
  for (const auto& [keys, position, fragment] : rows) {
    const std::string shown = keys.substr(0, 20);
    const KeyParseResult result = Parse_Key_String(keys);
    EXPECT_FALSE(result.ok) << '"' << shown << '"';
    EXPECT_TRUE(result.inputs.empty()) << '"' << shown << '"';
    EXPECT_EQ(result.errorPosition, position) << '"' << shown << "\": " << result.error;
    EXPECT_NE(result.error.find(fragment), std::string::npos) << '"' << shown << "\": " << result.error;
    EXPECT_NE(result.error.find("position " + std::to_string(position)), std::string::npos) << result.error;
  }
}

}  // namespace
}  // namespace velmora
