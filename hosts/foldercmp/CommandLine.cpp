#include "foldercmp/CommandLine.h"

#include <optional>

#include "foldercmp/FolderPath.h"

namespace {

constexpr char kDiffWord[] = "Diff";

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::optional<CompareOptions> compareOptions(const CString& argument) {
  for (int mode = kWhiteSpaceExact; mode <= kWhiteSpaceIgnored; ++mode) {
    for (const bool ignoreCase : {false, true}) {
      const CompareOptions options = {.ignoreCase = ignoreCase, .whiteSpaceMode = mode};
      if (argument == CompareArgument(options)) return options;
    }
  }
  return std::nullopt;
}

CommandLine diffCommand(std::vector<CString> arguments) {
  CommandLine command;
  command.kind = CommandLine::kDiff;
  command.diff.options = compareOptions(arguments[1]);
  if (command.diff.options) arguments.erase(arguments.begin() + 1);
  if (arguments.size() != 3 && arguments.size() != 5) {
    command.kind = CommandLine::kWrong;
    return command;
  }
  command.diff.left = arguments[1];
  command.diff.right = arguments[2];
  if (arguments.size() == 5) {
    command.diff.leftTitle = arguments[3];
    command.diff.rightTitle = arguments[4];
  }
  return command;
}

}  // namespace

std::vector<CString> SplitArguments(const char* text) {
  std::vector<CString> arguments;
  for (const char* c = text;;) {
    while (isBlank(*c)) ++c;
    if (*c == 0) return arguments;
    CString argument;
    bool isQuoted = false;
    for (; *c != 0 && (isQuoted || !isBlank(*c)); ++c) {
      if (*c == '"') {
        isQuoted = !isQuoted;
        continue;
      }
      argument += *c;
      if (IsDBCSLeadByte(static_cast<BYTE>(*c)) && c[1] != 0) argument += *++c;
    }
    arguments.push_back(argument);
  }
}

CommandLine ReadCommandLine(const char* text) {
  const std::vector<CString> arguments = SplitArguments(text);
  const size_t count = arguments.size();
  if (count > 2 && arguments[0] == kDiffWord) return diffCommand(arguments);
  CommandLine command;
  if (count == 2) {
    command.base = AbsoluteFolder(arguments[0]);
    command.revised = AbsoluteFolder(arguments[1]);
  } else if (count != 0) {
    command.kind = CommandLine::kWrong;
  }
  return command;
}

CString CompareArgument(const CompareOptions& options) {
  CString argument;
  argument.Format("/compare:%d%s", options.whiteSpaceMode, options.ignoreCase ? "i" : "");
  return argument;
}
