// Every id of the resource module, named. Read by the resource compiler and by the module's sources; the numbers are
// settled for good, since translated resource modules are made and shipped on their own.
//
// The name of a control starts with its dialog's: IDC_LSTATE_RES_NEW stands in the template IDD_LSTATE_RES. Two
// controls of one dialog never have one number, those of two dialogs may. check.py sees to it, and lists the
// exceptions.
#pragma once

// Dialog templates.
#define IDD_EDIT_LAYER_STATE 162
#define IDD_ADD_LAYERS 163
#define IDD_LSTATE_SAVE 200
#define IDD_LSTATE_RES 201
#define IDD_LSTATE_DEL 202
#define IDD_LSTATE_IMPORT 203

// Controls of IDD_LSTATE_SAVE, the new layer state dialog.
#define IDC_LSTATE_SAVE_NAME 1024
#define IDC_LSTATE_SAVE_DESCRIPTION 1026

// Controls of IDD_LSTATE_DEL, the delete confirmation.
#define IDC_LSTATE_DEL_PROMPT 1027
#define IDC_LSTATE_DEL_THIS 1028
#define IDC_LSTATE_KEEP_THIS 1029
#define IDC_LSTATE_DEL_ALL 1030
#define IDC_LSTATE_DEL_ICON 1031

// Controls of IDD_LSTATE_RES, the layer states manager.
#define IDC_LSTATE_RES_LIST 1002
#define IDC_LSTATE_RES_NEW 1003
#define IDC_LSTATE_RES_DELETE 1004
#define IDC_LSTATE_RES_IMPORT 1005
#define IDC_LSTATE_RES_EXPORT 1006
#define IDC_LSTATE_RES_PANEL 1007
#define IDC_LSTATE_RES_ON 1008
#define IDC_LSTATE_RES_FROZEN 1009
#define IDC_LSTATE_RES_LOCKED 1010
#define IDC_LSTATE_RES_PLOT 1011
#define IDC_LSTATE_RES_VPFROZEN 1012
#define IDC_LSTATE_RES_NEWVP 1013
#define IDC_LSTATE_RES_COLOR 1014
#define IDC_LSTATE_RES_LINETYPE 1015
#define IDC_LSTATE_RES_LINEWEIGHT 1016
#define IDC_LSTATE_RES_PLOTSTYLE 1017
#define IDC_LSTATE_RES_SELECTALL 1018
#define IDC_LSTATE_RES_CLEARALL 1019
#define IDC_LSTATE_RES_LAYERNOTFOUND 1020
#define IDC_LSTATE_RES_RESTORE 1021
#define IDC_LSTATE_RES_CLOSE 1022
#define IDC_LSTATE_RES_UPDATE 1023
#define IDC_LSTATE_RES_HIDEXREFS 1024
#define IDC_LSTATE_RES_RENAME 1026
#define IDC_LSTATE_RES_EDIT 1027
#define IDC_LSTATE_RES_OVERRIDES 1028
#define IDC_LSTATE_RES_CURRENT 1039
#define IDC_LSTATE_RES_EXPAND 1325

// Controls of IDD_LSTATE_IMPORT, the import selection.
#define IDC_LSTATE_IMPORT_LIST 1022

// Controls of IDD_EDIT_LAYER_STATE, the edit dialog. The list is in IDD_ADD_LAYERS too, which adds layers to a state.
#define IDC_LAYER_GRID 16214
#define IDC_ADD_LAYERS 16069
#define IDC_REMOVE_LAYERS 16100

// The box that opens over a cell of the list of states; the list makes it.
#define IDC_LSTATE_INPLACE_EDIT 1973

// The platform's own help command; its header names it too, where that is included first.
#ifndef ID_HELP
#define ID_HELP 57670
#endif

// Restoring: what the user is told when a restore did only what it could.
#define IDS_LSTATE_STYLE_MISSING 110
#define IDS_LSTATE_REFERENCE_UNRESOLVED 111
#define IDS_LSTATE_CURRENT_LAYER_NO_FREEZE 125

// The list of states: headings, and words of its cells.
#define IDS_LSTATE_COLUMN_NAME 114
#define IDS_LSTATE_COLUMN_SPACE 115
#define IDS_LSTATE_COLUMN_DESCRIPTION 116
#define IDS_LSTATE_COLUMN_SAME 132
#define IDS_LSTATE_YES 162
#define IDS_LSTATE_NO 163
#define IDS_LSTATE_SPACE_VIEWPORT 188
#define IDS_LSTATE_SPACE_REFERENCE 189

