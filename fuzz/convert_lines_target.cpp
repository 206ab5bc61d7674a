// Arbitrary records through the line writers of every kind, under any rules: an admin file without a format, a Kesto file of a
// strange kind, fewer records than were counted. Whatever the bytes are, each line is closed, a file that ends too early is
// told, and a second run over the same file writes the same.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "convert/convert_lines.h"
#include "frame/client_types.h"
#include "whole_run.h"

namespace quillon::fuzz {
namespace {

constexpr char fileName[] = "CONVERT.IN";

struct Written {
  ConvertEnd end;
  std::string text;
};

Written write(const TradeHeader& header, const ConvertRules& rules, std::int64_t recordCount) {
  Written written;
  Input* in = inputOpen(fileName, InputKind::binary);
  Output* out = in ? outputToMemory(&written.text) : nullptr;
  if (!out) std::abort();
  written.end = writeLines(*in, *out, header, convertKindOf(header), rules, recordCount, [] {});
  if (!outputClose(out)) std::abort();
  inputClose(in);
  return written;
}

ConvertRules anyRules(FuzzedDataProvider& data) {
  ConvertRules rules;
  for (bool* rule : {&rules.isLendingFile, &rules.tradeRec132, &rules.tradeShortLine, &rules.brokerRec132,
                     &rules.brokerShortLine, &rules.adminRec144, &rules.adminRec168, &rules.orderRec112}) {
    *rule = data.ConsumeBool();
  }
  rules.logChoice = static_cast<OrderLogChoice>(data.ConsumeIntegralInRange(1, 3));
  rules.adminFormat = static_cast<AdminFormat>(data.ConsumeIntegralInRange(0, 2));
  return rules;
}

// No kind's file is read beyond its end, and none is given up before it.
void check(const TradeHeader& header, const ConvertRules& rules, std::int64_t recordCount, std::int64_t fileSize) {
  const ConvertKind kind = convertKindOf(header);
  const auto recordSize = static_cast<std::int64_t>(convertRecordSize(kind, rules));
  const bool fits = fileSize >= 24 && (recordSize == 0 || recordCount <= (fileSize - 24) / recordSize);
  const Written written = write(header, rules, recordCount);
  if (written.end != ConvertEnd::formatMissing && (written.end == ConvertEnd::done) != fits) std::abort();
  if (!written.text.empty() && !std::string_view(written.text).ends_with("|\r\n") &&
      !std::string_view(written.text).ends_with("|\r\r\n")) {
    std::abort();
  }
  const Written again = write(header, rules, recordCount);
  if (again.end != written.end || again.text != written.text) std::abort();
}

}  // namespace
}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace quillon;
  registerClientTypes();
  FuzzedDataProvider data(bytes, size);
  static constexpr char letters[][3] = {"NT", "VT", "NB", "VB", "BB", "BT", "NA", "VA",
                                        "NO", "NQ", "NL", "NJ", "SS", "BJ", "XX"};
  const ConvertRules rules = fuzz::anyRules(data);
  const char* const kind = letters[data.ConsumeIntegralInRange<std::size_t>(0, std::size(letters) - 1)];
  const auto beyond = data.ConsumeIntegralInRange<std::int64_t>(0, 2);
  std::string file = data.ConsumeRemainingBytesAsString();
  TradeHeader header = {};
  file.copy(reinterpret_cast<char*>(&header), sizeof header);
  header.fileKind = kind[0];
  header.kind = kind[1];
  const auto fileSize = static_cast<std::int64_t>(file.size());
  fuzz::makeFile(fuzz::fileName, file);
  fuzz::check(header, rules, convertCountOf(fileSize, convertKindOf(header), rules) + beyond, fileSize);
  return 0;
}
