// The batch editor: its file's SET statements and its form on the simulated platform; and what
// both forms' controls share (option groups, one form's identifiers, help, a list's widest item).
#include <functional>

#include "about.h"
#include "editor_fixture.h"
#include "envvar_setup_form.h"
#include "envvar_setup_layout.h"
#include "set_statements.h"
#include "widest_item.h"

namespace velmora::test {
namespace {

using C = BatchId;

class FakeBatchView : public BatchView {
 public:
  Lines reports;  // a report: the file label beside it, and where it was made
  const FormControls* form = nullptr;
  std::string SetBatchFont(const std::string& name) override { return name; }
  void ShowReport(const std::string&, const std::string& text) override {
    const auto at = text.find("Location:  ") + 11;
    reports.push_back((*form)[C::BatchFileLabel].Caption + "|" + text.substr(at, text.find('\n', at) - at));
  }
};

class EnvVarSetupTest : public EngineTest {
 protected:
  FormControls controls{Batch_Form()};
  FakeFormWindow window;
  FakeBatchView view;
  QueuedDialogs dialogs;
  CRegSettings settings{registry};
  EnvVarSetupForm form{engine, controls, window, view, dialogs, settings};

  EnvVarSetupTest() { view.form = &controls; }

  void Open(const std::string& path, const std::string& text) {
    host.files[path] = text;
    dialogs.replies = {path};
    form.OpenBatchButton_Click();
  }
};

// Enter updates the chosen line, keeping its indent in the list (the file saved trimmed is an
// end-to-end case); Escape, Ctrl+C or moving off abandons an edit.
TEST_F(EnvVarSetupTest, AChosenLineIsUpdatedKeepingItsIndentUnlessTheEditIsAbandoned) {
  Open("C:\\b\\set.bat", "set A=1\r\n    SET Path = C:\\DOS\r\n");
  EXPECT_EQ(form.BatchWindow.Items(), (Lines{Trace_Header_Line(), "set A=1", "    SET Path = C:\\DOS", "   "}));
  EXPECT_FALSE(form.BatchWindow_KeyDown(0x41));  // a key the list keeps
  EXPECT_TRUE(form.BatchWindow_KeyDown(0x26));   // Up from the heading: the last SET line
  EXPECT_TRUE(form.BatchWindow_KeyDown(13));
  EXPECT_EQ(controls[C::EnvVarNameLabel].Caption + "=" + controls[C::EnvVarValue].Caption, "Path=C:\\DOS");
  EXPECT_EQ(controls.Focused(), C::EnvVarValue);
  controls.TextTyped(C::EnvVarValue, "C:\\BIN", 6);
  EXPECT_TRUE(form.EnvVarValue_KeyPress(13));
  EXPECT_EQ(form.BatchWindow.Item(2), "    set Path=C:\\BIN");
  EXPECT_TRUE(form.Modified && controls[C::SaveBatchButton].Enabled);
  for (const int key : {27, 3, 0x28}) {
    form.BatchWindow.Select(2);
    form.BatchWindow_DblClick();
    controls.TextTyped(C::EnvVarValue, "no", 2);
    key == 0x28 ? form.BatchWindow_KeyDown(key) : form.EnvVarValue_KeyPress(key);
    form.UpdateEnvVarButton_Click();
    EXPECT_EQ(form.BatchWindow.Item(2), "    set Path=C:\\BIN") << key;
  }
}

// A file that cannot be read is never named, nor one that could not be written.
TEST_F(EnvVarSetupTest, FailuresAreReportedByTheFormAndLoseNothing) {
  host.unopenable = {"C:\\b\\locked.bat", "C:\\b\\readonly.bat"};
  Open("C:\\b\\locked.bat", "set A=1\r\n");
  Open("C:\\b\\none.bat", "echo set\r\n");
  form.Step_To_Previous();
  Open("C:\\b\\locked.bat", "set A=1\r\n");
  dialogs.replies = {"C:\\b\\readonly.bat"};
  form.SaveBatchButton_Click();
  EXPECT_EQ(form.BatchFileName, "\"C:\\b\\none.bat\"");
  EXPECT_EQ(form.BatchWindow.Item(1), "echo set");
  EXPECT_EQ(view.reports,
            (Lines{"Batch: |EnvVarSetup.(General).Initial_Setup.OpenInput.2",
                   "Batch: C:\\b\\none.bat|EnvVarSetup.(General).Previous_EnvVar_Statement.NoSETStatements.1",
                   "Batch: C:\\b\\none.bat|EnvVarSetup.(General).Initial_Setup.OpenInput.2",
                   "Batch: C:\\b\\none.bat|EnvVarSetup.(General).Save_Batch_File.OpenOutput.1"}));
}

// Cancel, or Yes with the save cancelled, keeps a changed file (and the form open).
TEST_F(EnvVarSetupTest, AChangedFileIsOnlyLeftWhenTheUserLetsItGo) {
  // clang-format off
  const std::tuple<SaveAnswer, std::optional<std::string>, bool> rows[] = {{SaveAnswer::Cancel, std::nullopt, false},
      {SaveAnswer::Yes, std::nullopt, false}, {SaveAnswer::Yes, "C:\\b\\saved.bat", true}, {SaveAnswer::No, std::nullopt, true}};
  // clang-format on
  host.files["C:\\b\\other.bat"] = "set B=2\r\n";
  for (const bool closing : {false, true}) {
    for (const auto& [answer, saveAs, goes] : rows) {
      Open("C:\\b\\set.bat", "set A=1\r\n");
      form.Modified = true;
      dialogs.answers = {answer};
      dialogs.replies = {"C:\\b\\other.bat", saveAs};
      if (closing) dialogs.replies.pop_front();
      if (!closing) form.OpenBatchButton_Click();
      EXPECT_EQ(closing ? form.Form_Unload() : form.BatchFileName != "\"C:\\b\\set.bat\"", goes) << closing;
    }
  }
}

// The list takes the form's extra space, down to a least height; the form keeps its minimum.
TEST_F(EnvVarSetupTest, ResizeKeepsTheMinimumAndLetsTheListTakeTheSpace) {
  // clang-format off
  const std::tuple<WindowState, TwipsRect, TwipsRect, long> rows[] = {
      {WindowState::Normal, {0, 0, 12000, 9000}, {0, 0, 12000, 9000}, 6360}, {WindowState::Normal, {0, 0, 3000, 3000},
      {0, 0, 5400, 4200}, 1560}, {WindowState::Maximized, {0, 0, 5000, 3000}, {0, 0, 5000, 3000}, 600}};
  // clang-format on
  for (const auto& [state, placement, wanted, listHeight] : rows) {
    window.state = state;
    window.placement = placement;
    form.Form_Resize();
    EXPECT_EQ(window.placement, wanted);
    EXPECT_EQ(controls[C::BatchWindow].Rect.Height, listHeight);
  }
}

TEST(SetStatementsTest, StatementsHoldANameAndAValueAndSteppingWrapsOnce) {
  // The line, whether it is a candidate, and name|value ("" for no statement).
  // clang-format off
  const std::tuple<const char*, bool, const char*> rows[] = {{"    SET Path = C:\\DOS", true, "Path|C:\\DOS"},
      {"setup=yes", true, "up|yes"}, {"Set A=B=C ", true, "A|B=C"}, {"SET X=", true, ""}, {"set =x", true, ""},
      {"set", false, ""}, {"rem set a=b", false, ""}};
  // clang-format on
  for (const auto& [line, candidate, split] : rows) {
    const auto statement = Is_Set_Statement(line);
    EXPECT_EQ(Is_Set_Candidate(line), candidate) << line;
    EXPECT_EQ(statement ? statement->name + "|" + statement->value : "", split) << line;
  }
  // Stepping wraps round once in either direction; a lone statement is found again from itself.
  const Lines lines = {"# heading", "@echo off", "set A=1", "echo", "SET X=", "   "};
  const Lines lone = {"# heading", "set A=1", "   "}, none = {"# heading", "echo set", "   "};
  // clang-format off
  const std::tuple<const Lines*, long, std::optional<long>, std::optional<long>> steps[] = {{&lines, 0, 2, 4},
      {&lines, 4, 2, 2}, {&lines, -1, 2, 4}, {&lone, 1, 1, 1}, {&none, 1, std::nullopt, std::nullopt}};
  // clang-format on
  for (const auto& [file, from, next, previous] : steps) {
    EXPECT_EQ(Next_EnvVar_Statement(*file, from), next) << from;
    EXPECT_EQ(Previous_EnvVar_Statement(*file, from), previous) << from;
  }
}

TEST(FormControlsTest, AnOptionClearsOnlyItsGroupAndAnotherFormsIdentifierIsRefused) {
  FormControls controls{Editor_Form()};
  for (const ControlId id : {ControlId::MouseButton1, ControlId::DebugState0, ControlId::MouseButton2})
    controls.SetChecked(id, true);
  EXPECT_FALSE(controls[ControlId::MouseButton1].Checked);
  EXPECT_TRUE(controls[ControlId::DebugState0].Checked && controls[ControlId::MouseButton2].Checked);
  EXPECT_THROW(controls.SetCaption(BatchId::EnvVarValue, "x"), std::logic_error);
  EXPECT_THROW((void)controls[BatchId::Form], std::logic_error);
}

// Every control has a text and a page of its form's help; F1 on the form opens the form's own page.
TEST(ControlHelpTest, EveryControlHasATextAndF1OpensAPageOfItsForm) {
  for (const FormDeclaration* form : {&Editor_Form(), &Batch_Form()}) {
    EXPECT_EQ(Help_Page_For(*form, form->Form), form->HelpPage);
    for (const ControlDeclaration& control : form->Controls) {
      ASSERT_NE(Find_Control_Help(*form, control.Id), nullptr) << control.Name;
      EXPECT_EQ(Help_Page_For(*form, control.Id).rfind(form->HelpPage, 0), 0u) << control.Name;
    }
  }
}

// After each change of the list, the widest item's width (a character's width is the scale).
TEST(WidestItemTest, FollowsEveryChangeOfTheList) {
  ListModel list;
  list.Add("abc");
  long scale = 1;
  WidestItem widest(list, [&scale](const std::string& text) { return static_cast<long>(text.size()) * scale; });
  const std::pair<std::function<void()>, long> rows[] = {
      {[&] { list.Add("a"); }, 3},          {[&] { list.Set(0, "ab"); }, 2},
      {[&] { list.Insert(0, "bb"); }, 2},   {[&] { list.Remove(1); }, 2},  // one of two as wide goes
      {[&] { list.Add("12345"); }, 5},      {[&] { list.Remove(2); }, 2},
      {[&] { scale = 3, widest.Remeasure(); }, 6}, {[&] { list.Clear(); }, 0},
  };
  for (const auto& [change, expected] : rows) {
    change();
    EXPECT_EQ(widest.Widest(), expected);
  }
}

}  // namespace
}  // namespace velmora::test
