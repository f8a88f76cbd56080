// The Windows host on the real file system and processes: line ends, bytes
// on disk, system error texts, programs started and inspected, directories.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <vector>

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

TEST(TextFileTest, ReadsEveryLineAsWrittenWhateverItsLineEnd) {
  const std::string x(65535, 'x');
  const std::pair<std::string, std::vector<std::string>> rows[] = {
      {"a\r\nb\nc\rd\r\n", {"a", "b", "c", "d"}},
      {"first\r\n\r\nlast line", {"first", "", "last line"}},
      {"a\r\r\nb", {"a", "", "b"}},
      {"", {}},
      {x + "\r\nnext", {x, "next"}},  // a line end across the 64 KiB read boundary counts once
      {std::string(200000, 'y') + "\r\n", {std::string(200000, 'y')}},
  };
  ScratchDir dir;
  Win32Host host;
  for (const auto& [bytes, expected] : rows) {
    WriteBytes(dir.Path("script.vls"), bytes);
    SystemError error;
    auto file = host.OpenText(dir.Path("script.vls"), FileMode::Input, error);
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

// The file gets exactly the bytes written, truncated first, and on disk at
// once: a fatal report ends the process right after writing.
TEST(TextFileTest, WritesBytesExactlyAndAtOnce) {
  ScratchDir dir;
  WriteBytes(dir.Path("log.vld"), "an earlier session's much longer log\r\n");
  Win32Host host;
  SystemError error;
  auto file = host.OpenText(dir.Path("log.vld"), FileMode::Output, error);
  ASSERT_NE(file, nullptr) << error.text;
  ASSERT_TRUE(file->Write("first\r\n", error) && file->Write("\r\n", error)) << error.text;
  EXPECT_EQ(ReadBytes(dir.Path("log.vld")), "first\r\n\r\n");
  EXPECT_TRUE(file->Close(error)) << error.text;
}

TEST(TextFileTest, OpeningWhatIsNotThereFailsWithCodeAndText) {
  ScratchDir dir;
  const std::tuple<std::string, FileMode, long> rows[] = {
      {dir.Path("missing.vls"), FileMode::Input, 2},               // file not found
      {dir.Path("no such folder\\log.vld"), FileMode::Output, 3},  // path not found
      {dir.root, FileMode::Input, 5},                              // access denied: a folder
  };
  Win32Host host;
  for (const auto& [path, mode, code] : rows) {
    SystemError error;
    EXPECT_EQ(host.OpenText(path, mode, error), nullptr) << path;
    ExpectUsableSystemText(error, path);
    EXPECT_EQ(error.code, code) << path;
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
      {kCopy, "missing.txt", "e.txt", false, all, subAll},
      {kRename, "c.txt", "e.txt", true, {"a.tmp", "b.tmp", "e.txt"}, subAll},
      {kRename, "c.txt", "a.tmp", false, all, subAll},  // onto an existing file
      {kDelete, "a.tmp", "", true, {"b.tmp", "c.txt"}, subAll},
      {kDelete, "*.tmp", "", true, {"c.txt"}, subAll},
      {kDelete, "*", "", true, {}, subAll},  // folders stay
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

// The script goes on while the installer runs; the task is the process's identifier.
// This test program exits with 7 only when its arguments arrived (main.cpp).
TEST(StartProgramTest, StartsTheProgramWithItsArgumentsAtOnceOrSaysWhyNot) {
  Win32Host host;
  SystemError error;
  const std::string path = host.ProgramPath();
  EXPECT_EQ(Lower(path.substr(path.rfind('\\') + 1)), "velmora_win32_tests.exe");
  const auto start = std::chrono::steady_clock::now();
  const long task = host.StartProgram("\"" + path + "\" --sleep 3000", WindowStyle::Hidden, error);
  ASSERT_GT(task, 0) << error.text;
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2500));
  const ScopedHandle process(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, task));
  DWORD code = 0;
  ASSERT_EQ(WaitForSingleObject(process.get(), 20000), WAIT_OBJECT_0);
  EXPECT_TRUE(GetExitCodeProcess(process.get(), &code) && code == 7) << code;
  for (const char* missing : {"velmora_no_such_program.exe", "\"C:\\velmora no such folder\\setup.exe\" /s", ""}) {
    SystemError failure;
    EXPECT_EQ(host.StartProgram(missing, WindowStyle::NormalFocus, failure), -1) << missing;
    EXPECT_NE(failure.code, 0) << missing;
    EXPECT_FALSE(failure.text.empty()) << missing;
  }
}

// Found where starting a program looks, told apart by its header (whether a
// 32-bit one runs depends on the system).
TEST(InspectProgramTest, FindsTheFileAsStartingAProgramWouldAndReadsItsHeader) {
  using Kind = ProgramFile::Kind;
  ScratchDir dir;
  const std::string header32 = "MZ" + std::string(0x3A, '\0') + "\x40" + std::string(3, '\0');  // PE header at 0x40
  WriteBytes(dir.Path("old setup.exe"), header32 + std::string("PE\0\0\x4c\x01", 6) + std::string(20, '\0'));
  WriteBytes(dir.Path("readme.txt"), "Read me.\r\n");
  WriteBytes(dir.Path("dos.exe"), "MZ" + std::string(0x3E, '\0'));
  const struct {
    std::string path;
    Kind kind;
    unsigned machine;
  } rows[] = {{"velmora_win32_tests", Kind::Program, 0x8664},  // beside this program, ".exe" added
              {dir.Path("old setup"), Kind::Program, 0x014c}, {dir.Path("readme.txt"), Kind::NotAProgram, 0},
              {dir.Path("dos.exe"), Kind::NotAProgram, 0},    {dir.root, Kind::Folder, 0},
              {"velmora_no_such_program", Kind::Missing, 0}};
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
  const std::tuple<const char*, bool, char> rows[] = {// the drive, success, the drive letter afterwards
                                                      {"Z", true, 'z'},
                                                      {"c:", true, 'c'},
                                                      {"Z:\\no such folder", true, 'z'},
                                                      {"Q", false, 'c'},
                                                      {"", false, 'c'}};
  for (const auto& [drive, succeeds, after] : rows) {
    fs::current_path("C:\\");
    EXPECT_EQ(host.ChangeDrive(drive, error), succeeds) << drive << ": " << error.text;
    EXPECT_EQ(Lower(fs::current_path().string()).substr(0, 2), std::string(1, after) + ":") << drive;
  }
  fs::current_path(previous);
}

}  // namespace
}  // namespace velmora
