#include "engine_fixture.h"

namespace velmora::test {
namespace {

constexpr const char* kLocation = "Velmora.(General).Test.Site.1";

// The operation codes are numbers that scripts of the editor keep: the rows
// give them as numbers, not through the code's names.
TEST_F(EngineTest, EveryOperationReportsItsFailureWithTheSystemText) {
  struct Row {
    int operation;
    FileNumber number;
    const char *first, *second, *message;
    long code;
  };
  const Row rows[] = {
      {0, 0, "old.txt", "new.txt", "Unable to Rename old.txt as new.txt -> File not found", 53},
      {1, 0, "gone.*", "", "Unable to Delete gone.* -> File not found", 53},
      {10, 0, "D:\\nope", "", "Unable to Change to Directory:  D:\\nope -> Path not found", 76},
      {20, 3, "gone.vls", "", "Unable to Open gone.vls for Input -> File not found", 53},
      {21, 0, "locked.txt", "", "Unable to Open locked.txt for Output -> Path not found", 76},
      {22, 9, "", "", "Unable to read a line of text -> Bad file name or number", 52},
      {24, 9, "x", "", "Unable to write a line of text -> Bad file name or number", 52},
      {29, 0, "", "", "Unable to Close file -> Device I/O error", 57},  // a file that opens but cannot close
      {30, 1, "missing.exe /q", "", "Unable to execute program:  missing.exe /q -> File not found", 53}};
  host.unopenable = {"D:\\nope", "locked.txt"};
  host.unclosable = {"stuck.txt"};
  host.unstartable = {"missing.exe /q"};
  engine.state.InteractiveSession = true;
  for (const Row& row : rows) {
    FileNumber number = row.number;
    std::string first = row.first, stuck = "stuck.txt";
    if (row.operation == 29) Careful_IO(engine, true, 21, number, stuck, "", kLocation, kGoOn);
    const long result = Careful_IO(engine, true, row.operation, number, first, row.second, kLocation, kGoOn);
    EXPECT_EQ(Last_Report(), ReportFields(row.code, row.message, kLocation, kGoOn));
    EXPECT_EQ(result, row.operation == 30 ? -1 : 0) << row.operation;
    if (row.operation == 20) {
      EXPECT_EQ(number, kNoFile);
    }
  }
}

TEST_F(EngineTest, OperationsReachTheHostAndFilesRoundTripLines) {
  host.files = {{"in.txt", "one\r\ntwo\nthree\rfour"}, {"a.txt", "x"}};
  FileNumber in = 0, out = 0, style = static_cast<FileNumber>(WindowStyle::NormalFocus);
  std::string name = "in.txt", outName = "out.txt", program = "setup.exe /s";
  Careful_IO(engine, false, 20, in, name, "", kLocation, kGoOn);
  Careful_IO(engine, false, 21, out, outName, "", kLocation, kGoOn);
  EXPECT_EQ(in, 1);  // the lowest free numbers
  EXPECT_EQ(out, 2);
  std::vector<std::string> read;
  for (std::string line; !At_End_Of_File(engine, in); read.push_back(line))
    Careful_IO(engine, false, 22, in, line, "", kLocation, kGoOn);
  EXPECT_EQ(read, (std::vector<std::string>{"one", "two", "three", "four"}));
  std::string text = "plain";
  Careful_IO(engine, false, 23, out, text, "", kLocation, kGoOn);
  Careful_IO(engine, false, 24, out, text, "", kLocation, kGoOn);
  EXPECT_EQ(host.files["out.txt"], "plain\r\n\"plain\"\r\n");
  Careful_IO(engine, false, 29, in, name, "", kLocation, kGoOn);
  FileNumber again = 0;
  Careful_IO(engine, false, 20, again, name, "", kLocation, kGoOn);
  EXPECT_EQ(again, 1);  // the closed number is free again

  for (auto [operation, first, second] : {std::tuple{2, "a.txt", "b.txt"}, {1, "b.txt", ""}}) {
    std::string text = first;
    Careful_IO(engine, true, operation, style, text, second, kLocation, kGoOn);
  }
  EXPECT_GT(Careful_IO(engine, true, 30, style, program, "", kLocation, kGoOn), 0);
  EXPECT_EQ(host.operations, (std::vector<std::string>{"copy a.txt b.txt", "delete b.txt"}));
  EXPECT_EQ(host.startedPrograms, std::vector<std::string>{"setup.exe /s"});
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
}

TEST_F(EngineTest, AnUnexpectedErrorInsideIsFatalAtItsOwnLocationAndFileNumbersRunOut) {
  host.throwFromFileOperations = true;
  FileNumber number = 0;  // an operation that reaches the host throws something unforeseen
  std::string first = "a.txt";
  Careful_IO(engine, true, 2, number, first, "b.txt", kLocation, kGoOn);
  EXPECT_EQ(Last_Report(),
            ReportFields(5, "Simulated failure", "Velmora.(General).Careful_IO.TrappableErrors.1", kFatal));
  host.throwFromFileOperations = engine.state.StopRunning = false;  // and now run out of file numbers
  for (int i = 0; i < FileTable::kHighest; ++i) {
    std::string name = "f" + std::to_string(i);
    Careful_IO(engine, true, 21, number, name, "", kLocation, kGoOn);
  }
  std::string name = "one-too-many";
  Careful_IO(engine, true, 20, number, name, "", kLocation, kGoOn);
  EXPECT_EQ(number, kNoFile);
  EXPECT_EQ(Last_Report(),
            ReportFields(67, "Unable to Open one-too-many for Input -> Too many files", kLocation, kGoOn));
}

}  // namespace
}  // namespace velmora::test
