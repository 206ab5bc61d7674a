#include "convert/convert_lines.h"

#include "convert/convert_records.h"

namespace quillon {

static bool passHeader(Input& in) {
  TradeHeader header;
  return inputRead(in, &header, sizeof header);
}

// The file's own order of questions: a Kesto file by its first letter, all others by what they hold.
static ConvertEnd writeRecords(const ConvertRun& run, ConvertKind kind) {
  if (run.header.fileKind == 'B') return run.header.kind == 'T' ? writeKestoTrades(run) : writeKestoBrokerQuery(run);
  switch (kind) {
    case ConvertKind::adminDeletion:
      return writeAdminDeletions(run);
    case ConvertKind::tradeRectification:
      return writeTradeRectifications(run);
    case ConvertKind::trade:
      return writeTrades(run);
    case ConvertKind::adminTrade:
      return writeAdminTrades(run);
    case ConvertKind::orderLog:
      return writeOrderLog(run);
    case ConvertKind::quoteLog:
      return writeQuoteLog(run);
    case ConvertKind::consolidatedLog:
      return writeConsolidatedLog(run);
    case ConvertKind::brokerQuery:
      return writeBrokerQuery(run);
    case ConvertKind::none:
    case ConvertKind::kestoBrokerQuery:
    case ConvertKind::kestoTrade:
      break;
  }
  return ConvertEnd::done;
}

ConvertEnd writeLines(Input& in, Output& out, const TradeHeader& header, ConvertKind kind, const ConvertRules& rules,
                      std::int64_t recordCount, void (*askFormat)()) {
  if (header.fileKind != 'B' && !inputSeekStart(in)) return ConvertEnd::readFailed;
  if (!passHeader(in)) return ConvertEnd::readFailed;
  return writeRecords({in, out, header, rules, recordCount, askFormat}, kind);
}

bool countRecordsOfKind(Input& in, std::int64_t recordCount, char recordKind, std::int64_t& matchCount) {
  if (!inputSeekStart(in) || !passHeader(in)) return false;
  std::int64_t matches = 0;
  const ConvertEnd end =
      eachRecord<OrderRec136>(in, recordCount, [&](const OrderRec136& record) { matches += record.recordKind == recordKind; });
  if (end != ConvertEnd::done) return false;
  matchCount = matches;
  return inputSeekStart(in);
}

}  // namespace quillon
