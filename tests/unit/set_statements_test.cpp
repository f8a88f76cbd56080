#include <gtest/gtest.h>

#include "set_statements.h"

namespace velmora::testing {
namespace {

TEST(SetStatementsTest, OnlyLinesStartingWithSetAndHoldingANameAndAValueAreStatements) {
  // The line, whether it is a candidate, and name|value ("" for no statement).
  const std::tuple<const char*, bool, const char*> rows[] = {{"    SET Path = C:\\DOS", true, "Path|C:\\DOS"},
                                                             {"setup=yes", true, "up|yes"},
                                                             {"Set A=B=C ", true, "A|B=C"},
                                                             {"SETX=1", true, "X|1"},
                                                             {"SET X=", true, ""},
                                                             {"set =x", true, ""},
                                                             {"set", false, ""},
                                                             {"rem set a=b", false, ""},
                                                             {"\tset a=b", false, ""},
                                                             {"", false, ""}};
  for (const auto& [line, candidate, split] : rows) {
    SCOPED_TRACE(line);
    EXPECT_EQ(Is_Set_Candidate(line), candidate);
    const auto statement = Is_Set_Statement(line);
    EXPECT_EQ(statement ? statement->name + "|" + statement->value : "", split);
  }
}

// Stepping wraps round once in either direction; a lone statement is found
// again from itself; a line that is a candidate but no statement still stops.
TEST(SetStatementsTest, SteppingWrapsOnceAndFindsNothingInAFileWithoutSet) {
  const std::vector<std::string> lines = {"# heading", "@echo off", "set A=1", "echo", "SET X=", "   "};
  const std::vector<std::string> lone = {"# heading", "set A=1", "   "};
  const std::vector<std::string> none = {"# heading", "echo set", "   "};
  const std::tuple<const std::vector<std::string>*, long, std::optional<long>, std::optional<long>> rows[] = {
      {&lines, 0, 2, 4},
      {&lines, 2, 4, 4},
      {&lines, 4, 2, 2},
      {&lines, 5, 2, 4},
      {&lines, -1, 2, 4},
      {&lone, 1, 1, 1},
      {&none, 1, std::nullopt, std::nullopt}};
  for (const auto& [file, from, next, previous] : rows) {
    SCOPED_TRACE(from);
    EXPECT_EQ(Next_EnvVar_Statement(*file, from), next);
    EXPECT_EQ(Previous_EnvVar_Statement(*file, from), previous);
  }
  EXPECT_EQ(Next_EnvVar_Statement({}, 0), std::nullopt);
}

TEST(SetStatementsTest, AnUpdateKeepsTheIndentAndASaveWritesTheFileLinesTrimmed) {
  EXPECT_EQ(Updated_Set_Line("    SET Path = C:\\DOS", "Path", "C:\\BIN"), "    set Path=C:\\BIN");
  EXPECT_EQ(Updated_Set_Line("setup=yes", "up", "no "), "set up=no ");
  EXPECT_EQ(Updated_Set_Line("   ", "A", "1"), "   set A=1");
  EXPECT_EQ(Lines_To_Save({"# heading", "    set Path=C:\\BIN", " echo  ", "   "}),
            (std::vector<std::string>{"set Path=C:\\BIN", "echo"}));
  EXPECT_TRUE(Lines_To_Save({"# heading", "   "}).empty());
  EXPECT_TRUE(Lines_To_Save({}).empty());
}

}  // namespace
}  // namespace velmora::testing
