// Formatting against the C library's: any value in every conversion the reports use must come out byte by byte the same.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "text/print.h"

namespace {

void expectSame(const char* format, const std::string& ours, const char* library, int size) {
  if (size >= 0 && ours == std::string(library, static_cast<std::size_t>(size))) return;
  std::fprintf(stderr, "%s gives \"%s\" and by the library \"%s\"\n", format, ours.c_str(), library);
  std::abort();
}

// The format is told twice because its own widths differ: %I64d and %ld are the library's %lld and %d here.
#define COMPARE(ourFormat, libraryFormat, value)                                                     \
  do {                                                                                               \
    char library[1024];                                                                              \
    const int size = std::snprintf(library, sizeof library, libraryFormat, value);                   \
    expectSame(ourFormat, quillon::formatText<ourFormat>(value), library, size);                     \
  } while (false)

void numbers(std::int32_t number, std::int64_t wide) {
  const long long librarys = wide;
  COMPARE("%ld", "%d", number);
  COMPARE("%d", "%d", number);
  COMPARE("%9ld", "%9d", number);
  COMPARE("%-3d|", "%-3d|", number);
  COMPARE("%02d", "%02d", number);
  COMPARE("%10Fld", "%10d", number);
  COMPARE("%+d", "%+d", number);
  COMPARE("%I64d", "%lld", librarys);
  COMPARE("%17I64d", "%17lld", librarys);
  COMPARE("%011I64d", "%011lld", librarys);
}

void amounts(double amount) {
  COMPARE("%.2f", "%.2f", amount);
  COMPARE("%8.2f", "%8.2f", amount);
  COMPARE("%15.2lf", "%15.2lf", amount);
  COMPARE("%12.4f", "%12.4f", amount);
  COMPARE("%f", "%f", amount);
  COMPARE("%.0f", "%.0f", amount);
  COMPARE("%-20.3f|", "%-20.3f|", amount);
  COMPARE("%020.1f", "%020.1f", amount);
}

void texts(const char* text, char letter) {
  COMPARE("%s", "%s", text);
  COMPARE("%11s", "%11s", text);
  COMPARE("%-6s|", "%-6s|", text);
  COMPARE("%.8s", "%.8s", text);
  COMPARE("%1c", "%1c", letter);
  COMPARE("%12c", "%12c", letter);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  const auto number = data.ConsumeIntegral<std::int32_t>();
  const auto wide = data.ConsumeIntegral<std::int64_t>();
  numbers(number, wide);
  double amount;
  static_assert(sizeof amount == sizeof wide);
  __builtin_memcpy(&amount, &wide, sizeof amount);
  amounts(amount);
  amounts(number / 100.0);
  amounts(static_cast<double>(wide) / 10000.0);
  const auto letter = data.ConsumeIntegral<char>();
  // The library ends a text at its NUL, and ours is bounded by it as well.
  texts(data.ConsumeRandomLengthString(600).c_str(), letter == 0 ? 'x' : letter);
  return 0;
}
