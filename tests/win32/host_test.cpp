// The Windows host on the real file system and processes: line ends, bytes
// on disk, system error texts, programs started and inspected, directories.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "desktop_fixture.h"
#include "win32_handles.h"
#include "win32_host.h"

namespace velmora {
namespace {

using Names = std::set<std::string>;
namespace fs = std::filesystem;

// A fresh folder under the temporary folder, removed with its content at the end.
struct ScratchDir {
  static inline int count = 0;
  const std::string root = (fs::temp_directory_path() / ("velmora-win32-" + std::to_string(++count))).string();
  ScratchDir() { fs::remove_all(root), fs::create_directories(root); }
  ~ScratchDir() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
  }
  std::string Path(const std::string& name) const { return root + "\\" + name; }
};

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}
std::optional<std::string> ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

// A system text goes into "... -> <text>." in the log: it must say something
// and bring neither its own line end nor its own full stop.
void ExpectUsableSystemText(const SystemError& error, const std::string& what) {
  EXPECT_NE(error.code, 0) << what;
  ASSERT_FALSE(error.text.empty()) << what;
  EXPECT_EQ(error.text.find_first_of("\r\n"), std::string::npos) << what << ": " << error.text;
  EXPECT_NE(error.text.back(), '.') << what << ": " << error.text;
}

// Each row is written through the host over the previous, longer file, and
// must be on disk before the file is closed: a fatal report ends the process
// right after writing. Then it is read back line by line.
TEST(TextFileTest, WritesBytesExactlyAndReadsEveryLineWhateverItsLineEnd) {
  const std::string x(65535, 'x');
  const std::pair<std::string, std::vector<std::string>> rows[] = {
      {x + "\r\nnext", {x, "next"}},  // a line end across the 64 KiB read boundary counts once
      {"a\r\nb\nc\rd\r\n\r\nlast line", {"a", "b", "c", "d", "", "last line"}},
      {"a\r\r\nb", {"a", "", "b"}},
      {"", {}},
  };
  ScratchDir dir;
  const std::string path = dir.Path("script.vls");
  Win32Host host;
  for (const auto& [bytes, expected] : rows) {
    SystemError error;
    auto written = host.OpenText(path, FileMode::Output, error);
    ASSERT_TRUE(written && written->Write(bytes, error)) << error.text;
    EXPECT_EQ(ReadBytes(path), bytes);
    ASSERT_TRUE(written->Close(error)) << error.text;
    auto file = host.OpenText(path, FileMode::Input, error);
    ASSERT_NE(file, nullptr) << error.text;
    std::vector<std::string> lines;
    for (std::string line; !file->AtEnd() && lines.size() <= expected.size(); lines.push_back(line))
      ASSERT_TRUE(file->ReadLine(line, error)) << error.text;
    EXPECT_EQ(lines, expected) << bytes.substr(0, 20);
    std::string past;
    EXPECT_FALSE(file->ReadLine(past, error));  // reading past the end fails
    EXPECT_TRUE(file->Close(error)) << error.text;
  }
}

// Each row starts with a.tmp, b.tmp, c.txt (bytes of every kind), sub\a.tmp
// and sub\d.txt. A relative pattern is relative to the current directory.
TEST(FileOperationsTest, CopyRenameAndDeleteDoWhatTheyNameOrFailWithText) {
  enum Op { kCopy, kRename, kDelete, kDeleteHere };
  const Names all{"a.tmp", "b.tmp", "c.txt"}, subAll{"a.tmp", "d.txt"};
  const struct {
    Op op;
    const char *from, *to;
    bool succeeds;
    Names top, sub;  // the files afterwards
  } rows[] = {
      {kCopy, "c.txt", "e.txt", true, {"a.tmp", "b.tmp", "c.txt", "e.txt"}, subAll},
      {kCopy, "c.txt", "a.tmp", true, all, subAll},  // overwrites (checked below)
      {kRename, "c.txt", "e.txt", true, {"a.tmp", "b.tmp", "e.txt"}, subAll},
      {kRename, "c.txt", "a.tmp", false, all, subAll},  // onto an existing file
      {kDelete, "*", "", true, {}, subAll},             // folders stay
      {kDelete, "sub\\*.tmp", "", true, all, {"d.txt"}},
      {kDelete, "*.none", "", false, all, subAll},
      {kDeleteHere, "*.tmp", "", true, {"c.txt"}, subAll},
  };
  const std::string binary("binary\0and\r\ntext\x1a tail", 22);
  const auto previous = fs::current_path();
  auto Files_In = [](const std::string& folder) {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder))
      if (!entry.is_directory()) names.insert(entry.path().filename().string());
    return names;
  };
  Win32Host host;
  for (const auto& row : rows) {
    ScratchDir dir;
    fs::create_directory(dir.Path("sub"));
    for (const char* name : {"a.tmp", "b.tmp", "sub\\a.tmp", "sub\\d.txt"}) WriteBytes(dir.Path(name), name);
    WriteBytes(dir.Path("c.txt"), binary);
    const std::string what = std::to_string(row.op) + " " + row.from;
    SystemError error;
    if (row.op == kDeleteHere) fs::current_path(dir.root);
    const bool done = row.op == kCopy     ? host.CopyOneFile(dir.Path(row.from), dir.Path(row.to), error)
                      : row.op == kRename ? host.RenameFile(dir.Path(row.from), dir.Path(row.to), error)
                      : row.op == kDelete ? host.DeleteFiles(dir.Path(row.from), error)
                                          : host.DeleteFiles(row.from, error);
    fs::current_path(previous);
    EXPECT_EQ(done, row.succeeds) << what << ": " << error.text;
    if (!row.succeeds) ExpectUsableSystemText(error, what);
    EXPECT_EQ(Files_In(dir.root), row.top) << what;
    EXPECT_EQ(Files_In(dir.Path("sub")), row.sub) << what;
    if (row.op < kDelete) {  // what is copied or renamed arrives whole, and a failure changes nothing
      EXPECT_EQ(ReadBytes(dir.Path(done ? row.to : "a.tmp")), done ? binary : "a.tmp") << what;
    }
  }
}

