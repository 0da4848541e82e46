// The ids of the sample dialog.
#pragma once

#define IDD_SAMPLE 100
#define IDC_SAMPLE_EDIT 101
#define IDC_SAMPLE_CHECK 102
#define IDC_SAMPLE_DISABLED 103
#define IDC_SAMPLE_LIST 104
#define IDC_SAMPLE_ASK 105
