// Numbers that the program keeps per user from one run to the next: user values of the product
// registry.
#pragma once

// A number from least to most. What is missing, of another kind or out of that range counts as
// fromTheStart.
int LoadNumber(const char* name, int least, int most, int fromTheStart);
void StoreNumber(const char* name, int value);

inline bool LoadFlag(const char* name, bool fromTheStart) {
  return LoadNumber(name, 0, 1, fromTheStart) != 0;
}
