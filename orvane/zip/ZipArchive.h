// What an HZIP points to, and the border that every public zip function crosses.
#pragma once

#include <exception>

#include "zip/ZipTypes.h"

// The kind word tells writers and readers apart before anything else of them is touched.
enum class ZipArchiveKind : unsigned long { kReader = 1, kWriter = 2 };

struct ZipArchive {
  explicit ZipArchive(ZipArchiveKind kindWord) : kind(kindWord) {}
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;

  const ZipArchiveKind kind;
};

// Whether a handle is of a kind; null counts as any, as the public functions promise.
inline bool IsZipArchiveOf(const ZipArchive* archive, ZipArchiveKind kind) {
  return archive == nullptr || archive->kind == kind;
}

// Frees the handle of a writer without ending its archive: of one that was created by name nothing
// is left, and what it was to replace stays.
void DropZip(HZIP archive);

// Runs the body of a public function, keeps its result as the last one and lets no exception out:
// the only ones that can arise here are failed allocations.
template <class Body>
ZipResult RunZipCall(ZipResult& lastResult, Body&& body) noexcept {
  try {
    lastResult = body();
  } catch (const std::exception&) {
    lastResult = kZipNoMemory;
  }
  return lastResult;
}

// The same for functions that take a handle: checks it and gives it as what it is.
template <class Archive, class Body>
ZipResult RunZipCall(ZipResult& lastResult, HZIP handle, Body&& body) noexcept {
  return RunZipCall(lastResult, [&]() -> ZipResult {
    if (handle == nullptr) return kZipBadArguments;
    if (handle->kind != Archive::kArchiveKind) return kZipWrongKind;
    return body(static_cast<Archive&>(*handle));
  });
}
