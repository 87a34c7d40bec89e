// Ids of the program's own resources, shared by the resource scripts and the
// code. Plain macros, as the resource compiler reads this file too.
#pragma once

// Dialogs and their pages.
#define IDD_MAIN 100
#define IDD_ABOUT 101
#define IDD_SETTINGS 102
#define IDD_LANGUAGE_PAGE 103

// Menus, accelerators, icons and cursors.
#define IDR_MAIN_MENU 200
#define IDR_MAIN_ACCELERATORS 300
#define IDI_PROGRAM 400
#define IDC_LINK_CURSOR 401

// Commands of the main window (menu and button).
#define IDC_EXIT 1105
#define IDM_EDIT_SETTINGS 1108
#define IDM_HELP_WINDOW 1109
#define IDM_HELP_SCRIVOLT 1110
#define IDM_ABOUT 1112
#define IDM_SUPPORT 1113
#define IDM_CHECK_UPDATES 1114

// Settings dialog and its language page.
#define IDC_SETTINGS_TABS 1202
#define IDC_SETTINGS_APPLY 1203
#define IDC_SETTINGS_OK 1204
#define IDC_LANGUAGE_LIST 1205

// About box.
#define IDC_ABOUT_ICON 1400
#define IDC_ABOUT_PRODUCT 1401
#define IDC_ABOUT_HOME_LINK 1402
#define IDC_ABOUT_XML_LINK 1403
#define IDC_ABOUT_VERSION 1404
#define IDC_ABOUT_RELEASE_DATE 1405
#define IDC_ABOUT_NOTICE 1406
