// The batch editor: the SET statements of its file, and its form on the simulated platform.
#include "about.h"
#include "editor_fixture.h"
#include "envvar_setup_form.h"
#include "envvar_setup_layout.h"
#include "set_statements.h"

namespace velmora::test {
namespace {

using C = ControlId;

class FakeBatchView : public BatchView {
 public:
  std::string faces = "Lucida Console|Courier New";  // the fixed-pitch faces installed
  long listWidth = 100;
  std::vector<long> extents;
  std::vector<std::string> fonts, reports;
  const FormControls* form = nullptr;
  std::vector<std::string> labelsAtReport;  // what the file label said beside each report
  long MeasureBatchText(const std::string& text) override { return static_cast<long>(text.size()) * 10; }
  long BatchWindowWidth() override { return listWidth; }
  void SetBatchHorizontalExtent(long pixels) override { extents.push_back(pixels); }
  std::string SetBatchFont(const std::string& name) override {
    fonts.push_back(name);
    if (name == kAnyFixedPitchFont) return "Fixedsys";
    return faces.find(name) == std::string::npos ? "Arial" : name;
  }
  void ShowReport(const std::string& title, const std::string& text) override {
    reports.push_back(title + "|" + text);
    if (form) labelsAtReport.push_back((*form)[ControlId::BatchFileLabel].Caption);
  }
};

class EnvVarSetupTest : public EngineTest {
 protected:
  FormControls controls{"Batch", {0, 0, 7800, 6600}, Batch_Controls()};
  FakeFormWindow window;
  FakeBatchView view;
  QueuedDialogs dialogs;
  CRegSettings settings{registry};
  EnvVarSetupForm form{engine, controls, window, view, dialogs, settings};

  EnvVarSetupTest() {
    engine.state.InteractiveSession = true;
    view.form = &controls;
  }

