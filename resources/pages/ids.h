// What the window's code and its resources call by number: commands of the menu, and the window's parts.
#pragma once

#define ID_MENU 2
#define ID_KEYS 3
#define ID_GO_TO_DIALOG 4

#define ID_FILE_OPEN 100
#define ID_FILE_OPEN_FOLDER 101
#define ID_FILE_SAVE_AS_PDF 102
#define ID_FILE_PRINT 103
#define ID_FILE_EXIT 104
#define ID_EDIT_COPY 110
#define ID_EDIT_SELECT_ALL 111
#define ID_EDIT_FIND 112
#define ID_EDIT_FIND_NEXT 113
#define ID_EDIT_FIND_PREVIOUS 114
#define ID_PAGE_FIRST 120
#define ID_PAGE_PREVIOUS 121
#define ID_PAGE_NEXT 122
#define ID_PAGE_LAST 123
#define ID_PAGE_GO_TO 124
#define ID_ZOOM_IN 130
#define ID_ZOOM_OUT 131
#define ID_ZOOM_WIDTH 132
#define ID_ZOOM_PAGE 133
#define ID_ZOOM_ACTUAL 134
#define ID_VIEW_TEXT 140
#define ID_VIEW_LIST 141
#define ID_VIEW_REFRESH 142
#define ID_VIEW_NEXT_PANE 143
#define ID_ESCAPE 150
#define ID_HELP_ABOUT 160

#define ID_REPORT_LIST 200
#define ID_PAGE_VIEW 201
#define ID_TEXT_VIEW 202
#define ID_STATUS_BAR 203
#define ID_FIND_BAR 204
#define ID_FIND_TEXT 205
#define ID_FIND_CASE 206
#define ID_FIND_NEXT 207
#define ID_FIND_PREVIOUS 208
#define ID_FIND_CLOSE 209

#define ID_GO_TO_LABEL 220
#define ID_GO_TO_PAGE 221
