#include "kesto/kesto_header.h"

#include "text/print.h"

namespace quillon {

KestoContent kestoContentOf(const TradeHeader& header) {
  if (header.fileKind != 'C' && header.fileKind != 'B') return KestoContent::other;
  if (header.kind == 'T') return KestoContent::trades;
  return header.kind == 'B' ? KestoContent::brokerQuery : KestoContent::other;
}

std::string kestoHeaderText(const TradeHeader& header, KestoContent content, std::size_t count) {
  // clang-format off
  return formatText<"%s\n%s\n%s\n%s\n%s\n%s\n\n%s\n">(
      content == KestoContent::trades ? "File Type: KESTO TRADES FILE\n" : "File Type: KESTO BROKER QUERY FILE\n",
      formatText<"MemberId : %ld\n">(header.memberId),
      formatText<"TraderId : %ld\n">(header.traderId),
      formatText<"Time      :   %02d : %02d : %02d\n">(header.hour, header.minute, header.second),
      formatText<"Date      :  %02d%02d/%02d/%02d\n">(header.century, header.year, header.month, header.day),
      formatText<"Records in the File=%ld\n">(static_cast<std::int32_t>(count)),
      "Is it Correct?");
  // clang-format on
}

std::string kestoConvertedName(const std::string& fileName, bool brokerQuery) {
  constexpr std::size_t ending = 3;
  std::string name = fileName;
  if (name.size() < ending) return name;
  name.replace(name.size() - ending, brokerQuery ? ending : 1, brokerQuery ? "DAT" : "0");
  return name;
}

}  // namespace quillon
