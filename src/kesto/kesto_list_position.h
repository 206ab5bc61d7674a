// The net position behind a Kesto list: one row for each scrip and number of days, then one total, in the list's output and on
// one page however long.
#pragma once

#include <cstdint>

#include "brokerquery/broker_file.h"
#include "kesto/kesto_list.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

// The sums of one scrip for one number of days. Quantities wrap around at 32 bits, as the stored ones do.
struct KestoGroup {
  std::int32_t lendQty;
  std::int32_t borrowQty;
  double lendValue;  // rupees
  double borrowValue;
};

struct KestoNetPosition {
  double avgLend;    // 0 where nothing was lent
  double avgBorrow;  // 0 where nothing was borrowed
  std::int32_t netQty;
  double netValue;
  double breakEven;  // cut to four decimals and never negative; 0 where netQty is 0
};
KestoNetPosition kestoNetPosition(const KestoGroup& group);

// `order` is that of KestoSort::days; one zero record stands behind the last record of the block and ends the last group, so
// that deals of 0 days without a scrip at the very end make no row. Deals that are neither lent nor borrowed count as borrowed.
// The page number is shown as the list left it.
void printKestoTradesPosition(Output& out, const KestoList& list, const KestoTradeRec* records, KestoOrder order);
// The same behind a broker query; the page ends with a form feed.
void printKestoBrokerPosition(Output& out, const KestoList& list, const KestoBrokerRec* records, KestoOrder order);

}  // namespace quillon
