#include "logs/order_log_file.h"

#include <algorithm>
#include <cstring>

#include "frame/date_rule.h"
#include "logs/log_page.h"

namespace quillon {

bool isOrderLog(const TradeHeader& header) { return header.fileKind == 'N' && header.kind == 'O'; }

bool isConsolidatedOrderLog(const TradeHeader& header) { return header.kind == 'L'; }

bool isLogDatedBefore(const TradeHeader& header, int year, int month, int day) {
  const long long fileYear = fullYear(header.century, header.year);
  if (fileYear != year) return fileYear < year;
  if (header.month != month) return header.month < month;
  return header.day < day;
}

bool orderRec112(const TradeHeader& header, bool isLendingFile) {
  return !isLendingFile && isLogDatedBefore(header, 2003, 11, 22);
}

bool instRectMissing(const TradeHeader& header, bool isLendingFile) {
  return !isLendingFile && isLogDatedBefore(header, 2007, 5, 26);
}

OrderLogLayout orderLogLayout(const TradeHeader& header, bool isLendingFile) {
  if (isConsolidatedOrderLog(header)) return OrderLogLayout::consolidated;
  return orderRec112(header, isLendingFile) ? OrderLogLayout::rec112 : OrderLogLayout::rec136;
}

static std::size_t sideOffset(OrderLogLayout layout) {
  return layout == OrderLogLayout::consolidated ? offsetof(ConsolidatedOrderRec, side) : offsetof(OrderRec112, side);
}

void rewriteOrderLends(OrderLogLayout layout, void* block, std::size_t count) {
  const std::size_t size = orderLogRecordSize(layout);
  char* side = static_cast<char*>(block) + sideOffset(layout);
  for (std::size_t i = 0; i < count; ++i) {
    if (side[i * size] == 'L') side[i * size] = 'S';
  }
}

std::size_t countExcludedOrders(const OrderRec136* records, std::size_t count, OrderLogChoice choice) {
  std::size_t excluded = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const char kind = records[i].recordKind;
    const bool known = kind == 'N' || kind == 'Y' || kind == 'I';
    excluded += known && kind != orderRecordKind(choice);
  }
  return excluded;
}

static constexpr RecordKey noKey = {KeyKind::none, 0, 0};

static std::array<RecordKey, 3> orderKeys(OrderLogSort sort) {
  constexpr RecordKey time = {KeyKind::time, offsetof(OrderRec112, hour), 3};
  constexpr RecordKey orderId = {KeyKind::number64, offsetof(OrderRec112, orderId), sizeof(OrderRec112::orderId)};
  switch (sort) {
    case OrderLogSort::scripCode:
      return {{{KeyKind::number, offsetof(OrderRec112, scripCode), sizeof(OrderRec112::scripCode)}, time, orderId}};
    case OrderLogSort::scripId:
      return {{{KeyKind::text, offsetof(OrderRec112, scripId), sizeof(OrderRec112::scripId)}, time, orderId}};
    case OrderLogSort::clientId:
      return {{{KeyKind::text, offsetof(OrderRec112, clientId), sizeof(OrderRec112::clientId)}, time, orderId}};
    case OrderLogSort::time:
      break;
  }
  return {{noKey, noKey, noKey}};
}

static std::array<RecordKey, 3> consolidatedKeys(OrderLogSort sort) {
  using Record = ConsolidatedOrderRec;
  constexpr RecordKey time = {KeyKind::text, offsetof(Record, logTime), sizeof(Record::logTime)};
  constexpr RecordKey orderId = {KeyKind::number64, offsetof(Record, orderId), sizeof(Record::orderId)};
  switch (sort) {
    case OrderLogSort::scripCode:
      return {{{KeyKind::number, offsetof(Record, scripCode), sizeof(Record::scripCode)}, time, orderId}};
    case OrderLogSort::scripId:
      return {{{KeyKind::text, offsetof(Record, scripId), sizeof(Record::scripId)}, time, orderId}};
    case OrderLogSort::clientId:
      return {{{KeyKind::text, offsetof(Record, clientId), sizeof(Record::clientId)}, time, orderId}};
    case OrderLogSort::time:
      break;
  }
  return {{time, orderId, noKey}};
}

std::array<RecordKey, 3> orderLogSortKeys(OrderLogLayout layout, OrderLogSort sort) {
  return layout == OrderLogLayout::consolidated ? consolidatedKeys(sort) : orderKeys(sort);
}

static std::size_t messageOffset(OrderLogLayout layout) {
  return layout == OrderLogLayout::consolidated ? offsetof(ConsolidatedOrderRec, message) : offsetof(OrderRec112, message);
}

// The text at the front of the bytes, up to a line feed or NUL; `ended` when there is one.
static std::string_view textOf(std::string_view bytes, bool& ended) {
  const void* nul = std::memchr(bytes.data(), 0, bytes.size());
  const std::string_view text =
      bytes.substr(0, nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - bytes.data()) : bytes.size());
  const std::string_view line = firstLine(text);
  ended = line.size() < bytes.size();
  return line;
}

std::string_view orderMessage(const OrderLogRecords& records, std::size_t place, std::string& room) {
  const std::size_t size = orderLogRecordSize(records.layout);
  const std::size_t offset = messageOffset(records.layout);
  bool ended = false;
  const char* record = static_cast<const char*>(orderRecordAt(records, place));
  const std::string_view own = textOf({record + offset, size - offset}, ended);
  if (ended) return own;

  room = own;
  while (!ended && room.size() < longestOrderMessage) {
    // Behind the last record in print stands the zero record of the block.
    const bool last = ++place >= records.count;
    if (last) break;
    room += textOf({static_cast<const char*>(orderRecordAt(records, place)), size}, ended);
  }
  return std::string_view(room).substr(0, longestOrderMessage);
}

}  // namespace quillon
