#include <gtest/gtest.h>

#include <optional>

#include "numeric.h"

namespace velmora {
namespace {

TEST(NumericTest, AcceptsSignedDecimalsOnlyAndReadsThem) {
  const std::pair<const char*, std::optional<double>> cases[] = {
      {" 2.5 ", 2.5},
      {"-2", -2},
      {"+7", 7},
      {".5", 0.5},
      {"-.5", -0.5},
      {"5.", 5},
      {"00012", 12},
      {"", std::nullopt},
      {" ", std::nullopt},
      {".", std::nullopt},
      {"-", std::nullopt},
      {"1.2.3", std::nullopt},
      {"1e3", std::nullopt},
      {"1:30", std::nullopt},
      {"1,5", std::nullopt},
      {"- 1", std::nullopt},
      {"0x10", std::nullopt},
      {"1 2", std::nullopt},
  };
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(Is_Numeric(text), value.has_value()) << '"' << text << '"';
    EXPECT_EQ(Numeric_Value(text), value) << '"' << text << '"';
  }
}

TEST(NumericTest, RoundsHalvesToEvenAndWritesTheShortestDecimal) {
  const std::pair<double, double> cases[] = {{0.5, 0},    {1.5, 2},    {2.5, 2},     {-0.5, 0},      {-1.5, -2},
                                             {2.4999, 2}, {2.5001, 3}, {166.5, 166}, {333.3333, 333}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(Round_Half_Even(value), rounded) << value;
  EXPECT_EQ(Shortest_Decimal(2.5, ","), "2,5");
  EXPECT_EQ(Shortest_Decimal(3, "."), "3");
  EXPECT_EQ(Shortest_Decimal(0.1, "."), "0.1");
  EXPECT_EQ(Shortest_Decimal(0.3333333333333333, "."), "0.3333333333333333");
}

}  // namespace
}  // namespace velmora
