// The sendkeys command: brings the target window forward, waits until it
// accepts input, and types the key string into it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "target_state.h"
#include "wait_budget.h"
#include "window_search.h"

namespace velmora {

struct Engine;
class InputGuard;

// How long the keys may take to be processed before the log says so (what is
// left of the command's wait budget, at most).
constexpr int kInputIdleBoundMilliseconds = kWaitBoundMilliseconds;

class SendKeys {
 public:
  SendKeys(Engine& engine, Desktop& desktop, WindowSearch& search, TargetState& target)
      : engine_(engine), desktop_(desktop), search_(search), target_(target) {}

  void SendKeys_Command(bool Interactive, std::int32_t foundCount, const std::string& keys, bool& LastCommandSucceeded);

  // What became of the keys: the status numbers the procedure returns.
  enum Status : int {
    kKeysSent = 0,
    kNotEnabled = 2,     // the window would not take input
    kBadKeyString = 3,   // the key string is malformed
    kNotResponding = 4,  // its program did not respond in time
    kNotDelivered = 5,   // the keys would have gone to another window
  };
  Status Send_Keys_To(bool Interactive, const std::string& keys, WindowHandle window, bool& LastCommandSucceeded);

 private:
  void Log(bool interactive, const std::string& text);
  bool Point_At_And_Focus(WindowHandle window, WaitBudget& budget);
  Status Type(bool interactive, const std::string& keys, WindowHandle window, WaitBudget& budget, bool& succeeded);
  // Once every group went: the program idle, and the target still holding the keyboard.
  Status After_Last_Group(bool interactive, InputGuard& guard, WaitBudget& budget, std::size_t lastPresses,
                          std::size_t total, bool& succeeded);
  // Fast pace: the target keeps the keyboard for a moment after the keys.
  bool Keyboard_Kept_A_While(InputGuard& guard);
  // Logs that another program took the keyboard while `doubtful` of the keys
  // were on their way, and fails the command.
  Status Keys_Astray(bool interactive, const InputGuard& guard, std::size_t doubtful, std::size_t total,
                     bool& succeeded);

  Engine& engine_;
  Desktop& desktop_;
  WindowSearch& search_;
  TargetState& target_;
};

// Shared by the keystroke and button commands.
void Log_Window_Identity(Engine& engine, bool interactive, const std::string& text, const std::string& className,
                         long childIdShown, WindowHandle window);

}  // namespace velmora