TEST(HostEnvironmentTest, GetEnvReturnsTheProcessEnvironment) {
  const std::optional<std::string> rows[] = {" a b ", std::nullopt, std::string(5000, 'v')};
  Win32Host host;
  for (const auto& value : rows) {
    SetEnvironmentVariableA("VELMORA_TEST_VALUE", value ? value->c_str() : nullptr);
    EXPECT_EQ(host.GetEnv("VELMORA_TEST_VALUE"), value) << value.value_or("(cleared)").size();
  }
  SetEnvironmentVariableA("VELMORA_TEST_VALUE", nullptr);
}

// The script goes on while the installer runs; the task is the process's
// identifier. frozen.exe writes its identifier into the file named, and runs on.
TEST(StartProgramTest, StartsTheProgramWithItsArgumentsAndGoesOnOrSaysWhyNot) {
  ScratchDir dir;
  Win32Host host;
  SystemError error;
  const std::string path = host.ProgramPath(), pidFile = dir.Path("started.pid");
  const std::string frozen = "\"" + path.substr(0, path.rfind('\\') + 1) + "frozen.exe\" \"" + pidFile + "\"";
  const long task = host.StartProgram(frozen, WindowStyle::Hidden, error);
  ASSERT_GT(task, 0) << error.text;
  const ScopedHandle process(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, task));
  EXPECT_TRUE(test::Pump_Until([&] { return ReadBytes(pidFile) == std::to_string(task) + "\r\n"; }, 10000));
  EXPECT_EQ(WaitForSingleObject(process.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
  TerminateProcess(process.get(), 9);
  WaitForSingleObject(process.get(), 5000);
  SystemError failure;  // an empty command line names no program
  EXPECT_EQ(host.StartProgram("", WindowStyle::NormalFocus, failure), -1);
  ExpectUsableSystemText(failure, "empty command line");
}

// Found where starting a program looks, told apart by its header (whether a
// 32-bit one runs depends on the system).
TEST(InspectProgramTest, FindsTheFileAsStartingAProgramWouldAndReadsItsHeader) {
  using Kind = ProgramFile::Kind;
  ScratchDir dir;
  const std::string header32 = "MZ" + std::string(0x3A, '\0') + "\x40" + std::string(3, '\0');  // PE header at 0x40
  WriteBytes(dir.Path("old setup.exe"), header32 + std::string("PE\0\0\x4c\x01", 6) + std::string(20, '\0'));
  WriteBytes(dir.Path("dos.exe"), "MZ" + std::string(0x3E, '\0'));
  const struct {
    std::string path;
    Kind kind;
    unsigned machine;
  } rows[] = {{"velmora_win32_tests", Kind::Program, 0x8664},  // beside this program, ".exe" added
              {dir.Path("old setup"), Kind::Program, 0x014c},
              {dir.Path("dos.exe"), Kind::NotAProgram, 0},
              {dir.root, Kind::Folder, 0}};
  Win32Host host;
  for (const auto& row : rows) {
    const ProgramFile file = host.InspectProgram(row.path);
    EXPECT_EQ(file.kind, row.kind) << row.path;
    EXPECT_EQ(file.machine, row.machine) << row.path;
    EXPECT_TRUE(row.machine != 0x8664 || file.machineRuns) << row.path;
  }
}

// A relative path resolves in the new directory; a failed change stays.
// Wine gives every prefix C: and Z: (the Unix root); nothing is mapped to Q:.
TEST(CurrentDirectoryTest, ChangeDirectoryAndDriveMoveTheCurrentDirectoryOrFailAndStay) {
  const fs::path previous = fs::current_path();
  ScratchDir dir;
  WriteBytes(dir.Path("here.vls"), "# here\r\n");
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.ChangeDirectory(dir.root, error)) << error.text;
  EXPECT_NE(host.OpenText("here.vls", FileMode::Input, error), nullptr) << error.text;
  EXPECT_FALSE(host.ChangeDirectory(dir.Path("missing"), error));
  EXPECT_FALSE(error.text.empty());
  EXPECT_EQ(Lower(fs::current_path().string()), Lower(dir.root));
  // The drive, success, the drive letter afterwards: only the letter counts.
  const std::tuple<const char*, bool, char> rows[] = {
      {"Z:\\no such folder", true, 'z'}, {"Q", false, 'c'}, {"", false, 'c'}};
  for (const auto& [drive, succeeds, after] : rows) {
    fs::current_path("C:\\");
    EXPECT_EQ(host.ChangeDrive(drive, error), succeeds) << drive << ": " << error.text;
    EXPECT_EQ(Lower(fs::current_path().string()).substr(0, 2), std::string(1, after) + ":") << drive;
  }
  fs::current_path(previous);
}

}  // namespace
}  // namespace velmora
