// The batch file as the batch editor reads it: which lines assign an
// environment variable (SET statements), stepping from one to the next, the
// line an update writes, and the lines a save writes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

struct SetStatement {
  std::string name;
  std::string value;
};

// A line whose trimmed text starts with "set" in any case and holds "=": what
// stepping stops on. Only three letters are tested, so `setup=1` counts.
bool Is_Set_Candidate(std::string_view line);

// A candidate split at its first "=": the name is the text from the fourth
// character, the value the rest, both trimmed. Nothing unless both hold text
// (`SET X=` is no statement).
std::optional<SetStatement> Is_Set_Statement(std::string_view line);

// The next (or previous) candidate line from the index, wrapping round the
// list once, so a lone candidate is found again from itself. An index outside
// the list starts from the first (or last) line. Nothing when no line is one.
std::optional<long> Next_EnvVar_Statement(const std::vector<std::string>& lines, long from);
std::optional<long> Previous_EnvVar_Statement(const std::vector<std::string>& lines, long from);

// The line an update writes: the old line's leading blanks, then
// "set NAME=VALUE", lower-case keyword and no blanks around "=".
std::string Updated_Set_Line(std::string_view oldLine, std::string_view name, std::string_view value);

// What a save writes: every line but the generated first one and the spare
// last one, each trimmed.
std::vector<std::string> Lines_To_Save(const std::vector<std::string>& lines);

}  // namespace velmora
