#include "send_keys.h"

#include "debug_log.h"
#include "engine.h"
#include "environment.h"
#include "error_report.h"
#include "input_guard.h"
#include "key_notation.h"
#include "pace_waits.h"
#include "screen_point.h"
#include "session.h"
#include "trap.h"
#include "virtual_keys.h"

namespace velmora {

void Log_Window_Identity(Engine& engine, bool interactive, const std::string& text, const std::string& className,
                         long childIdShown, WindowHandle window) {
  for (const std::string& line :
       {std::string("Set Focus using:"), "  Window Text   :  " + text, "  Window Class  :  " + className,
        "  Window ChildID:  " + std::to_string(childIdShown), "  Window Handle :  " + std::to_string(window)})
    Log_Trace(engine, interactive, line);
}

void SendKeys::Log(bool interactive, const std::string& text) { Log_Trace(engine_, interactive, text); }

void SendKeys::SendKeys_Command(bool Interactive, std::int32_t foundCount, const std::string& keys,
                                bool& LastCommandSucceeded) {
  Trap(engine_, Interactive, "Velmora.(General).SendKeys_Command.TrappableErrors.1", kFatal, [&] {
    if (foundCount <= 0) {
      Report_Error(engine_, Interactive, -1, "No Window found to SendKeys_To", "No SendKeys Window Found Error!",
                   "Velmora.(General).SendKeys_Command.Send_Keys_ToError.1", kFatal);
      return;
    }
    const std::string expanded = Convert_EnvVars(engine_, Interactive, keys);
    Send_Keys_To(Interactive, expanded, target_.TargetList.at(1), LastCommandSucceeded);
    engine_.host.DoEvents();
  });
}

// Twice, as the pointer and the focus may need a second try while the
// window comes forward. False when the window's program did not respond.
bool SendKeys::Point_At_And_Focus(WindowHandle window, WaitBudget& budget) {
  for (int round = 0; round < 2; ++round) {
    WindowRect r;
    desktop_.GetWindowRect(window, r);
    engine_.host.DoEvents();
    desktop_.SetCursorPos(Pixel_At(r, 0.5, 0.5));
    engine_.host.DoEvents();
    if (!budget.Bring_Forward(desktop_, window)) return false;
  }
  return true;
}

SendKeys::Status SendKeys::Send_Keys_To(bool Interactive, const std::string& keys, WindowHandle window,
                                        bool& LastCommandSucceeded) {
  Status status = kKeysSent;
  Trap(engine_, Interactive, "Velmora.(General).Send_Keys_To.TrappableErrors.1", kFatal, [&] {
    LastCommandSucceeded = true;
    const std::string text = desktop_.WindowText(window, kTextBufferSize);
    const std::string className = desktop_.ClassName(window, kTextBufferSize);
    search_.TargetChildID = Child_Id_Of(desktop_, window);
    // The identity lines show the length of the class name as the ChildID:
    // the established log format, kept as it stands.
    Log_Window_Identity(engine_, Interactive, text, className, static_cast<long>(className.size()), window);
    if (!Fast_Pace(engine_)) {
      engine_.host.Sleep(10);
      engine_.host.DoEvents();
    }
    WaitBudget budget(engine_.host);
    // Keys for a program that does not respond could land in whichever
    // control has the focus once it wakes: none are sent.
    const auto not_responding = [&] {
      Log(Interactive, Not_Responding_Line("no keys were sent"));
      LastCommandSucceeded = false;
      status = kNotResponding;
    };
    if (!Point_At_And_Focus(window, budget)) return not_responding();
    if (!Wait_Until_Enabled(engine_, desktop_, window, budget)) {
      Report_Error(engine_, Interactive, -1, "This window is not able to receive input:  " + text,
                   "Is Window Enabled Error!", "Velmora.(General).Send_Keys_To.IsWindowEnabledError.1", kGoOn);
      LastCommandSucceeded = false;
      status = kNotEnabled;
      return;
    }
    Pause_Before_Input(engine_);
    if (!Wait_Until_Idle(engine_, desktop_, budget)) return not_responding();
    status = Type(Interactive, keys, window, budget, LastCommandSucceeded);
  });
  return status;
}

namespace {

// How often a group goes again after the foreground changed at the moment of
// sending, before the keys are given up.
constexpr std::size_t kMostResends = 100;

// The keys a group presses as the script author counts them: Shift, Ctrl
// and Alt held for others are not counted.
std::size_t Presses(const std::vector<KeyInput>& group) {
  std::size_t presses = 0;
  for (const KeyInput& input : group) {
    const bool modifier =
        !input.isCharacter && (input.virtualKey == virtual_key::kShift || input.virtualKey == virtual_key::kControl ||
                               input.virtualKey == virtual_key::kMenu);
    if (!input.up && !modifier) ++presses;
  }
  return presses;
}

}  // namespace

// Sends the keys, a group at a time, while they reach the target, and waits,
// within what is left of the budget, until they are processed. A malformed
// key string sends nothing.
SendKeys::Status SendKeys::Type(bool interactive, const std::string& keys, WindowHandle window, WaitBudget& budget,
                                bool& succeeded) {
  const KeyParseResult parsed = Parse_Key_String(keys);
  if (!parsed.ok) {
    Report_Error(engine_, interactive, -1, Key_String_Complaint(parsed), "Bad Key String Error!",
                 "Velmora.(General).Send_Keys_To.Send_Keys_ToError.1", kGoOn);
    succeeded = false;
    return kBadKeyString;
  }
  if (parsed.inputs.empty()) return kKeysSent;
  InputGuard guard(engine_, desktop_, budget, window);
  if (!guard.Ready_For_Keys()) {
    Log_Always(engine_, interactive, guard.Problem());
    succeeded = false;
    return kNotDelivered;
  }
  const auto groups = Key_Groups(parsed.inputs);
  std::size_t total = 0, sent = 0;
  for (const auto& group : groups) total += Presses(group);
  bool recheck = false;
  for (std::size_t i = 0, retries = 0; i < groups.size();) {
    if (retries > kMostResends) guard.Name_Keyboard_Holder();
    if (recheck && (retries > kMostResends || !guard.Keys_Still_Reach_Target())) {
      Log_Always(engine_, interactive,
                 "Info: " + guard.Problem() + " took the keyboard focus; " + std::to_string(total - sent) + " of " +
                     std::to_string(total) + " keys were not sent.");
      succeeded = false;
      return kNotDelivered;
    }
    const KeysOutcome outcome = desktop_.SendKeyInputs(groups[i], guard.Foreground());
    // Taken by another window since the check: the group goes again once the
    // target has the keyboard back.
    recheck = outcome == KeysOutcome::ForegroundChanged;
    if (recheck) {
      ++retries;
      continue;
    }
    if (outcome == KeysOutcome::LostForeground) {
      guard.Name_Keyboard_Holder();
      return Keys_Astray(interactive, guard, total - sent, total, succeeded);
    }
    if (outcome == KeysOutcome::NotAllSent) {
      Log(interactive, "Info: Not all keys could be sent to the window.");
      succeeded = false;
      break;
    }
    sent += Presses(groups[i++]);
    // Each group has its program idle before the next goes, and the keyboard
    // must still be where the group was sent.
    if (i < groups.size()) {
      budget.Idle(desktop_);
      if (!guard.Keys_Were_Read_Here())
        return Keys_Astray(interactive, guard, total - sent + Presses(groups[i - 1]), total, succeeded);
    }
  }
  return After_Last_Group(interactive, guard, budget, Presses(groups.back()), total, succeeded);
}

// The last group is the one the target may not have read before another
// program took the keyboard. The fast pace goes on at once, so it watches a
// moment longer: the system gives no sign that a program has read its keys,
// and keys still unread when another program takes the keyboard are lost.
SendKeys::Status SendKeys::After_Last_Group(bool interactive, InputGuard& guard, WaitBudget& budget,
                                            std::size_t lastPresses, std::size_t total, bool& succeeded) {
  if (!budget.Idle(desktop_))
    Log(interactive, "Info: The window did not finish processing the keys within " +
                         std::to_string(kInputIdleBoundMilliseconds / 1000) + " seconds.");
  if (Fast_Pace(engine_)) {
    if (!Keyboard_Kept_A_While(guard)) return Keys_Astray(interactive, guard, total, total, succeeded);
  } else if (!guard.Target_Kept_Keyboard()) {
    return Keys_Astray(interactive, guard, lastPresses, total, succeeded);
  }
  return kKeysSent;
}

bool SendKeys::Keyboard_Kept_A_While(InputGuard& guard) {
  constexpr int kWatchMilliseconds = 60, kLookMilliseconds = 10;
  Host& host = engine_.host;
  for (const long long start = host.ClockMilliseconds(); host.ClockMilliseconds() - start < kWatchMilliseconds;) {
    if (!guard.Target_Kept_Keyboard()) return false;
    host.Sleep(kLookMilliseconds);
    host.DoEvents();
  }
  return guard.Target_Kept_Keyboard();
}

SendKeys::Status SendKeys::Keys_Astray(bool interactive, const InputGuard& guard, std::size_t doubtful,
                                       std::size_t total, bool& succeeded) {
  Log_Always(engine_, interactive,
             "Info: " + guard.Problem() + " took the keyboard focus while keys were sent; " + std::to_string(doubtful) +
                 " of " + std::to_string(total) + " keys may not have arrived.");
  succeeded = false;
  return kNotDelivered;
}

}  // namespace velmora
