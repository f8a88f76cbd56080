// Scripts played in an automatic session on the simulated platform, each
// compared with the whole log it must leave and its exit status. The cases
// are data: golden/*.cases, described in golden/README.
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "about.h"
#include "automation.h"
#include "engine_fixture.h"
#include "interpreter.h"
#include "session.h"
#include "text.h"

namespace velmora::test {
namespace {

struct GoldenCase {
  std::string name;
  std::map<std::string, Lines> sections;  // by title: "env", "a.vls", "a.vld", ...
  mutable std::set<std::string> read;     // the titles asked for

  // A section's lines; blank lines only set sections apart, except in the script and the log.
  Lines Section(const std::string& title) const {
    read.insert(title);
    Lines lines = sections.count(title) ? sections.at(title) : Lines{};
    if (title != "a.vls" && title != "a.vld") lines.erase(std::remove(lines.begin(), lines.end(), ""), lines.end());
    return lines;
  }
};
// gtest names the case, not its bytes.
void PrintTo(const GoldenCase& golden, std::ostream* out) { *out << golden.name; }

std::vector<GoldenCase> Load_Cases() {
  std::vector<GoldenCase> cases;
  for (const auto& entry : std::filesystem::directory_iterator(VELMORA_GOLDEN_DIR)) {
    if (entry.path().extension() != ".cases") continue;
    std::ifstream in(entry.path());
    Lines* section = nullptr;
    for (std::string line; std::getline(in, line);) {
      if (Starts_With(line, "=== ")) {
        cases.push_back({entry.path().stem().string() + ": " + line.substr(4), {}, {}});
        section = nullptr;
      } else if (Starts_With(line, "--- ") && !cases.empty()) {
        section = &cases.back().sections[line.substr(4)];
      } else if (section) {
        section->push_back(line);
      }
    }
  }
  return cases;
}

std::string Text_Of(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += (line == "<identification>" ? Identification_Line() : line) + "\r\n";
  return text;
}

// The fields of a line, split at " | ".
Lines Fields(const std::string& line) {
  Lines fields;
  std::size_t from = 0;
  for (std::size_t bar; (bar = line.find(" | ", from)) != std::string::npos; from = bar + 3)
    fields.push_back(line.substr(from, bar - from));
  fields.push_back(line.substr(from));
  return fields;
}

struct Session {
  SimHost host;
  SimRegistry registry;
  SimDesktop desktop{host};
  Engine engine{host, registry};
  Automation automation{engine, desktop};
  ScriptInterpreter interpreter;

  explicit Session(const GoldenCase& golden) {
    engine.desktop = &desktop;
    engine.automation = &automation;
    for (const std::string& line : golden.Section("env"))
      host.environment[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
    for (const std::string& separator : golden.Section("decimal separator")) host.decimalSeparator = separator;
    for (const std::string& outcome : golden.Section("starts")) host.startOutcomes.push_back(outcome == "starts");
    desktop.serviceSession = !golden.Section("services' session").empty();
    const std::map<std::string, ProgramFile::Kind> kinds = {{"program", ProgramFile::Kind::Program},
                                                            {"folder", ProgramFile::Kind::Folder},
                                                            {"document", ProgramFile::Kind::NotAProgram}};
    for (const std::string& line : golden.Section("programs")) {
      std::istringstream fields(line);
      std::string path, kind;
      unsigned machine = 0;
      bool runs = true;
      fields >> path >> kind >> std::hex >> machine >> runs;
      host.programFiles[path] = {kinds.at(kind), static_cast<std::uint16_t>(machine), runs};
    }
    for (const std::string& line : golden.Section("start failures")) {
      const Lines fields = Fields(line);  // command line, code, system text
      host.startFailures[fields.at(0)] = {std::stol(fields.at(1)), fields.at(2)};
    }
    for (const std::string& line : golden.Section("windows")) Add_Window(Fields(line));
    host.files["a.vls"] = Text_Of(golden.Section("a.vls"));
    host.commandLine = "\"a.vls\" \"a.vld\"";
  }

  // parent, title, class, id, "left top right bottom", then any of "elevated", "disabled",
  // "enabled at <ms>" and "appears at <ms>"; the parent is 0 for the desktop or the number of an earlier window line.
  std::vector<WindowHandle> windows;
  void Add_Window(const Lines& fields) {
    std::istringstream numbers(fields.at(0) + " " + fields.at(3) + " " + fields.at(4));
    std::size_t parent = 0;
    long id = 0;
    WindowRect rect;
    numbers >> parent >> id >> rect.left >> rect.top >> rect.right >> rect.bottom;
    windows.push_back(desktop.Add(parent ? windows.at(parent - 1) : 1, fields.at(1), fields.at(2), id, rect));
    SimDesktop::Window& window = desktop.At(windows.back());
    for (auto flag = fields.begin() + 5; flag < fields.end(); ++flag) {
      if (*flag == "elevated")
        window.elevated = true;
      else if (*flag == "disabled")
        window.enabledAt = SimDesktop::kNever;
      else if (Starts_With(*flag, "enabled at "))
        window.enabledAt = std::stoll(flag->substr(11));
      else if (Starts_With(*flag, "appears at "))
        window.appearsAt = std::stoll(flag->substr(11));
      else
        ADD_FAILURE() << "unknown window flag: " << *flag;
    }
  }
};

class GoldenTest : public ::testing::TestWithParam<GoldenCase> {};

// gtest shows a mismatch of the logs as a diff of their lines.
TEST_P(GoldenTest, LeavesTheExpectedLogAndStatus) {
  const GoldenCase& golden = GetParam();
  Session session(golden);
  int status = -1;
  try {
    Form_Load(session.engine, session.interpreter);
  } catch (const ProcessEnded& ended) {
    status = ended.exitCode;
  }
  EXPECT_EQ(session.host.files["a.vld"], Text_Of(golden.Section("a.vld"))) << golden.name;
  EXPECT_EQ(Lines{std::to_string(status)}, golden.Section("status")) << golden.name;
  // The pauses of a tenth of a second made, when the case gives them.
  if (const Lines tenths = golden.Section("tenths"); !tenths.empty()) {
    EXPECT_EQ(std::to_string(session.host.tenthSleeps), tenths.front()) << golden.name;
  }
  // And the time the whole run took on the simulated clock.
  if (const Lines clock = golden.Section("milliseconds"); !clock.empty()) {
    EXPECT_EQ(std::to_string(session.host.clockMs), clock.front()) << golden.name;
  }
  // A misspelt section would leave its part of the case out unseen.
  for (const auto& [title, lines] : golden.sections) EXPECT_TRUE(golden.read.count(title)) << "unknown: " << title;
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenTest, ::testing::ValuesIn(Load_Cases()), [](const auto& info) {
  std::string name;  // the case's own, so that it stays when cases are added
  for (char c : info.param.name) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
});

}  // namespace
}  // namespace velmora::test
