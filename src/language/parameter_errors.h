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

inline constexpr ParameterError kQuotesMissing{"Run_Or_SendKeysErrors.1", "Error in Run or SendKeys command!",
                                               kQuoteMissing};

inline constexpr ParameterError kTestQuotesMissing{"TestEnvironmentVariablesErrors.1", kTestVariables, kQuoteMissing};
inline constexpr ParameterError kTestSeparatorMissing{"TestEnvironmentVariablesErrors.2", kTestVariables,
                                                      "Invalid Parameters:  \" = \" separator missing."};
inline constexpr ParameterError kTestExtraSeparator{"TestEnvironmentVariablesErrors.2", kTestVariables,
                                                    "Invalid Parameters:  Extra \" = \" separator(s) found."};

inline constexpr ParameterError kNotACondition{"LogicalConditionErrors.1", "Should be: <succeeded|failed>!",
                                               "Invalid Parameters:  ", true};

inline constexpr ParameterError kMouseIllegalCharacters{"UseMouseErrors.1", kUseMouse,
                                                        "Invalid Parameters:  Illegal characters found."};
inline constexpr ParameterError kMouseYTooLarge{"UseMouseErrors.2", kUseMouse,
                                                "Invalid Parameters:  Mouse Y Position may not exceed: 65535."};
inline constexpr ParameterError kMouseYNotInteger{
    "UseMouseErrors.3", kUseMouse, "Invalid Parameters:  Mouse Y Position must be an integer (0 <= Y <= 65535)."};
inline constexpr ParameterError kMouseXNotInteger{
    "UseMouseErrors.3", kUseMouse, "Invalid Parameters:  Mouse X Position must be an integer (0 <= X <= 65535)."};
inline constexpr ParameterError kMouseXTooLarge{"UseMouseErrors.4", kUseMouse,
                                                "Invalid Parameters:  Mouse X Position may not exceed: 65535."};
inline constexpr ParameterError kMouseSecondCommaMissing{
    "UseMouseErrors.6", kUseMouse, "Invalid Parameters:  Second Comma not found. Use:  <s|d|nc><l|m|r>, ##, ##."};
inline constexpr ParameterError kMouseFirstCommaMissing{
    "UseMouseErrors.7", kUseMouse, "Invalid Parameters:  First Comma not found. Use:  <s|d|nc><l|m|r>, ##, ##."};
inline constexpr ParameterError kMouseBadButton{
    "UseMouseErrors.8", kUseMouse,
    "Invalid Parameters:  Mouse Button must be (l)eft, (m)iddle, (r)ight or no (c)lick."};
inline constexpr ParameterError kMouseBadClickType{
    "UseMouseErrors.9", kUseMouse, "Invalid Parameters:  Type of Mouse Click must be (n)one, (s)ingle or (d)ouble.."};

inline constexpr ParameterError kButtonsIllegalCharacters{"SendButtonsErrors.1", kSendButtons,
                                                          "Invalid Parameters:  Illegal characters found."};
inline constexpr ParameterError kButtonsBadButton{
    "SendButtonsErrors.2", kSendButtons, "Invalid Parameters:  Mouse Button must be (l)eft, (m)iddle, or (r)ight."};
inline constexpr ParameterError kButtonsBadClickType{
    "SendButtonsErrors.3", kSendButtons, "Invalid Parameters:  Type of Mouse Click must be (s)ingle or (d)ouble.."};

inline constexpr ParameterError kCountNotNumeric{"FindWindowErrors.1", "Nonnumeric for Number of Windows to traverse!",
                                                 kCountDetail};
inline constexpr ParameterError kCountNotPositive{
    "FindWindowErrors.2", "Number of Windows to travers is not a positive integer!", kCountDetail};
inline constexpr ParameterError kOpeningQuoteMissing{"FindWindowErrors.4", "Quote Missing in command!", kQuoteUsage};
inline constexpr ParameterError kClosingQuoteMissing{"FindWindowErrors.5", "Quote Missing in command!", kQuoteUsage};
inline constexpr ParameterError kCommaAfterTextMissing{"FindWindowErrors.5", "Comma Missing in command!", kCommaUsage};
inline constexpr ParameterError kCommaAfterNumberMissing{"FindWindowErrors.6", "Comma Missing in command!",
                                                         kCommaUsage};
inline constexpr ParameterError kChildIdNotNumeric{"FindWindowErrors.7", kBadChildId, kChildIdDetail};
inline constexpr ParameterError kNumberNotValid{"FindWindowErrors.8", kBadChildId, kChildIdDetail};

inline constexpr ParameterError kMinutesTooLong{"FindWindow_Or_WaitErrors.1", kWaitTime, kMinutesDetail};
inline constexpr ParameterError kMinutesBeforeStopTooLong{"FindWindow_Or_WaitErrors.2", kWaitTime, kMinutesDetail};
inline constexpr ParameterError kSecondsTooLong{
    "FindWindow_Or_WaitErrors.3", kWaitTime,
    "Invalid Parameters:  Wait Time seconds specifed must be less then '99999'."};
inline constexpr ParameterError kTimeNotNumeric{"FindWindow_Or_WaitErrors.4", kWaitTime,
                                                "Invalid Parameters:  Wait Time specifed is NOT numeric."};

}  // namespace parameter_errors
}  // namespace velmora