// Names: what the host's refusals call the thing that is named, and what they add; a name that another state bears,
// with one %s; a rename that the host refuses.
#define IDS_LSTATE_KIND 121
#define IDS_LSTATE_NAME_TAKEN 123
#define IDS_LSTATE_RENAME_FAILED 124
#define IDS_LSTATE_NAME_ADVICE 307

// The manager's actions: what the host has refused to save, and the questions before a delete and, with one %s, before
// an update.
#define IDS_LSTATE_NOT_SAVED 102
#define IDS_LSTATE_CONFIRM_DELETE 122
#define IDS_LSTATE_CONFIRM_UPDATE 133

// Import and export: the titles of the file dialogs, what has failed, and why a drawing can't be read: with one %s for
// its path, and with a second one for the host's reason.
#define IDS_LSTATE_EXPORT_FAILED 104
#define IDS_LSTATE_NOT_IMPORTED 105
#define IDS_LSTATE_IMPORT_TITLE 106
#define IDS_LSTATE_EXPORT_TITLE 107
#define IDS_LSTATE_DRAWING_UNOPENED 155
#define IDS_LSTATE_DRAWING_UNREADABLE 156

// What has come from older stores: the title; the first sentence, with one %s for the product's name, where the add-on
// with the snapshots is loaded and where it isn't; and the counts, with one %d each.
#define IDS_LSTATE_MIGRATED_TITLE 159
#define IDS_LSTATE_MIGRATED 160
#define IDS_LSTATE_MIGRATED_LEGACY 161
#define IDS_LSTATE_MIGRATED_WITHOUT_ADDON 182
#define IDS_LSTATE_MIGRATED_SNAPSHOTS 183

// The grid of a state's layers: headings, which are the tips of the columns too; tips of its buttons; the plot style of
// a layer that follows its colour, with one %d for the colour's number; and why a layer can't be made the current one.
#define IDS_LSTATE_COLUMN_COLOR 166
#define IDS_LSTATE_COLUMN_FREEZE 167
#define IDS_LSTATE_COLUMN_LINETYPE 168
#define IDS_LSTATE_COLUMN_LINEWEIGHT 169
#define IDS_LSTATE_COLUMN_LOCK 172
#define IDS_LSTATE_COLUMN_NEWVPFREEZE 173
#define IDS_LSTATE_COLUMN_PLOT 174
#define IDS_LSTATE_COLUMN_PLOTSTYLE 175
#define IDS_LSTATE_COLUMN_ON 176
#define IDS_LSTATE_REMOVE_LAYERS_TIP 178
#define IDS_LSTATE_ADD_LAYERS_TIP 179
#define IDS_LSTATE_COLOR_STYLE 180
#define IDS_LSTATE_FROZEN_NOT_CURRENT 184
#define IDS_LSTATE_DEPENDENT_NOT_CURRENT 187

// What a screen reader says of the grid's rows, where the cells show images.
#define IDS_LSTATE_WORD_ON 401
#define IDS_LSTATE_WORD_OFF 402
#define IDS_LSTATE_WORD_FROZEN 403
#define IDS_LSTATE_WORD_THAWED 404
#define IDS_LSTATE_WORD_LOCKED 405
#define IDS_LSTATE_WORD_UNLOCKED 406
#define IDS_LSTATE_WORD_PLOTTED 407
#define IDS_LSTATE_WORD_NOT_PLOTTED 408
#define IDS_LSTATE_WORD_CURRENT_LAYER 409

// Texts of the expand button, which name what a click does.
#define IDS_LSTATE_EXPAND 119
#define IDS_LSTATE_CONTRACT 131

// The grid of a state's layers: its images side by side, and where they are clear. The lists at 150 and 200 % take
// those of 24 and 32 pixels, whose numbers are 10 and 20 higher.
#define IDB_LSTATE_GRID_IMAGES 305
#define IDB_LSTATE_GRID_MASK 306
#define IDB_LSTATE_GRID_IMAGES_24 315
#define IDB_LSTATE_GRID_MASK_24 316
#define IDB_LSTATE_GRID_IMAGES_32 325
#define IDB_LSTATE_GRID_MASK_32 326

// The images of the grid's narrow headings, side by side; numbered likewise.
#define IDB_LSTATE_GRID_HEADINGS 308
#define IDB_LSTATE_GRID_HEADINGS_24 318
#define IDB_LSTATE_GRID_HEADINGS_32 328

// The faces of the grid's buttons, in 16, 24 and 32 pixels.
#define IDI_LSTATE_ADD_LAYERS 300
#define IDI_LSTATE_REMOVE_LAYERS 301

// The translated name of the command LAYERSTATE.
#define IDS_LSTATE_COMMAND 120

// The current-state line: its format, with one %s, and what stands there when no state is current.
#define IDS_LSTATE_CURRENT_STATE 165
#define IDS_LSTATE_NONE 186
