#include "foldercmp/common/UserNumbers.h"

#include "settings/RegistryUtil.h"

int LoadNumber(const char* name, int least, int most, int fromTheStart) {
  int value = 0;
  MRegistry::GetProductRegistry().GetUserKey(name, value, fromTheStart);
  return value >= least && value <= most ? value : fromTheStart;
}

void StoreNumber(const char* name, int value) {
  MRegistry::GetProductRegistry().SetUserKey(name, static_cast<unsigned long>(value));
}
