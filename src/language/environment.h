// Environment variables inside parameter texts: `NAME` is replaced by the
// variable's value, two backquotes stand for one.
#pragma once

#include <optional>
#include <string>

namespace velmora {

struct Engine;

// Expands every `NAME` reference and logs the conversion when there was one.
std::string Convert_EnvVars(Engine& engine, bool Interactive, const std::string& text);

// The text as Convert_EnvVars gives it when it names no variable (only
// doubled or unpaired backquotes); nothing when it does, since the values
// are known only when the script runs.
std::optional<std::string> Expanded_Without_Values(const std::string& text);

// The test command: compares its two expanded sides exactly and sets the
// success flag. Parameters: left text, a line feed, right text.
void TestEnvironmentVariables_Command(Engine& engine, bool Interactive, const std::string& Parameters,
                                      bool& LastCommandSucceeded);

}  // namespace velmora
