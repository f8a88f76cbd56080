// Feeds arbitrary bytes to Parse_Key_String as a key string and checks what
// holds for every string: a rejected one sends nothing and says where it went
// wrong; an accepted one never presses a key that is already down, types each
// character with its release right after it, and leaves no key held at the end.
#include <set>

#include "fuzz_support.h"
#include "key_notation.h"

namespace velmora::fuzz {

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
    Require(input.up ? held.erase(input.virtualKey) == 1 : held.insert(input.virtualKey).second);
  }
  Require(held.empty());
}

void One_Input(std::string_view keys) {
  const KeyParseResult result = Parse_Key_String(keys);
  if (!result.ok)
    return Require(result.inputs.empty() && !result.error.empty() && result.errorPosition >= 1 &&
                   result.errorPosition <= keys.size());
  Require(result.error.empty() && result.errorPosition == 0);
  Check_Balanced(result.inputs);
}

}  // namespace velmora::fuzz
