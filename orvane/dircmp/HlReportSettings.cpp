#include "dircmp/HlReportSettings.h"

#include "settings/RegistryUtil.h"

namespace {

bool flag(const MRegistry& registry, const char* name, bool defaultValue) {
  int value = defaultValue;
  registry.GetUserKey(name, value, defaultValue);
  return value != 0;
}

constexpr char kModified[] = "IncludeModified", kNew[] = "IncludeNew",
               kDeleted[] = "IncludeDeleted";
constexpr char kCopy[] = "CopyExistFiles", kLink[] = "LinkSourceFiles";
constexpr int kLinkBase = 1, kLinkRevised = 2;

}  // namespace

void HlReportSettings::Load(const MRegistry& registry) {
  includeModified = flag(registry, kModified, true);
  includeNew = flag(registry, kNew, true);
  includeDeleted = flag(registry, kDeleted, true);
  int link = 0;
  registry.GetUserKey(kLink, link, 0);
  documentLinks = flag(registry, kCopy, false) ? kCopies
                  : link == kLinkBase          ? kBaseInPlace
                  : link == kLinkRevised       ? kRevisedInPlace
                                               : kInactive;
}

void HlReportSettings::Store(const MRegistry& registry) const {
  const auto store = [&](const char* name, int value) {
    VERIFY(registry.SetUserKey(name, static_cast<unsigned long>(value)));
  };
  store(kModified, includeModified);
  store(kNew, includeNew);
  store(kDeleted, includeDeleted);
  store(kCopy, documentLinks == kCopies);
  store(kLink, documentLinks == kBaseInPlace      ? kLinkBase
               : documentLinks == kRevisedInPlace ? kLinkRevised
                                                  : 0);
}
