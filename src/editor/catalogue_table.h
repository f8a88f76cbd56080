// The two catalogues of commands that the editor offers, as data: each
// entry's text and the command code that selects its panel and its line.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "form_controls.h"

namespace velmora {

// Codes of the two entries that swap the catalogues; they make no line.
constexpr std::uint8_t kOpenFlowControl = 100;
constexpr std::uint8_t kBackToAutomation = 101;
constexpr int kAutomationCatalogue = 1;
constexpr int kFlowControlCatalogue = 2;

struct CatalogueEntry {
  const char* Text;
  std::uint8_t Code;
};

struct CatalogueSpec {
  const char* Caption;
  const char* ToolTip;
  std::array<CatalogueEntry, 10> Entries;
};

// The catalogue by its number (1 or 2); nothing for any other number.
const CatalogueSpec* Catalogue_Spec(int catalogue);

struct CataloguePlace {
  int Catalogue;
  long Position;
};

// Where the entry of a command code stands; nothing for a code no entry has.
std::optional<CataloguePlace> Catalogue_Place_Of(std::uint8_t code);

// The captions and font of the two choice options (DebugState(0) and (1)) for
// each command that shows them; their styles differ by design.
struct ChoiceCaptions {
  std::uint8_t Code;
  const char* First;
  const char* Second;
  FontSpec Font;
  const char* ToolTip;
};
const std::vector<ChoiceCaptions>& Choice_Captions();

}  // namespace velmora
