// Ids of the progress window's template and controls. Read by the resource compiler too.
#pragma once

#define IDD_PROGRESS 410

#define IDC_PROGRESS_TEXT 1431
#define IDC_PROGRESS_BAR 1432
#define IDC_PROGRESS_AMOUNT 1433
#define IDC_PROGRESS_TIME 1434
