#include "convert/convert_file.h"

#include "brokerquery/broker_file.h"
#include "logs/quote_log_file.h"

namespace quillon {

// The first that fits: a deletion log is one under any first letter.
ConvertKind convertKindOf(const TradeHeader& header) {
  const bool isNormal = header.fileKind == 'N' || header.fileKind == 'V';
  if (isNormal && header.kind == 'T') return ConvertKind::trade;
  if (isNormal && header.kind == 'B') return ConvertKind::brokerQuery;
  if (header.fileKind == 'B' && header.kind == 'B') return ConvertKind::kestoBrokerQuery;
  if (header.fileKind == 'B' && header.kind == 'T') return ConvertKind::kestoTrade;
  if (isNormal && header.kind == 'A') return ConvertKind::adminTrade;
  if (header.fileKind == 'N' && header.kind == 'O') return ConvertKind::orderLog;
  if (header.fileKind == 'N' && header.kind == 'Q') return ConvertKind::quoteLog;
  if (header.fileKind == 'N' && header.kind == 'L') return ConvertKind::consolidatedLog;
  if (header.kind == 'J') return ConvertKind::adminDeletion;
  if (header.fileKind == 'S' && header.kind == 'S') return ConvertKind::tradeRectification;
  return ConvertKind::none;
}

const char* fileTypeText(ConvertKind kind) {
  switch (kind) {
    case ConvertKind::none:
      return "";
    case ConvertKind::trade:
      return "Normal Trade File";
    case ConvertKind::brokerQuery:
      return "Normal Broker Query File";
    case ConvertKind::kestoBrokerQuery:
      return "Kesto Broker Query File";
    case ConvertKind::kestoTrade:
      return "Kesto Trade File";
    case ConvertKind::adminTrade:
      return "Admin Trade File";
    case ConvertKind::orderLog:
      return "Order Log File";
    case ConvertKind::quoteLog:
      return "Quote Log File";
    case ConvertKind::consolidatedLog:
      return "Consolidated Order Log File";
    case ConvertKind::adminDeletion:
      return "Admin Deletion Log File ";
    case ConvertKind::tradeRectification:
      return "Trade Rectification File";
  }
  return "";
}

std::size_t convertRecordSize(ConvertKind kind, const ConvertRules& rules) {
  switch (kind) {
    case ConvertKind::none:
      return 0;
    case ConvertKind::trade:
      return rules.tradeRec132 ? sizeof(TradeRec132) : sizeof(TradeRec144);
    case ConvertKind::brokerQuery:
      return rules.brokerRec132 ? sizeof(BrokerRec132) : sizeof(BrokerRec160);
    case ConvertKind::kestoBrokerQuery:
      return sizeof(KestoBrokerRec);
    case ConvertKind::kestoTrade:
      return sizeof(KestoTradeRec);
    case ConvertKind::adminTrade:
      if (rules.adminRec144) return sizeof(AdminRec144);
      return rules.adminRec168 ? sizeof(AdminRec168) : sizeof(AdminRec176);
    case ConvertKind::orderLog:
      return rules.orderRec112 ? sizeof(OrderRec112) : sizeof(OrderRec136);
    case ConvertKind::quoteLog:
      return sizeof(QuoteRec);
    case ConvertKind::consolidatedLog:
      return sizeof(ConsolidatedOrderRec);
    case ConvertKind::adminDeletion:
      return sizeof(AdminDeletionRec);
    case ConvertKind::tradeRectification:
      return sizeof(TradeRectificationRec);
  }
  return 0;
}

std::size_t convertCountSize(ConvertKind kind, const ConvertRules& rules) {
  if (kind == ConvertKind::adminTrade && !rules.adminRec144) return sizeof(AdminRec176);
  return convertRecordSize(kind, rules);
}

std::int64_t convertCountOf(std::int64_t fileSize, ConvertKind kind, const ConvertRules& rules) {
  constexpr std::int64_t headerSize = sizeof(TradeHeader);
  const auto recordSize = static_cast<std::int64_t>(convertCountSize(kind, rules));
  if (recordSize == 0 || fileSize < headerSize) return 0;
  return (fileSize - headerSize) / recordSize;
}

}  // namespace quillon
