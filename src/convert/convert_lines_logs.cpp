// Lines of the logs: orders and the two kinds of rectification, quotes, and the consolidated log.
#include <string>
#include <string_view>

#include "convert/convert_records.h"
#include "logs/log_codes.h"
#include "logs/log_page.h"
#include "logs/order_log_file.h"
#include "logs/quote_log_file.h"
#include "text/print.h"

namespace quillon {
namespace {

// What a line shows beside its record's own fields. Retention and letter stay for the lines of codes that have none.
struct LogLine {
  char side = ' ';
  int day = 0;  // of the file; of the record where it has one
  int month = 0;
  int century = 0;
  int year = 0;
  std::string_view retention = "";
  KeptLetter action;
  std::string_view message;
};

}  // namespace

// clang-format off

// ---- Order log --------------------------------------------------------------------------------------------------------

static void orderLine(Output& out, const OrderRec112& order, const LogLine& line) {
  print<"%c|%ld|%s|%ld|%ld|%s|%s|%s|%02d:%02d:%02d|%02d/%02d/%02d%02d|%I64d|%c|%s|%s|%s|%c|%s|\n">(
      out, line.side, order.scripCode, order.scripId, order.qty, order.revQty,
      rateText(order.limitRate, !actionHasNoLimitRate(order.actionCode)), rateText(order.trigRate, order.trigRate != 0),
      rateText(order.thirdRate, order.thirdRate != 0), order.hour, order.minute, order.second,
      line.day, line.month, line.century, line.year, order.orderId, order.orderType, order.clientId,
      clientTypeName(order.clientType), line.retention, line.action.text, line.message);
}

static void clientRectificationLine(Output& out, const OrderRec136& record, const LogLine& line) {
  const OrderRec112& order = record.order;
  print<"%c|%ld|%s|%ld|%s|%02d:%02d:%02d|%02d/%02d/%02d%02d|%I64d|%c|%8ld|%s|%s|%s|%c|%s|\n">(
      out, line.side, order.scripCode, order.scripId, order.qty, rateText(order.limitRate, true),
      order.hour, order.minute, order.second, line.day, line.month, line.century, line.year,
      order.orderId, order.orderType, record.tradeId,
      clientTypeName(order.clientType), order.clientId, record.newClientId, line.action.text, line.message);
}

static void typeRectificationLine(Output& out, const OrderRec136& record, const LogLine& line) {
  const OrderRec112& order = record.order;
  print<"%c|%ld|%s|%ld|%s|%02d:%02d:%02d|%02d/%02d/%02d%02d|%I64d|%c|%8ld|%s|%s|%s|%c|%s|\n">(
      out, line.side, order.scripCode, order.scripId, order.qty, rateText(order.limitRate, true),
      order.hour, order.minute, order.second, line.day, line.month, line.century, line.year,
      order.orderId, order.orderType, record.tradeId,
      clientTypeName(order.clientType), clientTypeName(record.newClientType), order.clientId, line.action.text, line.message);
}

// ---- Quote log --------------------------------------------------------------------------------------------------------

static void quoteLine(Output& out, const QuoteRec& quote, const LogLine& line) {
  print<"%ld|%s|%ld|%ld|%s|%s|%s|%ld|%ld|%s|%s|%s|%02d:%02d:%02d|%02d/%02d/%02d%02d|%I64d|%c|%s|\n">(
      out, quote.scripCode, quote.scripId, quote.bidQty, quote.bidRevQty, rateText(quote.bidRate, quote.bidRate != 0),
      quote.bidClientId, clientTypeName(quote.bidClientType), quote.offerQty, quote.offerRevQty,
      rateText(quote.offerRate, quote.offerRate != 0), quote.offerClientId, clientTypeName(quote.offerClientType),
      quote.hour, quote.minute, quote.second, line.day, line.month, line.century, line.year, quote.quoteId,
      line.action.text, line.message);
}

// ---- Consolidated order log -------------------------------------------------------------------------------------------

// The trader stands at the end of the line, here alone.
static void consolidatedLine(Output& out, const ConsolidatedOrderRec& order, const LogLine& line) {
  print<"%c|%ld|%s|%ld|%ld|%s|%s|%s|%s|%s|%I64d|%c|%s|%s|%s|%c|%40s|%ld|\n">(
      out, line.side, order.scripCode, order.scripId, order.qty, order.revQty,
      rateText(order.limitRate, !actionHasNoLimitRate(order.actionCode)), rateText(order.trigRate, order.trigRate != 0),
      rateText(order.thirdRate, order.thirdRate != 0), order.logTime, order.logDate, order.orderId, order.orderType,
      order.clientId, clientTypeName(order.clientType), line.retention, line.action.text, line.message, order.traderId);
}

// clang-format on

// ---- The files --------------------------------------------------------------------------------------------------------

static LogLine lineOfFile(const TradeHeader& header) {
  LogLine line;
  line.day = header.day;
  line.month = header.month;
  line.century = header.century;
  line.year = header.year;
  return line;
}

static void setRetention(LogLine& line, std::int16_t retention) {
  if (const char* text = retentionText(retention)) line.retention = text;
}

// The old records have a date of their own, the last two digits of its year in one byte: it stands in the place of the first
// two as well.
static ConvertEnd writeOldOrders(const ConvertRun& run) {
  LogLine line;
  std::string room;
  return eachRecord<OrderRec112>(run.in, run.recordCount, [&](const OrderRec112& order) {
    line.side = lendAsL(order.side, run.rules.isLendingFile);
    line.day = order.recDay;
    line.month = order.recMonth;
    line.century = line.year = order.recYear;
    setRetention(line, order.retention);
    line.action.set(orderActionLetter(order.actionCode));
    line.message = orderMessage({OrderLogLayout::rec112, &order, 1, nullptr}, 0, room);
    orderLine(run.out, order, line);
  });
}

static void writeOrder(Output& out, const OrderRec136& record, OrderLogChoice choice, LogLine& line) {
  const std::int16_t action = record.order.actionCode;
  switch (choice) {
    case OrderLogChoice::orders:
      setRetention(line, record.order.retention);
      line.action.set(orderActionLetter(action));
      return orderLine(out, record.order, line);
    case OrderLogChoice::clientRectification:
      line.action.set(clientRectificationLetter(action));
      return clientRectificationLine(out, record, line);
    case OrderLogChoice::typeRectification:
      line.action.set(typeRectificationLetter(action));
      return typeRectificationLine(out, record, line);
  }
}

ConvertEnd writeOrderLog(const ConvertRun& run) {
  if (run.rules.orderRec112) return writeOldOrders(run);
  LogLine line = lineOfFile(run.header);
  std::string room;
  const char kind = orderRecordKind(run.rules.logChoice);
  return eachRecord<OrderRec136>(run.in, run.recordCount, [&](const OrderRec136& record) {
    if (record.recordKind != kind) return;
    line.side = lendAsL(record.order.side, run.rules.isLendingFile);
    line.message = orderMessage({OrderLogLayout::rec136, &record, 1, nullptr}, 0, room);
    writeOrder(run.out, record, run.rules.logChoice, line);
  });
}

ConvertEnd writeQuoteLog(const ConvertRun& run) {
  LogLine line = lineOfFile(run.header);
  return eachRecord<QuoteRec>(run.in, run.recordCount, [&](const QuoteRec& quote) {
    line.action.set(quoteActionLetter(quote.actionCode));
    line.message = firstLine(quote.message.view());
    quoteLine(run.out, quote, line);
  });
}

ConvertEnd writeConsolidatedLog(const ConvertRun& run) {
  LogLine line;
  return eachRecord<ConsolidatedOrderRec>(run.in, run.recordCount, [&](const ConsolidatedOrderRec& order) {
    line.side = lendAsL(order.side, run.rules.isLendingFile);
    setRetention(line, order.retention);
    line.action.set(orderActionLetter(order.actionCode));
    line.message = firstLine(order.message.view());
    consolidatedLine(run.out, order, line);
  });
}

}  // namespace quillon
