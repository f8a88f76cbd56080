// The Desktop seam: the window tree, the pointer, input injection and the
// screen. Window handles are the platform's, carried as integers so that the
// portable code can log and compare them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

using WindowHandle = std::int64_t;

struct WindowRect {
  long left = 0, top = 0, right = 0, bottom = 0;
};

struct ScreenPoint {
  long x = 0, y = 0;
};

enum class WindowRelation { FirstChild = 5, Next = 2 };

// One key going down or up: a virtual key, or a character that the sender
// types with whatever keys the keyboard layout needs (or as a Unicode
// character when the layout has no key for it).
struct KeyInput {
  bool isCharacter = false;
  std::uint16_t virtualKey = 0;
  char32_t character = 0;
  bool up = false;

  bool operator==(const KeyInput&) const = default;
};

// ForegroundChanged: nothing was sent, another window had the foreground.
// LostForeground: sent, but another program had the foreground right after:
// some keys may have gone to it (each key goes where the foreground is when
// it is queued).
enum class KeysOutcome { Sent, NotAllSent, ForegroundChanged, LostForeground };

// What the user does, as the editor's recorder hears it: a mouse button going
// down, or a key going down. Input that this program sent itself is never
// reported.
enum class PressedButton { Left, Right };

struct ObservedClick {
  PressedButton button = PressedButton::Left;
  ScreenPoint point;
  std::uint32_t milliseconds = 0;  // the system's time of the press, for double clicks
};

// A key with the character that it types under the modifiers held (AltGr
// included), or 0 when it types none: a control key (Enter, Tab, Escape,
// Backspace), a key without a character (the arrows, F1), or a modifier.
// shift, control and alt say which modifiers were held; AltGr, which types
// a character, counts as neither control nor alt.
struct ObservedKey {
  std::uint16_t virtualKey = 0;
  char32_t character = 0;
  bool shift = false, control = false, alt = false;
};

class InputObserver {
 public:
  virtual ~InputObserver() = default;
  virtual void Button_Down(const ObservedClick& click) = 0;
  virtual void Key_Down(const ObservedKey& key) = 0;
  // The observing ended without being asked to: the system took the hooks
  // away (the reason is for the user).
  virtual void Observing_Lost(const std::string& reason) = 0;
};

class Desktop {
 public:
  virtual ~Desktop() = default;

  virtual WindowHandle DesktopWindow() = 0;
  virtual WindowHandle GetWindow(WindowHandle window, WindowRelation relation) = 0;
  virtual WindowHandle GetParent(WindowHandle window) = 0;
  // Text and class as read into a buffer of the given size (the terminator takes one place).
  virtual std::string WindowText(WindowHandle window, int bufferSize) = 0;
  virtual std::string ClassName(WindowHandle window, int bufferSize) = 0;
  virtual long ControlId(WindowHandle window) = 0;
  virtual bool GetWindowRect(WindowHandle window, WindowRect& rect) = 0;
  virtual bool IsWindowEnabled(WindowHandle window) = 0;
  virtual bool IsWindowVisible(WindowHandle window) = 0;
  virtual WindowHandle WindowFromPoint(ScreenPoint point) = 0;
  // Brings the window forward; a control also takes the keyboard focus.
  // Never held up for long by a program that has stopped taking messages.
  virtual bool SetForegroundWindow(WindowHandle window) = 0;
  // Waits, at most the given time, until the program that owns the window
  // takes its messages; false when it did not. A window that does not exist
  // holds nobody up.
  virtual bool WaitUntilResponsive(WindowHandle window, int timeoutMilliseconds) = 0;

  // Where input would go, for the checks made before it is sent.
  // The top-level window that holds the window (the window itself when it is one).
  virtual WindowHandle RootWindow(WindowHandle window) = 0;
  // True when the window is the ancestor or lies anywhere below it.
  virtual bool IsWithin(WindowHandle window, WindowHandle ancestor) = 0;
  // The program that owns the window, as a number: the same number, the same
  // program; 0 for no window.
  virtual std::uint32_t ProgramOf(WindowHandle window) = 0;
  virtual WindowHandle ForegroundWindow() = 0;
  // The window that keys would reach now: the keyboard focus of the
  // foreground window's program (0 when it has none).
  virtual WindowHandle FocusWindow() = 0;
  // Puts a top-level window above all others but those kept on top, without
  // waiting for its program.
  virtual void RaiseToTop(WindowHandle window) = 0;

  virtual bool SetCursorPos(ScreenPoint point) = 0;
  virtual ScreenPoint GetCursorPos() = 0;
  // One mouse event with the given flag word at a normalised or pixel position.
  virtual void MouseEvent(std::uint32_t flags, long x, long y) = 0;
  // Sends the keys to the foreground window, unless that is no longer the
  // given one (0: whichever it is) at the moment of sending: then none is sent.
  virtual KeysOutcome SendKeyInputs(const std::vector<KeyInput>& inputs, WindowHandle foreground) = 0;
  // Waits until the foreground window has processed its input, at most the
  // given time; false when the time ran out.
  virtual bool WaitForInputIdle(int timeoutMilliseconds) = 0;
  virtual int DoubleClickTime() = 0;
  virtual int ScreenWidth() = 0;
  virtual int ScreenHeight() = 0;

  // Window changes that a waiting search should see at once: a window
  // created, shown or renamed anywhere on the desktop. Watching starts with
  // no change seen.
  virtual void WatchWindowChanges(bool on) = 0;
  // Waits at most the given time until a watched change, or a message for
  // this program, arrives; true when a change did (it is then seen).
  virtual bool WaitForWindowChange(int timeoutMilliseconds) = 0;

  // Reports the user's clicks and keys anywhere on the desktop to the
  // observer, on this thread, before the window under them gets them; the
  // observer must answer quickly. nullptr stops. False when the system
  // refused to report them.
  virtual bool ObserveInput(InputObserver* observer) = 0;

  // Marks a window on the screen with a frame along its edges; marking the
  // same window again removes the frame.
  virtual void DrawWindowFrame(WindowHandle window) = 0;
  // Has every window repaint what lies in the screen rectangle (and so wipes
  // a frame drawn there).
  virtual void RepaintScreenArea(const WindowRect& rect) = 0;
  // The number ProgramOf gives this program's own windows.
  virtual std::uint32_t OwnProgram() = 0;
  // True when Escape went down since the last call: it ends a pick.
  virtual bool EscapePressed() = 0;

  // True when this process runs in the services' session, which has no
  // interactive desktop: the user's windows are out of its sight.
  virtual bool InServiceSession() = 0;
  // True when the program that owns the window runs at a higher integrity
  // level than this one (elevated while this one is not): the system then
  // drops the keys and clicks sent to it. False when it cannot be told.
  virtual bool RunsAtHigherIntegrity(WindowHandle window) = 0;
};

}  // namespace velmora
