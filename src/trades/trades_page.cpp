#include "trades/trades_page.h"

namespace quillon {

const char* exchangeName(bool isLendingFile) { return isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD."; }

void printIdentity(Output& out, const TradeHeader& header) {
  // clang-format off
  print<"%10s%7ld\n">(out, "Broker Id. :", header.memberId);
  print<"%10s%7ld\n">(out, "Trader Id. :", header.traderId);
  // clang-format on
}

}  // namespace quillon
