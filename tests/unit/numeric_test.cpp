#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "numeric.h"

namespace velmora::test {
namespace {

TEST(NumericTest, AcceptsSignedDecimalsOnlyAndReadsThem) {
  const std::pair<const char*, double> accepted[] = {{" 2.5 ", 2.5}, {"-2", -2}, {"+7", 7},    {".5", 0.5},
                                                     {"-.5", -0.5},  {"5.", 5},  {"00012", 12}};
  for (const auto& [text, value] : accepted) {
    EXPECT_TRUE(Is_Numeric(text)) << '"' << text << '"';
    EXPECT_EQ(Numeric_Value(text), value) << '"' << text << '"';
  }
  for (const char* text : {"", " ", ".", "-", "1.2.3", "1e3", "1:30", "1,5", "- 1", "0x10", "1 2"}) {
    EXPECT_FALSE(Is_Numeric(text)) << '"' << text << '"';
    EXPECT_EQ(Numeric_Value(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(NumericTest, RoundsHalvesToEvenAndWritesTheShortestDecimal) {
  const std::pair<double, double> cases[] = {{0.5, 0}, {1.5, 2}, {-1.5, -2}, {2.4999, 2}, {2.5001, 3}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(Round_Half_Even(value), rounded) << value;
  EXPECT_EQ(Shortest_Decimal(2.5, ","), "2,5");
  EXPECT_EQ(Shortest_Decimal(0.0001, "."), "0.0001");  // never an exponent
  EXPECT_EQ(Shortest_Decimal(1e-7, ","), "0,0000001");
}

TEST(RoundedToTest, RoundsHalvesToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(Rounded_To<std::int32_t>(2147483647.0), 2147483647);
  EXPECT_EQ(Rounded_To<std::int32_t>(-2147483648.4), -2147483648);
  for (double outside : {2147483647.5, -2147483649.0, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_THROW(Rounded_To<std::int32_t>(outside), TrappableError) << outside;
  EXPECT_THROW(Rounded_To<std::int16_t>(32767.5), TrappableError);
}

}  // namespace
}  // namespace velmora::test
