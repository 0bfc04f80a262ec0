// The ids of the library's resources. Texts stay under their ids for good: hosts may replace one by
// a text of the same id in their own resources, which are looked through first.
#pragma once

// --- Texts ---

// Addresses of the maker.
#define IDS_PRODUCT_PAGE 23301
#define IDS_CONNECTION_CHECK 23302
#define IDS_DOWNLOAD_SERVER 23303

// Message boxes: buttons and the check box.
#define IDS_DONT_SHOW_AGAIN 23258
#define IDS_BUTTON_OK 23260
#define IDS_BUTTON_CANCEL 23261
#define IDS_BUTTON_STOP 23262
#define IDS_BUTTON_YES 23263
#define IDS_BUTTON_NO 23264
#define IDS_BUTTON_RETRY 23282

// Operations and their progress windows.
#define IDS_PROGRESS 23268
#define IDS_PERCENT_COMPLETED 23269  // printf: the percentage
#define IDS_SCANNING_FOLDERS 23255
#define IDS_EVALUATING_FILE_STATUS 23227
#define IDS_DOWNLOADING 23274
#define IDS_UPLOADING_FILES 23293  // %1!d!: the number of files

// Internet transfer.
#define IDS_INTERNET_FAILED 23283  // printf: the error's number, its text
#define IDS_NO_INTERNET 23284
#define IDS_ABORTED_BY_USER 23286
#define IDS_FILE_TOO_LARGE 23304  // %1: the file

// Folders and files that the user names.
#define IDS_SPECIFY_PATH 23204
#define IDS_SPECIFY_ABSOLUTE_PATH 23205
#define IDS_CREATE_FOLDER 23206       // a question; %1: the folder
#define IDS_FOLDER_NOT_CREATED 23207  // %1: the folder
#define IDS_FOLDER_MISSING 23208      // %1: the folder
#define IDS_NO_LONG_NAMES 23213       // a question
#define IDS_NO_WRITE_ACCESS 23214
#define IDS_NO_DRIVE_ACCESS 23215  // %1: the root
#define IDS_SLASH_AT_END 23216
#define IDS_FILE_NOT_OPENED 23240  // %1: the file, %2: the reason

// Lists: commands, menus and questions.
#define IDS_SORT_BY 23209
#define IDS_DELETE_ITEM 23218  // a question; %1: the item
#define IDS_DESCRIPTION 23237
#define IDS_DESCRIPTION_FALLBACK 23256
#define IDS_REVERSE_ORDER 23251
#define IDS_SELECT_ALL 23252
#define IDS_INVERT_SELECTION 23253
#define IDS_RENAME 23257

// Filters: the conditions in the order of their numbers, then messages.
#define IDS_FILTER_INCLUDE_ALL 23210
#define IDS_FILTER_EQUALS 23211
#define IDS_FILTER_DOES_NOT_EQUAL 23212
#define IDS_FILTER_IS_GREATER 23241
#define IDS_FILTER_IS_GREATER_OR_EQUAL 23242
#define IDS_FILTER_IS_LESS 23243
#define IDS_FILTER_IS_LESS_OR_EQUAL 23244
#define IDS_FILTER_BEGINS_WITH 23245
#define IDS_FILTER_DOES_NOT_BEGIN_WITH 23246
#define IDS_FILTER_CONTAINS 23247
#define IDS_FILTER_DOES_NOT_CONTAIN 23248
#define IDS_FILTER_NOT_ACTIVATED 23249  // in place of "include all" for a second condition
#define IDS_FILTER_DATES_REVERSED 23231
#define IDS_FILTER_NUMBERS_REVERSED 23236

// Reports.
#define IDS_REPORT_COMMAND_ERROR 23201  // %1: the command from the error on
#define IDS_REPORT_NO_FIELD 23217
#define IDS_REPORT_NO_HYPERLINKS 23250
#define IDS_REPORT_GENERATED_BY 23254  // a product's name follows
#define IDS_REPORT_ON 23265
#define IDS_REPORT_PRIMARY_FILTER 23266
#define IDS_REPORT_SECONDARY_FILTER 23267
#define IDS_REPORT_WRITING 23310
#define IDS_REPORT_NOT_WRITTEN 23311  // %1: the file, %2: the reason
#define IDS_REPORT_ITEMS 23312        // %1!d!: their number
#define IDS_REPORT_ONE_ITEM 23313
#define IDS_REPORT_LIST_ORDER 23340  // in place of a column to sort by
#define IDS_REPORT_FILE_NAME 23341   // without extension
#define IDS_REPORT_WRITTEN 23342     // %1: the file
#define IDS_REPORT_NO_PROGRAM 23343
#define IDS_REPORT_FILES_PAGE 23344  // types of files, with "|" for ends
#define IDS_REPORT_FILES_TEXT 23345
#define IDS_REPORT_FILES_XML 23346
#define IDS_REPORT_FILES_TABS 23347
// Filters in words.
#define IDS_FILTER_AND 23314
#define IDS_FILTER_OR 23315
#define IDS_FILTER_FROM_TO 23316  // %1 and %2: times or numbers
#define IDS_FILTER_ALL_BUT 23317  // %1: what is left out
#define IDS_FILTER_NOTHING 23318

// Folder comparison.
#define IDS_FILE_STATES 23220  // separated by tabs, in the order of the states
#define IDS_COLUMN_DOCUMENT_NAME 23221
#define IDS_COLUMN_TYPE 23222
#define IDS_COLUMN_FOLDER_NAME 23223
#define IDS_COLUMN_STATUS 23224
#define IDS_COLUMN_MODIFIED 23225
#define IDS_COLUMN_BASE_MODIFIED 23232
#define IDS_COLUMN_REVISED_MODIFIED 23233
#define IDS_COMPARISON_TITLE 23226  // %1: the base folder, %2: the revised folder
#define IDS_ANALYZE 23228
#define IDS_OPEN 23229

// Pages that go with the report of a folder comparison.
#define IDS_PAGE_ALL_DOCUMENTS 23370
#define IDS_PAGE_PREVIOUS_DOCUMENT 23371
#define IDS_PAGE_NEXT_DOCUMENT 23372
#define IDS_PAGE_FIRST_DIFFERENCE 23373
#define IDS_PAGE_EQUAL_LINES 23374  // %1: how many
#define IDS_PAGE_NO_LINE_DIFFERS 23375
#define IDS_PAGE_ENDS 23376
#define IDS_PAGE_BASE_NO_TEXT 23377
#define IDS_PAGE_REVISED_NO_TEXT 23378
#define IDS_PAGE_BASE_TOO_LARGE 23379
#define IDS_PAGE_REVISED_TOO_LARGE 23380
#define IDS_PAGE_BASE_UNREADABLE 23381
#define IDS_PAGE_REVISED_UNREADABLE 23382
#define IDS_PAGES_WRITING 23383
#define IDS_PAGES_PROBLEMS 23384     // %1: how many
#define IDS_PAGES_OCCUPIED 23385     // %1: the folder
#define IDS_PAGES_NOT_WRITTEN 23386  // %1: the folder
#define IDS_PAGE_UNFINISHED 23387
#define IDS_DOCUMENT_NOT_OPENED 23388  // %1: the document

// --- Icons and dialogs ---

#define IDI_ORVANE 23400         // 16, 32 and 48 pixels
#define IDD_ABOUT_LIBRARY 23401  // says what the library is; for hosts, with CDialog
