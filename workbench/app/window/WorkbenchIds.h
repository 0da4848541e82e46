// The ids of the Workbench's windows, menus and resources.
#pragma once

// Child windows of the main window.
#define IDC_DRAWING_VIEW 1001
#define IDC_SPACE_TABS 1002
#define IDC_COMMAND_PANE 1003
#define IDC_STATUS_LINE 1004
// Inside the command pane.
#define IDC_COMMAND_HISTORY 1011
#define IDC_COMMAND_EDIT 1012
#define IDC_COMMAND_HISTORY_LABEL 1013
#define IDC_COMMAND_PROMPT 1014

#define IDI_WORKBENCH 101
#define IDR_MENU 102

// Menu items; MainWindow.cpp lists the line that each one runs.
#define ID_MENU_OPEN 40001
#define ID_MENU_SAVE 40002
#define ID_MENU_SAVEAS 40003
#define ID_MENU_QUIT 40004
#define ID_MENU_NEW 40005
#define ID_MENU_ATTACH 40006
#define ID_MENU_SCRIPT 40007
#define ID_MENU_UNDO 40011
#define ID_MENU_REDO 40012
#define ID_MENU_ZOOM_EXTENTS 40021
#define ID_MENU_ZOOM_IN 40022
#define ID_MENU_ZOOM_OUT 40023
#define ID_MENU_REGEN 40024
#define ID_MENU_ZOOM_WINDOW 40025
#define ID_MENU_ZOOM_PREVIOUS 40026
#define ID_MENU_PAN 40027
#define ID_MENU_LAYER_STATES 40031
#define ID_MENU_LAYERS 40032
#define ID_MENU_REFERENCES 40033
#define ID_MENU_HELP 40041
#define ID_MENU_ABOUT 40042
// The recent files, RecentFiles::kMost of them.
#define ID_MENU_RECENT_FIRST 40101
