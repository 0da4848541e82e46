// The ids of the test program's resources and of its extension DLL's.
#pragma once

#define IDD_FORM 100 // in both modules, with different captions
#define IDD_KEYS 101
#define IDD_NESTED 102
#define IDD_ONLY_EXTENSION 103
#define IDD_NOWHERE 199 // in no module

#define IDC_TEXT 1001
#define IDC_NUMBER 1002
#define IDC_CHECK 1003
#define IDC_RADIO_FIRST 1004
#define IDC_RADIO_SECOND 1005
#define IDC_RADIO_THIRD 1006
#define IDC_LIST 1007
#define IDC_COMBO 1008
#define IDC_LINES 1009
#define IDC_OPEN 1010
#define IDC_VIEW 1011
#define IDC_APART 1012

#define IDR_MENU 120
#define IDB_DOTS 130

#define IDS_PLAIN 256
#define IDS_FORMAT 257
#define IDS_MESSAGE 258
#define IDS_LONG 259
#define IDS_GERMAN 260
#define IDS_SHARED 272     // in both modules, with different texts
#define IDS_BLOCK_MATE 273 // only in the extension, in a block that both modules have
#define IDS_NOWHERE 9999   // in no module
