// Running the script from the editor: the whole script from the highlighted
// line on, or one line; the halt button; breakpoints. Everything but the
// halt button is locked while lines run.
#pragma once

#include "list_model.h"

namespace velmora {

struct Engine;
class CommandPanel;
class EditorActivity;
class FormControls;
class FormWindow;

class EditorRun {
 public:
  EditorRun(Engine& engine, FormControls& controls, FormWindow& window, CommandPanel& panel, EditorActivity& activity);
  ~EditorRun();
  EditorRun(const EditorRun&) = delete;
  EditorRun& operator=(const EditorRun&) = delete;

  void ExecuteButton_Click();
  // During a run this is the halt button.
  void ExecuteNextButton_Click();
  void BreakPointButton_Click();
  // The running line ends first; the halt button waits for it, disabled.
  void Request_Halt();

 private:
  void Show_Halt_Button(int fontSize, const char* caption);
  void Lock_For_Run();
  void Unlock_After_Run();
  void Report_Halt();
  bool Preprocess_For_Run();
  bool Run_Highlighted_Line();
  void Show_Breakpoint_State();

  // The breakpoint button follows the highlighted script line, whatever moved it.
  class BreakpointCaption : public ListObserver {
   public:
    explicit BreakpointCaption(EditorRun& runner) : runner_(runner) {}
    void OnCleared() override {}
    void OnInserted(std::size_t) override {}
    void OnChanged(std::size_t) override { runner_.Show_Breakpoint_State(); }
    void OnRemoved(std::size_t) override {}
    void OnSelected(long) override { runner_.Show_Breakpoint_State(); }

   private:
    EditorRun& runner_;
  };

  Engine& engine_;
  FormControls& controls_;
  FormWindow& window_;
  CommandPanel& panel_;
  EditorActivity& activity_;
  BreakpointCaption breakpointCaption_{*this};
};

}  // namespace velmora
