// The formats of reports. Inside the library only.
#pragma once

#include <memory>

#include "lists/ReportItems.h"
#include "markup/OXMarkupFile.h"

// Writes a report in one format: Begin, each row once, End. It keeps no rows. Whether all was
// written is the file's to tell.
class ReportWriter {
 public:
  // Both stay the caller's.
  ReportWriter(COXMarkupFile& file, const ReportHead& head) : m_file(file), m_head(head) {}
  virtual ~ReportWriter() = default;

  // Whether each row is to be shown to Measure before the first is written.
  virtual bool MeasuresFirst() const { return false; }
  virtual void Measure(const ReportRow&) {}

  virtual void Begin() = 0;
  virtual void Add(const ReportRow& row) = 0;
  virtual void End() = 0;

 protected:
  COXMarkupFile& m_file;
  const ReportHead& m_head;
};

std::unique_ptr<ReportWriter> MakeHtmlReport(COXMarkupFile& file, const ReportHead& head);
std::unique_ptr<ReportWriter> MakeTextReport(COXMarkupFile& file, const ReportHead& head);
std::unique_ptr<ReportWriter> MakeXmlReport(COXMarkupFile& file, const ReportHead& head);
std::unique_ptr<ReportWriter> MakeTabReport(COXMarkupFile& file, const ReportHead& head);
