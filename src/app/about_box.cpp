#include "about_box.h"

#include <string>

#include "about.h"
#include "about_box_ids.h"

namespace velmora {

namespace {

void Fill_Texts(HWND dialog) {
  const AboutTexts& about = About();
  SetWindowTextA(dialog, ("About " + about.Title).c_str());
  const std::pair<int, const std::string*> texts[] = {
      {IDC_ABOUT_TITLE, &about.Title},   {IDC_ABOUT_VERSION, &about.Version}, {IDC_ABOUT_DATE, &about.Date},
      {IDC_ABOUT_AUTHOR, &about.Author}, {IDC_ABOUT_NOTICE, &about.Notice},
  };
  for (const auto& [id, text] : texts) SetDlgItemTextA(dialog, id, text->c_str());
}

INT_PTR CALLBACK About_Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_INITDIALOG:
      Fill_Texts(dialog);
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDOK);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

void Show_About_Box(HWND owner) {
  DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_ABOUT), owner, About_Procedure, 0);
}

}  // namespace velmora
