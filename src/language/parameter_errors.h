// The complaints about a script line's parameters: where each is reported,
// its summary (passed as the report's title) and its detail text. Every one
// is reported as fatal with the error code -1.
#pragma once

namespace velmora {

struct ParameterError {
  const char* location;  // after "Velmora.(General).Parse_Command."
  const char* summary;
  const char* detail;
  bool endsWithParameters = false;  // the detail is followed by the whole parameter text
};

// A check's outcome: the complaint, or nullptr when the parameters are good.
using CheckResult = const ParameterError*;

namespace parameter_errors {

// The findwindow usage texts: one line each, the syntax after the complaint.
inline constexpr char kQuoteUsage[] =
    "Invalid Parameters:  Quote Expected.  <##>, \"<WindowTitle>\", \"<WindowClass>\", <ChildID>, ..., "
    "<RelativeX>, <RelativeY>, <MM.SS>";
inline constexpr char kCommaUsage[] =
    "Invalid Parameters:  Comma Expected.  <##>, \"<WindowTitle>\", \"<WindowClass>\", <ChildID>, ..., "
    "<RelativeX>, <RelativeY>, <MM.SS>";

inline constexpr char kQuoteMissing[] = "Invalid Parameters:  Leading and/or Trailing quote missing.";
inline constexpr char kUseMouse[] = "Error in UseMouse command!";
inline constexpr char kSendButtons[] = "Error in SendButtons command!";
inline constexpr char kTestVariables[] = "Error in TestEnvironmentVariables command!";
inline constexpr char kWaitTime[] = "Error in FindWindow or Wait command!";
inline constexpr char kBadChildId[] = "Invalid ChildID in command!";
inline constexpr char kChildIdDetail[] = "Invalid Parameters:  ChildID must be a positive integer.";
inline constexpr char kCountDetail[] = "Invalid Parameters:  Number of Windows to traverse should be a positive integer.";
inline constexpr char kMinutesDetail[] = "Invalid Parameters:  Wait Time minutes specifed must be less then '99999'.";

inline constexpr ParameterError kR1{"Run_Or_SendKeysErrors.1", "Error in Run or SendKeys command!", kQuoteMissing};

inline constexpr ParameterError kT1{"TestEnvironmentVariablesErrors.1", kTestVariables, kQuoteMissing};
inline constexpr ParameterError kT2a{"TestEnvironmentVariablesErrors.2", kTestVariables,
                                     "Invalid Parameters:  \" = \" separator missing."};
inline constexpr ParameterError kT2b{"TestEnvironmentVariablesErrors.2", kTestVariables,
                                     "Invalid Parameters:  Extra \" = \" separator(s) found."};

inline constexpr ParameterError kL1{"LogicalConditionErrors.1", "Should be: <succeeded|failed>!",
                                    "Invalid Parameters:  ", true};

inline constexpr ParameterError kM1{"UseMouseErrors.1", kUseMouse, "Invalid Parameters:  Illegal characters found."};
inline constexpr ParameterError kM2{"UseMouseErrors.2", kUseMouse,
                                    "Invalid Parameters:  Mouse Y Position may not exceed: 65535."};
inline constexpr ParameterError kM3y{"UseMouseErrors.3", kUseMouse,
                                     "Invalid Parameters:  Mouse Y Position must be an integer (0 <= Y <= 65535)."};
inline constexpr ParameterError kM3x{"UseMouseErrors.3", kUseMouse,
                                     "Invalid Parameters:  Mouse X Position must be an integer (0 <= X <= 65535)."};
inline constexpr ParameterError kM4{"UseMouseErrors.4", kUseMouse,
                                    "Invalid Parameters:  Mouse X Position may not exceed: 65535."};
inline constexpr ParameterError kM6{
    "UseMouseErrors.6", kUseMouse,
    "Invalid Parameters:  Second Comma not found. Use:  <s|d|nc><l|m|r>, ##, ##."};
inline constexpr ParameterError kM7{
    "UseMouseErrors.7", kUseMouse,
    "Invalid Parameters:  First Comma not found. Use:  <s|d|nc><l|m|r>, ##, ##."};
inline constexpr ParameterError kM8{
    "UseMouseErrors.8", kUseMouse,
    "Invalid Parameters:  Mouse Button must be (l)eft, (m)iddle, (r)ight or no (c)lick."};
inline constexpr ParameterError kM9{
    "UseMouseErrors.9", kUseMouse,
    "Invalid Parameters:  Type of Mouse Click must be (n)one, (s)ingle or (d)ouble.."};

inline constexpr ParameterError kB1{"SendButtonsErrors.1", kSendButtons,
                                    "Invalid Parameters:  Illegal characters found."};
inline constexpr ParameterError kB2{"SendButtonsErrors.2", kSendButtons,
                                    "Invalid Parameters:  Mouse Button must be (l)eft, (m)iddle, or (r)ight."};
inline constexpr ParameterError kB3{"SendButtonsErrors.3", kSendButtons,
                                    "Invalid Parameters:  Type of Mouse Click must be (s)ingle or (d)ouble.."};

inline constexpr ParameterError kF1{"FindWindowErrors.1", "Nonnumeric for Number of Windows to traverse!",
                                    kCountDetail};
inline constexpr ParameterError kF2{"FindWindowErrors.2", "Number of Windows to travers is not a positive integer!",
                                    kCountDetail};
inline constexpr ParameterError kF4{"FindWindowErrors.4", "Quote Missing in command!", kQuoteUsage};
inline constexpr ParameterError kF5q{"FindWindowErrors.5", "Quote Missing in command!", kQuoteUsage};
inline constexpr ParameterError kF5c{"FindWindowErrors.5", "Comma Missing in command!", kCommaUsage};
inline constexpr ParameterError kF6{"FindWindowErrors.6", "Comma Missing in command!", kCommaUsage};
inline constexpr ParameterError kF7{"FindWindowErrors.7", kBadChildId, kChildIdDetail};
inline constexpr ParameterError kF8{"FindWindowErrors.8", kBadChildId, kChildIdDetail};

inline constexpr ParameterError kW1{"FindWindow_Or_WaitErrors.1", kWaitTime, kMinutesDetail};
inline constexpr ParameterError kW2{"FindWindow_Or_WaitErrors.2", kWaitTime, kMinutesDetail};
inline constexpr ParameterError kW3{"FindWindow_Or_WaitErrors.3", kWaitTime,
                                    "Invalid Parameters:  Wait Time seconds specifed must be less then '99999'."};
inline constexpr ParameterError kW4{"FindWindow_Or_WaitErrors.4", kWaitTime,
                                    "Invalid Parameters:  Wait Time specifed is NOT numeric."};

}  // namespace parameter_errors
}  // namespace velmora
