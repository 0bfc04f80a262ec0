#include "zip/ZipMessages.h"

#include <algorithm>
#include <cstring>

#include "zip/ZipTypes.h"

namespace {

// The spellings are kept: hosts and their log readers look for these texts.
const char* MessageOf(unsigned long code) {
  switch (code) {
    case kZipOk:
      return "Success";
    case kZipNoDuplicate:
      return "Culdn't duplicate handle";
    case kZipNoFile:
      return "Couldn't create/open file";
    case kZipNoMemory:
      return "Failed to allocate memory";
    case kZipWriteError:
      return "Error writing to file";
    case kZipNotFound:
      return "File not found in the zipfile";
    case kZipMore:
      return "Still more data to unzip";
    case kZipCorrupt:
      return "Zipfile is corrupt or not a zipfile";
    case kZipReadError:
      return "Error reading file";
    case kZipBadArguments:
      return "Caller: faulty arguments";
    case kZipNotMemory:
      return "Caller: can only get memory of a memory zipfile";
    case kZipMemoryFull:
      return "Caller: not enough space allocated for memory zipfile";
    case kZipEarlierError:
      return "Caller: there was a previous error";
    case kZipEnded:
      return "Caller: additions to the zip have already been ended";
    case kZipSizeDiffers:
      return "Zip-bug: the anticipated size turned out wrong";
    case kZipPartlyUnzipped:
      return "Caller: the file had already been partially unzipped";
    case kZipWrongKind:
      return "Caller: mixing creation and opening of zip";
    case kZipNotInitialised:
      return "Zip-bug: internal initialisation not completed";
    case kZipNoSeek:
      return "Zip-bug: trying to seek the unseekable";
    case kZipNoChange:
      return "Zip-bug: tried to change mind, but not allowed";
    case kZipFlateError:
      return "Zip-bug: an internal error during flation";
    default:
      return "unknown zip result code";
  }
}

}  // namespace

unsigned int FormatZipMessage(unsigned long code, char* buffer, unsigned int size) {
  const char* text = MessageOf(code);
  const auto length = static_cast<unsigned int>(std::strlen(text));
  if (buffer != nullptr && size > 0) {
    const unsigned int copied = std::min(length, size - 1);
    std::memcpy(buffer, text, copied);
    buffer[copied] = 0;
  }
  return length;
}
