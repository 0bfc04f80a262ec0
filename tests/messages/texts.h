// The texts of this program's own string table.
#define IDS_PLAIN 61
#define IDS_INSERTS 62
#define IDS_CHECK 63
