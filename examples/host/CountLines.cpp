#include "CountLines.h"

#include "resource.h"
#include "settings/MString.h"
#include "util/MFile.h"

CountLines::CountLines(const FileNames& files)
    : MMultiOperation(0, static_cast<unsigned>(files.GetSize())),
      m_files(files),
      m_lines(files.GetSize(), kNotCounted) {
  MString message;
  message.FormatMessage(IDS_PROGRESS, files.GetSize());
  SetTitle("Counting lines", message);
  SetDisplayProgressOnSingle(1);
}

// Runs on the thread of the operation, one file after the other: nothing here needs a lock.
OperationReturnState CountLines::Operation(unsigned index) {
  MFile file;  // reads UTF-16 texts as 8-bit ones, so that a line feed is a line feed
  if (!file.Open(m_files[index], CFile::modeRead | CFile::shareDenyNone, nullptr, 1)) {
    return OperationFailed;
  }
  int lines = 0;
  int ok = 1;
  for (uint8_t byte = file.ReadByte(ok); ok && !wasAborted(); byte = file.ReadByte(ok)) {
    if (byte == '\n') ++lines;
  }
  if (file.HasFailed()) return OperationFailed;
  if (!wasAborted()) m_lines[index] = lines;
  return OperationDone;
}
