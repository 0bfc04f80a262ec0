// How a document stands in a comparison of two folders.
#pragma once

// In the order of the texts of IDS_FILE_STATES.
enum class FileState : int {
  Same = 0,      // in both folders, with equal contents
  Modified = 1,  // in both folders, with different contents
  New = 2,       // only in the revised folder
  Deleted = 3,   // only in the base folder
  Unknown = 4,   // in both folders, not compared yet
};

constexpr int kFileStates = 5;
