// Runs work on a user's data again and again, with each call to the system failing once.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <string>

#include "support/Faults.h"
#include "support/TempFolder.h"

// A path below the folder, without an allocation of the test's own.
struct Path {
  Path(const TempFolder& folder, const char* name) {
    snprintf(text, sizeof text, "%s\\%s", folder.path().c_str(), name);
  }
  operator char*() { return text; }
  char text[MAX_PATH];
};

// What the user has, by name: the bytes of files, the entries of archives.
using UserData = std::map<std::string, std::string>;

struct Work {
  // Puts the old data into an empty folder, and says what the work needs.
  std::function<void(const TempFolder& folder)> prepare;
  // The library's own answer whether it was done. It lets no exception out.
  std::function<bool(const TempFolder& folder)> act;
  // The user's data in the folder; without it, all of its files.
  std::function<UserData(const TempFolder& folder)> look = {};
  // Answers that a documented function gives without a look at each of its steps say nothing.
  bool answersForAll = true;
  // Whether a value that is neither old nor new is right nevertheless.
  std::function<bool(const std::string& value)> isRight = {};
  // Whether the old value goes, by what the work is documented to do, before there is a new one.
  std::function<bool(const std::string& name)> goesFirst = {};
};

// The files in a folder by their paths, those of archives with their entries in place of the bytes.
UserData FilesOf(const TempFolder& folder);

// For every kind and every call: each value is the old one or the new one, and all are new when the
// work says so; what old and new data share is still there; nothing is left in the system's folder
// for temporary files. Leaks are the business of the test's main.
void WithEveryFault(const Work& work, std::initializer_list<faults::Kind> kinds);
void WithEveryFault(const Work& work);
