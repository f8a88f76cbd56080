#include "session.h"

#include <algorithm>

#include "about.h"
#include "engine_fixture.h"
#include "sim_desktop.h"

namespace velmora::test {
namespace {

// Records the lines it is asked to run and runs each as nothing.
class RecordingRunner : public ScriptRunner {
 public:
  int preprocessed = 0;
  std::vector<long> ran;
  void Preprocess(Engine&) override { ++preprocessed; }
  void Process_Line(Engine& engine) override {
    ran.push_back(engine.TraceWindow.Selected());
    const long next = Next_Executeable_Statement(engine, engine.TraceWindow.Selected());
    if (next == -1)
      engine.state.StopRunning = true;
    else
      engine.TraceWindow.Select(next);
  }
};

class AutomaticSessionTest : public EngineTest {
 protected:
  RecordingRunner runner;
  int Start(const std::string& commandLine) {
    host.commandLine = commandLine;
    return Exit_Status_Of([&] { Form_Load(engine, runner); });
  }
};

const Lines kHeader = {Identification_Line(), "Automatic Session Started."};

TEST_F(AutomaticSessionTest, WritesTheHeaderRunsEveryCommandLineRegistersTheFileTypeAndEndsWithStatusZero) {
  host.programPath = "C:\\My Tools\\velmora.exe";
  host.files["a.vls"] = "# first\r\n\r\nrun: \"x\"\r\n  # note\r\nwait: 1";
  EXPECT_EQ(Start("\"a.vls\" \"a.vld\""), 0);
  EXPECT_EQ(Log(), kHeader);
  EXPECT_EQ(engine.TraceWindow.Count(), 5u);
  EXPECT_EQ(runner.ran, (std::vector<long>{0, 2, 4}));
  EXPECT_EQ(engine.files.Find(engine.state.DebugFileNumber), nullptr);
  EXPECT_EQ(host.beeps, 1);
  const auto value = [&](const std::string& key) {
    return registry.QueryString(RegistryRoot::ClassesRoot, key, "").value_or("(missing)");
  };
  EXPECT_EQ(value("velmora"), "Velmora Script file");
  EXPECT_EQ(value(".vls"), "velmora");
  EXPECT_EQ(value("velmora\\shell\\open\\command"), "\"C:\\My Tools\\velmora.exe\" \"%1\"");
  EXPECT_EQ(value("velmora\\DefaultIcon"), "C:\\Program Files\\Velmora\\velmora.exe,0");
}

TEST_F(AutomaticSessionTest, TheHeaderNamesAFactorOtherThanOneAndASessionWithoutDesktop) {
  SimDesktop desktop{host};
  engine.desktop = &desktop;
  const std::string kNoDesktop =
      "Info: Velmora is running in session 0, the services' session, which has no interactive desktop: no "
      "findwindow can see the user's windows. Start Velmora in the user's session.";
  // The factor (nullptr: unset), the decimal separator, whether in the services' session, and the lines after
  // the header.
  const std::tuple<const char*, const char*, bool, Lines> rows[] = {{"2.5", ",", false, {"SPEED_FACTOR IN USE:  2,5"}},
                                                                    {"-2", ".", false, {}},
                                                                    {"1.0", ".", false, {}},
                                                                    {nullptr, ".", true, {kNoDesktop}}};
  for (const auto& [factor, separator, service, lines] : rows) {
    host.files = {{"a.vls", ""}};
    host.decimalSeparator = separator;
    host.environment.clear();
    if (factor) host.environment["SPEED_FACTOR"] = factor;
    desktop.serviceSession = service;
    engine.state = RunState{};
    Start("\"a.vls\" a.vld");
    EXPECT_EQ(Log(), Joined(kHeader, lines)) << (factor ? factor : "(unset)");
  }
}

TEST_F(AutomaticSessionTest, AScriptOrLogThatCannotBeOpenedEndsWithStatusOne) {
  EXPECT_EQ(Start("\"gone.vls\" \"a.vld\""), 1);
  EXPECT_EQ(Last_Report(), ReportFields(53, "Unable to Open gone.vls for Input -> File not found",
                                        "Velmora.(General).Initial_Setup.OpenInput.5", kFatal));
  EXPECT_TRUE(runner.ran.empty());
  host.files = {{"a.vls", "# x"}};
  host.unopenable.insert("locked.vld");
  engine.state = RunState{};
  EXPECT_EQ(Start("\"a.vls\" \"locked.vld\""), 1);
  EXPECT_EQ(host.files.count("locked.vld"), 0u);
}

TEST_F(AutomaticSessionTest, WithoutBothNamesTheEditorLoadsWithSpeedFactorOne) {
  host.environment["SPEED_FACTOR"] = "4";
  EXPECT_EQ(Start("C:\\s\\setup.vls"), -1);
  EXPECT_EQ(engine.editor.ScriptFileName, "\"C:\\s\\setup.vls\"");
  EXPECT_EQ(engine.state.SpeedFactor, 1.0);
  EXPECT_TRUE(host.files.empty());
}

class InteractiveSetupTest : public EngineTest {
 protected:
  FakeSurface surface;
  void SetUp() override {
    engine.surface = &surface;
    engine.state.InteractiveSession = true;
    engine.editor.ScriptFileName = "\"a.vls\"";
    engine.editor.DebugFileName = "a.vld";
  }
  void Run_Setup() {
    RunState& s = engine.state;
    Initial_Setup(engine, true, s.DebugOn, s.StopRunning, s.ScriptFileNumber, s.DebugFileNumber);
  }
};

// Whatever happens to the debug file, the script is read: a script shown
// empty would be saved empty over the real one.
TEST_F(InteractiveSetupTest, ADebugFileThatCannotBeMadeStillLetsTheScriptLoad) {
  host.files["a.vls"] = "run: \"x\"\r\nQuit\r\n";
  host.unopenable.insert("a.vld");
  Run_Setup();
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{Trace_Header_Line(), "run: \"x\"", "Quit"}));
  EXPECT_FALSE(engine.state.StopRunning || engine.state.DebugFileOpen);
  EXPECT_TRUE(Shown({"Info: No debug file: a.vld could not be opened; this log is kept in the window only."}));
}

TEST_F(EngineTest, NextExecuteableStatementSkipsBlanksAndComments) {
  for (const char* line : {"run: \"a\"", "", "   ", "# c", "  # ERROR! # jump: 1", ">>> quit", "wait: 1", "#"})
    engine.TraceWindow.Add(line);
  const std::pair<long, long> cases[] = {{-1, 0}, {0, 5}, {4, 5}, {5, 6}, {6, -1}, {100, -1}};
  for (const auto& [from, next] : cases) EXPECT_EQ(Next_Executeable_Statement(engine, from), next) << from;
}

TEST_F(EngineTest, PauseTenthsSleepsNinetyFiveMillisecondsAndYieldsEachTenth) {
  for (long tenths : {600, 0, -3}) Pause_Tenths(engine, tenths);
  EXPECT_EQ(host.sleptMs, 600 * 95);
  EXPECT_EQ(host.doEvents, 600);
}

}  // namespace
}  // namespace velmora::test
