// The five about texts, shared by the about box, the session headers and the
// error report's identification line.
#pragma once

#include <string>

namespace velmora {

struct AboutTexts {
  std::string Title;    // first text
  std::string Author;   // second text
  std::string Notice;   // third text, also shown by the notice label
  std::string Version;  // fourth text
  std::string Date;     // fifth text
};

const AboutTexts& About();

// The company and product names of the version information. The editors key
// their settings by them (CRegSettings defaults to the product name itself).
const std::string& Company_Name();
const std::string& Product_Name();

// "Velmora Version 1.0.0, November 2026. <notice>": heads the automatic
// session's log and every error report.
std::string Identification_Line();

// The first line of the editor's trace list.
std::string Trace_Header_Line();
// Whether the line is a heading that Trace_Header_Line made, in any version.
bool Is_Trace_Heading(const std::string& line);

}  // namespace velmora
