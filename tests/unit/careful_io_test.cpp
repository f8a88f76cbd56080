#include <gtest/gtest.h>

#include "careful_io.h"
#include "engine_fixture.h"
#include "trap.h"

namespace velmora::testing {
namespace {

constexpr const char* kLocation = "Velmora.(General).Test.Site.1";

struct FailureCase {
  int operation;
  FileNumber number;
  const char* first;
  const char* second;
  const char* message;
  long code;
};

class CarefulIoFailureTest : public EngineTest, public ::testing::WithParamInterface<FailureCase> {
 protected:
  void SetUp() override {
    host.unopenable = {"D:\\nope", "locked.txt"};
    host.unclosable = {"stuck.txt"};
    host.unstartable = {"missing.exe /q"};
    engine.state.InteractiveSession = true;
  }
};

TEST_P(CarefulIoFailureTest, ReportsTheOperationAndTheSystemText) {
  const FailureCase& c = GetParam();
  FileNumber number = c.number;
  std::string first = c.first;
  if (c.operation == kClose) {  // a file that opens but cannot be closed
    std::string name = "stuck.txt";
    Careful_IO(engine, true, kOpenOutput, number, name, "", kLocation, kGoOn);
  }

  const long result = Careful_IO(engine, true, c.operation, number, first, c.second, kLocation, kGoOn);

  EXPECT_EQ(engine.DebugWindow.Items(), Go_On_Block(c.message, c.code, kLocation));
  EXPECT_EQ(result, c.operation == kShell ? -1 : 0);
  if (c.operation == kOpenInput) {
    EXPECT_EQ(number, kNoFile);
  }
}

INSTANTIATE_TEST_SUITE_P(
    EveryOperation, CarefulIoFailureTest,
    ::testing::Values(
        FailureCase{kRename, 0, "old.txt", "new.txt", "Unable to Rename old.txt as new.txt -> File not found", 53},
        FailureCase{kDelete, 0, "gone.*", "", "Unable to Delete gone.* -> File not found", 53},
        FailureCase{kCopy, 0, "gone.txt", "b.txt", "Unable to Copy gone.txt to b.txt -> File not found", 53},
        FailureCase{kChangeDirectory, 0, "D:\\nope", "", "Unable to Change to Directory:  D:\\nope -> Path not found",
                    76},
        FailureCase{kChangeDrive, 0, "", "", "Unable to Change to Drive:   -> Device unavailable", 68},
        FailureCase{kOpenInput, 3, "gone.vls", "", "Unable to Open gone.vls for Input -> File not found", 53},
        FailureCase{kOpenOutput, 0, "locked.txt", "", "Unable to Open locked.txt for Output -> Path not found", 76},
        FailureCase{kLineInput, 9, "", "", "Unable to read a line of text -> Bad file name or number", 52},
        FailureCase{kPrintLine, 9, "x", "", "Unable to print a line of text -> Bad file name or number", 52},
        FailureCase{kWriteQuoted, 9, "x", "", "Unable to write a line of text -> Bad file name or number", 52},
        FailureCase{kClose, 0, "", "", "Unable to Close file -> Device I/O error", 57},
        FailureCase{kShell, 1, "missing.exe /q", "", "Unable to execute program:  missing.exe /q -> File not found",
                    53}),
    [](const ::testing::TestParamInfo<FailureCase>& info) { return "Code" + std::to_string(info.param.operation); });

TEST_F(EngineTest, FilesOpenWithTheLowestFreeNumberAndRoundTripLines) {
  host.files["in.txt"] = "one\r\ntwo\nthree\rfour";
  FileNumber in = 0, out = 0;
  std::string name = "in.txt", outName = "out.txt";
  Careful_IO(engine, false, kOpenInput, in, name, "", kLocation, kGoOn);
  Careful_IO(engine, false, kOpenOutput, out, outName, "", kLocation, kGoOn);
  EXPECT_EQ(in, 1);
  EXPECT_EQ(out, 2);

  std::vector<std::string> read;
  while (!At_End_Of_File(engine, in)) {
    std::string line;
    Careful_IO(engine, false, kLineInput, in, line, "", kLocation, kGoOn);
    read.push_back(line);
  }
  EXPECT_EQ(read, (std::vector<std::string>{"one", "two", "three", "four"}));

  std::string text = "plain";
  Careful_IO(engine, false, kPrintLine, out, text, "", kLocation, kGoOn);
  Careful_IO(engine, false, kWriteQuoted, out, text, "", kLocation, kGoOn);
  EXPECT_EQ(host.files["out.txt"], "plain\r\n\"plain\"\r\n");

  Careful_IO(engine, false, kClose, in, name, "", kLocation, kGoOn);
  FileNumber again = 0;
  Careful_IO(engine, false, kOpenInput, again, name, "", kLocation, kGoOn);
  EXPECT_EQ(again, 1);  // the closed number is free again
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
}

TEST_F(EngineTest, FileAndProcessOperationsReachTheHost) {
  host.files["a.txt"] = "x";
  FileNumber style = static_cast<FileNumber>(WindowStyle::NormalFocus);
  std::string a = "a.txt", b = "b.txt", c = "c.txt", program = "setup.exe /s", dir = "C:\\Temp", drive = "D";
  Careful_IO(engine, true, kCopy, style, a, "b.txt", kLocation, kGoOn);
  Careful_IO(engine, true, kRename, style, b, "c.txt", kLocation, kGoOn);
  Careful_IO(engine, true, kDelete, style, c, "", kLocation, kGoOn);
  Careful_IO(engine, true, kChangeDirectory, style, dir, "", kLocation, kGoOn);
  Careful_IO(engine, true, kChangeDrive, style, drive, "", kLocation, kGoOn);
  const long task = Careful_IO(engine, true, kShell, style, program, "", kLocation, kGoOn);

  EXPECT_EQ(host.operations, (std::vector<std::string>{"copy a.txt b.txt", "rename b.txt c.txt", "delete c.txt",
                                                       "chdir C:\\Temp", "chdrive D"}));
  EXPECT_EQ(host.files.count("c.txt"), 0u);
  EXPECT_EQ(host.startedPrograms, std::vector<std::string>{"setup.exe /s"});
  EXPECT_GT(task, 0);
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
}

TEST_F(EngineTest, UnknownOperationCodesDoNothing) {
  host.throwFromFileOperations = true;
  for (int code : {-1, 3, 9, 12, 19, 25, 28, 31, 99, 1000}) {
    FileNumber number = 4;
    std::string first = "a.txt";
    EXPECT_EQ(Careful_IO(engine, true, code, number, first, "b.txt", kLocation, kFatal), 0) << code;
    EXPECT_EQ(number, 4) << code;
  }
  EXPECT_TRUE(host.operations.empty());
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
  EXPECT_FALSE(engine.state.StopRunning);
}

TEST_F(EngineTest, AnUnexpectedErrorInsideIsFatalAtItsOwnLocation) {
  host.throwFromFileOperations = true;
  FileNumber number = 0;
  std::string first = "a.txt";
  Careful_IO(engine, true, kCopy, number, first, "b.txt", kLocation, kGoOn);
  EXPECT_EQ(engine.DebugWindow.Items(),
            Fatal_Block("Simulated failure", 5, "Velmora.(General).Careful_IO.TrappableErrors.1"));
  EXPECT_TRUE(engine.state.StopRunning);
}

TEST_F(EngineTest, RunningOutOfFileNumbersIsReported) {
  for (int i = 0; i < FileTable::kHighest; ++i) {
    FileNumber number = 0;
    std::string name = "f" + std::to_string(i);
    Careful_IO(engine, true, kOpenOutput, number, name, "", kLocation, kGoOn);
  }
  FileNumber number = 0;
  std::string name = "one-too-many";
  Careful_IO(engine, true, kOpenInput, number, name, "", kLocation, kGoOn);
  EXPECT_EQ(number, kNoFile);
  EXPECT_EQ(engine.DebugWindow.Items(), Go_On_Block("Unable to Open one-too-many for Input -> Too many files", 67,
                                                    kLocation));
}

}  // namespace
}  // namespace velmora::testing
