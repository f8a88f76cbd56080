#include "near_windows.h"

#include <algorithm>
#include <tuple>

#include "window_search.h"

namespace velmora {

namespace {

struct Candidate {
  NearWindow miss;
  int differing = 0;
  std::size_t commonStart = 0;
  std::size_t order = 0;
};

std::size_t Common_Start(const std::string& a, const std::string& b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.begin() + std::min(a.size(), b.size()), b.begin()).first -
                                  a.begin());
}

// Walks the tree, but judges each window by its chain of ancestors (by
// GetParent) as a described path does: an owned pop-up sits at the top of
// the tree and yet a level below its owner.
class NearSearch {
 public:
  NearSearch(Desktop& desktop, const std::vector<WindowLevel>& levels) : desktop_(desktop), levels_(levels) {}

  std::vector<Candidate> Run() {
    Walk(desktop_.DesktopWindow());
    return std::move(candidates_);
  }

 private:
  void Walk(WindowHandle holder) {
    for (WindowHandle child = desktop_.GetWindow(holder, WindowRelation::FirstChild); child != 0;
         child = desktop_.GetWindow(child, WindowRelation::Next))
      Look_At(child);
  }

  // The window and its ancestors, outermost first; empty when the chain is
  // longer than the description.
  std::vector<WindowHandle> Chain_Of(WindowHandle window) {
    std::vector<WindowHandle> chain;
    for (WindowHandle w = window; w != 0; w = desktop_.GetParent(w)) {
      if (chain.size() == levels_.size()) return {};
      chain.push_back(w);
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
  }

  // A window whose whole chain fits leads on to its children; one that fits
  // every level has turned up since the search and is no near miss.
  void Look_At(WindowHandle window) {
    const std::vector<WindowHandle> chain = Chain_Of(window);
    for (std::size_t depth = 0; depth < chain.size(); ++depth) {
      Candidate candidate = Compare(chain[depth], levels_[depth]);
      if (candidate.differing == 0) continue;
      candidate.miss.window = window;
      candidate.miss.matchingLevels = depth;
      candidate.order = candidates_.size();
      candidates_.push_back(std::move(candidate));
      return;
    }
    if (!chain.empty() && chain.size() < levels_.size()) Walk(window);
  }

  Candidate Compare(WindowHandle window, const WindowLevel& level) {
    const std::string fields[][2] = {{level.title, desktop_.WindowText(window, kTextBufferSize)},
                                     {level.className, desktop_.ClassName(window, kTextBufferSize)},
                                     {std::to_string(level.childId), std::to_string(Child_Id_Of(desktop_, window))}};
    static const char* const kFieldNames[] = {"title", "class", "child ID"};
    Candidate candidate;
    for (std::size_t i = 0; i < 3; ++i) {
      if (fields[i][0] == fields[i][1] || candidate.differing++ > 0) continue;
      candidate.miss.field = kFieldNames[i];
      candidate.miss.wanted = fields[i][0];
      candidate.miss.found = fields[i][1];
      candidate.commonStart = Common_Start(fields[i][0], fields[i][1]);
    }
    return candidate;
  }

  Desktop& desktop_;
  const std::vector<WindowLevel>& levels_;
  std::vector<Candidate> candidates_;
};

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

}  // namespace

std::vector<NearWindow> Nearest_Windows(Desktop& desktop, const std::vector<WindowLevel>& levels, std::size_t most) {
  if (levels.empty()) return {};
  std::vector<Candidate> candidates = NearSearch(desktop, levels).Run();
  const auto nearer = [](const Candidate& a, const Candidate& b) {
    return std::make_tuple(b.miss.matchingLevels, a.differing, b.commonStart, a.order) <
           std::make_tuple(a.miss.matchingLevels, b.differing, a.commonStart, b.order);
  };
  const std::size_t kept = std::min(most, candidates.size());
  std::partial_sort(candidates.begin(), candidates.begin() + static_cast<std::ptrdiff_t>(kept), candidates.end(),
                    nearer);
  std::vector<NearWindow> nearest;
  for (std::size_t i = 0; i < kept; ++i) nearest.push_back(std::move(candidates[i].miss));
  return nearest;
}

std::vector<std::string> Near_Window_Lines(const std::vector<NearWindow>& nearest, std::size_t levelCount) {
  if (nearest.empty()) return {"Info: No window comes near the description."};
  std::vector<std::string> lines;
  for (const NearWindow& w : nearest)
    lines.push_back("Info: Nearest window " + std::to_string(w.window) + " fits " + std::to_string(w.matchingLevels) +
                    " of " + std::to_string(levelCount) + " levels; level " + std::to_string(w.matchingLevels + 1) +
                    " " + w.field + " differs: " + Quoted(w.wanted) + " in the script, " + Quoted(w.found) +
                    " on the screen.");
  return lines;
}

}  // namespace velmora
