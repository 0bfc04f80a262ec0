// The commands of the console host. Each takes the arguments that follow its name and returns the
// exit status, or kWrongUsage: its usage is printed then. Results go to stdout, messages to stderr.
#pragma once

enum ExitStatus { kDone = 0, kFailed = 1 };
enum { kWrongUsage = -1 };

extern const char kCompareOptions[];  // for its usage

int ZipCommand(int count, char** arguments);
int UnzipCommand(int count, char** arguments);
int ListCommand(int count, char** arguments);
int TestCommand(int count, char** arguments);
int XmlCommand(int count, char** arguments);
int GetCommand(int count, char** arguments);
int SendCommand(int count, char** arguments);
int AskCommand(int count, char** arguments);
int LibsCommand(int count, char** arguments);
int TreeCommand(int count, char** arguments);
int CopyCommand(int count, char** arguments);
int CleanCommand(int count, char** arguments);
int SizeCommand(int count, char** arguments);
int TextCommand(int count, char** arguments);
int CompareCommand(int count, char** arguments);
