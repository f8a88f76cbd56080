#include <gtest/gtest.h>

#include <cctype>
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

// The virtual-key codes as the Windows headers define them.
constexpr std::uint16_t kBreak = 0x03, kBackspace = 0x08, kTab = 0x09, kEnter = 0x0D, kShift = 0x10, kCtrl = 0x11,
                        kAlt = 0x12, kCapsLock = 0x14, kEscape = 0x1B, kPageUp = 0x21, kPageDown = 0x22, kEnd = 0x23,
                        kHome = 0x24, kLeft = 0x25, kUp = 0x26, kRight = 0x27, kDown = 0x28, kPrintScreen = 0x2C,
                        kInsert = 0x2D, kDelete = 0x2E, kHelp = 0x2F, kMultiply = 0x6A, kAdd = 0x6B, kSubtract = 0x6D,
                        kDivide = 0x6F, kNumLock = 0x90, kScrollLock = 0x91;

KeyInput Down(std::uint16_t key) { return {false, key, 0, false}; }
KeyInput Up(std::uint16_t key) { return {false, key, 0, true}; }
Inputs Press(std::uint16_t key) { return {Down(key), Up(key)}; }
Inputs Char(char32_t character) { return {{true, 0, character, false}, {true, 0, character, true}}; }

Inputs Times(int count, const Inputs& once) {
  Inputs inputs;
  for (int time = 0; time < count; ++time) inputs.insert(inputs.end(), once.begin(), once.end());
  return inputs;
}

void Append(Inputs& inputs, const KeyInput& input) { inputs.push_back(input); }
void Append(Inputs& inputs, const Inputs& more) { inputs.insert(inputs.end(), more.begin(), more.end()); }

Inputs Type(std::u32string_view text) {
  Inputs inputs;
  for (char32_t character : text) Append(inputs, Char(character));
  return inputs;
}

// Seq(Down(kShift), Char('a'), Up(kShift)): single inputs and runs, in order.
template <typename... Pieces>
Inputs Seq(const Pieces&... pieces) {
  Inputs inputs;
  (Append(inputs, pieces), ...);
  return inputs;
}

struct GoodRow {
  std::string keys;
  Inputs expected;
};

void Expect_Parses(const std::vector<GoodRow>& rows) {
  for (const auto& [keys, expected] : rows) {
    const KeyParseResult result = Parse_Key_String(keys);
    EXPECT_TRUE(result.ok) << '"' << keys << "\": " << result.error;
    EXPECT_EQ(result.error, "") << '"' << keys << '"';
    EXPECT_EQ(result.errorPosition, 0u) << '"' << keys << '"';
    EXPECT_EQ(result.inputs, expected) << '"' << keys << '"';
  }
}

TEST(KeyNotationTest, EveryKeyNameIsItsKeyInAnyCase) {
  const std::pair<std::string, std::uint16_t> names[] = {
      {"ENTER", kEnter},
      {"TAB", kTab},
      {"ESC", kEscape},
      {"ESCAPE", kEscape},
      {"BACKSPACE", kBackspace},
      {"BS", kBackspace},
      {"BKSP", kBackspace},
      {"DELETE", kDelete},
      {"DEL", kDelete},
      {"INSERT", kInsert},
      {"INS", kInsert},
      {"HOME", kHome},
      {"END", kEnd},
      {"PGUP", kPageUp},
      {"PGDN", kPageDown},
      {"UP", kUp},
      {"DOWN", kDown},
      {"LEFT", kLeft},
      {"RIGHT", kRight},
      {"BREAK", kBreak},
      {"CAPSLOCK", kCapsLock},
      {"NUMLOCK", kNumLock},
      {"SCROLLLOCK", kScrollLock},
      {"PRTSC", kPrintScreen},
      {"HELP", kHelp},
      {"ADD", kAdd},
      {"SUBTRACT", kSubtract},
      {"MULTIPLY", kMultiply},
      {"DIVIDE", kDivide},
      {"F1", 0x70},
      {"F2", 0x71},
      {"F3", 0x72},
      {"F4", 0x73},
      {"F5", 0x74},
      {"F6", 0x75},
      {"F7", 0x76},
      {"F8", 0x77},
      {"F9", 0x78},
      {"F10", 0x79},
      {"F11", 0x7A},
      {"F12", 0x7B},
      {"F13", 0x7C},
      {"F14", 0x7D},
      {"F15", 0x7E},
      {"F16", 0x7F},
      {"Enter", kEnter},
      {"Right", kRight},
      {"pGdN", kPageDown},
  };
  std::vector<GoodRow> rows;
  for (const auto& [name, key] : names) {
    std::string lower = name;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    rows.push_back({"{" + name + "}", Press(key)});
    rows.push_back({"{" + lower + "}", Press(key)});
  }
  Expect_Parses(rows);
}

