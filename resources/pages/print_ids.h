// Ids of the print dialog and of the window that shows how far long work is.
// Only #defines: the resource compiler reads this file too.
#ifndef QUILLON_PAGES_PRINT_IDS_H
#define QUILLON_PAGES_PRINT_IDS_H

#define IDC_PRINT_LABEL -1  // a label or a frame that nothing asks for

#define IDD_PRINT 300
#define IDD_PROGRESS 301

#define IDC_PRINT_PRINTER 310
#define IDC_PRINT_PROPERTIES 311
#define IDC_PRINT_AS_IT_IS 312
#define IDC_PRINT_SHEET 313
#define IDC_PRINT_ORIENTATION 314
#define IDC_PRINT_FONT 315
#define IDC_PRINT_LEFT 316
#define IDC_PRINT_TOP 317
#define IDC_PRINT_RIGHT 318
#define IDC_PRINT_BOTTOM 319
#define IDC_PRINT_ALL 320
#define IDC_PRINT_THIS_PAGE 321
#define IDC_PRINT_FROM_TO 322
#define IDC_PRINT_FROM 323
#define IDC_PRINT_TO 324
#define IDC_PRINT_COPIES 325
#define IDC_PRINT_STATUS 326

#define IDC_PROGRESS_TEXT 340
#define IDC_PROGRESS_BAR 341

#endif