  void Open(const std::string& path, const std::string& text) {
    host.files[path] = text;
    dialogs.replies.push_back(path);
    form.OpenBatchButton_Click();
  }
  std::vector<std::string> Items() { return form.BatchWindow.Items(); }
};

TEST_F(EnvVarSetupTest, LoadingFramesTheFileWithTheHeadingAndTheSpareLineInTheAvailableFont) {
  const struct {
    const char* text;
    const char* faces;
    Lines lines, fonts;
  } rows[] = {{"", "Lucida Console|Courier New", {}, {"Lucida Console"}},
              {"@echo off\r\n    SET Path = C:\\DOS\r\n",
               "Courier New",
               {"@echo off", "    SET Path = C:\\DOS"},
               {"Lucida Console", "Courier New"}},
              {"", "", {}, {"Lucida Console", "Courier New", kAnyFixedPitchFont}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.faces);
    view.faces = row.faces;
    view.fonts.clear();
    Open("C:\\b\\set.bat", row.text);
    EXPECT_EQ(Items(), Joined(Joined({Trace_Header_Line()}, row.lines), {"   "}));
    EXPECT_EQ(view.fonts, row.fonts);
    EXPECT_EQ(controls[C::BatchFileLabel].Caption, "Batch: C:\\b\\set.bat");
    EXPECT_EQ(form.BatchFileName, "\"C:\\b\\set.bat\"");
  }
  EXPECT_EQ(dialogs.requests[0].Title, "New Batch File");
  EXPECT_EQ(dialogs.requests[0].DefaultExtension, ".BAT");
  EXPECT_EQ(dialogs.requests[0].Filter, "Velmora Batch (*.bat)|*.bat|All Files (*.*)|*.*");
  EXPECT_EQ(dialogs.requests[1].InitialName, "C:\\b\\set.bat");
  EXPECT_EQ(view.extents, (std::vector<long>{static_cast<long>(Trace_Header_Line().size()) * 10}));
}

// Down twice, choose, a new value, update, save: the list keeps the indent,
// the file does not.
TEST_F(EnvVarSetupTest, AnUpdatedLineKeepsItsIndentInTheListAndIsSavedTrimmed) {
  Open("C:\\b\\set.bat", "@echo off\r\nset A=1\r\n    SET Path = C:\\DOS\r\necho\r\n");
  form.Step_To_Next();
  form.Step_To_Next();
  form.BatchWindow_DblClick();
  EXPECT_EQ(controls[C::EnvVarNameLabel].Caption, "Path");
  EXPECT_EQ(controls[C::EnvVarNameLabel].ToolTip, "This is the name of the Environment Variable.");
  EXPECT_EQ(controls[C::EnvVarValue].Caption, "C:\\DOS");
  EXPECT_TRUE(controls[C::EnvVarValue].Visible && controls[C::EnvVarValue].Enabled);
  EXPECT_EQ(controls.Focused(), C::EnvVarValue);
  controls.TextTyped(C::EnvVarValue, "C:\\BIN", 6);
  EXPECT_TRUE(form.EnvVarValue_KeyPress(13));
  EXPECT_EQ(Items()[3], "    set Path=C:\\BIN");
  EXPECT_TRUE(form.Modified);
  EXPECT_TRUE(controls[C::SaveBatchButton].Enabled);
  EXPECT_FALSE(controls[C::UpdateEnvVarButton].Enabled);

  dialogs.replies = {std::nullopt};  // a cancelled save writes nothing and keeps the change
  form.SaveBatchButton_Click();
  EXPECT_TRUE(form.Modified);
  dialogs.replies = {"C:\\b\\new.bat", "C:\\b\\new.bat"};
  form.SaveBatchButton_Click();
  EXPECT_EQ(dialogs.requests.back().Title, "Save Batch File");
  EXPECT_EQ(host.files.at("C:\\b\\new.bat"), "@echo off\r\nset A=1\r\nset Path=C:\\BIN\r\necho\r\n");
  EXPECT_FALSE(form.Modified);
  EXPECT_FALSE(controls[C::SaveBatchButton].Enabled);
  EXPECT_EQ(host.beeps, 1);
  form.SaveBatchButton_Click();  // twice: the same text again
  EXPECT_EQ(host.files.at("C:\\b\\new.bat"), "@echo off\r\nset A=1\r\nset Path=C:\\BIN\r\necho\r\n");
}

// The list's keys: Up steps back, Down on, Enter chooses; other keys are the list's own.
TEST_F(EnvVarSetupTest, TheListsKeysStepBetweenSetLinesAndChoose) {
  Open("C:\\b\\keys.bat", "set A=1\r\necho\r\nset B=2\r\necho\r\nset C=3\r\n");
  const struct {
    int key;
    long from;
    bool taken;
    long to;
  } rows[] = {{0x28, 1, true, 3}, {0x26, 3, true, 1}, {0x26, 5, true, 3}, {0x41, 3, false, 3}};
  for (const auto& row : rows) {
    form.BatchWindow.Select(row.from);
    EXPECT_EQ(form.BatchWindow_KeyDown(row.key), row.taken) << row.key;
    EXPECT_EQ(form.BatchWindow.Selected(), row.to) << row.key;
  }
  EXPECT_TRUE(form.BatchWindow_KeyDown(13));
  EXPECT_EQ(controls[C::EnvVarNameLabel].Caption, "B");
}

// What a double click or a key shows, line by line; moving off the chosen
// line or Escape abandons the edit.
TEST_F(EnvVarSetupTest, ChoosingShowsOnlyStatementsAndLeavingTheLineAbandonsTheEdit) {
  Open("C:\\b\\set.bat", "setup=yes\r\nSET X=\r\nrem\r\n");
  // The line chosen and the name shown ("" for the empty state).
  const std::pair<long, const char*> rows[] = {{1, "up"}, {2, ""}, {3, ""}, {0, ""}};
  for (const auto& [line, name] : rows) {
    SCOPED_TRACE(line);
    form.BatchWindow.Select(line);
    form.BatchWindow_DblClick();
    const bool chosen = *name != '\0';
    EXPECT_EQ(controls[C::EnvVarNameLabel].Caption, chosen ? name : "No Variable Selected");
    EXPECT_EQ(controls[C::EnvVarValue].Visible, chosen);
    EXPECT_EQ(controls[C::UpdateEnvVarButton].Enabled, chosen);
  }
  for (const auto leave :
       {+[](EnvVarSetupForm& f) { f.EnvVarValue_KeyPress(27); }, +[](EnvVarSetupForm& f) { f.EnvVarValue_KeyPress(3); },
        +[](EnvVarSetupForm& f) { f.Step_To_Next(); }}) {
    form.BatchWindow.Select(1);
    form.BatchWindow_DblClick();
    controls.TextTyped(C::EnvVarValue, "no", 2);
    leave(form);
    form.UpdateEnvVarButton_Click();  // nothing chosen any more: no line changes
    EXPECT_EQ(Items()[1], "setup=yes");
    EXPECT_FALSE(controls[C::EnvVarValue].Visible);
    EXPECT_EQ(controls[C::EnvVarNameLabel].ToolTip,
              "Try double clicking on a line like: set <EnvironmentVariableName>=<EnvironmentVariableValue>.");
  }
}

TEST_F(EnvVarSetupTest, FailuresAreReportedByTheFormAndLoseNothing) {
  // A first file that cannot be read is never named: no file is shown.
  host.unopenable = {"C:\\b\\locked.bat"};
  Open("C:\\b\\locked.bat", "set A=1\r\n");
  EXPECT_EQ(view.labelsAtReport, std::vector<std::string>{"Batch: "});
  EXPECT_EQ(controls[C::BatchFileLabel].Caption, "Batch: ");
  view.reports.clear();
  Open("C:\\b\\none.bat", "echo set\r\n");
  form.BatchWindow.Select(1);
  form.Step_To_Previous();
  EXPECT_EQ(form.BatchWindow.Selected(), 1);
  ASSERT_EQ(view.reports.size(), 1u);
  EXPECT_EQ(view.reports[0],
            "No SET Statements Found!|Error!\n\nThis File does not contain any SET Environment Variable "
            "statements.\rPerhaps you should load a different batch file?\n\nError Code:  -1\nError Location:  "
            "EnvVarSetup.(General).Previous_EnvVar_Statement.NoSETStatements.1\n\nProgram will continue, but this "
            "operation was unsuccessful.");

  // A file that cannot be opened leaves the shown one in place.
  host.unopenable.insert("C:\\b\\locked.bat");
  dialogs.replies = {"C:\\b\\locked.bat"};
  form.OpenBatchButton_Click();
  EXPECT_EQ(form.BatchFileName, "\"C:\\b\\none.bat\"");
  EXPECT_EQ(controls[C::BatchFileLabel].Caption, "Batch: C:\\b\\none.bat");
  EXPECT_EQ(view.labelsAtReport.back(), "Batch: C:\\b\\none.bat");
  EXPECT_EQ(Items()[1], "echo set");
  EXPECT_NE(view.reports.back().find("EnvVarSetup.(General).Initial_Setup.OpenInput.2"), std::string::npos);

  // So is a file that could not be written.
  host.unopenable.insert("C:\\b\\readonly.bat");
  dialogs.replies = {"C:\\b\\readonly.bat"};
  form.SaveBatchButton_Click();
  EXPECT_EQ(controls[C::BatchFileLabel].Caption, "Batch: C:\\b\\none.bat");
}

// A changed file goes only when the user lets it: Cancel, or Yes with the
// save cancelled, keeps it (and the form open); No or a save lets it go.
TEST_F(EnvVarSetupTest, AChangedFileIsOnlyLeftWhenTheUserLetsItGo) {
  struct Row {
    SaveAnswer answer;
    std::optional<std::string> saveAs;
    bool goes;
  };
  const Row rows[] = {{SaveAnswer::Cancel, std::nullopt, false},
                      {SaveAnswer::Yes, std::nullopt, false},
                      {SaveAnswer::Yes, "C:\\b\\saved.bat", true},
                      {SaveAnswer::No, std::nullopt, true}};
  for (const bool closing : {false, true}) {
    for (const Row& row : rows) {
      SCOPED_TRACE(::testing::Message() << (closing ? "close " : "open ") << static_cast<int>(row.answer));
      host.files["C:\\b\\other.bat"] = "set B=2\r\n";
      Open("C:\\b\\set.bat", "set A=1\r\n");
      form.Modified = true;
      dialogs.asked.clear();
      dialogs.answers = {row.answer};
      dialogs.replies.clear();
      if (!closing) dialogs.replies.push_back("C:\\b\\other.bat");
      if (row.answer == SaveAnswer::Yes) dialogs.replies.push_back(row.saveAs);
      const bool closed = closing ? form.Form_Unload() : (form.OpenBatchButton_Click(), false);
      EXPECT_EQ(dialogs.asked, std::vector<std::string>{"C:\\b\\set.bat"});
      if (closing) {
        EXPECT_EQ(closed, row.goes);
      } else {
        EXPECT_EQ(form.BatchFileName, row.goes ? "\"C:\\b\\other.bat\"" : "\"C:\\b\\set.bat\"");
      }
      EXPECT_EQ(form.Modified, !row.goes || (closing && row.answer == SaveAnswer::No));
    }
  }
}

// The list takes the form's extra width and height; the name, the frame and
// the Update button keep to the right edge, the frame to the bottom, until
// the list is at its least height.
TEST_F(EnvVarSetupTest, ResizeKeepsTheMinimumAndLetsTheListTakeTheSpace) {
  const struct {
    WindowState state;
    long width, height, wantWidth, wantHeight, wantListHeight;
  } rows[] = {{WindowState::Normal, 7800, 6600, 7800, 6600, 3960},
              {WindowState::Normal, 12000, 9000, 12000, 9000, 6360},
              {WindowState::Normal, 3000, 3000, 5400, 4200, 1560},
              {WindowState::Maximized, 5000, 3000, 5000, 3000, 600}};  // a tiny screen: the list keeps a least height
  const auto right = [&](C id) { return controls[id].Rect.Left + controls[id].Rect.Width; };
  const auto bottom = [&](C id) { return controls[id].Rect.Top + controls[id].Rect.Height; };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::Message() << row.width << " x " << row.height);
    window.state = row.state;
    window.placement = {0, 0, row.width, row.height};
    form.Form_Resize();
    EXPECT_EQ(window.placement.Width, row.wantWidth);
    EXPECT_EQ(window.placement.Height, row.wantHeight);
    EXPECT_EQ(controls[C::BatchWindow].Rect.Height, row.wantListHeight);
    for (const C id : {C::BatchFileLabel, C::BatchWindow, C::BatchFrame}) EXPECT_EQ(right(id), row.wantWidth - 220);
    EXPECT_EQ(controls[C::BatchFrame].Rect.Top, bottom(C::BatchWindow) + 60);
    if (row.wantListHeight > 600) {
      EXPECT_EQ(bottom(C::BatchFrame), row.wantHeight - 540);
    }
    const long inside = controls[C::BatchFrame].Rect.Width;
    EXPECT_EQ(right(C::EnvVarNameLabel), inside - 120);
    EXPECT_EQ(right(C::UpdateEnvVarButton), inside - 120);
    EXPECT_EQ(right(C::EnvVarValue), controls[C::UpdateEnvVarButton].Rect.Left - 120);
  }
  // At the designed size the layout is the one the table declares.
  window.state = WindowState::Normal;
  window.placement = {0, 0, kDesignedBatchFormWidth, kDesignedBatchFormHeight};
  form.Form_Resize();
  for (const ControlDeclaration& declared : Batch_Controls())
    EXPECT_EQ(controls[declared.Id].Rect, declared.Rect) << declared.Name;
}

