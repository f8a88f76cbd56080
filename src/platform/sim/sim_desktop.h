// A desktop made of memory: a tree of fake windows that live on the
// simulated host's clock (they can appear, vanish, move and become enabled at
// given times), and a record of the pointer, focus and input sent to them.
#pragma once

#include <functional>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "desktop.h"
#include "sim_host.h"

namespace velmora {

class SimDesktop : public Desktop {
 public:
  static constexpr long long kNever = std::numeric_limits<long long>::max();

  struct Window {
    WindowHandle parent = 0;
    std::string text;
    std::string className;
    long id = 0;
    WindowRect rect;
    long long appearsAt = 0;  // milliseconds on the host's clock
    long long vanishesAt = kNever;
    long long enabledAt = 0;
    long long movesAt = kNever;
    WindowRect movedRect;
    std::vector<WindowHandle> children;
    std::size_t placeAmongSiblings = 0;
    // A pop-up (or an overlapped window, with no owner) answers GetParent
    // with its owner, wherever it sits in the tree; a child with its parent.
    bool popup = false;
    WindowHandle owner = 0;
    bool elevated = false;      // its program runs at a higher integrity level
    bool topmost = false;       // a top-level window kept above the others
    std::uint32_t program = 0;  // of a top-level window; 0: a program of its own
  };

  struct MouseRecord {
    long long atMs;
    std::uint32_t flags;
    long x, y;
  };

  explicit SimDesktop(SimHost& host);

  // Builds the tree: a window under the parent (the desktop is DesktopWindow()).
  WindowHandle Add(WindowHandle parent, const std::string& text, const std::string& className, long id = 0,
                   WindowRect rect = {0, 0, 100, 100});
  Window& At(WindowHandle window) { return windows_.at(static_cast<std::size_t>(window)); }
  // Moves a window, with everything below it, to be the new parent's last child.
  void SetParent(WindowHandle window, WindowHandle newParent);

  // What the engine did.
  ScreenPoint cursor{0, 0};
  WindowHandle foreground = 0;  // a top-level window
  WindowHandle focus = 0;
  std::vector<WindowHandle> foregroundCalls;
  std::vector<ScreenPoint> cursorMoves;
  std::vector<MouseRecord> mouseEvents;
  std::vector<KeyInput> keys;
  std::vector<long long> keysSentAt;
  std::vector<WindowHandle> keysSentTo;  // the keyboard focus when each group was sent
  int inputIdleWaits = 0;
  // Frames drawn and areas repainted, in order: "frame <handle>" and
  // "repaint <left>,<top>,<right>,<bottom>".
  std::vector<std::string> screenMarks;

  // Settings for tests.
  int doubleClickTime = 500;
  int screenWidth = 1024, screenHeight = 768;
  bool inputIdleTimesOut = false;
  // Called on every tree step (GetWindow, GetParent), to change the tree mid-walk.
  std::function<void(WindowHandle)> onGetWindow;
  WindowHandle pointOwnerOverride = 0;  // when set, WindowFromPoint answers this
  bool serviceSession = false;
  // Another program keeps the foreground: bringing a window forward fails.
  bool foregroundRefused = false;
  // Called after every key group and mouse event sent, to change the desktop meanwhile.
  std::function<void()> afterInput;
  // Runs as a group of keys is about to go, before the foreground is
  // compared: a change here has the group refused.
  std::function<void()> beforeKeys;
  // Runs as keys are queued, before they reach a window: a change of the
  // foreground here sends them to the new one.
  std::function<void()> whileKeysQueued;

  // Another program's window takes the foreground (and the keyboard focus).
  void TakeForeground(WindowHandle window);

  WindowHandle DesktopWindow() override { return 1; }
  WindowHandle GetWindow(WindowHandle window, WindowRelation relation) override;
  WindowHandle GetParent(WindowHandle window) override;
  std::string WindowText(WindowHandle window, int bufferSize) override;
  std::string ClassName(WindowHandle window, int bufferSize) override;
  long ControlId(WindowHandle window) override;
  bool GetWindowRect(WindowHandle window, WindowRect& rect) override;
  bool IsWindowEnabled(WindowHandle window) override;
  bool IsWindowVisible(WindowHandle window) override { return Exists(window); }
  WindowHandle WindowFromPoint(ScreenPoint point) override;
  bool SetForegroundWindow(WindowHandle window) override;
  WindowHandle RootWindow(WindowHandle window) override { return Exists(window) ? Top_Level_Of(window) : 0; }
  bool IsWithin(WindowHandle window, WindowHandle ancestor) override;
  std::uint32_t ProgramOf(WindowHandle window) override;
  WindowHandle ForegroundWindow() override { return Exists(foreground) ? foreground : 0; }
  WindowHandle FocusWindow() override { return Exists(focus) ? focus : 0; }
  void RaiseToTop(WindowHandle window) override;
  bool SetCursorPos(ScreenPoint point) override;
  ScreenPoint GetCursorPos() override { return cursor; }
  void MouseEvent(std::uint32_t flags, long x, long y) override;
  KeysOutcome SendKeyInputs(const std::vector<KeyInput>& inputs, WindowHandle foreground) override;
  bool WaitForInputIdle(int timeoutMilliseconds) override;
  int DoubleClickTime() override { return doubleClickTime; }
  int ScreenWidth() override { return screenWidth; }
  int ScreenHeight() override { return screenHeight; }
  // Watched changes are windows appearing: waiting ends when the next one does.
  bool watchingChanges = false;
  void WatchWindowChanges(bool on) override { watchingChanges = on; }
  // The user's input for the recorder: tests call the observer directly.
  InputObserver* inputObserver = nullptr;
  bool observingAllowed = true;
  bool ObserveInput(InputObserver* observer) override {
    if (observer && !observingAllowed) return false;
    inputObserver = observer;
    return true;
  }
  bool WaitForWindowChange(int timeoutMilliseconds) override;
  void DrawWindowFrame(WindowHandle window) override { screenMarks.push_back("frame " + std::to_string(window)); }
  void RepaintScreenArea(const WindowRect& r) override;
  std::uint32_t ownProgram = 0xFFFFFFFFu;  // give a window this program to make it the editor's own
  std::uint32_t OwnProgram() override { return ownProgram; }
  // Escape is pressed when the clock reaches this time (never when negative).
  long long escapeAtMs = -1;
  bool EscapePressed() override;
  bool InServiceSession() override { return serviceSession; }
  bool RunsAtHigherIntegrity(WindowHandle window) override { return Exists(window) && At(window).elevated; }

  bool Exists(WindowHandle window) const;

  // A program that stops taking messages (sim_desktop_freeze.cpp): the
  // window's top-level window, and all below it, until the given time on the
  // host's clock. Waiting for it advances the clock; what is sent to it is
  // recorded as for any window.
  void Freeze(WindowHandle window, long long untilMs);
  bool WaitUntilResponsive(WindowHandle window, int timeoutMilliseconds) override;

 private:
  WindowHandle Top_Level_Of(WindowHandle window) const;
  std::map<WindowHandle, long long> frozenUntil_;

  WindowHandle First_Existing(const std::vector<WindowHandle>& list, std::size_t from) const;
  WindowHandle Deepest_At(WindowHandle parent, ScreenPoint point);

  SimHost& host_;
  std::vector<Window> windows_;  // indexed by handle; 0 is no window, 1 the desktop
};

}  // namespace velmora
