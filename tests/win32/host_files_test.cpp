// Text files and file operations of the Windows host, on the real file system.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support.h"
#include "win32_host.h"

namespace velmora {
namespace {

using test::FilesIn;
using test::ReadBytes;
using test::ScratchDir;
using test::WriteBytes;
using Names = std::set<std::string>;
namespace fs = std::filesystem;

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
      {"first\r\nlast line", {"first", "last line"}},
      {"\r\n\r\nx\r\n\r\n", {"", "", "x", ""}},
      {"a\r\r\nb", {"a", "", "b"}},
      {"  indented\t \r\n\ttab", {"  indented\t ", "\ttab"}},
      {"", {}},
      {"\r\n", {""}},
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

// The engine adds CR LF itself; the file gets exactly the bytes written,
// truncated first, and on disk at once: a fatal report ends the process right
// after writing, and another program may read the log meanwhile.
TEST(TextFileTest, WritesBytesExactlyAndAtOnce) {
  ScratchDir dir;
  const auto path = dir.Path("log.vld");
  WriteBytes(path, "an earlier session's much longer log\r\nwith two lines\r\n");
  Win32Host host;
  SystemError error;
  auto file = host.OpenText(path, FileMode::Output, error);
  ASSERT_NE(file, nullptr) << error.text;
  std::string written;
  for (const char* text : {"first\r\n", "\r\n", "last\r\n"}) {
    ASSERT_TRUE(file->Write(text, error)) << error.text;
    EXPECT_EQ(ReadBytes(path), written += text);
  }
  EXPECT_TRUE(file->Close(error)) << error.text;
}

TEST(TextFileTest, OpeningWhatIsNotThereFailsWithCodeAndText) {
  ScratchDir dir;
  const std::tuple<std::string, FileMode, long> rows[] = {
      {dir.Path("missing.vls"), FileMode::Input, 2},                  // file not found
      {dir.Path("no such folder\\missing.vls"), FileMode::Input, 3},  // path not found
      {dir.Path("no such folder\\log.vld"), FileMode::Output, 3},
      {dir.Root(), FileMode::Input, 5},  // access denied: a folder
  };
  Win32Host host;
  for (const auto& [path, mode, code] : rows) {
    SystemError error;
    EXPECT_EQ(host.OpenText(path, mode, error), nullptr) << path;
    ExpectUsableSystemText(error, path);
    EXPECT_EQ(error.code, code) << path;
  }
}

// The scratch folder holds a.tmp, b.tmp, c.txt (bytes of every kind) and the
// folder "sub" with a.tmp and d.txt before each row. A relative pattern is
// relative to the current directory, as on a command line.
TEST(FileOperationsTest, CopyRenameAndDeleteDoWhatTheyNameOrFailWithText) {
  enum Op { kCopy, kRename, kDelete, kDeleteHere };
  struct Row {
    Op op;
    const char *from, *to;
    bool succeeds;
    Names top, sub;  // the files afterwards
  };
  const Names all{"a.tmp", "b.tmp", "c.txt"}, subAll{"a.tmp", "d.txt"};
  const Row rows[] = {
      {kCopy, "c.txt", "e.txt", true, {"a.tmp", "b.tmp", "c.txt", "e.txt"}, subAll},
      {kCopy, "c.txt", "a.tmp", true, all, subAll},  // overwrites (checked below)
      {kCopy, "missing.txt", "e.txt", false, all, subAll},
      {kRename, "c.txt", "e.txt", true, {"a.tmp", "b.tmp", "e.txt"}, subAll},
      {kRename, "c.txt", "a.tmp", false, all, subAll},  // onto an existing file
      {kRename, "missing.txt", "e.txt", false, all, subAll},
      {kDelete, "a.tmp", "", true, {"b.tmp", "c.txt"}, subAll},
      {kDelete, "*.tmp", "", true, {"c.txt"}, subAll},
      {kDelete, "?.t?t", "", true, {"a.tmp", "b.tmp"}, subAll},
      {kDelete, "*", "", true, {}, subAll},  // folders stay
      {kDelete, "sub\\*.tmp", "", true, all, {"d.txt"}},
      {kDelete, "*.none", "", false, all, subAll},
      {kDelete, "nowhere\\*.tmp", "", false, all, subAll},
      {kDeleteHere, "*.tmp", "", true, {"c.txt"}, subAll},
  };
  const std::string binary("binary\0and\r\ntext\x1a tail", 22);
  const auto previous = fs::current_path();
  Win32Host host;
  for (const Row& row : rows) {
    ScratchDir dir;
    fs::create_directory(dir.Path("sub"));
    for (const char* name : {"a.tmp", "b.tmp", "sub\\a.tmp", "sub\\d.txt"}) WriteBytes(dir.Path(name), name);
    WriteBytes(dir.Path("c.txt"), binary);
    const std::string what = std::to_string(row.op) + " " + row.from;
    SystemError error;
    if (row.op == kDeleteHere) fs::current_path(dir.Root());
    const bool done = row.op == kCopy     ? host.CopyOneFile(dir.Path(row.from), dir.Path(row.to), error)
                      : row.op == kRename ? host.RenameFile(dir.Path(row.from), dir.Path(row.to), error)
                      : row.op == kDelete ? host.DeleteFiles(dir.Path(row.from), error)
                                          : host.DeleteFiles(row.from, error);
    fs::current_path(previous);
    EXPECT_EQ(done, row.succeeds) << what << ": " << error.text;
    if (!row.succeeds) ExpectUsableSystemText(error, what);
    EXPECT_EQ(FilesIn(dir.Root()), row.top) << what;
    EXPECT_EQ(FilesIn(dir.Path("sub")), row.sub) << what;
    if (done && row.op < kDelete) {
      EXPECT_EQ(ReadBytes(dir.Path(row.to)), binary) << what;
    }
    if (!done && row.op == kRename) {
      EXPECT_EQ(ReadBytes(dir.Path("a.tmp")), "a.tmp") << what;
    }
  }
}

}  // namespace
}  // namespace velmora
