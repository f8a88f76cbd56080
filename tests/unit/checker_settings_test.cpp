// The script checker's report and the settings kept in the registry.
#include <gtest/gtest.h>

#include "about.h"
#include "checker_cli.h"
#include "reg_settings.h"
#include "sim_host.h"
#include "sim_registry.h"

namespace velmora::test {
namespace {

// Each row: the scripts on file, the command line, what the checker prints
// and its status. A script's lines are joined with CR LF as on disk.
struct CheckerCase {
  const char* name;
  std::map<std::string, std::vector<std::string>> scripts;
  std::vector<std::string> arguments;
  std::string out;  // the whole standard output, or the start of it for --help
  std::string err;
  int status;
};

TEST(CheckerTest, ReportsEveryFaultyLineAndEndsWithItsStatus) {
  const std::string kQuoteUsage =
      "Invalid Parameters:  Quote Expected.  <##>, \"<WindowTitle>\", \"<WindowClass>\", <ChildID>, ..., "
      "<RelativeX>, <RelativeY>, <MM.SS>";
  // clang-format off
  const CheckerCase cases[] = {
      {"a refused findwindow line says at which level and field, and how many fields it lacks",
       {{"f.vls", {"findwindow: 1, \"Setup\", \"#32770\", 0.5, 0.5, 0.30",
                   "findwindow: 2, \"Setup\", \"#32770\", 0, 0.5, 0.5, \"Next\", 1, 0.5, 0.5, 0.30",
                   "findwindow: 1, \"Set, up\", \"#32770\", 0, 0.5, 0.5", "findwindow: 1"}}},
       {"f.vls"},
       "f.vls(1): error: Invalid Parameters:  ChildID must be a positive integer. (level 1, the ChildID reads 0.5; "
       "the line has 6 fields where 1 level and the time take 7)\n"
       "f.vls(2): error: " + kQuoteUsage + " (level 2, the class reads 1; the line has 11 fields where 2 levels and "
       "the time take 12)\n"
       "f.vls(3): error: Invalid Parameters:  Invalid procedure call or argument in line:  findwindow: 1, \"Set, up\", "
       "\"#32770\", 0, 0.5, 0.5 (level 1, the RelativeY reads 0.5; the line has 6 fields where 1 level and the time take 7)\n"
       "f.vls(3): error: Unknown Command:  findwindow: 1, \"Set, up\", \"#32770\", 0, 0.5, 0.5\n"
       "f.vls(4): error: Invalid Parameters:  Invalid procedure call or argument in line:  findwindow: 1 "
       "(the levels and the time are missing)\n", "", kCheckErrors},
      {"every block error, not only the first",
       {{"b.vls", {"endif", "while: failed", "if: failed", "endwhile", "endif", "repeat"}}}, {"b.vls"},
       "b.vls(1): error: ENDIF on line 1 has no matching IF!\n"
       "b.vls(4): error: ENDWHILE on line 4 is on a different level then its matching WHILE!\n"
       "b.vls(5): error: ENDIF on line 5 is on a different level then its matching IF!\n"
       "b.vls(6): error: REPEAT on line 6 has no matching UNTIL!\n", "", kCheckErrors},
      {"--no-warnings leaves out warnings only; an unreadable script outweighs errors",
       {{"w.vls", {"sendkeys: \"x\"", "wait: x"}}}, {"--no-warnings", "missing.vls", "w.vls"},
       "w.vls(2): error: Invalid Parameters:  Wait Time specifed is NOT numeric.\n"
       "velmora-check: 1 error, 0 warnings in 2 scripts\n", "velmora-check: cannot read missing.vls: ", kCheckUsage},
  };
  // clang-format on
  for (const CheckerCase& c : cases) {
    SCOPED_TRACE(c.name);
    SimHost host;
    SimRegistry registry;
    for (const auto& [name, lines] : c.scripts)
      for (const std::string& line : lines) host.files[name] += line + "\r\n";
    CheckerOutput output;
    EXPECT_EQ(Run_Checker(host, registry, c.arguments, output), c.status);
    EXPECT_EQ(output.out.substr(0, c.out.size()), c.out) << output.out;
    EXPECT_EQ(output.err.substr(0, c.err.size()), c.err);
  }
}

constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;

TEST(RegSettingsTest, ReadsTheStoredSizeLessOneCharacter) {
  SimRegistry registry;
  CRegSettings settings{registry};
  const std::string app = "Software\\VB and VBA Program Settings\\" + Product_Name();
  registry.CreateKey(kUser, app + "\\Bin");
  registry.SetValue(kUser, app + "\\Bin", "v", RegistryType::Binary, "1234");
  // The section, the key, the value saved (nullptr: none) and the value read. Sections
  // within sections and the unnamed value are tested on the real registry.
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"Editor", "Top", "120", "120"}, {"Nowhere", "Top", nullptr, "(default)"},
      {"Editor", "Empty", "", "(default)"},  // stored with size 0
      {"Bin", "v", nullptr, "123"},          // no terminator: one character short
  };
  for (const auto& [section, key, saved, read] : rows) {
    EXPECT_TRUE(!saved || settings.SaveSetting(section, key, saved)) << key;
    EXPECT_EQ(settings.GetSetting(section, key, "(default)"), read) << section << "/" << key;
  }
  EXPECT_EQ(registry.QueryValue(kUser, app + "\\Editor", "Top"), (RegistryValue{RegistryType::String, {"120", 4}}));
}

}  // namespace
}  // namespace velmora::test
