// The catalogue of commands and the panel that each entry prepares.
#include <algorithm>
#include <iterator>

#include "catalogue_table.h"
#include "command_codes.h"
#include "command_panel.h"
#include "engine.h"
#include "trap.h"

namespace velmora {

namespace {

// Insertion order is display order: positions and commandMap_ must agree.
const std::array<CatalogueSpec, 2> kCatalogues = {{
    {"Automation Commands",
     "Automation Commands you may use in your script",
     {{{"Run a Program", kRunCommand},
       {"Find a Window", kFindWindowCommand},
       {"Send Keystrokes to a Window", kSendKeysCommand},
       {"Send Mouse Click(s) to a Window", kSendButtonsCommand},
       {"Wait...", kWaitCommand},
       {"Insert a Blank Line", kBlankLine},
       {"Add a Comment", kCommentLine},
       {"Script Flow Control Commands...", kOpenFlowControl},
       {"Use Mouse", kUseMouseCommand},
       {"Set Debug Information State", kDebugCommand}}}},
    {"Script Flow Control Commands",
     "Commands used to control the execution of your script",
     {{{"Exit Script Flow Control Commands", kBackToAutomation},
       {"Test Environment Variable", kTestCommand},
       {"If <succeeded|failed>", kIfCommand},
       {"Else", kElseCommand},
       {"EndIf", kEndIfCommand},
       {"While <succeeded|failed> Loop", kWhileCommand},
       {"EndWhile", kEndWhileCommand},
       {"Repeat", kRepeatCommand},
       {"Until <succeeded|failed>", kUntilCommand},
       {"Quit Script!", kQuitCommand}}}},
}};

using C = ControlId;

// The findwindow syntax, in the label's tooltip, so that a user who edits a
// picked description knows what each item is.
std::string Find_Window_Syntax() {
  const auto quoted = [](const char* text) { return std::string("\"") + text + "\""; };
  return "<p, " + quoted("WindowTitle") + ", " + quoted("<WindowClass|*>") + ", MM.SS|c, " + quoted("ParentTitle") +
         ", " + quoted("<ParentClass|*>") + ", " + quoted("WindowTitle") + ", " + quoted("<WindowClass|*>") +
         ", <ChildID|*>, MM.SS>";
}

// A label that describes a live field: its texts, in the active colour.
void Describe(FormControls& controls, ControlId label, const std::string& caption, const std::string& toolTip) {
  controls.SetCaption(label, caption);
  controls.SetToolTip(label, toolTip);
  controls.SetInactive(label, false);
}

// A field the command takes; a null tooltip leaves the reset one.
void Open_Field(FormControls& controls, ControlId field, const char* toolTip = nullptr) {
  controls.SetEnabled(field, true);
  controls.SetInactive(field, false);
  if (toolTip) controls.SetToolTip(field, toolTip);
}

const std::vector<ChoiceCaptions> kChoiceCaptions = {
    {kDebugCommand, "Debug: on", "Debug: off", {"MS Sans Serif", 8, true}, "Default:  Less Info"},
    {kIfCommand, "If:  succeeded", ": failed", {"MS Sans Serif", 10, true}, ""},
    {kWhileCommand, "While: succeeded", ": failed", {"MS Sans Serif", 8, false}, ""},
    {kUntilCommand, "Until: succeeded", ": failed", {"MS Sans Serif", 8, true}, ""},
};

}  // namespace

const std::vector<ChoiceCaptions>& Choice_Captions() { return kChoiceCaptions; }

const CatalogueSpec* Catalogue_Spec(int catalogue) {
  if (catalogue != kAutomationCatalogue && catalogue != kFlowControlCatalogue) return nullptr;
  return &kCatalogues[static_cast<std::size_t>(catalogue - 1)];
}

std::optional<CataloguePlace> Catalogue_Place_Of(std::uint8_t code) {
  for (int catalogue : {kAutomationCatalogue, kFlowControlCatalogue}) {
    const auto& entries = Catalogue_Spec(catalogue)->Entries;
    for (std::size_t position = 0; position < entries.size(); ++position)
      if (entries[position].Code == code) return CataloguePlace{catalogue, static_cast<long>(position)};
  }
  return std::nullopt;
}

void CommandPanel::Load_Commands(int catalogue) {
  Trap(engine_, true, "Editor.Load_Commands.TrappableErrors.1", kGoOn, [&] {
    const CatalogueSpec* spec = Catalogue_Spec(catalogue);
    if (!spec) throw SubscriptError();
    commandList_.Clear();
    controls_.SetCaption(C::AvailableCommandsFrame, spec->Caption);
    controls_.SetToolTip(C::CommandList, spec->ToolTip);
    for (std::size_t position = 0; position < spec->Entries.size(); ++position) {
      commandList_.Add(spec->Entries[position].Text);
      commandMap_[position + 1] = spec->Entries[position].Code;
    }
    commandMap_[0] = kNoEntry;
    chosenPosition_ = kNoEntry;
    currentCode_ = kNoEntry;
    catalogue_ = catalogue;
  });
}

void CommandPanel::CommandList_Click(long position) {
  Trap(engine_, true, "Editor.CommandList.Click.TrappableErrors.1", kGoOn, [&] {
    if (position < ListModel::kNoSelection || position + 1 >= static_cast<long>(std::size(commandMap_)))
      throw SubscriptError();
    // Clicking the chosen entry again keeps what the user typed.
    if (position != chosenPosition_) {
      chosenPosition_ = position;
      Set_Control_State("EmptyCommands");
    }
    commandList_.Select(position);
    currentCode_ = commandMap_[position + 1];
    Prepare_Panel(currentCode_);
  });
}

// The defaults must not replace the values a double click put in the fields.
void CommandPanel::Write_Default(ControlId field, const char* text) {
  if (!overwriting_) controls_.SetCaption(field, text);
}

void CommandPanel::Show_Mouse_Options(const char* letters, int buttons) {
  controls_.SetCaption(C::MouseLabel, letters);
  controls_.SetVisible(C::MouseLabel, true);
  ControlId focus = MouseButton(0);
  for (int index = 3; index >= 0; --index) {
    const ControlId button = MouseButton(index);
    controls_.SetVisible(button, index < buttons);
    controls_.SetEnabled(button, index < buttons);
    if (index < buttons && controls_[button].Checked) focus = button;
  }
  // A mouse line always names a button: the first one unless one is set.
  controls_.SetChecked(focus, true);
  controls_.SetVisible(C::DoubleClick, true);
  controls_.SetEnabled(C::DoubleClick, true);
  controls_.SetToolTip(C::DoubleClick, "Used to cause a Double Click");
  controls_.SetEnabled(C::InsertCommandButton, true);
  controls_.SetFocus(focus);
}

void CommandPanel::Show_Choice_Options(std::uint8_t code) {
  const auto choice = std::find_if(kChoiceCaptions.begin(), kChoiceCaptions.end(),
                                   [code](const ChoiceCaptions& row) { return row.Code == code; });
  if (choice == kChoiceCaptions.end()) return;
  const ControlId options[] = {DebugState(0), DebugState(1)};
  const char* captions[] = {choice->First, choice->Second};
  for (int index = 0; index < 2; ++index) {
    controls_.SetCaption(options[index], captions[index]);
    controls_.SetFont(options[index], choice->Font);
    controls_.SetToolTip(options[index], choice->ToolTip);
    controls_.SetVisible(options[index], true);
    controls_.SetEnabled(options[index], true);
  }
  controls_.SetEnabled(C::InsertCommandButton, true);
  controls_.SetFocus(controls_[DebugState(1)].Checked ? DebugState(1) : DebugState(0));
}

void CommandPanel::Prepare_Panel(std::uint8_t code) {
  FormControls& c = controls_;
  switch (code) {
    case kRunCommand:
      Describe(c, C::CommandLineLabel, "Program Command Line", "Holds the name of the Program to be run");
      return Open_Field(c, C::CommandLine, "Please use full path information");
    case kFindWindowCommand:
      Describe(c, C::CommandLineLabel, "Information About Window To Find", Find_Window_Syntax());
      Open_Field(c, C::CommandLine, "You may change this after the mouse is finished");
      Describe(c, C::TimeOutLabel, "Max. Wait - Minutes   : Seconds",
               "Max time to wait before giving up on finding this window");
      Open_Field(c, C::Minutes, "Time in Minutes");
      Open_Field(c, C::Seconds, "Time in Seconds");
      return Write_Default(C::Seconds, "30");
    case kSendKeysCommand:
      Describe(c, C::CommandLineLabel, "Enter Keystrokes",
               "Use curly brackets around {Enter}, {down 4}, etc. Need extra curly brackets for a curly bracket");
      return Open_Field(c, C::CommandLine);
    case kSendButtonsCommand:
      Describe(c, C::CommandLineLabel, "Mouse Buttons", "Select a mouse button.");
      return Show_Mouse_Options("L      M      R", 3);
    case kUseMouseCommand:
      Describe(c, C::CommandLineLabel, "Mouse Buttons", "Select a mouse button.  'N' means None");
      Describe(c, C::TimeOutLabel, "Mouse Location:    X                   Y", "Mouse X and Y Location");
      Open_Field(c, C::Minutes);
      return Show_Mouse_Options("L      M      R      N   ", 4);
    case kWaitCommand:
      Describe(c, C::TimeOutLabel, "Wait Time - Minutes   : Seconds", "Wait for a time...");
      Open_Field(c, C::Minutes, "Time in Minutes");
      Open_Field(c, C::Seconds, "Time in Seconds");
      Write_Default(C::Minutes, "1");
      c.SetEnabled(C::InsertCommandButton, true);
      return c.SetFocus(C::Minutes);
    case kCommentLine:
      Describe(c, C::CommandLineLabel, "Comment Text", "Comments are ignored by Velmora");
      Open_Field(c, C::CommandLine, "Worth the effort for scripts more than a few lines long");
      return c.SetFocus(C::CommandLine);
    case kDebugCommand:
      Describe(c, C::CommandLineLabel, "Debug Options: 'on' or 'off'", "Specify that you wish more Debug information");
      return Show_Choice_Options(code);
    case kOpenFlowControl:
      return Load_Commands(kFlowControlCatalogue);
    case kBackToAutomation:
      return Load_Commands(kAutomationCatalogue);
    case kTestCommand:
      Describe(c, C::TimeOutLabel, "Environment Variable  = This Text", "Test if Environment Variable = This Text");
      Open_Field(c, C::Minutes, "Environment Variable (_VariableName_) to Test");
      return Open_Field(c, C::Seconds, "Text to Match");
    case kIfCommand:
    case kWhileCommand:
    case kUntilCommand:
      Describe(c, C::CommandLineLabel, "Logical Conditions: 'succeeded' or 'failed'",
               "Succeeded if PRECEEDING RunProgram, FoundWindow, SendKeys or TestEnvironmentVariable succeeded.");
      return Show_Choice_Options(code);
    case kBlankLine:
    case kQuitCommand:
    case kElseCommand:
    case kEndIfCommand:
    case kEndWhileCommand:
    case kRepeatCommand:
      return c.SetEnabled(C::InsertCommandButton, true);
    default:
      return;
  }
}

}  // namespace velmora
