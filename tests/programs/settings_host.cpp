// A host that reads settings of the user: settings_host PATH number|answer|level [WORDS]. Its exit
// status is the user's number value "number" (777 when there is none), the answer stored for
// message 42, or the message display level.
#include <cstring>

#include "settings/RegistryUtil.h"

int main(int argc, char** argv) {
  if (argc < 3) return 777;
  MRegistry::InitProductRegistry(argv[1], 1);
  const MRegistry& settings = MRegistry::GetProductRegistry();
  int status = 777;
  if (strcmp(argv[2], "number") == 0) settings.GetUserKey("number", status, 777);
  if (strcmp(argv[2], "answer") == 0) status = settings.GetDisplayMessageVal(42);
  if (strcmp(argv[2], "level") == 0) status = settings.GetMessageDisplayLevel();
  MRegistry::FreeProductRegistry();
  return status;
}
