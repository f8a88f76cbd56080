// An editor form on the simulated platform: a fake window, file dialogs that
// answer from a queue, and the settings store on the simulated registry.
#pragma once

#include <deque>
#include <optional>

#include "editor_form.h"
#include "engine_fixture.h"
#include "reg_settings.h"

namespace velmora::test {

class FakeFormWindow : public FormWindow {
 public:
  TwipsRect placement{0, 0, 9600, 9000};
  WindowState state = WindowState::Normal;
  long screenWidth = 19200, screenHeight = 14400;
  int foregroundCalls = 0, closeCalls = 0;
  TwipsRect Placement() override { return placement; }
  TwipsRect RestoredPlacement() override { return placement; }
  void SetPlacement(const TwipsRect& rect) override { placement = rect; }
  WindowState State() override { return state; }
  void SetState(WindowState s) override { state = s; }
  long ScreenWidth() override { return screenWidth; }
  long ScreenHeight() override { return screenHeight; }
  void BringFocusToForeground() override { ++foregroundCalls; }
  void Close() override { ++closeCalls; }
};

// Answers each dialog with the next reply (none left: cancelled), each save
// question with the next answer (none left: Cancel), and keeps the requests.
class QueuedDialogs : public FileDialogs {
 public:
  std::deque<std::optional<std::string>> replies;
  std::deque<SaveAnswer> answers;
  std::vector<FileDialogRequest> requests;
  std::vector<std::string> asked;  // the names asked about
  SaveAnswer AskToSave(const std::string& name) override {
    asked.push_back(name);
    const SaveAnswer answer = answers.empty() ? SaveAnswer::Cancel : answers.front();
    if (!answers.empty()) answers.pop_front();
    return answer;
  }
  std::optional<std::string> Show(const FileDialogRequest& request) override {
    requests.push_back(request);
    const auto reply = replies.empty() ? std::nullopt : replies.front();
    if (!replies.empty()) replies.pop_front();
    return reply;
  }
};

class EditorTest : public EngineTest {
 protected:
  FakeSurface surface;
  FormControls controls{Editor_Form()};
  FakeFormWindow window;
  QueuedDialogs dialogs;
  CRegSettings settings{registry};
  EditorForm form{engine, controls, window, dialogs, settings};
  CommandPanel& panel = form.Panel();

  EditorTest() {
    engine.surface = &surface;
    engine.state.InteractiveSession = true;
  }
  void Click(ControlId button) { form.Button_Clicked(button); }
  void Script(const Lines& lines, long highlighted) {
    engine.DebugWindow.Clear();
    engine.TraceWindow.Clear();
    for (const std::string& line : lines) engine.TraceWindow.Add(line);
    engine.TraceWindow.Select(highlighted);
  }
};

}  // namespace velmora::test
