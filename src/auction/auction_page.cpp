#include "auction/auction_page.h"

#include "text/print.h"

namespace quillon {

const char* auctionExchange(const AuctionMarket& market) {
  return market.isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
}

void printListingExchangeLine(Output& out, const AuctionStatement& statement, int page) {
  print<"\n%26s  %11s%10s %15s%15s%d">(out, auctionExchange(statement.market), "Run Date : ", statement.today, " ",
                                       "Page : ", page);
}

}  // namespace quillon
