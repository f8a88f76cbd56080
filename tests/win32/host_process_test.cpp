// Environment, programs, current directory and drive of the Windows host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <optional>
#include <ostream>
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

// --- environment ----------------------------------------------------------

struct EnvCase {
  const char* name;
  const char* setName;  // nullptr: the variable is cleared
  std::string value;
  const char* queryName;
  std::optional<std::string> expected;
};
// Failure messages name the row instead of dumping its bytes.
void PrintTo(const EnvCase& row, std::ostream* out) { *out << row.name; }

const EnvCase kEnvCases[] = {
    {"set", "VELMORA_TEST_VALUE", "2.5", "VELMORA_TEST_VALUE", "2.5"},
    {"blanks_kept", "VELMORA_TEST_VALUE", " a b ", "VELMORA_TEST_VALUE", " a b "},
    {"unset", nullptr, "", "VELMORA_TEST_VALUE", std::nullopt},
    {"names_ignore_case", "VELMORA_TEST_VALUE", "x", "velmora_test_value", "x"},
    {"long_value", "VELMORA_TEST_VALUE", std::string(5000, 'v'), "VELMORA_TEST_VALUE", std::string(5000, 'v')},
    {"other_name", "VELMORA_TEST_VALUE", "x", "VELMORA_TEST_VALUE2", std::nullopt},
    {"empty_name", "VELMORA_TEST_VALUE", "x", "", std::nullopt},
};

class GetEnvTest : public testing::TestWithParam<EnvCase> {
 protected:
  void TearDown() override { test::ClearEnvironment("VELMORA_TEST_VALUE"); }
};

TEST_P(GetEnvTest, ReturnsTheProcessEnvironment) {
  const auto& row = GetParam();
  test::ClearEnvironment("VELMORA_TEST_VALUE");
  if (row.setName) test::SetEnvironment(row.setName, row.value);
  Win32Host host;
  EXPECT_EQ(host.GetEnv(row.queryName), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Variables, GetEnvTest, testing::ValuesIn(kEnvCases),
                         [](const auto& info) { return std::string(info.param.name); });

// --- starting programs ----------------------------------------------------

struct MissingProgramCase {
  const char* name;
  const char* commandLine;
};
void PrintTo(const MissingProgramCase& row, std::ostream* out) { *out << row.name; }

const MissingProgramCase kMissingPrograms[] = {
    {"unknown_name", "velmora_no_such_program.exe"},
    {"missing_folder", "C:\\velmora no such folder\\setup.exe /s"},
    {"quoted_missing", "\"C:\\velmora no such folder\\setup.exe\" /s"},
    {"empty", ""},
};

class StartMissingProgramTest : public testing::TestWithParam<MissingProgramCase> {};

TEST_P(StartMissingProgramTest, ReturnsMinusOneWithText) {
  Win32Host host;
  SystemError error;
  EXPECT_EQ(host.StartProgram(GetParam().commandLine, WindowStyle::NormalFocus, error), -1);
  EXPECT_NE(error.code, 0);
  EXPECT_FALSE(error.text.empty());
}

INSTANTIATE_TEST_SUITE_P(CommandLines, StartMissingProgramTest, testing::ValuesIn(kMissingPrograms),
                         [](const auto& info) { return std::string(info.param.name); });

// The program really runs, with the command line's arguments: cmd writes a
// file that only it can have written.
TEST(StartProgramTest, StartsTheProgramWithItsArguments) {
  test::ScratchDir dir;
  const auto marker = dir.Path("started.txt");
  Win32Host host;
  SystemError error;
  const long task =
      host.StartProgram(test::SystemFile("cmd.exe") + " /c echo started>\"" + marker + "\"", WindowStyle::Hidden, error);
  ASSERT_GT(task, 0) << error.text;
  std::optional<std::string> content;
  for (int tries = 0; tries < 100 && content.value_or("").empty(); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    content = test::ReadBytes(marker);
  }
  EXPECT_EQ(content, "started\r\n");
}

// The script goes on while the installer runs; the task identifier is the
// started process's own (this test program run with --sleep, see main.cpp).
TEST(StartProgramTest, ReturnsAtOnceWithTheProcessIdentifier) {
  Win32Host host;
  SystemError error;
  const auto start = std::chrono::steady_clock::now();
  const long task = host.StartProgram("\"" + host.ProgramPath() + "\" --sleep 3000", WindowStyle::Hidden, error);
  const auto elapsed = std::chrono::steady_clock::now() - start;
  ASSERT_GT(task, 0) << error.text;
  EXPECT_LT(elapsed, std::chrono::milliseconds(2500));
  EXPECT_EQ(test::WaitForProcess(task, 20000), 7UL);
}

// --- current directory and drive ------------------------------------------

class CurrentDirectoryTest : public testing::Test {
 protected:
  void SetUp() override { previous_ = test::CurrentDirectory(); }
  void TearDown() override { test::SetCurrent(previous_); }
  std::string previous_;
};

TEST_F(CurrentDirectoryTest, ChangeDirectoryMakesRelativePathsResolveThere) {
  test::ScratchDir dir;
  test::WriteBytes(dir.Path("here.vls"), "# here\r\n");
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.ChangeDirectory(dir.Root(), error)) << error.text;
  EXPECT_EQ(Lower(test::CurrentDirectory()), Lower(dir.Root()));
  auto file = host.OpenText("here.vls", FileMode::Input, error);
  ASSERT_NE(file, nullptr) << error.text;
  std::string line;
  EXPECT_TRUE(file->ReadLine(line, error));
  EXPECT_EQ(line, "# here");
}

