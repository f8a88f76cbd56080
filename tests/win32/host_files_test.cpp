// Text files and file operations of the Windows host, on the real file system.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support.h"
#include "win32_host.h"

namespace velmora {
namespace {

using test::FileExists;
using test::FilesIn;
using test::ReadBytes;
using test::ScratchDir;
using test::WriteBytes;

constexpr long kFileNotFound = 2;

// Every line of a file, read through the host until it reports the end.
std::vector<std::string> ReadAllLines(Win32Host& host, const std::string& path) {
  SystemError error;
  auto file = host.OpenText(path, FileMode::Input, error);
  EXPECT_NE(file, nullptr) << error.text;
  std::vector<std::string> lines;
  if (!file) return lines;
  while (!file->AtEnd()) {
    std::string line;
    if (!file->ReadLine(line, error)) {
      ADD_FAILURE() << "ReadLine failed before the end: " << error.text;
      break;
    }
    lines.push_back(line);
    if (lines.size() > 100000) break;  // an AtEnd that never comes
  }
  EXPECT_TRUE(file->Close(error)) << error.text;
  return lines;
}

// A system text goes into "... -> <text>." in the log: it must say something
// and must not bring its own line end or full stop.
void ExpectUsableSystemText(const SystemError& error) {
  EXPECT_NE(error.code, 0);
  ASSERT_FALSE(error.text.empty());
  EXPECT_EQ(error.text.find_first_of("\r\n"), std::string::npos) << error.text;
  EXPECT_NE(error.text.back(), '.') << error.text;
}

struct ReadCase {
  const char* name;
  std::string bytes;
  std::vector<std::string> lines;
};
// Failure messages name the row instead of dumping its bytes.
void PrintTo(const ReadCase& row, std::ostream* out) { *out << row.name; }

std::string Repeated(char c, std::size_t count) { return std::string(count, c); }

const ReadCase kReadCases[] = {
    {"crlf", "first\r\nsecond\r\n", {"first", "second"}},
    {"lf", "first\nsecond\n", {"first", "second"}},
    {"lone_cr", "first\rsecond\r", {"first", "second"}},
    {"mixed", "a\r\nb\nc\rd\r\n", {"a", "b", "c", "d"}},
    {"last_line_without_end", "first\r\nlast line", {"first", "last line"}},
    {"single_line_without_end", "only", {"only"}},
    {"empty_lines_kept", "\r\n\r\nx\r\n\r\n", {"", "", "x", ""}},
    {"cr_then_crlf_is_two_ends", "a\r\r\nb", {"a", "", "b"}},
    {"blanks_and_tabs_unchanged", "  indented\t \r\n\ttab\r\n", {"  indented\t ", "\ttab"}},
    {"empty_file", "", {}},
    {"only_a_line_end", "\r\n", {""}},
    // A line end that straddles any 64 KiB read boundary must still count once.
    {"crlf_across_64k", Repeated('x', 65535) + "\r\nnext", {Repeated('x', 65535), "next"}},
    {"long_line", Repeated('y', 200000) + "\r\n", {Repeated('y', 200000)}},
};

class TextReadTest : public testing::TestWithParam<ReadCase> {};

TEST_P(TextReadTest, ReadsEveryLineAsWritten) {
  ScratchDir dir;
  const auto path = dir.Path("script.vls");
  WriteBytes(path, GetParam().bytes);
  Win32Host host;
  EXPECT_EQ(ReadAllLines(host, path), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(LineEnds, TextReadTest, testing::ValuesIn(kReadCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(TextFileTest, ReadingPastTheEndFails) {
  ScratchDir dir;
  const auto path = dir.Path("one.vls");
  WriteBytes(path, "one\r\n");
  Win32Host host;
  SystemError error;
  auto file = host.OpenText(path, FileMode::Input, error);
  ASSERT_NE(file, nullptr);
  std::string line;
  ASSERT_TRUE(file->ReadLine(line, error));
  EXPECT_TRUE(file->AtEnd());
  EXPECT_FALSE(file->ReadLine(line, error));
  EXPECT_NE(error.code, 0);
}

// The engine adds CR LF itself; the file must get exactly the bytes written,
// with no translation of line ends on the way.
TEST(TextFileTest, WritesBytesExactly) {
  ScratchDir dir;
  const auto path = dir.Path("log.vld");
  Win32Host host;
  SystemError error;
  auto file = host.OpenText(path, FileMode::Output, error);
  ASSERT_NE(file, nullptr) << error.text;
  for (const char* text : {"first\r\n", "\r\n", "last\r\n"}) ASSERT_TRUE(file->Write(text, error)) << error.text;
  ASSERT_TRUE(file->Close(error)) << error.text;
  EXPECT_EQ(ReadBytes(path), "first\r\n\r\nlast\r\n");
}

TEST(TextFileTest, OpeningForOutputTruncates) {
  ScratchDir dir;
  const auto path = dir.Path("log.vld");
  WriteBytes(path, "an earlier session's much longer log\r\nwith two lines\r\n");
  Win32Host host;
  SystemError error;
  auto file = host.OpenText(path, FileMode::Output, error);
  ASSERT_NE(file, nullptr) << error.text;
  ASSERT_TRUE(file->Write("new\r\n", error));
  ASSERT_TRUE(file->Close(error));
  EXPECT_EQ(ReadBytes(path), "new\r\n");
}

// A fatal report ends the process right after writing; what was written must
// already be in the file, and another program may read the log meanwhile.
TEST(TextFileTest, WrittenLinesAreOnDiskBeforeClose) {
  ScratchDir dir;
  const auto path = dir.Path("log.vld");
  Win32Host host;
  SystemError error;
  auto file = host.OpenText(path, FileMode::Output, error);
  ASSERT_NE(file, nullptr) << error.text;
  ASSERT_TRUE(file->Write("line one\r\n", error));
  EXPECT_EQ(ReadBytes(path), "line one\r\n");
  ASSERT_TRUE(file->Write("line two\r\n", error));
  EXPECT_EQ(ReadBytes(path), "line one\r\nline two\r\n");
  EXPECT_TRUE(file->Close(error));
}

struct OpenFailureCase {
  const char* name;
  const char* relativePath;
  FileMode mode;
};
void PrintTo(const OpenFailureCase& row, std::ostream* out) { *out << row.name; }

const OpenFailureCase kOpenFailures[] = {
    {"input_missing_file", "missing.vls", FileMode::Input},
    {"input_missing_folder", "no such folder\\missing.vls", FileMode::Input},
    {"output_missing_folder", "no such folder\\log.vld", FileMode::Output},
    {"input_is_a_folder", "", FileMode::Input},
};

class OpenFailureTest : public testing::TestWithParam<OpenFailureCase> {};

TEST_P(OpenFailureTest, FailsWithCodeAndText) {
  ScratchDir dir;
  const std::string relative = GetParam().relativePath;
  const auto path = relative.empty() ? dir.Root() : dir.Path(relative);
  Win32Host host;
  SystemError error;
  EXPECT_EQ(host.OpenText(path, GetParam().mode, error), nullptr);
  ExpectUsableSystemText(error);
  EXPECT_FALSE(GetParam().mode == FileMode::Output && FileExists(path));
}

INSTANTIATE_TEST_SUITE_P(Paths, OpenFailureTest, testing::ValuesIn(kOpenFailures),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(TextFileTest, MissingFileReportsFileNotFound) {
  ScratchDir dir;
  Win32Host host;
  SystemError error;
  EXPECT_EQ(host.OpenText(dir.Path("missing.vls"), FileMode::Input, error), nullptr);
  EXPECT_EQ(error.code, kFileNotFound);
}

// --- copy, rename, delete -------------------------------------------------

TEST(FileOperationsTest, CopyMakesAnIdenticalFileAndKeepsTheSource) {
  ScratchDir dir;
  const std::string content("binary\0and\r\ntext\x1a tail", 22);
  WriteBytes(dir.Path("from.txt"), content);
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.CopyOneFile(dir.Path("from.txt"), dir.Path("to.txt"), error)) << error.text;
  EXPECT_EQ(ReadBytes(dir.Path("to.txt")), content);
  EXPECT_EQ(ReadBytes(dir.Path("from.txt")), content);
}

TEST(FileOperationsTest, CopyOverwritesAnExistingTarget) {
  ScratchDir dir;
  WriteBytes(dir.Path("from.txt"), "new");
  WriteBytes(dir.Path("to.txt"), "old and longer");
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.CopyOneFile(dir.Path("from.txt"), dir.Path("to.txt"), error)) << error.text;
  EXPECT_EQ(ReadBytes(dir.Path("to.txt")), "new");
}

TEST(FileOperationsTest, CopyOfMissingFileFails) {
  ScratchDir dir;
  Win32Host host;
  SystemError error;
  EXPECT_FALSE(host.CopyOneFile(dir.Path("missing.txt"), dir.Path("to.txt"), error));
  ExpectUsableSystemText(error);
  EXPECT_FALSE(FileExists(dir.Path("to.txt")));
}

TEST(FileOperationsTest, RenameMovesTheContent) {
  ScratchDir dir;
  WriteBytes(dir.Path("old.txt"), "content");
  Win32Host host;
  SystemError error;
  ASSERT_TRUE(host.RenameFile(dir.Path("old.txt"), dir.Path("new.txt"), error)) << error.text;
  EXPECT_EQ(FilesIn(dir.Root()), (std::set<std::string>{"new.txt"}));
  EXPECT_EQ(ReadBytes(dir.Path("new.txt")), "content");
}

TEST(FileOperationsTest, RenameOntoAnExistingFileFailsAndKeepsBoth) {
  ScratchDir dir;
  WriteBytes(dir.Path("old.txt"), "old");
  WriteBytes(dir.Path("new.txt"), "new");
  Win32Host host;
  SystemError error;
  EXPECT_FALSE(host.RenameFile(dir.Path("old.txt"), dir.Path("new.txt"), error));
  ExpectUsableSystemText(error);
  EXPECT_EQ(ReadBytes(dir.Path("old.txt")), "old");
  EXPECT_EQ(ReadBytes(dir.Path("new.txt")), "new");
}

TEST(FileOperationsTest, RenameOfMissingFileFails) {
  ScratchDir dir;
  Win32Host host;
  SystemError error;
  EXPECT_FALSE(host.RenameFile(dir.Path("missing.txt"), dir.Path("new.txt"), error));
  ExpectUsableSystemText(error);
}

struct DeleteCase {
  const char* name;
  const char* pattern;  // relative to the scratch folder
  bool succeeds;
  std::set<std::string> remainingTop;  // files left in the scratch folder
  std::set<std::string> remainingSub;  // files left in its "sub" folder
};
void PrintTo(const DeleteCase& row, std::ostream* out) { *out << row.name; }

// The scratch folder holds a.tmp, b.tmp, c.txt and the folder "sub" with
// a.tmp and d.txt.
const DeleteCase kDeleteCases[] = {
    {"one_file", "a.tmp", true, {"b.tmp", "c.txt"}, {"a.tmp", "d.txt"}},
    {"star_extension", "*.tmp", true, {"c.txt"}, {"a.tmp", "d.txt"}},
    {"question_mark", "?.t?t", true, {"a.tmp", "b.tmp"}, {"a.tmp", "d.txt"}},
    {"star_skips_folders", "*", true, {}, {"a.tmp", "d.txt"}},
    {"inside_a_folder", "sub\\*.tmp", true, {"a.tmp", "b.tmp", "c.txt"}, {"d.txt"}},
    {"nothing_matches", "*.none", false, {"a.tmp", "b.tmp", "c.txt"}, {"a.tmp", "d.txt"}},
    {"missing_folder", "nowhere\\*.tmp", false, {"a.tmp", "b.tmp", "c.txt"}, {"a.tmp", "d.txt"}},
};

class DeleteFilesTest : public testing::TestWithParam<DeleteCase> {};

TEST_P(DeleteFilesTest, DeletesWhatThePatternNames) {
  ScratchDir dir;
  for (const char* name : {"a.tmp", "b.tmp", "c.txt"}) WriteBytes(dir.Path(name), name);
  ASSERT_TRUE(test::MakeDirectory(dir.Path("sub")));
  for (const char* name : {"sub\\a.tmp", "sub\\d.txt"}) WriteBytes(dir.Path(name), name);

  Win32Host host;
  SystemError error;
  EXPECT_EQ(host.DeleteFiles(dir.Path(GetParam().pattern), error), GetParam().succeeds);
  if (!GetParam().succeeds) {
    ExpectUsableSystemText(error);
  }
  EXPECT_EQ(FilesIn(dir.Root()), GetParam().remainingTop);
  EXPECT_EQ(FilesIn(dir.Path("sub")), GetParam().remainingSub);
  EXPECT_TRUE(test::DirectoryExists(dir.Path("sub")));
}

INSTANTIATE_TEST_SUITE_P(Patterns, DeleteFilesTest, testing::ValuesIn(kDeleteCases),
                         [](const auto& info) { return std::string(info.param.name); });

// A relative pattern is relative to the current directory, as on a command line.
TEST(FileOperationsTest, DeleteWithRelativePatternUsesTheCurrentDirectory) {
  ScratchDir dir;
  WriteBytes(dir.Path("x.tmp"), "x");
  WriteBytes(dir.Path("y.txt"), "y");
  const auto previous = test::CurrentDirectory();
  ASSERT_TRUE(test::SetCurrent(dir.Root()));
  Win32Host host;
  SystemError error;
  const bool deleted = host.DeleteFiles("*.tmp", error);
  test::SetCurrent(previous);
  EXPECT_TRUE(deleted) << error.text;
  EXPECT_EQ(FilesIn(dir.Root()), (std::set<std::string>{"y.txt"}));
}

}  // namespace
}  // namespace velmora
