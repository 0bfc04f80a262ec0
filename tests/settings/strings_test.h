// The ids of the test program's own texts.
#pragma once

#define IDS_TEST_PLAIN 101
#define IDS_TEST_NUMBER 102
#define IDS_TEST_SPECIAL 103
#define IDS_TEST_ONLY_INSERT 104
