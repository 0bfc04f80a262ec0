// orv: the library from a command line, for developers who try it and for scripts.
#include <afxwin.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "commands.h"
#include "operation_run.h"

// Arguments such as *.txt are patterns of the commands: the runtime is not to expand them.
extern "C" int _CRT_glob;
int _CRT_glob = 0;

namespace {

constexpr int kWrongUsageStatus = 2;

struct Command {
  const char* name;
  const char* arguments;
  const char* purpose;
  int fewest;
  int most;
  int (*run)(int count, char** arguments);
  bool hasWindow = false;         // takes --window
  const char* options = nullptr;  // what else it takes that begins with "--", for its usage
};

constexpr Command kCommands[] = {
    {"zip", "ARCHIVE FOLDER [PATTERN]", "writes a folder tree into an archive (-: to stdout)", 2, 3,
     ZipCommand, true},
    {"unzip", "ARCHIVE FOLDER", "extracts an archive into a folder", 2, 2, UnzipCommand, true},
    {"list", "ARCHIVE", "prints size, packed size, attributes, time (UTC), name", 1, 1,
     ListCommand},
    {"test", "ARCHIVE", "reads every entry and checks its CRC", 1, 1, TestCommand},
    {"xml", "FILE [-o OUT] [--html]", "parses markup, prints problems or a summary", 1, 4,
     XmlCommand, false, ""},
    {"get", "URL [FILE]", "fetches a file over the internet", 1, 2, GetCommand, true},
    {"send", "FILE SERVER[:PORT] PAGE", "posts a file to a server page", 3, 3, SendCommand},
    {"ask", "URL", "asks a server page for its result", 1, 1, AskCommand},
    {"libs", "", "prints the versions of system libraries", 0, 0, LibsCommand},
    {"tree", "FOLDER [EXTENSION]", "prints the files of a folder tree", 1, 2, TreeCommand},
    {"copy", "SOURCE DESTINATION", "copies the files of a folder tree", 2, 2, CopyCommand, true},
    {"clean", "FOLDER NAME | --mask MASK", "deletes what has a name, in the whole tree, or matches",
     2, 3, CleanCommand, false, ""},
    {"size", "FOLDER", "prints the bytes and the number of files of a tree", 1, 1, SizeCommand},
    {"text", "FILE [-o OUT]", "prints a text in 8-bit characters, writes it in UTF-8", 1, 3,
     TextCommand},
    {"compare", "BASE REVISED [OPTIONS]", "compares two folder trees", 2, 18, CompareCommand, true,
     kCompareOptions},
};

void PrintHelp(FILE* out) {
  fputs("usage: orv COMMAND ARGUMENTS\n\n", out);
  for (const Command& command : kCommands) {
    fprintf(out, "  %-7s %-26s %s\n", command.name, command.arguments, command.purpose);
  }
  fputs(
      "\n  zip, unzip, copy, get and compare take --window: progress in a window, with a Stop "
      "button\n"
      "  --version  prints the version\n"
      "  --help     prints this text; behind a command: how it is used\n"
      "\nExit status: 0 done, 1 failed, 2 wrong usage; compare: 0 same, 1 different, 2 trouble.\n",
      out);
}

void PrintUsage(const Command& command, FILE* out) {
  fprintf(out, "usage: orv %s %s%s\n%s", command.name, command.arguments,
          command.hasWindow ? " [--window]" : "",
          command.options != nullptr ? command.options : "");
}

// Takes an option out of the arguments: whether it was there.
bool TakeOption(std::string_view option, int& count, char** arguments) {
  char** const end = std::remove(arguments, arguments + count, option);
  const bool isThere = end != arguments + count;
  count = static_cast<int>(end - arguments);
  return isThere;
}

bool HasUnknownOption(const Command& command, int count, char** arguments) {
  return command.options == nullptr &&
         std::any_of(arguments, arguments + count,
                     [](std::string_view argument) { return argument.starts_with("--"); });
}

int Run(const Command& command, int count, char** arguments) {
  if (TakeOption("--help", count, arguments)) {
    PrintUsage(command, stdout);
    return kDone;
  }
  HandleCtrlC();
  if (command.hasWindow && TakeOption("--window", count, arguments)) ShowProgressWindow();
  const bool isUsable = count >= command.fewest && count <= command.most &&
                        !HasUnknownOption(command, count, arguments);
  const int status = isUsable ? command.run(count, arguments) : kWrongUsage;
  if (status != kWrongUsage) return status;
  PrintUsage(command, stderr);
  return kWrongUsageStatus;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    PrintHelp(stderr);
    return kWrongUsageStatus;
  }
  const char* const name = argv[1];
  if (strcmp(name, "--help") == 0) {
    PrintHelp(stdout);
    return kDone;
  }
  if (strcmp(name, "--version") == 0) {
    puts("orv " ORVANE_VERSION);
    return kDone;
  }
  for (const Command& command : kCommands) {
    if (strcmp(name, command.name) == 0) return Run(command, argc - 2, argv + 2);
  }
  fprintf(stderr, "orv: there is no command %s; orv --help lists them\n", name);
  return kWrongUsageStatus;
}
