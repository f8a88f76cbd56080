// Identifiers of the about box and its controls, shared by the resource
// script and the code. Scripts find the texts by these child identifiers.
#pragma once

#define IDD_ABOUT 100
#define IDC_ABOUT_TITLE 101
#define IDC_ABOUT_VERSION 102
#define IDC_ABOUT_DATE 103
#define IDC_ABOUT_AUTHOR 104
#define IDC_ABOUT_NOTICE 105
#define IDC_ABOUT_ICON 106
