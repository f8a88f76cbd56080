#include "described_path.h"

#include <vector>

#include "window_search.h"

namespace velmora {

namespace {

constexpr std::string_view kLevelEnd = "\", ";
constexpr std::size_t kMaxCountDigits = 9;  // more levels than any window tree has

bool Is_Digit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::string Path_Level(std::int32_t id, std::string_view className, std::string_view text) {
  std::string level = std::to_string(id);
  level += ", \"";
  level += className;
  level += "\", \"";
  level += text;
  level += kLevelEnd;
  return level;
}

// A path as the search writes it ends with its level count, written without
// leading zeros, right after the last level's `", `.
DescribedPath::DescribedPath(std::string_view path) {
  std::size_t digits = 0;
  while (digits < path.size() && Is_Digit(path[path.size() - 1 - digits])) ++digits;
  if (digits == 0 || digits > kMaxCountDigits || path[path.size() - digits] == '0') return;
  const std::string_view body = path.substr(0, path.size() - digits);
  if (!body.ends_with(kLevelEnd)) return;
  std::uint32_t count = 0;
  for (char c : path.substr(body.size())) count = count * 10 + static_cast<std::uint32_t>(c - '0');
  body_ = body;
  levels_ = count;
}

std::optional<ChainFit> DescribedPath::Fit_Level(std::string_view level, const ChainFit& outer) const {
  const std::string_view rest = Inner(outer);
  if (!rest.ends_with(level)) return std::nullopt;
  // Whatever comes in front must be whole levels.
  const std::string_view before = rest.substr(0, rest.size() - level.size());
  if (!before.empty() && !before.ends_with(kLevelEnd)) return std::nullopt;
  return ChainFit{outer.levels + 1, outer.length + level.size()};
}

std::optional<ChainFit> DescribedPath::Fit_Chain(Desktop& desktop, WindowHandle window) const {
  // The ancestors first (GetParent only), giving up as soon as there are too many.
  std::vector<WindowHandle> chain;
  for (WindowHandle w = window; w != 0; w = desktop.GetParent(w)) {
    if (chain.size() + 1 >= levels_) return std::nullopt;
    chain.push_back(w);
  }
  ChainFit fit;
  for (std::size_t i = chain.size(); i-- > 0;) {
    const WindowHandle parent = i + 1 < chain.size() ? chain[i + 1] : 0;
    const auto inner =
        Fit_Level(Path_Level(Child_Id_Of(desktop, chain[i], parent), desktop.ClassName(chain[i], kTextBufferSize),
                             desktop.WindowText(chain[i], kTextBufferSize)),
                  fit);
    if (!inner) return std::nullopt;
    fit = *inner;
  }
  if (fit.length == body_.size()) return std::nullopt;  // no level left for a window below it
  return fit;
}

}  // namespace velmora
