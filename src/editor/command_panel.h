// The catalogue of commands and the parameter panel that each entry
// prepares: the fields a command takes, their checks as the user types, the
// insert button (and its overwrite mode), and whole groups of the form's
// controls switched at once.
#pragma once

#include <cstdint>
#include <string>

#include "form_controls.h"
#include "list_model.h"

namespace velmora {

struct Engine;

class CommandPanel {
 public:
  static constexpr std::uint8_t kNoEntry = 255;

  CommandPanel(Engine& engine, FormControls& controls) : engine_(engine), controls_(controls) {}

  void Load_Commands(int catalogue);
  void CommandList_Click(long position);
  void Set_Control_State(const std::string& group, bool enabled = false);
  // A text field's change handler: times and positions take digits only.
  void Field_Changed(ControlId field);
  // A line can be made from the panel as it is filled.
  bool Insert_Allowed() const;
  void Focus_First_Enabled_Field();
  // Overwrite mode: the next insertion replaces the highlighted line.
  void Set_Overwrite_Mode(bool on);
  bool Overwriting() const { return overwriting_; }

  std::uint8_t Current_Code() const { return currentCode_; }
  long Chosen_Position() const { return chosenPosition_; }
  int Catalogue() const { return catalogue_; }
  // The next click on any entry starts a fresh panel, as for a new choice.
  void Forget_Choice() { chosenPosition_ = kNoEntry; }
  ListModel& CommandList() { return commandList_; }  // the view's list box mirrors it

 private:
  void Reset_Panel(bool emptyTexts);
  void Prepare_Panel(std::uint8_t code);
  void Write_Default(ControlId field, const char* text);
  void Show_Mouse_Options(const char* letters, int buttons);
  void Show_Choice_Options(std::uint8_t code);
  void Filter_Time_Field(ControlId field);

  Engine& engine_;
  FormControls& controls_;
  ListModel commandList_;
  std::uint8_t commandMap_[17] = {kNoEntry};
  long chosenPosition_ = kNoEntry;  // list position of the entry chosen last
  std::uint8_t currentCode_ = kNoEntry;
  int catalogue_ = 1;
  bool overwriting_ = false;
};

}  // namespace velmora
