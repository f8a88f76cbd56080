#include "sim_desktop.h"

#include <algorithm>

namespace velmora {

SimDesktop::SimDesktop(SimHost& host) : host_(host), windows_(2) {
  windows_[1].className = "#32769";
  windows_[1].rect = {0, 0, 1024, 768};
}

WindowHandle SimDesktop::Add(WindowHandle parent, const std::string& text, const std::string& className, long id,
                             WindowRect rect) {
  const auto handle = static_cast<WindowHandle>(windows_.size());
  Window window;
  window.parent = parent;
  window.text = text;
  window.className = className;
  window.id = id;
  window.rect = rect;
  auto& siblings = windows_.at(static_cast<std::size_t>(parent)).children;
  window.placeAmongSiblings = siblings.size();
  siblings.push_back(handle);
  windows_.push_back(std::move(window));
  return handle;
}

void SimDesktop::SetParent(WindowHandle window, WindowHandle newParent) {
  Window& moved = At(window);
  auto& oldSiblings = At(moved.parent).children;
  oldSiblings.erase(oldSiblings.begin() + static_cast<std::ptrdiff_t>(moved.placeAmongSiblings));
  for (std::size_t i = moved.placeAmongSiblings; i < oldSiblings.size(); ++i) At(oldSiblings[i]).placeAmongSiblings = i;
  auto& newSiblings = At(newParent).children;
  moved.parent = newParent;
  moved.placeAmongSiblings = newSiblings.size();
  newSiblings.push_back(window);
}

bool SimDesktop::Exists(WindowHandle window) const {
  if (window == 1) return true;
  if (window <= 1 || static_cast<std::size_t>(window) >= windows_.size()) return false;
  const Window& w = windows_[static_cast<std::size_t>(window)];
  return host_.clockMs >= w.appearsAt && host_.clockMs < w.vanishesAt && Exists(w.parent);
}

WindowHandle SimDesktop::First_Existing(const std::vector<WindowHandle>& list, std::size_t from) const {
  for (std::size_t i = from; i < list.size(); ++i)
    if (Exists(list[i])) return list[i];
  return 0;
}

WindowHandle SimDesktop::GetWindow(WindowHandle window, WindowRelation relation) {
  if (onGetWindow) onGetWindow(window);
  if (!Exists(window)) return 0;
  const Window& w = windows_[static_cast<std::size_t>(window)];
  if (relation == WindowRelation::FirstChild) return First_Existing(w.children, 0);
  if (window == 1) return 0;
  return First_Existing(windows_[static_cast<std::size_t>(w.parent)].children, w.placeAmongSiblings + 1);
}

// Like the system: top-level windows have no parent, and neither does the desktop.
WindowHandle SimDesktop::GetParent(WindowHandle window) {
  if (onGetWindow) onGetWindow(window);
  if (!Exists(window) || window == 1) return 0;
  const Window& w = windows_[static_cast<std::size_t>(window)];
  if (w.popup) return w.owner;
  return w.parent == 1 ? 0 : w.parent;
}

namespace {
std::string Cut(const std::string& text, int bufferSize) {
  if (bufferSize <= 0) return {};
  return text.substr(0, static_cast<std::size_t>(bufferSize - 1));
}
}  // namespace

std::string SimDesktop::WindowText(WindowHandle window, int bufferSize) {
  return Exists(window) ? Cut(windows_[static_cast<std::size_t>(window)].text, bufferSize) : std::string();
}

std::string SimDesktop::ClassName(WindowHandle window, int bufferSize) {
  return Exists(window) ? Cut(windows_[static_cast<std::size_t>(window)].className, bufferSize) : std::string();
}

long SimDesktop::ControlId(WindowHandle window) {
  return Exists(window) ? windows_[static_cast<std::size_t>(window)].id : 0;
}

bool SimDesktop::GetWindowRect(WindowHandle window, WindowRect& rect) {
  if (!Exists(window)) return false;
  const Window& w = windows_[static_cast<std::size_t>(window)];
  rect = host_.clockMs >= w.movesAt ? w.movedRect : w.rect;
  return true;
}

bool SimDesktop::IsWindowEnabled(WindowHandle window) {
  return Exists(window) && host_.clockMs >= windows_[static_cast<std::size_t>(window)].enabledAt;
}

// The deepest window that contains the point; earlier siblings lie on top.
WindowHandle SimDesktop::Deepest_At(WindowHandle parent, ScreenPoint point) {
  for (WindowHandle child : windows_[static_cast<std::size_t>(parent)].children) {
    WindowRect r;
    if (!GetWindowRect(child, r)) continue;
    if (point.x >= r.left && point.x < r.right && point.y >= r.top && point.y < r.bottom) {
      const WindowHandle deeper = Deepest_At(child, point);
      return deeper ? deeper : child;
    }
  }
  return 0;
}

WindowHandle SimDesktop::WindowFromPoint(ScreenPoint point) {
  if (pointOwnerOverride) return pointOwnerOverride;
  const WindowHandle found = Deepest_At(1, point);
  return found ? found : 1;
}

// Like the system, which raises a window only when it becomes the foreground one.
bool SimDesktop::SetForegroundWindow(WindowHandle window) {
  foregroundCalls.push_back(window);
  if (!Exists(window) || foregroundRefused) return false;
  TakeForeground(window);
  return true;
}

void SimDesktop::TakeForeground(WindowHandle window) {
  const WindowHandle root = Top_Level_Of(window);
  if (foreground != root) RaiseToTop(root);
  foreground = root;
  focus = window;
}

bool SimDesktop::IsWithin(WindowHandle window, WindowHandle ancestor) {
  if (!Exists(window) || !Exists(ancestor)) return false;
  for (; window > 1; window = At(window).parent)
    if (window == ancestor) return true;
  return false;
}

std::uint32_t SimDesktop::ProgramOf(WindowHandle window) {
  if (!Exists(window) || window == 1) return 0;
  const WindowHandle root = Top_Level_Of(window);
  return At(root).program ? At(root).program : static_cast<std::uint32_t>(root);
}

// Before the other top-level windows, behind those kept on top (unless it is one).
void SimDesktop::RaiseToTop(WindowHandle window) {
  const WindowHandle root = Top_Level_Of(window);
  if (!Exists(root) || root == 1) return;
  auto& order = At(1).children;
  order.erase(order.begin() + static_cast<std::ptrdiff_t>(At(root).placeAmongSiblings));
  std::size_t place = 0;
  while (!At(root).topmost && place < order.size() && At(order[place]).topmost) ++place;
  order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), root);
  for (std::size_t i = 0; i < order.size(); ++i) At(order[i]).placeAmongSiblings = i;
}

