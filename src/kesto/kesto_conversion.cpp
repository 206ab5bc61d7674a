#include "kesto/kesto_conversion.h"

#include "text/print.h"

namespace quillon {

// clang-format off

void convertKestoTrades(Output& out, const KestoTradeRec* records, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const KestoTradeRec& trade = records[i];
    print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%c|%ld|%ld|%s|\n">(
        out, trade.scripCode, trade.scripId, trade.trdId, trade.rate, trade.qty, trade.brokerId, trade.traderId, trade.time,
        trade.date, trade.clientId, trade.side, trade.tradeType, trade.trnId, trade.days, trade.settFyear);
  }
}

void convertKestoBrokerQuery(Output& out, const KestoBrokerRec* records, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const KestoBrokerRec& record = records[i];
    print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%ld|%ld|%s|\n">(
        out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
        record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, record.legCode,
        record.trdId, record.days, record.settFyear);
  }
}

// clang-format on

}  // namespace quillon
