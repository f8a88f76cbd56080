// Feeds arbitrary bytes to Parse_Key_String as a key string and checks what
// holds for every string: a rejected one sends nothing and says where it went
// wrong; an accepted one never presses a key that is already down, types each
// character with its release right after it, and leaves no key held at the end.
#include <set>

#include "fuzz_support.h"
#include "key_notation.h"

namespace {

using namespace velmora;
using fuzz::Require;

void Check_Balanced(const std::vector<KeyInput>& inputs) {
  std::set<std::uint16_t> held;
  for (std::size_t index = 0; index < inputs.size(); ++index) {
    const KeyInput& input = inputs[index];
    if (input.isCharacter) {
      if (input.up) continue;
      Require(index + 1 < inputs.size() && inputs[index + 1].isCharacter && inputs[index + 1].up &&
              inputs[index + 1].character == input.character);
      continue;
    }
    if (input.up)
      Require(held.erase(input.virtualKey) == 1);
    else
      Require(held.insert(input.virtualKey).second);
  }
  Require(held.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view keys(reinterpret_cast<const char*>(data), size);
  const KeyParseResult result = Parse_Key_String(keys);
  if (!result.ok) {
    Require(result.inputs.empty());
    Require(!result.error.empty());
    Require(result.errorPosition >= 1 && result.errorPosition <= size);
    return 0;
  }
  Require(result.error.empty() && result.errorPosition == 0);
  Check_Balanced(result.inputs);
  return 0;
}
