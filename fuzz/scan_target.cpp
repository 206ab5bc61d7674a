// Scanning against the C library's: any line under each format of the delimited files fills the same fields with the same
// values. Numbers beyond 32 bits are compared as the nearest within.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "text/scan.h"
#include "text/tokens.h"

namespace {

constexpr std::int32_t untouched = -77;

std::int32_t within32(long number) {
  if (number > std::numeric_limits<std::int32_t>::max()) return std::numeric_limits<std::int32_t>::max();
  if (number < std::numeric_limits<std::int32_t>::min()) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(number);
}

void require(bool same, const char* what, const std::string& line) {
  if (same) return;
  std::fprintf(stderr, "%s differs for \"%s\"\n", what, line.c_str());
  std::abort();
}

void touchline(const std::string& line) {
  quillon::TextField<12> id{};
  std::int32_t a = untouched, b = untouched, c = untouched, d = untouched, e = untouched, f = untouched, g = untouched, h = untouched;
  const int stored = quillon::scan<"%[^|]|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|">(line, id, a, b, c, d, e, f, g, h);
  std::string text(line.size() + 1, '\0');
  long l[8];
  for (long& number : l) number = untouched;
  const int byLibrary = std::sscanf(line.c_str(), "%[^|]|%ld|%ld|%ld|%ld|%ld|%ld|%ld|%ld|", text.data(), &l[0], &l[1], &l[2], &l[3],
                                    &l[4], &l[5], &l[6], &l[7]);
  require(stored == (byLibrary < 0 ? 0 : byLibrary), "the count of a touchline", line);
  require(id.view() == std::string(text.c_str()).substr(0, 11), "the id of a touchline", line);
  const std::int32_t ours[8] = {a, b, c, d, e, f, g, h};
  for (int i = 0; i < 8; ++i) require(ours[i] == within32(l[i]), "a number of a touchline", line);
}

void limitsHeader(const std::string& line) {
  quillon::TextField<32> title{}, date{};
  std::int32_t broker = untouched, trader = untouched;
  const int stored = quillon::scan<"%[^|]|%ld|%[^|]|%ld|">(line, title, broker, date, trader);
  std::string one(line.size() + 1, '\0'), two(line.size() + 1, '\0');
  long first = untouched, second = untouched;
  const int byLibrary = std::sscanf(line.c_str(), "%[^|]|%ld|%[^|]|%ld|", one.data(), &first, two.data(), &second);
  require(stored == (byLibrary < 0 ? 0 : byLibrary), "the count of a first line", line);
  require(title.view() == std::string(one.c_str()).substr(0, 31), "the title", line);
  require(date.view() == std::string(two.c_str()).substr(0, 31), "the date", line);
  require(broker == within32(first) && trader == within32(second), "a number of a first line", line);
}

void tokens(const std::string& line) {
  quillon::Tokens ours = {line};
  std::string copy = line;
  for (char* token = std::strtok(copy.data(), "|"); token; token = std::strtok(nullptr, "|")) {
    const std::string_view found = quillon::tokenNext(ours, "|");
    require(found == token, "a token", line);
    require(quillon::textToNumber(found) == within32(std::strtol(token, nullptr, 10)), "a token's number", line);
  }
  require(quillon::tokenNext(ours, "|").empty(), "the end of the tokens", line);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string line(reinterpret_cast<const char*>(bytes), size);
  line.resize(std::strlen(line.c_str()));
  touchline(line);
  limitsHeader(line);
  tokens(line);
  return 0;
}
