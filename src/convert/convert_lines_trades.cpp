// Lines of trades and broker queries, those of Kesto files among them. The 64-bit column is the number of the file, whatever
// its date.
#include "brokerquery/broker_file.h"
#include "convert/convert_records.h"
#include "text/print.h"
#include "trades/trade_file.h"

namespace quillon {

// clang-format off

// ---- Trades -----------------------------------------------------------------------------------------------------------

static void trade132(Output& out, const TradeRec132& trade, bool isLendingFile) {
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%c|%I64d|%s|%s|\r\n">(
      out, trade.scripCode, trade.scripId, trade.trdId, trade.rate, trade.qty, trade.brokerId, trade.traderId, trade.time,
      trade.date, trade.clientId, lendAsL(trade.side, isLendingFile), trade.tradeType, trade.trnId, trade.cliTyp,
      trade.clientText);
}

static void trade144Short(Output& out, const TradeRec144& trade, bool isLendingFile) {
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%c|%I64d|%s|%s|%s|\r\n">(
      out, trade.scripCode, trade.scripId, trade.trdId, trade.rate, trade.qty, trade.brokerId, trade.traderId, trade.time,
      trade.date, trade.clientId, lendAsS(trade.side, isLendingFile), trade.tradeType, trade.trnId, trade.cliTyp,
      trade.clientText, timeOfStamp(trade.orderTimeStamp));
}

static void trade144Long(Output& out, const TradeRec144& trade, bool isLendingFile) {
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%c|%I64d|%s|%s|%s|%s|%s|\r\n">(
      out, trade.scripCode, trade.scripId, trade.trdId, trade.rate, trade.qty, trade.brokerId, trade.traderId, trade.time,
      trade.date, trade.clientId, lendAsL(trade.side, isLendingFile), trade.tradeType, trade.trnId, trade.cliTyp,
      trade.clientText, trade.scGr, formatCell<"%d/%ld">(trade.settlementYear, trade.settlementNo),
      timeOfStamp(trade.orderTimeStamp));
}

// ---- Broker queries ---------------------------------------------------------------------------------------------------

static void broker132(Output& out, const BrokerRec132& record, bool isLendingFile) {
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%I64d|%c|%c|%ld|%s|%s|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, record.trnId,
      record.tradeType, lendAsL(record.side, isLendingFile), record.trdId, record.instId, record.tailText);
}

static void broker160Short(Output& out, const BrokerRec160& record, bool isLendingFile) {
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%I64d|%c|%c|%ld|%s|%s|%s|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, record.trnId,
      record.tradeType, lendAsS(record.side, isLendingFile), record.trdId, record.instId, record.tailText,
      timeOfStamp(record.orderTimeStamp));
}

static void broker160Long(Output& out, const BrokerRec160& record, bool isLendingFile) {
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%I64d|%c|%c|%ld|%s|%s|%s|%s|%s|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, record.trnId,
      record.tradeType, lendAsL(record.side, isLendingFile), record.trdId, record.instId, record.tailText,
      record.scripGroup, formatCell<"%d/%ld">(record.settlementPart1, record.settlementPart2),
      timeOfStamp(record.orderTimeStamp));
}

// ---- Kesto ------------------------------------------------------------------------------------------------------------

// A lend goes out as a buy, a borrow as a sell: so a stored 'S' becomes a 'B'. The rate alone is scaled, toward zero.

static void kestoTrade(Output& out, const KestoTradeRec& trade, const KeptLetter& side) {
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%c|%ld|\r\n">(
      out, trade.scripCode, trade.scripId, trade.trdId, trade.rate / 100, trade.qty, trade.brokerId, trade.traderId,
      trade.time, trade.date, trade.clientId, side.text, trade.tradeType, trade.trnId);
}

static void kestoBroker(Output& out, const KestoBrokerRec& record, const KeptLetter& side) {
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%c|%ld|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate / 100, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, side.text,
      record.trdId);
}

// clang-format on

// ---- The files --------------------------------------------------------------------------------------------------------

ConvertEnd writeTrades(const ConvertRun& run) {
  const bool lending = run.rules.isLendingFile;
  if (run.rules.tradeRec132)
    return eachRecord<TradeRec132>(run.in, run.recordCount,
                                   [&](const TradeRec132& trade) { trade132(run.out, trade, lending); });
  const auto line = run.rules.tradeShortLine ? trade144Short : trade144Long;
  return eachRecord<TradeRec144>(run.in, run.recordCount, [&](const TradeRec144& trade) { line(run.out, trade, lending); });
}

ConvertEnd writeBrokerQuery(const ConvertRun& run) {
  const bool lending = run.rules.isLendingFile;
  if (run.rules.brokerRec132)
    return eachRecord<BrokerRec132>(run.in, run.recordCount,
                                    [&](const BrokerRec132& record) { broker132(run.out, record, lending); });
  const auto line = run.rules.brokerShortLine ? broker160Short : broker160Long;
  return eachRecord<BrokerRec160>(run.in, run.recordCount, [&](const BrokerRec160& record) { line(run.out, record, lending); });
}

static void setKestoSide(KeptLetter& side, char legCode) {
  if (const KestoLeg* leg = findKestoLeg(legCode)) side.set(leg->convertedSide);
}

ConvertEnd writeKestoTrades(const ConvertRun& run) {
  KeptLetter side;
  return eachRecord<KestoTradeRec>(run.in, run.recordCount, [&](const KestoTradeRec& trade) {
    setKestoSide(side, trade.side);
    kestoTrade(run.out, trade, side);
  });
}

ConvertEnd writeKestoBrokerQuery(const ConvertRun& run) {
  KeptLetter side;
  return eachRecord<KestoBrokerRec>(run.in, run.recordCount, [&](const KestoBrokerRec& record) {
    setKestoSide(side, record.legCode);
    kestoBroker(run.out, record, side);
  });
}

}  // namespace quillon
