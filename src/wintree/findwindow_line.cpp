#include "findwindow_line.h"

namespace velmora {

namespace {

constexpr std::size_t kMostLevels = 255;  // the parser holds the count in 8 bits

bool Writable(const std::string& text) { return text.find_first_of("\r\n\"") == std::string::npos; }

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '`') quoted += c;
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace

std::optional<std::string> FindWindow_Line(const std::vector<WindowLevelText>& chain) {
  if (chain.empty() || chain.size() > kMostLevels) return std::nullopt;
  std::string line = "findwindow: " + std::to_string(chain.size());
  for (const WindowLevelText& level : chain) {
    if (!Writable(level.title) || !Writable(level.className) || level.id < 0) return std::nullopt;
    line += ", " + Quoted(level.title) + ", " + Quoted(level.className) + ", " + std::to_string(level.id) + ", 0.5, 0.5";
  }
  return line + ", 0.30";
}

}  // namespace velmora
