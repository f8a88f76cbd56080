#include "session.h"

#include <algorithm>

#include "about.h"
#include "engine_fixture.h"
#include "sim_desktop.h"

namespace velmora::testing {
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
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{"# first", "", "run: \"x\"", "  # note", "wait: 1"}));
  EXPECT_EQ(runner.preprocessed, 1);
  EXPECT_EQ(runner.ran, (std::vector<long>{0, 2, 4}));
  EXPECT_FALSE(engine.state.InteractiveSession);
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

TEST_F(AutomaticSessionTest, SpeedFactorLineAppearsOnlyForAUsableFactorOtherThanOne) {
  // The factor (nullptr: unset), the decimal separator, and the factor logged.
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"2.5", ",", "2,5"}, {" .5 ", ".", "0.5"}, {"2.50", ".", "2.5"}, {"-2", ".", nullptr},
      {"0", ".", nullptr},   {"fast", ".", nullptr}, {"1.0", ".", nullptr},  {nullptr, ".", nullptr}};
  for (const auto& [value, separator, line] : rows) {
    host.files = {{"a.vls", ""}};
    host.decimalSeparator = separator;
    host.environment.clear();
    if (value) host.environment["SPEED_FACTOR"] = value;
    engine.state = RunState{};
    Start("\"a.vls\" a.vld");
    Lines expected = kHeader;
    if (line) expected.push_back("SPEED_FACTOR IN USE:  " + std::string(line));
    EXPECT_EQ(Log(), expected) << (value ? value : "(unset)");
  }
}

// A service's session has no desktop that the user's windows are on.
TEST_F(AutomaticSessionTest, InTheServicesSessionTheHeaderSaysThatNoWindowCanBeSeen) {
  SimDesktop desktop{host};
  engine.desktop = &desktop;
  for (const bool service : {true, false}) {
    desktop.serviceSession = service;
    host.files = {{"a.vls", ""}};
    Start("\"a.vls\" a.vld");
    Lines expected = kHeader;
    if (service)
      expected.push_back("Info: Velmora is running in session 0, the services' session, which has no interactive "
                         "desktop: no findwindow can see the user's windows. Start Velmora in the user's session.");
    EXPECT_EQ(Log(), expected);
  }
}

TEST_F(AutomaticSessionTest, AScriptOrLogThatCannotBeOpenedEndsWithStatusOne) {
  EXPECT_EQ(Start("\"gone.vls\" \"a.vld\""), 1);
  EXPECT_EQ(Log(), Fatal_Block("Unable to Open gone.vls for Input -> File not found", 53,
                               "Velmora.(General).Initial_Setup.OpenInput.5"));
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
  EXPECT_EQ(engine.editor.DebugFileName, "");
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

TEST_F(InteractiveSetupTest, LogsTheSessionAndLoadsTheScriptBelowAHeaderLine) {
  host.files["a.vls"] = "run: \"x\"\r\n# end";
  Run_Setup();
  const Lines expected = {"Interactive Session Started.  --> 21/11/2026 10:20:30", "Info: Debug File Open:  a.vld",
                          "Info: Script File Open:  a.vls"};
  EXPECT_EQ(Log(), expected);
  EXPECT_EQ(engine.DebugWindow.Items(), expected);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{Trace_Header_Line(), "run: \"x\"", "# end"}));
  EXPECT_EQ(surface.fonts, (Lines{"Lucida Console", "Courier New"}));
  EXPECT_TRUE(engine.state.DebugOn);
  engine.editor.ScriptFileName = "\"new.vls\"";  // a missing script starts empty; nothing is created
  Run_Setup();
  EXPECT_EQ(host.files.count("new.vls"), 0u);
  EXPECT_EQ(Log().back(), "Info: New Script File:  new.vls (it is created when it is saved)");
  EXPECT_EQ(engine.TraceWindow.Items(), Lines{Trace_Header_Line()});
  EXPECT_FALSE(engine.state.StopRunning);
}

