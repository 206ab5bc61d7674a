// Lines of the files that no report prints: an administrator's trades in their two formats, deleted orders, rectified trades.
#include "convert/convert_file.h"
#include "convert/convert_records.h"
#include "logs/log_codes.h"
#include "logs/log_page.h"
#include "text/print.h"

namespace quillon {

// clang-format off

// ---- Admin trades -----------------------------------------------------------------------------------------------------

// The side stands before the order's letter in the normal format and behind it in the other.

static void normal144(Output& out, const AdminRec144& record, char side) {
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%8s|%10s|%s|%c|%c|%I64d|%s|%s|%ld|\r\n">(
      out, record.scripCode, record.scripId, record.traderNo, record.rate, record.qty, record.counterBroker,
      record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, side, record.orderType,
      record.orderTimeStamp, record.instId, record.tailText, record.numberAtEnd);
}

static void br144(Output& out, const AdminRec144& record, char side) {
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%I64d|%c|%c|%ld|%s|%s|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId,
      record.orderTimeStamp, record.orderType, side, record.number, record.instId, record.tailText);
}

static void normal168(Output& out, const AdminRec168& record, char side) {
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%8s|%10s|%s|%c|%c|%I64d|%s|%s|%s|%s|%s|\r\n">(
      out, record.scripCode, record.scripId, record.traderNo, record.rate, record.qty, record.counterBroker,
      record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, side, record.orderType,
      record.orderTimeStamp, record.instId, record.tailText, record.scripGroup,
      formatCell<"%ld/%ld">(record.settlementPart1, record.settlementPart2), timeOfStamp(record.orderDateTime));
}

static void br168(Output& out, const AdminRec168& record, char side) {
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%I64d|%c|%c|%ld|%s|%s|%s|%s|%s|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId,
      record.orderTimeStamp, record.orderType, side, record.number, record.instId, record.tailText, record.scripGroup,
      formatCell<"%ld/%ld">(record.settlementPart1, record.settlementPart2), timeOfStamp(record.orderDateTime));
}

static void normal176(Output& out, const AdminRec176& whole, char side) {
  const AdminRec168& record = whole.front;
  print<"%ld|%s|%ld|%ld|%ld|%ld|%ld|%8s|%10s|%s|%c|%c|%I64d|%s|%s|%s|%s|%s|%I64d|\r\n">(
      out, record.scripCode, record.scripId, record.traderNo, record.rate, record.qty, record.counterBroker,
      record.counterTrader, record.tradeTime, record.tradeDate, record.clientId, side, record.orderType,
      record.orderTimeStamp, record.instId, record.tailText, record.scripGroup,
      formatCell<"%ld/%ld">(record.settlementPart1, record.settlementPart2), timeOfStamp(record.orderDateTime),
      whole.lastNumber);
}

static void br176(Output& out, const AdminRec176& whole, char side) {
  const AdminRec168& record = whole.front;
  print<"%ld|%ld|%ld|%s|%ld|%ld|%ld|%ld|%s|%s|%s|%I64d|%c|%c|%ld|%s|%s|%s|%s|%s|%I64d|\r\n">(
      out, record.leadingNumber, record.traderNo, record.scripCode, record.scripId, record.rate, record.qty,
      record.counterBroker, record.counterTrader, record.tradeTime, record.tradeDate, record.clientId,
      record.orderTimeStamp, record.orderType, side, record.number, record.instId, record.tailText, record.scripGroup,
      formatCell<"%ld/%ld">(record.settlementPart1, record.settlementPart2), timeOfStamp(record.orderDateTime),
      whole.lastNumber);
}

// ---- Deleted orders ---------------------------------------------------------------------------------------------------

