// The dialogs of the folder comparison, and their controls.
#pragma once

#define IDD_REPORT_PAGES 23601

// One after the other.
#define IDC_PAGES_MODIFIED 23610
#define IDC_PAGES_NEW 23611
#define IDC_PAGES_DELETED 23612
#define IDC_PAGES_INACTIVE 23620
#define IDC_PAGES_COPY 23621
#define IDC_PAGES_BASE 23622
#define IDC_PAGES_REVISED 23623
