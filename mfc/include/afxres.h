// Ids that MFC gives to standard strings and commands; also for resource scripts.
#ifndef KELMFC_AFXRES_H
#define KELMFC_AFXRES_H

#ifdef RC_INVOKED
#include <winresrc.h>
#endif

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#define AFX_IDS_APP_TITLE 0xE000
#define AFX_IDS_IDLEMESSAGE 0xE001

#define ID_FILE_NEW 0xE100
#define ID_FILE_OPEN 0xE101
#define ID_FILE_CLOSE 0xE102
#define ID_FILE_SAVE 0xE103
#define ID_FILE_SAVE_AS 0xE104
#define ID_EDIT_CLEAR 0xE120
#define ID_EDIT_COPY 0xE122
#define ID_EDIT_CUT 0xE123
#define ID_EDIT_PASTE 0xE125
#define ID_EDIT_SELECT_ALL 0xE12A
#define ID_EDIT_UNDO 0xE12B
#define ID_EDIT_REDO 0xE12C
#define ID_APP_ABOUT 0xE140
#define ID_APP_EXIT 0xE141
#ifndef ID_HELP // a program's resource header may have it already
#define ID_HELP 0xE146
#endif

#define AFX_IDP_NO_ERROR_AVAILABLE 0xF020
#define AFX_IDP_PARSE_INT 0xF110
#define AFX_IDP_PARSE_REAL 0xF111
#define AFX_IDP_PARSE_INT_RANGE 0xF112
#define AFX_IDP_PARSE_STRING_SIZE 0xF114
#define AFX_IDP_PARSE_UINT 0xF118
#define AFX_IDP_INTERNAL_FAILURE 0xF10B
#define AFX_IDP_COMMAND_FAILURE 0xF109

#endif
