// What goes into the pages that a folder comparison adds to its list's reports.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

class MRegistry;

struct ORVANE_API HlReportSettings {
  // Where a document's name in the report leads to.
  enum DocumentLinks {
    kInactive,       // nowhere
    kCopies,         // to a copy beside the report: of the revised document, if there is one
    kBaseInPlace,    // to the base document where it is; to the revised one if there is no other
    kRevisedInPlace  // the other way round
  };

  // The states whose documents get a section in the pages, and modified ones a page of differences.
  bool includeModified = true;
  bool includeNew = true;
  bool includeDeleted = true;
  DocumentLinks documentLinks = kInactive;

  bool hasSections() const { return includeModified || includeNew || includeDeleted; }

  // User values "IncludeModified", "IncludeNew", "IncludeDeleted" (from the start 1),
  // "CopyExistFiles" (0; 1: copies) and "LinkSourceFiles" (0; 1: base, 2: revised documents).
  void Load(const MRegistry& registry);
  void Store(const MRegistry& registry) const;
};