TEST(KeyNotationTest, CharactersTypeThemselvesAndTildeIsEnter) {
  Expect_Parses({
      {"", {}},
      {"abc", Type(U"abc")},
      {"Hello, World!", Type(U"Hello, World!")},
      {"C:\\Setup [x] 1", Type(U"C:\\Setup [x] 1")},
      {"~", Press(kEnter)},
      {"a~~b", Seq(Char('a'), Press(kEnter), Press(kEnter), Char('b'))},
      {"\t", Press(kTab)},
      {"a\r\nb", Seq(Char('a'), Press(kEnter), Char('b'))},
      {"\n\n\r\r", Times(4, Press(kEnter))},
      {"\n\r", Times(2, Press(kEnter))},
  });
}

TEST(KeyNotationTest, BracedSpecialCharactersAreTypedLiterally) {
  std::vector<GoodRow> rows;
  for (char special : std::string("+^%~(){}[]")) rows.push_back({std::string("{") + special + "}", Char(special)});
  rows.push_back({"{a}", Char('a')});
  rows.push_back({"{ }", Char(' ')});
  rows.push_back({"{{}{}}", Type(U"{}")});
  rows.push_back({"{(}x{)}", Type(U"(x)")});
  Expect_Parses(rows);
}

TEST(KeyNotationTest, RepeatCountsPressTheKeyThatManyTimes) {
  Expect_Parses({
      {"{down 4}", Times(4, Press(kDown))},
      {"{TAB 3}", Times(3, Press(kTab))},
      {"{Enter 1}", Press(kEnter)},
      {"{F12 2}", Times(2, Press(0x7B))},
      {"{LEFT 007}", Times(7, Press(kLeft))},
      {"{x 5}", Times(5, Char('x'))},
      {"{+ 2}", Times(2, Char('+'))},
      {"{} 3}", Times(3, Char('}'))},
      {"{{ 2}", Times(2, Char('{'))},
      {"{  2}", Times(2, Char(' '))},
      {"{~ 2}", Times(2, Char('~'))},
      {"{TAB 0}", {}},
      {"a{TAB 0}b", Type(U"ab")},
      {"{x 9999}", Times(9999, Char('x'))},
  });
}

TEST(KeyNotationTest, AStringMaySendAMillionKeyEventsButNoMore) {
  std::string keys;
  for (int repeat = 0; repeat < 50; ++repeat) keys += "{x 9999}";  // 999900 events
  EXPECT_EQ(Parse_Key_String(keys + std::string(50, 'a')).inputs.size(), 1000000u);
  EXPECT_EQ(Parse_Key_String(keys + std::string(48, 'a') + "+a").inputs.size(), 1000000u);
  const struct {
    std::string tail;
    std::size_t position;
  } rows[] = {{std::string(51, 'a'), 451}, {std::string(48, 'a') + "^+a", 451}, {"+{x 9999}", 402}};
  for (const auto& [tail, position] : rows) {
    const KeyParseResult result = Parse_Key_String(keys + tail);
    EXPECT_FALSE(result.ok) << tail;
    EXPECT_TRUE(result.inputs.empty()) << tail;
    EXPECT_EQ(result.errorPosition, position) << result.error;
    EXPECT_NE(result.error.find("Too many keys"), std::string::npos) << result.error;
  }
}

TEST(KeyNotationTest, ModifiersHoldForOneKeyOrOneGroup) {
  Expect_Parses({
      {"+a", Seq(Down(kShift), Char('a'), Up(kShift))},
      {"^a", Seq(Down(kCtrl), Char('a'), Up(kCtrl))},
      {"%f", Seq(Down(kAlt), Char('f'), Up(kAlt))},
      {"+ab", Seq(Down(kShift), Char('a'), Up(kShift), Char('b'))},
      {"+{TAB}", Seq(Down(kShift), Press(kTab), Up(kShift))},
      {"^~", Seq(Down(kCtrl), Press(kEnter), Up(kCtrl))},
      {"%{F4}", Seq(Down(kAlt), Press(0x73), Up(kAlt))},
      {"+{+}", Seq(Down(kShift), Char('+'), Up(kShift))},
      {"^{x 3}", Seq(Down(kCtrl), Times(3, Char('x')), Up(kCtrl))},
      {"+{TAB 0}x", Char('x')},
      {"+(ab)", Seq(Down(kShift), Type(U"ab"), Up(kShift))},
      {"^(ab)", Seq(Down(kCtrl), Type(U"ab"), Up(kCtrl))},
      {"%(fx)y", Seq(Down(kAlt), Type(U"fx"), Up(kAlt), Char('y'))},
      {"(ab)", Type(U"ab")},
      {"((a))", Char('a')},
      {"^+a", Seq(Down(kCtrl), Down(kShift), Char('a'), Up(kShift), Up(kCtrl))},
      {"+^(ab)", Seq(Down(kShift), Down(kCtrl), Type(U"ab"), Up(kCtrl), Up(kShift))},
      {"%^+{DEL}", Seq(Down(kAlt), Down(kCtrl), Down(kShift), Press(kDelete), Up(kShift), Up(kCtrl), Up(kAlt))},
      {"++a", Seq(Down(kShift), Char('a'), Up(kShift))},
      {"+(a^b)c", Seq(Down(kShift), Char('a'), Down(kCtrl), Char('b'), Up(kCtrl), Up(kShift), Char('c'))},
      {"+(a+b)", Seq(Down(kShift), Type(U"ab"), Up(kShift))},
      {"+(a(b)^(c))", Seq(Down(kShift), Type(U"ab"), Down(kCtrl), Char('c'), Up(kCtrl), Up(kShift))},
      {"%({TAB 0})x", Char('x')},
      {"+(^({TAB 0}))", {}},
      {"+(a{TAB 0})", Seq(Down(kShift), Char('a'), Up(kShift))},
  });
}

