#pragma once

// orv xml FILE [-o OUT] [--html]: parses a file, prints the problems or a summary of the tree, and
// writes the tree. Takes the arguments behind "xml"; returns the exit status.
int XmlCommand(int count, char** arguments);
