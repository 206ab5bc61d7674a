#include "desktop/scripted/clock.h"

#include <ctime>
#include <optional>

namespace quillon {

static std::optional<LocalTime> stopped;

// The number in these columns; -1 where one of them holds no digit.
static int digits(std::string_view text, std::size_t from, std::size_t count) {
  int number = 0;
  for (char c : text.substr(from, count)) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

static int daysIn(int year, int month) {
  static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : days[month - 1];
}

bool clockStop(std::string_view text) {
  static constexpr std::string_view shape = "....-..-.. ..:..:..";
  if (text.size() != shape.size()) return false;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (shape[i] != '.' && shape[i] != text[i]) return false;
  }
  const LocalTime time = {digits(text, 0, 4),  digits(text, 5, 2),  digits(text, 8, 2),
                          digits(text, 11, 2), digits(text, 14, 2), digits(text, 17, 2)};
  if (time.year < 1 || time.month < 1 || time.month > 12) return false;
  if (time.day < 1 || time.day > daysIn(time.year, time.month)) return false;
  if (time.hour < 0 || time.hour > 23 || time.minute < 0 || time.minute > 59 || time.second < 0 || time.second > 59)
    return false;
  stopped = time;
  return true;
}

void clockReset() { stopped.reset(); }

LocalTime clockNow() {
  if (stopped) return *stopped;
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace quillon