bool SimDesktop::SetCursorPos(ScreenPoint point) {
  cursor = point;
  cursorMoves.push_back(point);
  return true;
}

void SimDesktop::MouseEvent(std::uint32_t flags, long x, long y) {
  mouseEvents.push_back({host_.clockMs, flags, x, y});
  if (afterInput) afterInput();
}

KeysOutcome SimDesktop::SendKeyInputs(const std::vector<KeyInput>& inputs, WindowHandle expected) {
  if (beforeKeys) beforeKeys();
  if (expected && ForegroundWindow() != expected) return KeysOutcome::ForegroundChanged;
  keys.insert(keys.end(), inputs.begin(), inputs.end());
  keysSentAt.push_back(host_.clockMs);
  if (whileKeysQueued) whileKeysQueued();
  keysSentTo.push_back(FocusWindow());
  if (afterInput) afterInput();
  if (whileKeysQueued && expected && ProgramOf(ForegroundWindow()) != ProgramOf(expected))
    return KeysOutcome::LostForeground;
  return KeysOutcome::Sent;
}

bool SimDesktop::WaitForInputIdle(int timeoutMilliseconds) {
  ++inputIdleWaits;
  if (!inputIdleTimesOut) return true;
  host_.Sleep(timeoutMilliseconds);
  return false;
}

bool SimDesktop::WaitForWindowChange(int timeoutMilliseconds) {
  const long long now = host_.clockMs, end = now + std::max(timeoutMilliseconds, 0);
  long long next = end + 1;
  if (watchingChanges)
    for (const Window& w : windows_)
      if (w.appearsAt > now && w.appearsAt < next) next = w.appearsAt;
  host_.Sleep(static_cast<int>(std::min(next, end) - now));
  return next <= end;
}

void SimDesktop::RepaintScreenArea(const WindowRect& r) {
  screenMarks.push_back("repaint " + std::to_string(r.left) + "," + std::to_string(r.top) + "," +
                        std::to_string(r.right) + "," + std::to_string(r.bottom));
}

bool SimDesktop::EscapePressed() {
  if (escapeAtMs < 0 || host_.clockMs < escapeAtMs) return false;
  escapeAtMs = -1;
  return true;
}

}  // namespace velmora
