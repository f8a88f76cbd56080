#include "set_statements.h"

#include <algorithm>

#include "text.h"

namespace velmora {

namespace {

constexpr std::string_view kKeyword = "set";

// One step of a round over the list: the index after (or before) the start,
// wrapping at the ends.
std::optional<long> Scan(const std::vector<std::string>& lines, long from, long step) {
  const auto count = static_cast<long>(lines.size());
  if (from < 0 || from >= count) from = step > 0 ? -1 : count;
  for (long taken = 1; taken <= count; ++taken) {
    const long index = ((from + step * taken) % count + count) % count;
    if (Is_Set_Candidate(lines[static_cast<std::size_t>(index)])) return index;
  }
  return std::nullopt;
}

}  // namespace

bool Is_Set_Candidate(std::string_view line) {
  const std::string text = Trim(line);
  return Lower(std::string_view(text).substr(0, kKeyword.size())) == kKeyword && text.find('=') != std::string::npos;
}

std::optional<SetStatement> Is_Set_Statement(std::string_view line) {
  if (!Is_Set_Candidate(line)) return std::nullopt;
  const std::string text = Trim(line);
  const auto equals = text.find('=');
  SetStatement statement{Trim(std::string_view(text).substr(kKeyword.size(), equals - kKeyword.size())),
                         Trim(std::string_view(text).substr(equals + 1))};
  if (statement.name.empty() || statement.value.empty()) return std::nullopt;
  return statement;
}

std::optional<long> Next_EnvVar_Statement(const std::vector<std::string>& lines, long from) {
  return Scan(lines, from, 1);
}

std::optional<long> Previous_EnvVar_Statement(const std::vector<std::string>& lines, long from) {
  return Scan(lines, from, -1);
}

std::string Updated_Set_Line(std::string_view oldLine, std::string_view name, std::string_view value) {
  const auto blanks = std::min(oldLine.find_first_not_of(' '), oldLine.size());
  return std::string(blanks, ' ') + "set " + std::string(name) + "=" + std::string(value);
}

std::vector<std::string> Lines_To_Save(const std::vector<std::string>& lines) {
  std::vector<std::string> saved;
  for (std::size_t index = 1; index + 1 < lines.size(); ++index) saved.push_back(Trim(lines[index]));
  return saved;
}

}  // namespace velmora
