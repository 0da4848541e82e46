#include "EditDialogLayout.h"

#include "OrvUiDialog.h"
#include "resource.h"

#include <iterator>

void setEditDialogLayout(COrvUiDialog& dialog) {
    static _dlgControlTag rows[] = {
        {IDC_LAYER_GRID, kOrvUiResizeStretch, 100},         {IDC_ADD_LAYERS, kOrvUiResizeFollowBottom, 100},
        {IDC_REMOVE_LAYERS, kOrvUiResizeFollowBottom, 100}, {IDOK, kOrvUiResizeFollowCorner, 100},
        {IDCANCEL, kOrvUiResizeFollowCorner, 100},          {ID_HELP, kOrvUiResizeFollowCorner, 100},
    };
    dialog.SetControlProperty(rows, static_cast<unsigned long>(std::size(rows)));
}
