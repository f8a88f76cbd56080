// What a described window path tells the search before it reads a window.
// A path `L1, L2, ..., Ln, n` belongs only to a window whose chain of
// ancestors (by GetParent) writes exactly that text, so the chain of every
// window on the way to a match writes an end part of the levels' text. The
// checks here compare texts from the end only and never split the
// description into levels (a title may hold `", `): they can let a window
// through that then fails the exact test, never turn away one that passes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "desktop.h"

namespace velmora {

// How much of the description a window's chain accounts for: its levels and
// the characters they take at the end of the levels' text.
struct ChainFit {
  std::uint32_t levels = 0;
  std::size_t length = 0;
};

class DescribedPath {
 public:
  explicit DescribedPath(std::string_view path);

  // False when no window's path has this form (no level count at the end).
  bool Describable() const { return levels_ > 0; }
  // The level count the description ends with.
  std::uint32_t Levels() const { return levels_; }
  // The levels' text before the part that an outer chain accounts for.
  std::string_view Inner(const ChainFit& outer) const { return body_.substr(0, body_.size() - outer.length); }

  // Whether the levels' text holds the part anywhere: a window's level, or
  // `, "class", "text", ` of it, must be there for its chain to fit.
  bool Mentions(std::string_view part) const { return body_.find(part) != std::string_view::npos; }
  // The fit of a window's own level (as Path_Level writes it) in front of
  // its outer chain, which `outer` describes; it may take the whole text.
  std::optional<ChainFit> Fit_Level(std::string_view level, const ChainFit& outer) const;

  // The fit of a window's whole chain, read from its outermost ancestor
  // inwards; none when the chain cannot be the outer part of a described one
  // (then no window below it through child links can match either).
  std::optional<ChainFit> Fit_Chain(Desktop& desktop, WindowHandle window) const;

 private:
  std::string_view body_;  // the levels' text: the description without its count
  std::uint32_t levels_ = 0;
};

// One level of a window path: identifier, class in quotes, text in quotes.
std::string Path_Level(std::int32_t id, std::string_view className, std::string_view text);

}  // namespace velmora
