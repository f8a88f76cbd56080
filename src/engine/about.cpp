#include "about.h"

#include "text.h"
#include "velmora_version.h"

namespace velmora {

const AboutTexts& About() {
  static const AboutTexts texts{VELMORA_PRODUCT_TEXT, VELMORA_AUTHOR_TEXT, VELMORA_NOTICE_TEXT,
                                "Version " VELMORA_VERSION_TEXT, VELMORA_DATE_TEXT};
  return texts;
}

const std::string& Company_Name() {
  static const std::string name = VELMORA_COMPANY_TEXT;
  return name;
}

const std::string& Product_Name() { return About().Title; }

std::string Identification_Line() {
  const AboutTexts& a = About();
  return a.Title + " " + a.Version + ", " + a.Date + ". " + a.Notice;
}

std::string Trace_Header_Line() {
  const AboutTexts& a = About();
  return "# " + a.Title + ", " + a.Version + " - " + a.Date + "  Author: " + a.Author + ". " + a.Notice;
}

// Any version's heading: the title, then the author after the date.
bool Is_Trace_Heading(const std::string& line) {
  const AboutTexts& a = About();
  return Starts_With(line, "# " + a.Title + ", ") && line.find("  Author: " + a.Author + ". ") != std::string::npos;
}

}  // namespace velmora