// Whatever happens to the debug file, the script is read: a script shown
// empty would be saved empty over the real one.
TEST_F(InteractiveSetupTest, ADebugFileThatCannotBeMadeStillLetsTheScriptLoad) {
  host.files["a.vls"] = "run: \"x\"\r\nQuit\r\n";
  host.unopenable.insert("a.vld");
  Run_Setup();
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{Trace_Header_Line(), "run: \"x\"", "Quit"}));
  EXPECT_FALSE(engine.state.StopRunning);
  EXPECT_FALSE(engine.state.DebugFileOpen);
  const Lines& shown = engine.DebugWindow.Items();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), "Info: Debug File Open:  a.vld"), 0);
  EXPECT_EQ(std::count(shown.begin(), shown.end(),
                       "Info: No debug file: a.vld could not be opened; this log is kept in the window only."),
            1);
}

// A saved script starts with the heading of its save; it gives way to
// today's, whichever version wrote it, so headings do not pile up.
TEST_F(InteractiveSetupTest, AnEarlierHeadingGivesWayToTodays) {
  const std::string older = "# Velmora, Version 0.9.1 - 1 May 2025  Author: " + About().Author + ". old notice";
  const std::pair<std::string, Lines> rows[] = {
      {older + "\r\nQuit\r\n", {Trace_Header_Line(), "Quit"}},
      {Trace_Header_Line() + "\r\n" + Trace_Header_Line() + "\r\n", {Trace_Header_Line(), Trace_Header_Line()}},
      {"Quit\r\n" + older + "\r\n", {Trace_Header_Line(), "Quit", older}},  // only the first line
      {"# Velmora, my own notes\r\n", {Trace_Header_Line(), "# Velmora, my own notes"}}};
  for (const auto& [file, shown] : rows) {
    host.files["a.vls"] = file;
    Run_Setup();
    EXPECT_EQ(engine.TraceWindow.Items(), shown) << file;
  }
}

TEST_F(InteractiveSetupTest, ALaterScriptKeepsWritingTheSameDebugFileUntilShutDown) {
  host.files = {{"a.vls", ""}, {"b.vls", ""}};
  Run_Setup();
  engine.editor.ScriptFileName = "\"b.vls\"";
  Run_Setup();
  EXPECT_EQ(Log().size(), 6u);  // not truncated by the second setup
  engine.editor.NewSection = true;
  Run_Setup();
  EXPECT_EQ(engine.DebugWindow.Item(6), std::string(63, '^'));
  EXPECT_EQ(Log().size(), 9u);  // the separator is shown in the window only
  EXPECT_FALSE(engine.editor.NewSection);
  host.unclosable.insert("a.vld");
  RunState& s = engine.state;
  Shut_Down(engine, true, s.ScriptFileNumber, s.DebugFileNumber);
  EXPECT_EQ(engine.DebugWindow.Item(13), "Unable to Close file -> Device I/O error.");
  EXPECT_EQ(engine.DebugWindow.Item(15), "Error Location:  Velmora.(General).Shut_Down.Close.2");
  EXPECT_FALSE(s.StopRunning);
}

TEST_F(EngineTest, NextExecuteableStatementSkipsBlanksAndComments) {
  for (const char* line : {"run: \"a\"", "", "   ", "# c", "  # ERROR! # jump: 1", ">>> quit", "wait: 1", "#"})
    engine.TraceWindow.Add(line);
  const std::pair<long, long> cases[] = {{-1, 0}, {0, 5}, {4, 5}, {5, 6}, {6, -1}, {7, -1}, {8, -1}, {100, -1}};
  for (const auto& [from, next] : cases) EXPECT_EQ(Next_Executeable_Statement(engine, from), next) << from;
}

TEST_F(EngineTest, PauseTenthsSleepsNinetyFiveMillisecondsAndYieldsEachTenth) {
  for (long tenths : {600, 0, -3}) Pause_Tenths(engine, tenths);
  EXPECT_EQ(host.sleptMs, 600 * 95);
  EXPECT_EQ(host.doEvents, 600);
}

}  // namespace
}  // namespace velmora::testing
