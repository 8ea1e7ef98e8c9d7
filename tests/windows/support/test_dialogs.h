/* Dialogs of the tests; the ids stay clear of the program's own. */
#pragma once

#define IDD_TEST_EXCHANGE 5000
#define IDC_TEST_TEXT 5001
#define IDC_TEST_CHECK 5002
#define IDS_TEST_TEXT 5003
#define IDS_TEST_CAPTION 5004
