// The ids of the dialog around a list.
#pragma once

#define IDD_TEST 100
#define IDC_TEST_LIST 101
#define IDC_TEST_BUTTON 102