TEST_F(CurrentDirectoryTest, ChangeDirectoryToMissingFolderFailsAndStays) {
  test::ScratchDir dir;
  ASSERT_TRUE(test::SetCurrent(dir.Root()));
  Win32Host host;
  SystemError error;
  EXPECT_FALSE(host.ChangeDirectory(dir.Path("missing"), error));
  EXPECT_NE(error.code, 0);
  EXPECT_FALSE(error.text.empty());
  EXPECT_EQ(Lower(test::CurrentDirectory()), Lower(dir.Root()));
}

struct DriveCase {
  const char* name;
  const char* drive;
  bool succeeds;
  char expectedDrive;  // the current directory's drive letter afterwards
};
void PrintTo(const DriveCase& row, std::ostream* out) { *out << row.name; }

// Wine gives every prefix the drives C: (the prefix) and Z: (the Unix root);
// nothing is mapped to Q:.
const DriveCase kDriveCases[] = {
    {"letter", "Z", true, 'z'},
    {"lower_case_with_colon", "c:", true, 'c'},
    {"path_uses_only_the_letter", "Z:\\no such folder", true, 'z'},
    {"unmapped_drive", "Q", false, 'c'},
    {"not_a_letter", "1", false, 'c'},
    {"empty", "", false, 'c'},
};

class ChangeDriveTest : public CurrentDirectoryTest, public testing::WithParamInterface<DriveCase> {};

TEST_P(ChangeDriveTest, ChangesToTheDrive) {
  ASSERT_TRUE(test::SetCurrent("C:\\"));
  Win32Host host;
  SystemError error;
  EXPECT_EQ(host.ChangeDrive(GetParam().drive, error), GetParam().succeeds) << error.text;
  if (!GetParam().succeeds) {
    EXPECT_FALSE(error.text.empty());
  }
  EXPECT_EQ(Lower(test::CurrentDirectory()).substr(0, 2), std::string(1, GetParam().expectedDrive) + ":");
}

INSTANTIATE_TEST_SUITE_P(Drives, ChangeDriveTest, testing::ValuesIn(kDriveCases),
                         [](const auto& info) { return std::string(info.param.name); });

// --- the program itself ---------------------------------------------------

TEST(ProgramPathTest, IsTheRunningExecutable) {
  Win32Host host;
  const auto path = host.ProgramPath();
  EXPECT_TRUE(test::FileExists(path)) << path;
  const std::string name = "velmora_win32_tests.exe";
  ASSERT_GE(path.size(), name.size());
  EXPECT_EQ(Lower(path.substr(path.size() - name.size())), name);
}

}  // namespace
}  // namespace velmora
