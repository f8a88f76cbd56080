// The flow-control commands: they move the current line to targets that the
// block table names.
#pragma once

#include <string>

namespace velmora {

struct Engine;

void If_Command(Engine& engine, bool Interactive, bool LastCommandSucceeded, const std::string& Parameter);
void Else_Command(Engine& engine, bool Interactive);
void While_Command(Engine& engine, bool Interactive, bool LastCommandSucceeded, const std::string& Parameter);
void EndWhile_Command(Engine& engine, bool Interactive);
void Until_Command(Engine& engine, bool Interactive, bool LastCommandSucceeded, const std::string& Parameter);

}  // namespace velmora
