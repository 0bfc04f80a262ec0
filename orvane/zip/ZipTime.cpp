#include "zip/ZipTime.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int64_t kUnitsPerSecond = 10'000'000;
constexpr int64_t kSecondsTo1970 = 11'644'473'600;

constexpr ZipDosTime kFirstDosTime = {0x0000, 0x0021};  // 1980-01-01 00:00:00
constexpr ZipDosTime kLastDosTime = {0xBF7D, 0xFF9F};   // 2107-12-31 23:59:58

}  // namespace

ZipTimeZone::ZipTimeZone() {
  if (GetTimeZoneInformation(&m_zone) == TIME_ZONE_ID_INVALID) m_zone = {};
}

ZipDosTime ZipTimeZone::ToDosTime(const FILETIME& fileTime) const {
  SYSTEMTIME utc, local;
  FILETIME localTime;
  if (!FileTimeToSystemTime(&fileTime, &utc) ||
      !SystemTimeToTzSpecificLocalTime(&m_zone, &utc, &local) ||
      !SystemTimeToFileTime(&local, &localTime))
    return kFirstDosTime;
  if (local.wYear < 1980) return kFirstDosTime;
  ZipDosTime result;
  if (local.wYear > 2107 || !FileTimeToDosDateTime(&localTime, &result.date, &result.time))
    return kLastDosTime;
  return result;
}

FILETIME ZipTimeZone::FromDosTime(ZipDosTime dosTime) const {
  SYSTEMTIME local = {};
  local.wYear = static_cast<WORD>(1980 + (dosTime.date >> 9));
  local.wMonth = dosTime.date >> 5 & 15;
  local.wDay = dosTime.date & 31;
  local.wHour = dosTime.time >> 11;
  local.wMinute = dosTime.time >> 5 & 63;
  local.wSecond = static_cast<WORD>(std::min((dosTime.time & 31) * 2, 59));
  SYSTEMTIME utc;
  FILETIME result;
  // The first conversion refuses what is no date; the others take it for one.
  if (!SystemTimeToFileTime(&local, &result) ||
      !TzSpecificLocalTimeToSystemTime(&m_zone, &local, &utc) ||
      !SystemTimeToFileTime(&utc, &result))
    return {};
  return result;
}

int32_t ToUnixTime(const FILETIME& fileTime) {
  const int64_t units =
      static_cast<int64_t>(fileTime.dwHighDateTime) << 32 | fileTime.dwLowDateTime;
  const int64_t seconds = units / kUnitsPerSecond - kSecondsTo1970;
  return static_cast<int32_t>(std::clamp<int64_t>(seconds, std::numeric_limits<int32_t>::min(),
                                                  std::numeric_limits<int32_t>::max()));
}

FILETIME FromUnixTime(int32_t seconds) {
  const int64_t units = (seconds + kSecondsTo1970) * kUnitsPerSecond;
  return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}
