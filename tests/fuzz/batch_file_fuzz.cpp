// Reads arbitrary bytes as a batch file, through the same line reader the
// batch editor uses, and steps over its SET statements. Besides crashes it
// checks what the editor relies on: the file reads without a report, each
// stop is a candidate, stepping forward and back are each other's inverse
// over the whole round, and an updated line reads back as what was written.
#include "careful_io.h"
#include "fuzz_support.h"
#include "set_statements.h"
#include "text.h"

namespace velmora::fuzz {

std::vector<std::string> Read_Lines(Session& session, std::string bytes) {
  Engine& engine = session.engine;
  std::string name = "b.bat";
  session.host.files[name] = std::move(bytes);
  const long reportsBefore = engine.reports.made;
  FileNumber file = kNoFile;
  Careful_IO(engine, true, kOpenInput, file, name, "", "", kGoOn);
  std::vector<std::string> lines;
  while (engine.reports.made == reportsBefore && !At_End_Of_File(engine, file)) {
    std::string line;
    Careful_IO(engine, true, kLineInput, file, line, "", "", kGoOn);
    lines.push_back(std::move(line));
  }
  std::string unused;
  Careful_IO(engine, true, kClose, file, unused, "", "", kGoOn);
  Require(engine.reports.made == reportsBefore);
  return lines;
}

void Check_Steps(const std::vector<std::string>& lines) {
  std::vector<long> candidates;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (Is_Set_Candidate(lines[i])) candidates.push_back(static_cast<long>(i));
  const auto first = Next_EnvVar_Statement(lines, -1);
  Require(first.has_value() == !candidates.empty());
  if (!first) return;
  Require(*first == candidates.front());
  // One round forward meets every candidate in order and comes back.
  long at = *first;
  for (std::size_t k = 1; k <= candidates.size(); ++k) {
    const auto next = Next_EnvVar_Statement(lines, at);
    Require(next && *next == candidates[k % candidates.size()]);
    Require(Previous_EnvVar_Statement(lines, *next) == at);
    at = *next;
  }
}

void Check_Updates(const std::vector<std::string>& lines) {
  for (const auto& line : lines) {
    const auto statement = Is_Set_Statement(line);
    if (!statement) continue;
    const auto again = Is_Set_Statement(Updated_Set_Line(line, statement->name, statement->value));
    Require(again && again->name == statement->name && again->value == statement->value);
  }
}

void One_Input(std::string_view bytes) {
  Session session(true);
  const auto lines = Read_Lines(session, std::string(bytes));
  Check_Steps(lines);
  Check_Updates(lines);
  std::vector<std::string> shown = {"heading"};
  shown.insert(shown.end(), lines.begin(), lines.end());
  shown.emplace_back();
  const auto saved = Lines_To_Save(shown);
  Require(saved.size() == lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) Require(saved[i] == Trim(lines[i]));
}

}  // namespace velmora::fuzz
