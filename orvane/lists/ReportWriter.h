// The formats of reports. Inside the library only.
#pragma once

#include <memory>

#include "lists/ReportFile.h"
#include "lists/ReportItems.h"

// Writes a report in one format: Begin, each row once, End. It keeps no rows.
class ReportWriter {
 public:
  // Both stay the caller's.
  ReportWriter(ReportFile& file, const ReportHead& head) : m_file(file), m_head(head) {}
  virtual ~ReportWriter() = default;

  // Whether each row is to be shown to Measure before the first is written.
  virtual bool MeasuresFirst() const { return false; }
  virtual void Measure(const ReportRow&) {}

  virtual void Begin() = 0;
  virtual void Add(const ReportRow& row) = 0;
  virtual void End() = 0;

 protected:
  ReportFile& m_file;
  const ReportHead& m_head;
};

std::unique_ptr<ReportWriter> MakeHtmlReport(ReportFile& file, const ReportHead& head);
std::unique_ptr<ReportWriter> MakeTextReport(ReportFile& file, const ReportHead& head);
std::unique_ptr<ReportWriter> MakeXmlReport(ReportFile& file, const ReportHead& head);
std::unique_ptr<ReportWriter> MakeTabReport(ReportFile& file, const ReportHead& head);
