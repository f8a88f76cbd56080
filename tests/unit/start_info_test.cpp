#include "start_info.h"
#include "engine_fixture.h"
#include "simple_commands.h"

namespace velmora::test {
namespace {

using Kind = ProgramFile::Kind;

// After the report, which stays as it is, one line says why in words; a start
// that the system's text explains well enough gets none. Error codes are
// Windows's; 0 means the program started.
TEST_F(InteractiveTest, RunExplainsAFailedStartOrA32BitProgramThatCannotRunInOneInfoLine) {
  const ProgramFile x86NoSupport{Kind::Program, kMachineI386, false}, x86{Kind::Program, kMachineI386, true},
      x64{Kind::Program, kMachineAmd64, true}, arm64{Kind::Program, 0xAA64, false}, document{Kind::NotAProgram};
  const std::string k32Bit =
      " is a 32-bit program, and this system cannot run 32-bit programs (under Wine: install Wine's 32-bit part, "
      "Debian's package wine32:i386).";
  const struct {
    std::string line, file;  // the command line; the file that InspectProgram finds there
    ProgramFile found;
    long code;
    std::string info;  // "" for none
  } rows[] = {
      {"setup.exe /S", "setup.exe", x86NoSupport, 1359, "Info: setup.exe" + k32Bit},
      {"setup.exe", "setup.exe", x86NoSupport, 0, "Info: setup.exe" + k32Bit},  // Wine says it started
      {"setup.exe", "setup.exe", x86, 1392, ""},
      {"nosuch.exe /q",
       "",
       {},
       2,
       "Info: No program nosuch.exe was found in Velmora's folder, the current folder, the Windows folders or a "
       "folder of the PATH."},
      {"C:\\Gone\\setup.exe", "", {}, 3, ""},  // the path says where it looked
      {"C:\\Setups", "C:\\Setups", {Kind::Folder}, 2, "Info: C:\\Setups is a folder, not a program."},
      {"readme.txt", "readme.txt", document, 193,
       "Info: readme.txt is not a Windows program (it may be a document, an old 16-bit program or a damaged file); "
       "run starts programs only."},
      {"App.MSI", "App.MSI", document, 193,
       "Info: App.MSI is a Windows Installer package, not a program: start it with msiexec /i."},
      {"arm.exe", "arm.exe", arm64, 216,
       "Info: arm.exe is a program for another processor (machine 0xAA64), which this system cannot run."},
      {"setup.exe", "setup.exe", x64, 5,
       "Info: setup.exe may not be run by this user: the file's permissions or a security policy forbid it."},
      {"setup.exe", "setup.exe", x64, 740,
       "Info: setup.exe asks for administrator rights: run Velmora as administrator to start it."},
  };
  for (const auto& row : rows) {
    host.programFiles = {{row.file, row.found}};
    host.startFailures.clear();
    if (row.code) host.startFailures[row.line] = {row.code, "System text"};
    engine.DebugWindow.Clear();
    bool succeeded = row.code != 0;
    RunProgram_Command(engine, true, row.line, succeeded);
    // The report, when the start failed, is all that comes before.
    const Lines& shown = engine.DebugWindow.Items();
    EXPECT_EQ(shown.empty() ? "" : shown.back(), row.info) << row.line;
    if (row.code) {
      EXPECT_EQ(Last_Report(), ReportFields(row.code, "Unable to execute program:  " + row.line + " -> System text",
                                            "Velmora.(General).RunProgram_Command.Shell.1", kGoOn));
    }
    EXPECT_EQ(succeeded, row.code == 0) << row.line;
  }
}

// As starting a program reads it: a quoted name ends at its quote, an
// unquoted one may run on over blanks.
TEST(ProgramCandidatesTest, AreTheQuotedNameOrEveryRunOfWordsFromTheStart) {
  const struct {
    const char* line;
    std::vector<std::string> candidates;
  } rows[] = {
      {"\"C:\\My Apps\\setup.exe\" /S", {"C:\\My Apps\\setup.exe"}},
      {"C:\\My Apps\\setup.exe  /S", {"C:\\My", "C:\\My Apps\\setup.exe", "C:\\My Apps\\setup.exe  /S"}},
      {"\tsetup.exe", {"setup.exe"}},
  };
  for (const auto& row : rows) EXPECT_EQ(Program_Candidates(row.line), row.candidates) << row.line;
}

}  // namespace
}  // namespace velmora::test
