// The Win32 seams with every call timed and put down to a phase of a line:
// what the player asks of the system, phase by phase, against the time the
// whole line takes. Only the outermost seam call is timed, so a call that one
// seam method makes of another (SendKeyInputs asks ProgramOf) counts once.
#pragma once

#include <array>
#include <memory>
#include <utility>

#include "now_ms.h"
#include "win32_desktop.h"
#include "win32_host.h"

namespace velmora::bench {

enum Phase { kSearch, kBringForward, kChecks, kInput, kIdleWait, kPumping, kSlept, kLogWrites, kPhaseCount };

inline constexpr std::array<const char*, kPhaseCount> kPhaseNames = {
    "search", "bring forward", "checks", "input", "idle wait", "pumping", "sleeps (slept)", "log writes"};

// The time of one line, phase by phase, and the sleeps it asked for.
struct PhaseTimes {
  std::array<double, kPhaseCount> ms{};
  std::array<int, kPhaseCount> calls{};
  double asked = 0;
  int depth = 0;  // of seam calls under way

  void Clear() { *this = PhaseTimes{}; }

  // Runs the call, adding its time to the phase unless another seam call made it.
  template <typename Call>
  auto Time(Phase phase, Call&& call) {
    struct Scope {
      PhaseTimes& times;
      Phase phase;
      bool outermost;
      double start;
      ~Scope() {
        --times.depth;
        if (outermost) times.ms[phase] += Now_Ms() - start;
      }
    } scope{*this, phase, depth++ == 0, Now_Ms()};
    calls[phase] += scope.outermost;
    return call();
  }
};

// The debug log's file, its writes timed.
class TimedFile : public TextFile {
 public:
  TimedFile(std::unique_ptr<TextFile> file, PhaseTimes& times) : file_(std::move(file)), times_(times) {}
  bool AtEnd() override { return file_->AtEnd(); }
  bool ReadLine(std::string& line, SystemError& error) override { return file_->ReadLine(line, error); }
  bool Write(std::string_view text, SystemError& error) override {
    return times_.Time(kLogWrites, [&] { return file_->Write(text, error); });
  }
  bool Close(SystemError& error) override { return file_->Close(error); }

 private:
  std::unique_ptr<TextFile> file_;
  PhaseTimes& times_;
};

class TimedHost : public Win32Host {
 public:
  explicit TimedHost(PhaseTimes& times) : times_(times) {}

  void Sleep(int milliseconds) override {
    times_.asked += milliseconds;
    times_.Time(kSlept, [&] { Win32Host::Sleep(milliseconds); });
  }
  bool DoEvents() override {
    return times_.Time(kPumping, [&] { return Win32Host::DoEvents(); });
  }
  std::unique_ptr<TextFile> OpenText(const std::string& path, FileMode mode, SystemError& error) override {
    std::unique_ptr<TextFile> file = Win32Host::OpenText(path, mode, error);
    if (!file) return file;
    return std::make_unique<TimedFile>(std::move(file), times_);
  }

 private:
  PhaseTimes& times_;
};

#define VELMORA_TIMED(phase, call) return times_.Time(phase, [&] { return Win32Desktop::call; })

class TimedDesktop : public Win32Desktop {
 public:
  explicit TimedDesktop(PhaseTimes& times) : times_(times) {}

  // The search.
  WindowHandle DesktopWindow() override { VELMORA_TIMED(kSearch, DesktopWindow()); }
  WindowHandle GetWindow(WindowHandle w, WindowRelation r) override { VELMORA_TIMED(kSearch, GetWindow(w, r)); }
  WindowHandle GetParent(WindowHandle w) override { VELMORA_TIMED(kSearch, GetParent(w)); }
  std::string WindowText(WindowHandle w, int size) override { VELMORA_TIMED(kSearch, WindowText(w, size)); }
  std::string ClassName(WindowHandle w, int size) override { VELMORA_TIMED(kSearch, ClassName(w, size)); }
  long ControlId(WindowHandle w) override { VELMORA_TIMED(kSearch, ControlId(w)); }

  // Bringing the target forward.
  bool SetForegroundWindow(WindowHandle w) override { VELMORA_TIMED(kBringForward, SetForegroundWindow(w)); }
  bool WaitUntilResponsive(WindowHandle w, int ms) override { VELMORA_TIMED(kBringForward, WaitUntilResponsive(w, ms)); }
  void RaiseToTop(WindowHandle w) override { VELMORA_TIMED(kBringForward, RaiseToTop(w)); }

  // The checks before input (and the questions about this program and session).
  WindowHandle WindowFromPoint(ScreenPoint p) override { VELMORA_TIMED(kChecks, WindowFromPoint(p)); }
  WindowHandle ForegroundWindow() override { VELMORA_TIMED(kChecks, ForegroundWindow()); }
  WindowHandle FocusWindow() override { VELMORA_TIMED(kChecks, FocusWindow()); }
  std::uint32_t ProgramOf(WindowHandle w) override { VELMORA_TIMED(kChecks, ProgramOf(w)); }
  WindowHandle RootWindow(WindowHandle w) override { VELMORA_TIMED(kChecks, RootWindow(w)); }
  bool IsWithin(WindowHandle w, WindowHandle a) override { VELMORA_TIMED(kChecks, IsWithin(w, a)); }
  bool GetWindowRect(WindowHandle w, WindowRect& r) override { VELMORA_TIMED(kChecks, GetWindowRect(w, r)); }
  bool IsWindowEnabled(WindowHandle w) override { VELMORA_TIMED(kChecks, IsWindowEnabled(w)); }
  bool IsWindowVisible(WindowHandle w) override { VELMORA_TIMED(kChecks, IsWindowVisible(w)); }
  bool RunsAtHigherIntegrity(WindowHandle w) override { VELMORA_TIMED(kChecks, RunsAtHigherIntegrity(w)); }
  std::uint32_t OwnProgram() override { VELMORA_TIMED(kChecks, OwnProgram()); }
  bool InServiceSession() override { VELMORA_TIMED(kChecks, InServiceSession()); }
  bool EscapePressed() override { VELMORA_TIMED(kChecks, EscapePressed()); }

  // The input, and what the pointer's position is worked out from.
  KeysOutcome SendKeyInputs(const std::vector<KeyInput>& k, WindowHandle f) override {
    VELMORA_TIMED(kInput, SendKeyInputs(k, f));
  }
  void MouseEvent(std::uint32_t flags, long x, long y) override { VELMORA_TIMED(kInput, MouseEvent(flags, x, y)); }
  bool SetCursorPos(ScreenPoint p) override { VELMORA_TIMED(kInput, SetCursorPos(p)); }
  ScreenPoint GetCursorPos() override { VELMORA_TIMED(kInput, GetCursorPos()); }
  int DoubleClickTime() override { VELMORA_TIMED(kInput, DoubleClickTime()); }
  int ScreenWidth() override { VELMORA_TIMED(kInput, ScreenWidth()); }
  int ScreenHeight() override { VELMORA_TIMED(kInput, ScreenHeight()); }
  // A pick's frame: no line here draws one.
  void DrawWindowFrame(WindowHandle w) override { VELMORA_TIMED(kInput, DrawWindowFrame(w)); }
  void RepaintScreenArea(const WindowRect& r) override { VELMORA_TIMED(kInput, RepaintScreenArea(r)); }

  bool WaitForInputIdle(int ms) override { VELMORA_TIMED(kIdleWait, WaitForInputIdle(ms)); }

 private:
  PhaseTimes& times_;
};

#undef VELMORA_TIMED

}  // namespace velmora::bench
