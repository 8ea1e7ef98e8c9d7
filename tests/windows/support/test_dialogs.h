/* Dialogs of the tests; the ids stay clear of the program's own. */
#pragma once

#define IDD_TEST_EXCHANGE 5000
#define IDC_TEST_TEXT 5001
#define IDC_TEST_CHECK 5002
#define IDS_TEST_TEXT 5003
#define IDS_TEST_CAPTION 5004
#define IDD_TEST_FORMS 5005
#define IDD_TEST_CUT_OFF 5006
#define IDD_TEST_NO_CLASS 5007
