// Scripts played in an automatic session on the simulated platform, each
// compared with the whole log it must leave and its exit status. The cases
// are data: golden/*.cases (format in golden/README).
#include <filesystem>
#include <fstream>
#include <map>
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
};

std::vector<GoldenCase> Load_Cases() {
  std::vector<GoldenCase> cases;
  for (const auto& entry : std::filesystem::directory_iterator(VELMORA_GOLDEN_DIR)) {
    if (entry.path().extension() != ".cases") continue;
    std::ifstream in(entry.path());
    Lines* section = nullptr;
    for (std::string line; std::getline(in, line);) {
      if (Starts_With(line, "=== ")) {
        cases.push_back({entry.path().stem().string() + ": " + line.substr(4), {}});
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

// Blank lines only set sections apart, except in the script and the log.
Lines Without_Blanks(Lines lines) {
  lines.erase(std::remove(lines.begin(), lines.end(), ""), lines.end());
  return lines;
}

std::string Joined_Lines(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += (line == "<identification>" ? Identification_Line() : line) + "\r\n";
  return text;
}

// "path | kind | machine | runs": what looking at a program's file finds.
ProgramFile Program_File(const std::string& kind, std::uint16_t machine, bool runs) {
  using Kind = ProgramFile::Kind;
  const std::map<std::string, Kind> kinds = {
      {"program", Kind::Program}, {"folder", Kind::Folder}, {"document", Kind::NotAProgram}};
  return {kinds.at(kind), machine, runs};
}

struct Session {
  SimHost host;
  SimRegistry registry;
  SimDesktop desktop{host};
  Engine engine{host, registry};
  Automation automation{engine, desktop};
  ScriptInterpreter interpreter;

  void Set_Up(const std::map<std::string, Lines>& sections) {
    engine.desktop = &desktop;
    engine.automation = &automation;
    const auto section = [&](const char* title) {
      const auto it = sections.find(title);
      return it == sections.end() ? Lines{} : Without_Blanks(it->second);
    };
    for (const std::string& line : section("env"))
      host.environment[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
    for (const std::string& separator : section("decimal separator")) host.decimalSeparator = separator;
    for (const std::string& outcome : section("starts")) host.startOutcomes.push_back(outcome == "starts");
    desktop.serviceSession = !section("services' session").empty();
    for (const std::string& line : section("programs")) {
      std::istringstream fields(line);
      std::string path, kind;
      unsigned machine = 0;
      bool runs = true;
      fields >> path >> kind >> std::hex >> machine >> runs;
      host.programFiles[path] = Program_File(kind, static_cast<std::uint16_t>(machine), runs);
    }
    for (const std::string& line : section("start failures")) {
      // "command line | code | system text"
      const auto first = line.find(" | "), second = line.find(" | ", first + 3);
      host.startFailures[line.substr(0, first)] = {std::stol(line.substr(first + 3)), line.substr(second + 3)};
    }
    host.files["a.vls"] = Joined_Lines(sections.count("a.vls") ? sections.at("a.vls") : Lines{});
    host.commandLine = "\"a.vls\" \"a.vld\"";
  }

  int Play() {
    try {
      Form_Load(engine, interpreter);
    } catch (const ProcessEnded& ended) {
      return ended.exitCode;
    }
    return -1;
  }
};

// gtest names the case, not its bytes.
void PrintTo(const GoldenCase& golden, std::ostream* out) { *out << golden.name; }

class GoldenTest : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(GoldenTest, LeavesTheExpectedLogAndStatus) {
  const GoldenCase& golden = GetParam();
  Session session;
  session.Set_Up(golden.sections);
  const int status = session.Play();
  const std::string expected = Joined_Lines(golden.sections.at("a.vld"));
  const std::string& actual = session.host.files["a.vld"];
  EXPECT_EQ(actual, expected) << golden.name;
  EXPECT_EQ(std::to_string(status), Without_Blanks(golden.sections.at("status")).at(0)) << golden.name;
}

std::string Test_Name(const ::testing::TestParamInfo<GoldenCase>& info) {
  std::string name = std::to_string(info.index) + "_";
  for (char c : info.param.name) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenTest, ::testing::ValuesIn(Load_Cases()), Test_Name);

}  // namespace
}  // namespace velmora::test
