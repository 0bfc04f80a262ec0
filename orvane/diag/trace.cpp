#include "diag/trace.h"

#include <io.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <new>

#include "diag/TraceFile.h"
#include "entry/PathUtils.h"
#include "entry/strutils.h"
#include "zip/ZipFiles.h"

namespace {

constexpr size_t kLongestFormat = 1014;

bool IsEmpty(const char* text) { return text == nullptr || *text == 0; }

const char* OrNull(const char* text) { return IsEmpty(text) ? "<null>" : text; }

// Runs the writing of an event. Out of memory is a failure like every other: silent.
template <class Write>
int Silently(Write write) {
  try {
    return write();
  } catch (CException* exception) {
    exception->Delete();
    return 0;
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

// One event line; indent stands in front of the title, end behind the text.
int WriteEvent(const char* path, const char* indent, const char* title, const char* text,
               const char* end) {
  if (IsEmpty(path)) return 0;
  return Silently([&] {
    const TraceFile file(path);
    if (!file) return 0;
    SYSTEMTIME now;
    GetLocalTime(&now);
    fprintf(file.get(), "\n%02d:%02d:%02d:%03d:   %s%s: %s%s", now.wHour, now.wMinute, now.wSecond,
            now.wMilliseconds, indent, title, text, end);
    return 1;
  });
}

int WriteNumberEvent(const char* path, const char* indent, const char* title, int value,
                     const char* format) {
  if (IsEmpty(path)) return 0;
  if (IsEmpty(format)) format = "%d";
  ASSERT(strlen(format) < kLongestFormat);
  char text[1024];
  snprintf(text, sizeof text, format, value);
  return WriteEvent(path, indent, title, OrNull(text), "");
}

void WriteEnvironment(const char* path) {
  char version[80];
  snprintf(version, sizeof version, "%d.%d.%d (%d)", static_cast<int>(_winmajor),
           static_cast<int>(_winminor), static_cast<int>(_osver), static_cast<int>(_winver));
  TraceEvent(path, "Windows version", version);
  for (char** entry = _environ; entry != nullptr && *entry != nullptr; ++entry) {
    TraceEvent(path, "Environ Info", *entry);
  }
}

// The heading of a dump: its kind, the name of what is dumped and the time.
void WriteDumpHeading(FILE* log, const char* kind, const char* name) {
  char time[9];
  _strtime(time);
  fprintf(log, "\n  >> Output %s: %s (%s)\n\t", kind, OrNull(name), time);
}

// Copies what source holds now; a log that is dumped into itself must not chase its own end.
void CopyIndented(FILE* source, FILE* log) {
  long long left = _filelengthi64(_fileno(source));
  for (int c; left-- > 0 && (c = fgetc(source)) != EOF;) {
    fputc(c, log);
    if (c == '\n') fputc('\t', log);
  }
}

}  // namespace

int InitTrace(const char* path, int reset) {
  if (IsEmpty(path)) return 0;
  if (reset != 0) ForceDeleteFile(path);

  struct _stat status;
  if (_stat(path, &status) != 0) WriteEnvironment(path);

  char date[9];
  _strdate(date);
  char title[80];
  snprintf(title, sizeof title, "\n\n====================Date:%s=====================\n", date);
  TraceEvent(path, title, path);
  return TraceEvent(path, "Start trace by", GetCommandLineA());
}

int TraceEvent(const char* path, const char* title, const char* text) {
  return WriteEvent(path, "", OrNull(title), OrNull(text), "");
}

int TraceEvent(const char* path, const char* title, int value, const char* format) {
  return WriteNumberEvent(path, "", OrNull(title), value, format);
}

int TraceOutput(const char* path, const char* file) {
  if (IsEmpty(path)) return 0;
  return Silently([&] {
    const TraceFile log(path);
    if (!log) return 0;
    WriteDumpHeading(log.get(), "file", file);
    if (IsEmpty(file)) return 1;
    FILE* const source = fopen(file, "r");
    if (source == nullptr) {
      fputs("File does not exists.\n   << Output end", log.get());
      return 1;
    }
    CopyIndented(source, log.get());
    fclose(source);
    fputs("  << Output end", log.get());
    return 1;
  });
}

int TraceZip(const char* path, const char* zipFile) {
  if (IsEmpty(path)) return 0;
  return Silently([&] {
    CArray<CString, const char*> names;
    UnZipFileList(zipFile, "", names);
    const TraceFile log(path);
    if (!log) return 0;
    WriteDumpHeading(log.get(), "of ZIP file", zipFile);
    if (IsEmpty(zipFile)) return 1;
    for (int i = 0; i < names.GetSize(); ++i) {
      fprintf(log.get(), "%s\n\t", static_cast<const char*>(names[i]));
    }
    fputs("  << Output end", log.get());
    return 1;
  });
}

CString TraceFunction::logFileName;
CString TraceFunction::orgLogFileName;
int TraceFunction::traceOutput = 1;

TraceFunction::TraceFunction(const char* name) : m_name(name) {
  ::TraceEvent(logFileName, ">>>>Entry", m_name);
}

TraceFunction::~TraceFunction() { WriteEvent(logFileName, "", "<<<<Exit", m_name, "\n"); }

int TraceFunction::InitTrace(const char* name, int reset, int output) {
  logFileName = name;
  orgLogFileName = name;
  traceOutput = output;
  return ::InitTrace(name, reset);
}

void TraceFunction::SwitchTraceName(const char* name) {
  // The empty name is not the end of it, by design: the rest then makes a file named ".log".
  if (IsEmpty(name)) logFileName = orgLogFileName;
  CString folder;
  CString baseName;
  SplitAtLastBackslash(orgLogFileName, folder, baseName);
  // Without a right part, the left one was the name and there is no folder.
  if (baseName.IsEmpty()) folder.Empty();
  logFileName = folder + "\\" + CString(name) + ".log";
}

int TraceFunction::TraceEvent(const char* title, const char* text) {
  return WriteEvent(logFileName, "  ", title == nullptr ? "" : title, OrNull(text), "");
}

int TraceFunction::TraceEvent(const char* title, int value, const char* format) {
  return WriteNumberEvent(logFileName, "  ", title == nullptr ? "" : title, value, format);
}

int TraceFunction::TraceOutput(const char* file) {
  return traceOutput == 0 ? 1 : ::TraceOutput(logFileName, file);
}

int TraceFunction::TraceZip(const char* zipFile) {
  return traceOutput == 0 ? 1 : ::TraceZip(logFileName, zipFile);
}

const char* TraceFunction::GetLogFileName() { return logFileName; }