// The place and the file are kept in their own section, and the file opens
// again without a dialog; a file that has gone is asked for.
TEST_F(EnvVarSetupTest, TheNextOpeningRestoresThePlaceAndTheFile) {
  window.placement = {300, 200, 7000, 5000};
  Open("C:\\b\\set.bat", "set A=1\r\n");
  form.Form_Unload();
  EXPECT_EQ(settings.GetSetting("EnvVarSetup", "Batch File", ""), "\"C:\\b\\set.bat\"");
  EXPECT_EQ(settings.GetSetting("EnvVarSetup", "Left", ""), "300");

  FakeFormWindow second;
  EnvVarSetupForm again{engine, controls, second, view, dialogs, settings};
  again.Form_Load();
  again.Open_At_Start();
  EXPECT_EQ(second.placement, (TwipsRect{300, 200, 7000, 5000}));
  EXPECT_EQ(dialogs.requests.size(), 1u);
  EXPECT_EQ(again.BatchWindow.Item(1), "set A=1");

  host.files.erase("C:\\b\\set.bat");
  EnvVarSetupForm third{engine, controls, second, view, dialogs, settings};
  third.Form_Load();
  third.Open_At_Start();
  EXPECT_EQ(dialogs.requests.size(), 2u);
}

TEST(SetStatementsTest, OnlyLinesStartingWithSetAndHoldingANameAndAValueAreStatements) {
  // The line, whether it is a candidate, and name|value ("" for no statement).
  const std::tuple<const char*, bool, const char*> rows[] = {{"    SET Path = C:\\DOS", true, "Path|C:\\DOS"},
                                                             {"setup=yes", true, "up|yes"},
                                                             {"Set A=B=C ", true, "A|B=C"},
                                                             {"SETX=1", true, "X|1"},
                                                             {"SET X=", true, ""},
                                                             {"set =x", true, ""},
                                                             {"set", false, ""},
                                                             {"rem set a=b", false, ""},
                                                             {"\tset a=b", false, ""},
                                                             {"", false, ""}};
  for (const auto& [line, candidate, split] : rows) {
    SCOPED_TRACE(line);
    EXPECT_EQ(Is_Set_Candidate(line), candidate);
    const auto statement = Is_Set_Statement(line);
    EXPECT_EQ(statement ? statement->name + "|" + statement->value : "", split);
  }
}

