// The ids of the main window's resources; those of the difference window are from 30000 on, the
// library's from 23200 to 23499.
#pragma once

// --- Icon, menu, keys and title of the main window ---
#define IDR_MAIN 25000
#define IDD_ABOUT_PROGRAM 25001
#define IDC_ABOUT_VERSION 25002
#define IDC_ABOUT_LIBRARY 25003

// --- Controls of the main window, in the order of the Tab key ---
#define IDC_BASE_LABEL 25010
#define IDC_BASE_FOLDER 25011
#define IDC_BASE_BROWSE 25012
#define IDC_COMPARE 25013
#define IDC_REVISED_LABEL 25014
#define IDC_REVISED_FOLDER 25015
#define IDC_REVISED_BROWSE 25016
#define IDC_SWAP 25017
#define IDC_FILTER_LABEL 25018
#define IDC_FILTER_TEXT 25019
#define IDC_FILTER_COLUMN_LABEL 25020
#define IDC_FILTER_COLUMN 25021
#define IDC_SHOW_FIRST 25022  // and the three that follow: the states that can be hidden
#define IDC_HINT 25026
#define IDC_NEW_LIST 25027  // a list while it is being filled

// --- Commands: each has a help line in the string table ---
#define ID_CHOOSE_BASE 25100
#define ID_CHOOSE_REVISED 25101
#define ID_SWAP 25102
#define ID_COMPARE 25103
#define ID_OPTIONS 25104
#define ID_REPORT 25105
#define ID_REPORT_PAGES 25106
#define ID_RECENT_FIRST 25110  // and as many as are kept
#define ID_RECENT_LAST 25119
#define ID_SHOW_SAME 25120  // in the order of the states
#define ID_SHOW_MODIFIED 25121
#define ID_SHOW_NEW 25122
#define ID_SHOW_DELETED 25123
#define ID_SHOW_ALL 25124
#define ID_FILTER 25125
#define ID_CLEAR_FILTER 25126
#define ID_DOCUMENT_OPEN 25130
#define ID_DOCUMENT_OPEN_BASE 25131
#define ID_DOCUMENT_OPEN_REVISED 25132

// --- Texts ---
#define IDS_HINT 25200
#define IDS_READY 25201
#define IDS_STOPPED 25202
#define IDS_USAGE 25203
#define IDS_TITLE 25204        // %1, %2: the folders, %3: the program
#define IDS_PRODUCT 25205      // in reports
#define IDS_CHOOSE_BASE 25206  // above the tree of folders
#define IDS_CHOOSE_REVISED 25207
#define IDS_PANE_SHOWN 25208  // %1!d!: of %2!d! documents
#define IDS_PANE_STATE 25209  // %1: a state, %2!d!: how many documents
#define IDS_BASE_LABEL 25210
#define IDS_REVISED_LABEL 25211
#define IDS_BASE_BROWSE 25212
#define IDS_REVISED_BROWSE 25213
#define IDS_COMPARE_BUTTON 25214
#define IDS_SWAP_BUTTON 25215
#define IDS_FILTER_LABEL 25216
#define IDS_FILTER_COLUMN_LABEL 25217
#define IDS_WHOLE_PATH 25218
#define IDS_NO_DIFFERENCES 25219
#define IDS_SHOW_FIRST 25220   // and the three that follow: the states that can be hidden
#define IDS_RECENT_PAIR 25224  // %1!d!: its number, %2, %3: the folders
#define IDS_NO_RECENT_PAIRS 25225
#define IDS_ANALYZE_COMMAND 25226
#define IDS_OPEN_COMMAND 25227
#define IDS_OPEN_BASE 25228
#define IDS_OPEN_REVISED 25229
#define IDS_NO_DOCUMENTS 25230

// Messages.
#define IDS_NO_BASE 25240
#define IDS_NO_REVISED 25241
#define IDS_NOT_A_FOLDER 25242       // %1: the path
#define IDS_FOLDER_UNREADABLE 25243  // %1: the path, %2: the system's reason
#define IDS_PROBLEMS 25244           // %1!d!: how many; a list follows
#define IDS_MORE_PROBLEMS 25245      // %1!d!: how many
#define IDS_NO_ANALYSIS 25246
#define IDS_TOO_MANY_DROPPED 25247

// The options.
#define IDS_OPTIONS_TITLE 25260
#define IDS_OPTIONS_DOCUMENTS 25261
#define IDS_OPTIONS_ALL_TYPES 25262
#define IDS_OPTIONS_ONLY_TYPES 25263
#define IDS_OPTIONS_OTHER_TYPES 25264
#define IDS_OPTIONS_TYPES_HINT 25265
#define IDS_OPTIONS_SUB_FOLDERS 25266
#define IDS_OPTIONS_WHITE_SPACE 25267
#define IDS_OPTIONS_SPACE_FIRST 25268  // and the two that follow: the white-space modes
#define IDS_OPTIONS_IGNORE_CASE 25271
#define IDS_OPTIONS_OLDER_LEFT 25272
#define IDS_OPTIONS_COLOURS 25273
#define IDS_OPTIONS_NO_TYPES 25274
#define IDS_BUTTON_PLAIN_OK 25275
#define IDS_BUTTON_PLAIN_CANCEL 25276