static void adminDeletion(Output& out, const AdminDeletionRec& record, char side, std::string_view retention) {
  print<"%d|%c|%c|%ld|%s|%ld|%ld|%ld|%ld|%I64d|%s|%s|%s|%I64d|%s|%s|\r\n">(
      out, record.firstNumber, side, record.orderType, record.scripCode, record.scripId, record.qty, record.revQty,
      record.limitRate, record.trigRate, record.orderId, retention, clientTypeName(record.clientType), record.clientId,
      record.lastNumber, formatCell<"%02d:%02d:%02d">(record.hour, record.minute, record.second),
      firstLine(record.message.view()));
}

// ---- Rectified trades -------------------------------------------------------------------------------------------------

// The message is not cut at a line feed here.
static void tradeRectification(Output& out, const TradeRectificationRec& record) {
  print<"%ld|%c|%ld|%ld|%ld|%I64d|%ld|%s|%s|%s|%s|%02d:%02d:%02d:%s|%s|\n">(
      out, record.firstNumber, record.letter, record.fourthNumber, record.secondNumber, record.thirdNumber,
      record.number64, record.fifthNumber, clientTypeName(record.firstClientType),
      clientTypeName(record.secondClientType), record.firstText, record.secondText, record.hour, record.minute,
      record.second, record.behindTime, record.message);
}

// clang-format on

// ---- The files --------------------------------------------------------------------------------------------------------

// Time and date have room for more than is theirs.
template <class Record>
static void closeTexts(Record& record) {
  record.tradeTime.bytes[9] = '\0';
  record.tradeDate.bytes[11] = '\0';
}
static void closeTexts(AdminRec176& record) { closeTexts(record.front); }

static char sideOf(const AdminRec144& record) { return record.side; }
static char sideOf(const AdminRec168& record) { return record.side; }
static char sideOf(const AdminRec176& record) { return record.front.side; }

template <class Record>
static ConvertEnd writeAdminRecords(const ConvertRun& run, void (*line)(Output&, const Record&, char)) {
  return eachRecord<Record>(run.in, run.recordCount, [&](Record& record) {
    closeTexts(record);
    line(run.out, record, lendAsL(sideOf(record), run.rules.isLendingFile));
  });
}

// No line is written, but the records are read, and the user is asked as often as there are some.
template <class Record>
static ConvertEnd askForEach(const ConvertRun& run) {
  return eachRecord<Record>(run.in, run.recordCount, [&](const Record&) { run.askFormat(); });
}

static ConvertEnd writeWithoutFormat(const ConvertRun& run) {
  if (run.rules.adminRec144) {
    if (run.recordCount <= 0) return ConvertEnd::done;
    run.askFormat();
    return ConvertEnd::formatMissing;
  }
  return run.rules.adminRec168 ? askForEach<AdminRec168>(run) : askForEach<AdminRec176>(run);
}

ConvertEnd writeAdminTrades(const ConvertRun& run) {
  if (run.rules.adminFormat == AdminFormat::none) return writeWithoutFormat(run);
  const bool normal = run.rules.adminFormat == AdminFormat::normal;
  if (run.rules.adminRec144) return writeAdminRecords<AdminRec144>(run, normal ? normal144 : br144);
  if (run.rules.adminRec168) return writeAdminRecords<AdminRec168>(run, normal ? normal168 : br168);
  return writeAdminRecords<AdminRec176>(run, normal ? normal176 : br176);
}

ConvertEnd writeAdminDeletions(const ConvertRun& run) {
  return eachRecord<AdminDeletionRec>(run.in, run.recordCount, [&](const AdminDeletionRec& record) {
    // A code without a text leaves the column empty here.
    const char* retention = retentionText(record.retention);
    adminDeletion(run.out, record, lendAsL(record.side, run.rules.isLendingFile), retention ? retention : "");
  });
}

ConvertEnd writeTradeRectifications(const ConvertRun& run) {
  return eachRecord<TradeRectificationRec>(run.in, run.recordCount,
                                           [&](const TradeRectificationRec& record) { tradeRectification(run.out, record); });
}

}  // namespace quillon
