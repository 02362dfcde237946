#include "zelnor/platform/local_time.h"

#include "zelnor/platform/failure.h"

namespace zelnor {

Date LocalDate(const std::timespec& moment) {
  std::tm local{};
  if (localtime_r(&moment.tv_sec, &local) == nullptr) throw RuntimeError(75);
  const double day = Date::FromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).Serial();
  const double seconds = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec;
  const double time = (seconds + static_cast<double>(moment.tv_nsec) * 1e-9) / 86400.0;
  // Days before 1899 are negative, and their time still counts forward.
  return Date::FromSerial(day < 0 ? day - time : day + time);
}

}  // namespace zelnor
