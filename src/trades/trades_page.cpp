#include "trades/trades_page.h"

namespace quillon {

static constexpr std::string_view underscores =
    "_________________________________________________________________"
    "_________________________________________________________________";
static_assert(underscores.size() == 130);

std::string_view ruleOf(std::size_t width) { return underscores.substr(0, width); }

const char* exchangeName(bool isLendingFile) { return isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD."; }

void printIdentity(Output& out, const TradeHeader& header) {
  // clang-format off
  print<"%10s%7ld\n">(out, "Broker Id. :", header.memberId);
  print<"%10s%7ld\n">(out, "Trader Id. :", header.traderId);
  // clang-format on
}

std::string_view shownClientType(const TextField<10>& cliTyp) {
  const std::string_view text = cliTyp.view();
  return text == "CLIENT_SD" ? "CL_SD" : text;
}

}  // namespace quillon
