#include "zelnor/platform/calendar.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/formats.h"
#include "zelnor/platform/text.h"

#include <array>
#include <optional>

namespace zelnor {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// A number in a date, with the count of its digits.
struct Number {
  int value = 0;
  std::size_t digits = 0;
};

/// Reads a text from front to back.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }
  bool AtDigit() const { return !rest_.empty() && IsDigit(rest_.front()); }

  /// Takes this character, where it is the next one.
  bool Take(char c) {
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  /// Takes one blank or more. False where there is none.
  bool TakeBlanks() {
    const bool any = Take(' ');
    while (Take(' ')) {
    }
    return any;
  }

  /// Takes all digits in a row. False unless their count lies within the bounds.
  bool TakeNumber(std::size_t least, std::size_t most, Number& number) {
    number = {};
    while (AtDigit() && number.digits <= most) {
      number.value = number.value * 10 + (rest_.front() - '0');
      ++number.digits;
      rest_.remove_prefix(1);
    }
    return number.digits >= least && number.digits <= most;
  }

  /// Takes all letters in a row.
  std::string_view TakeWord() {
    std::size_t size = 0;
    while (size < rest_.size() && IsLetter(rest_[size])) ++size;
    const std::string_view word = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return word;
  }

 private:
  std::string_view rest_;
};

using Day = std::optional<std::int64_t>;

/// The day count of a calendar day, or nothing where there is no such day.
Day DayOf(int year, int month, int day) {
  constexpr int kFirstYear = 100;
  if (year < kFirstYear || month < 1 || month > 12) return std::nullopt;
  if (day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
  return DayCount(year, month, day);
}

/// Takes a year: two digits stand for a year near this one, three and four for themselves.
bool TakeYear(Reader& reader, int& year) {
  Number number;
  if (!reader.TakeNumber(2, 4, number)) return false;
  year = number.digits == 2 ? FullYear(number.value) : number.value;
  return true;
}

/// The number of a month by its name or the name's first three letters, in any case; 0 for any other word.
int MonthByName(std::string_view word) {
  constexpr std::size_t kShort = 3;
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (EqualIgnoringCase(word, kMonths[i]) || EqualIgnoringCase(word, kMonths[i].substr(0, kShort))) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

/// The rest of `yyyy-mm-dd` behind the year.
Day TakeMonthAndDay(Reader& reader, int year) {
  Number month;
  Number day;
  const bool read =
      reader.Take('-') && reader.TakeNumber(2, 2, month) && reader.Take('-') && reader.TakeNumber(2, 2, day);
  return read ? DayOf(year, month.value, day.value) : std::nullopt;
}

/// The rest of `d/m/yyyy` behind the day.
Day TakeNumericDate(Reader& reader, int first, char separator) {
  Number second;
  int year = 0;
  if (!reader.TakeNumber(1, 2, second) || !reader.Take(separator) || !TakeYear(reader, year))
    return std::nullopt;
  const Day day_first = DayOf(year, second.value, first);
  return day_first ? day_first : DayOf(year, first, second.value);
}

/// The rest of `d mmm yyyy` behind the day and a blank.
Day TakeNamedDate(Reader& reader, int day) {
  const int month = MonthByName(reader.TakeWord());
  int year = 0;
  if (month == 0 || !reader.TakeBlanks() || !TakeYear(reader, year)) return std::nullopt;
  return DayOf(year, month, day);
}

/// `mmm d, yyyy`.
Day TakeMonthFirstDate(Reader& reader) {
  const int month = MonthByName(reader.TakeWord());
  Number day;
  int year = 0;
  const bool read = month != 0 && reader.TakeBlanks() && reader.TakeNumber(1, 2, day) && reader.Take(',') &&
                    reader.TakeBlanks() && TakeYear(reader, year);
  return read ? DayOf(year, month, day.value) : std::nullopt;
}

/// A date without its time.
Day TakeDay(Reader& reader) {
  if (!reader.AtDigit()) return TakeMonthFirstDate(reader);
  Number first;
  if (!reader.TakeNumber(1, 4, first)) return std::nullopt;
  if (first.digits == 4) return TakeMonthAndDay(reader, first.value);
  if (first.digits == 3) return std::nullopt;
  for (const char separator : {'/', '-', '.'}) {
    if (reader.Take(separator)) return TakeNumericDate(reader, first.value, separator);
  }
  return reader.TakeBlanks() ? TakeNamedDate(reader, first.value) : std::nullopt;
}

/// The 24-hour clock's hour of an hour before or after noon, or nothing where there is no such hour.
std::optional<int> HourOf(int hour, std::string_view half) {
  if (half.empty()) return hour <= 23 ? std::optional<int>(hour) : std::nullopt;
  const bool afternoon = EqualIgnoringCase(half, "PM");
  if (!afternoon && !EqualIgnoringCase(half, "AM")) return std::nullopt;
  if (hour < 1 || hour > 12) return std::nullopt;
  return hour % 12 + (afternoon ? 12 : 0);
}

/// The second of the day of `h:nn` or `h:nn:ss`, with or without AM or PM. Takes all of the text.
std::optional<int> TakeTime(Reader& reader) {
  Number hour;
  Number minute;
  Number second;
  if (!reader.TakeNumber(1, 2, hour) || !reader.Take(':') || !reader.TakeNumber(2, 2, minute))
    return std::nullopt;
  if (reader.Take(':') && !reader.TakeNumber(2, 2, second)) return std::nullopt;
  if (minute.value > 59 || second.value > 59) return std::nullopt;
  reader.TakeBlanks();
  const std::optional<int> full_hour = HourOf(hour.value, reader.TakeWord());
  if (!full_hour || !reader.AtEnd()) return std::nullopt;
  return (*full_hour * 60 + minute.value) * 60 + second.value;
}

std::optional<Date> Parse(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(' ') - first + 1);

  Reader alone(text);
  if (const std::optional<int> time = TakeTime(alone)) return Compose({0, *time});

  Reader reader(text);
  const Day day = TakeDay(reader);
  if (!day) return std::nullopt;
  if (reader.AtEnd()) return Compose({*day, 0});
  if (!reader.TakeBlanks()) return std::nullopt;
  const std::optional<int> time = TakeTime(reader);
  return time ? std::optional<Date>(Compose({*day, *time})) : std::nullopt;
}

}  // namespace

Date ToDate(std::string_view text) {
  const std::optional<Date> date = Parse(text);
  if (!date) ThrowTypeMismatch();
  return *date;
}

bool IsDate(std::string_view text) { return Parse(text).has_value(); }

String ToText(Date value) { return Format(value, value.HasTime() ? "dd/mm/yyyy hh:nn:ss" : "dd/mm/yyyy"); }

}  // namespace zelnor