// Stepping wraps round once in either direction; a lone statement is found
// again from itself; a line that is a candidate but no statement still stops.
TEST(SetStatementsTest, SteppingWrapsOnceAndFindsNothingInAFileWithoutSet) {
  const std::vector<std::string> lines = {"# heading", "@echo off", "set A=1", "echo", "SET X=", "   "};
  const std::vector<std::string> lone = {"# heading", "set A=1", "   "};
  const std::vector<std::string> none = {"# heading", "echo set", "   "};
  const std::tuple<const std::vector<std::string>*, long, std::optional<long>, std::optional<long>> rows[] = {
      {&lines, 0, 2, 4},
      {&lines, 2, 4, 4},
      {&lines, 4, 2, 2},
      {&lines, 5, 2, 4},
      {&lines, -1, 2, 4},
      {&lone, 1, 1, 1},
      {&none, 1, std::nullopt, std::nullopt}};
  for (const auto& [file, from, next, previous] : rows) {
    SCOPED_TRACE(from);
    EXPECT_EQ(Next_EnvVar_Statement(*file, from), next);
    EXPECT_EQ(Previous_EnvVar_Statement(*file, from), previous);
  }
  EXPECT_EQ(Next_EnvVar_Statement({}, 0), std::nullopt);
}

TEST(SetStatementsTest, AnUpdateKeepsTheIndentAndASaveWritesTheFileLinesTrimmed) {
  EXPECT_EQ(Updated_Set_Line("    SET Path = C:\\DOS", "Path", "C:\\BIN"), "    set Path=C:\\BIN");
  EXPECT_EQ(Updated_Set_Line("setup=yes", "up", "no "), "set up=no ");
  EXPECT_EQ(Updated_Set_Line("   ", "A", "1"), "   set A=1");
  EXPECT_EQ(Lines_To_Save({"# heading", "    set Path=C:\\BIN", " echo  ", "   "}),
            (std::vector<std::string>{"set Path=C:\\BIN", "echo"}));
  EXPECT_TRUE(Lines_To_Save({"# heading", "   "}).empty());
  EXPECT_TRUE(Lines_To_Save({}).empty());
}

}  // namespace
}  // namespace velmora::test
