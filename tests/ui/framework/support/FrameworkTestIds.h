// Ids of the test program's templates and controls.
#pragma once

#define IDD_FIXED 300
#define IDD_RESIZABLE 301
#define IDD_PLACE_LEFT_OPEN 302
#define IDD_PART_OF_A_WINDOW 303
#define IDS_TEST_PRODUCT 500
#define IDC_TEST_BUTTON 1101
#define IDC_TEST_FACE 1102
#define IDC_TEST_WIDE_FACE 1103
#define IDC_TEST_LIST 1104
#define IDC_TEST_EDIT 1105
#define IDC_TEST_STRETCH 1106