TEST(KeyNotationTest, BytesAreWindows1252Characters) {
  Expect_Parses({
      {"\x80", Char(0x20AC)},
      {"\x83", Char(0x0192)},
      {"\x8A", Char(0x0160)},
      {"\x8E", Char(0x017D)},
      {"\x92\x93\x94", Type(U"\u2019\u201C\u201D")},
      {"\x96\x97", Type(U"\u2013\u2014")},
      {"\x99", Char(0x2122)},
      {"\x9F", Char(0x0178)},
      {"\xA0", Char(0xA0)},
      {"caf\xE9", Type(U"caf\u00E9")},
      {"\xFF", Char(0xFF)},
      {"{\xE9 2}", Times(2, Char(0xE9))},
      {"+\xE9", Seq(Down(kShift), Char(0xE9), Up(kShift))},
  });
}

TEST(KeyNotationTest, MalformedStringsSayWhatAndWhereAndSendNothing) {
  struct BadRow {
    std::string keys;
    std::size_t position;
    std::string fragment;
  };
  const BadRow rows[] = {
      {"{ENTER", 1, "no closing '}'"},
      {"{", 1, "no closing '}'"},
      {"ab{TAB 3", 3, "no closing '}'"},
      {"}", 1, "no opening '{'"},
      {"{ENTER}}", 8, "no opening '{'"},
      {"+(ab", 2, "no closing ')'"},
      {"(a(b)", 1, "no closing ')'"},
      {"(a(b", 3, "no closing ')'"},
      {")", 1, "no opening '('"},
      {"(a))", 4, "no opening '('"},
      {"{FOO}", 1, "Unknown key name {FOO}"},
      {"abc{Foo}", 4, "Unknown key name {Foo}"},
      {"{F0}", 1, "Unknown key name"},
      {"{F01}", 1, "Unknown key name"},
      {"{F17}", 1, "Unknown key name"},
      {"{ENTER{TAB}", 1, "Unknown key name"},
      {"{TAB x}", 1, "Bad repeat count in {TAB x}"},
      {"{TAB -1}", 1, "Bad repeat count"},
      {"{TAB 99999999999}", 1, "Bad repeat count"},
      {"{TAB 10000}", 1, "from 0 to 9999"},
      {"{TAB }", 1, "Bad repeat count"},
      {"{TAB  3}", 1, "Bad repeat count"},
      {"{TAB 3 }", 1, "Bad repeat count"},
      {"+", 1, "'+' at position 1 has no key after it"},
      {"ab^", 3, "'^'"},
      {"%+", 1, "'%'"},
      {"(+)", 2, "'+'"},
      {"+)", 2, "no opening '('"},
      {"{}", 1, "Empty braces"},
      {"{}a}", 1, "Empty braces"},
      {"()", 1, "Empty parentheses"},
      {"a+()", 3, "Empty parentheses"},
      {"a\x01", 2, "Control character 0x01"},
      {"{\x7F}", 2, "Control character 0x7F"},
      {"\x81", 1, "Byte 0x81"},
      {"x\x8D", 2, "Byte 0x8D"},
      {"\x8F", 1, "Byte 0x8F"},
      {"\x90", 1, "Byte 0x90"},
      {"{\x9D}", 2, "Byte 0x9D"},
  };
  for (const auto& [keys, position, fragment] : rows) {
    const KeyParseResult result = Parse_Key_String(keys);
    EXPECT_FALSE(result.ok) << '"' << keys << '"';
    EXPECT_TRUE(result.inputs.empty()) << '"' << keys << '"';
    EXPECT_EQ(result.errorPosition, position) << '"' << keys << "\": " << result.error;
    EXPECT_NE(result.error.find(fragment), std::string::npos) << '"' << keys << "\": " << result.error;
    EXPECT_NE(result.error.find("position " + std::to_string(position)), std::string::npos) << result.error;
  }
}

}  // namespace
}  // namespace velmora
