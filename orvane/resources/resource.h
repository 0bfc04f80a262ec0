// The ids of the library's resources.
#pragma once

// Texts.
#define IDS_SCANNING_FOLDERS 23255
