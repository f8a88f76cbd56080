// Environment, programs, current directory and drive of the Windows host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "support.h"
#include "win32_host.h"

namespace velmora {
namespace {

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

TEST(HostEnvironmentTest, GetEnvReturnsTheProcessEnvironment) {
  const struct {
    const char* set;  // nullptr: cleared
    std::string value;
    const char* query;
    std::optional<std::string> expected;
  } rows[] = {
      {"VELMORA_TEST_VALUE", " a b ", "VELMORA_TEST_VALUE", " a b "},
      {nullptr, "", "VELMORA_TEST_VALUE", std::nullopt},
      {"VELMORA_TEST_VALUE", "x", "velmora_test_value", "x"},  // names ignore case
      {"VELMORA_TEST_VALUE", std::string(5000, 'v'), "VELMORA_TEST_VALUE", std::string(5000, 'v')},
      {"VELMORA_TEST_VALUE", "x", "VELMORA_TEST_VALUE2", std::nullopt},
      {"VELMORA_TEST_VALUE", "x", "", std::nullopt},
  };
  Win32Host host;
  for (const auto& row : rows) {
    test::ClearEnvironment("VELMORA_TEST_VALUE");
    if (row.set) test::SetEnvironment(row.set, row.value);
    EXPECT_EQ(host.GetEnv(row.query), row.expected) << row.query;
  }
  test::ClearEnvironment("VELMORA_TEST_VALUE");
}

// The program really runs, with the command line's arguments: cmd writes a
// file that only it can have written. A missing program gives -1 and a text.
TEST(StartProgramTest, StartsTheProgramWithItsArgumentsOrSaysWhyNot) {
  test::ScratchDir dir;
  const auto marker = dir.Path("started.txt");
  Win32Host host;
  SystemError error;
  const long task = host.StartProgram(test::SystemFile("cmd.exe") + " /c echo started>\"" + marker + "\"",
                                      WindowStyle::Hidden, error);
  ASSERT_GT(task, 0) << error.text;
  std::optional<std::string> content;
  for (int tries = 0; tries < 100 && content.value_or("").empty(); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    content = test::ReadBytes(marker);
  }
  EXPECT_EQ(content, "started\r\n");
  for (const char* missing : {"velmora_no_such_program.exe", "C:\\velmora no such folder\\setup.exe /s",
                              "\"C:\\velmora no such folder\\setup.exe\" /s", ""}) {
    SystemError failure;
    EXPECT_EQ(host.StartProgram(missing, WindowStyle::NormalFocus, failure), -1) << missing;
    EXPECT_NE(failure.code, 0) << missing;
    EXPECT_FALSE(failure.text.empty()) << missing;
  }
}

// The script goes on while the installer runs; the task identifier is the
// started process's own (this test program run with --sleep, see main.cpp).
TEST(StartProgramTest, ReturnsAtOnceWithTheProcessIdentifier) {
  Win32Host host;
  SystemError error;
  const std::string path = host.ProgramPath();
  EXPECT_EQ(Lower(path.substr(path.rfind('\\') + 1)), "velmora_win32_tests.exe");
  const auto start = std::chrono::steady_clock::now();
  const long task = host.StartProgram("\"" + path + "\" --sleep 3000", WindowStyle::Hidden, error);
  ASSERT_GT(task, 0) << error.text;
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2500));
  EXPECT_EQ(test::WaitForProcess(task, 20000), 7UL);
}

class CurrentDirectoryTest : public testing::Test {
 protected:
  void SetUp() override { previous_ = test::CurrentDirectory(); }
  void TearDown() override { test::SetCurrent(previous_); }
  std::string previous_;
};

TEST_F(CurrentDirectoryTest, ChangeDirectoryMakesRelativePathsResolveThereOrFailsAndStays) {
  test::ScratchDir dir;
  test::WriteBytes(dir.Path("here.vls"), "# here\r\n");
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.ChangeDirectory(dir.Root(), error)) << error.text;
  EXPECT_EQ(Lower(test::CurrentDirectory()), Lower(dir.Root()));
  EXPECT_EQ(host.OpenText("here.vls", FileMode::Input, error) != nullptr, true) << error.text;
  EXPECT_FALSE(host.ChangeDirectory(dir.Path("missing"), error));
  EXPECT_FALSE(error.text.empty());
  EXPECT_EQ(Lower(test::CurrentDirectory()), Lower(dir.Root()));
}

// Wine gives every prefix the drives C: (the prefix) and Z: (the Unix root);
// nothing is mapped to Q:.
TEST_F(CurrentDirectoryTest, ChangeDriveChangesToTheDriveOfItsFirstLetter) {
  const struct {
    const char* drive;
    bool succeeds;
    char after;  // the current directory's drive letter afterwards
  } rows[] = {{"Z", true, 'z'},  {"c:", true, 'c'}, {"Z:\\no such folder", true, 'z'},
              {"Q", false, 'c'}, {"1", false, 'c'}, {"", false, 'c'}};
  Win32Host host;
  for (const auto& row : rows) {
    ASSERT_TRUE(test::SetCurrent("C:\\"));
    SystemError error;
    EXPECT_EQ(host.ChangeDrive(row.drive, error), row.succeeds) << row.drive << ": " << error.text;
    if (!row.succeeds) {
      EXPECT_FALSE(error.text.empty()) << row.drive;
    }
    EXPECT_EQ(Lower(test::CurrentDirectory()).substr(0, 2), std::string(1, row.after) + ":") << row.drive;
  }
}

}  // namespace
}  // namespace velmora
