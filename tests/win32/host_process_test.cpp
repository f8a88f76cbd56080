// Environment, programs, current directory and drive of the Windows host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "support.h"
#include "win32_host.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

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
    test::SetEnvironment("VELMORA_TEST_VALUE", nullptr);
    if (row.set) test::SetEnvironment(row.set, row.value.c_str());
    EXPECT_EQ(host.GetEnv(row.query), row.expected) << row.query;
  }
  test::SetEnvironment("VELMORA_TEST_VALUE", nullptr);
}

// The script goes on while the installer runs; the task identifier is the
// started process's own. The program is this test program, which exits with
// 7 only when its arguments arrived as "--sleep 3000" (see main.cpp). A
// missing program gives -1 and a text.
TEST(StartProgramTest, StartsTheProgramWithItsArgumentsAtOnceOrSaysWhyNot) {
  Win32Host host;
  SystemError error;
  const std::string path = host.ProgramPath();
  EXPECT_EQ(Lower(path.substr(path.rfind('\\') + 1)), "velmora_win32_tests.exe");
  const auto start = std::chrono::steady_clock::now();
  const long task = host.StartProgram("\"" + path + "\" --sleep 3000", WindowStyle::Hidden, error);
  ASSERT_GT(task, 0) << error.text;
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2500));
  EXPECT_EQ(test::WaitForProcess(task, 20000), 7UL);
  for (const char* missing : {"velmora_no_such_program.exe", "C:\\velmora no such folder\\setup.exe /s",
                              "\"C:\\velmora no such folder\\setup.exe\" /s", ""}) {
    SystemError failure;
    EXPECT_EQ(host.StartProgram(missing, WindowStyle::NormalFocus, failure), -1) << missing;
    EXPECT_NE(failure.code, 0) << missing;
    EXPECT_FALSE(failure.text.empty()) << missing;
  }
}

// Found where starting a program looks, and told apart by the file's header.
// Whether this system runs the 32-bit header depends on the system (Wine's
// 32-bit part), so that row asks only for its processor.
TEST(InspectProgramTest, FindsTheFileAsStartingAProgramWouldAndReadsItsHeader) {
  using Kind = ProgramFile::Kind;
  test::ScratchDir dir;
  std::string header32(0x40, '\0');
  header32.replace(0, 2, "MZ");
  header32[0x3C] = 0x40;  // where the PE header starts
  test::WriteBytes(dir.Path("old setup.exe"), header32 + std::string("PE\0\0\x4c\x01", 6) + std::string(20, '\0'));
  test::WriteBytes(dir.Path("readme.txt"), "Read me.\r\n");
  test::WriteBytes(dir.Path("dos.exe"), "MZ" + std::string(0x3E, '\0'));
  Win32Host host;
  const std::string self = host.ProgramPath();
  const struct {
    std::string path;
    Kind kind;
    unsigned machine;
  } rows[] = {{self, Kind::Program, 0x8664},
              {"velmora_win32_tests", Kind::Program, 0x8664},  // beside this program, ".exe" added
              {dir.Path("old setup"), Kind::Program, 0x014c},
              {dir.Path("readme.txt"), Kind::NotAProgram, 0},
              {dir.Path("dos.exe"), Kind::NotAProgram, 0},
              {dir.Root(), Kind::Folder, 0},
              {dir.Path("missing.exe"), Kind::Missing, 0},
              {"velmora_no_such_program", Kind::Missing, 0}};
  for (const auto& row : rows) {
    const ProgramFile file = host.InspectProgram(row.path);
    EXPECT_EQ(file.kind, row.kind) << row.path;
    EXPECT_EQ(file.machine, row.machine) << row.path;
    if (row.machine == 0x8664) EXPECT_TRUE(file.machineRuns) << row.path;
  }
}

class CurrentDirectoryTest : public testing::Test {
 protected:
  void TearDown() override { fs::current_path(previous_); }
  const fs::path previous_ = fs::current_path();
  test::ScratchDir dir;  // outlives TearDown: a folder that is current cannot be removed
  static std::string Current() { return Lower(fs::current_path().string()); }
};

TEST_F(CurrentDirectoryTest, ChangeDirectoryMakesRelativePathsResolveThereOrFailsAndStays) {
  test::WriteBytes(dir.Path("here.vls"), "# here\r\n");
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.ChangeDirectory(dir.Root(), error)) << error.text;
  EXPECT_EQ(Current(), Lower(dir.Root()));
  EXPECT_EQ(host.OpenText("here.vls", FileMode::Input, error) != nullptr, true) << error.text;
  EXPECT_FALSE(host.ChangeDirectory(dir.Path("missing"), error));
  EXPECT_FALSE(error.text.empty());
  EXPECT_EQ(Current(), Lower(dir.Root()));
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
    fs::current_path("C:\\");
    SystemError error;
    EXPECT_EQ(host.ChangeDrive(row.drive, error), row.succeeds) << row.drive << ": " << error.text;
    if (!row.succeeds) {
      EXPECT_FALSE(error.text.empty()) << row.drive;
    }
    EXPECT_EQ(Current().substr(0, 2), std::string(1, row.after) + ":") << row.drive;
  }
}

}  // namespace
}  // namespace velmora
