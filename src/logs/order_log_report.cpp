#include "logs/order_log_report.h"

#include <span>

#include "logs/log_codes.h"
#include "logs/log_page.h"
#include "logs/order_log_blocks.h"
#include "text/in_order.h"

namespace quillon {

static constexpr char formFeed = 12;

OrderLogList orderLogList(OrderLogLayout layout, OrderLogChoice choice) {
  if (layout == OrderLogLayout::consolidated) return OrderLogList::consolidated;
  switch (choice) {
    case OrderLogChoice::orders:
      return OrderLogList::orders;
    case OrderLogChoice::clientRectification:
      return OrderLogList::clientRectification;
    case OrderLogChoice::typeRectification:
      break;
  }
  return OrderLogList::typeRectification;
}

// ---- What the pages have in common ------------------------------------------------------------------------------------

// clang-format off

void printBrokerId(Output& out, const OrderLogPage& page) {
  print<"%10s%7ld\n">(out, "Broker Id. :", page.header.memberId);
}

void printTraderId(Output& out, const OrderLogPage& page) {
  print<"%10s%7ld\n">(out, "Trader Id. :", page.header.traderId);
}

void printWideOrderLogTitle(Output& out, const OrderLogPage& page) {
  print<"%85s%42s%2d\n">(out, logExchangeLine(page.isLendingFile), "Page:", page.number);
}

RateText rateText(std::int32_t rate) { return formatCell<"%ld">(rate); }

// clang-format on

static RateText noRate() {
  RateText text;
  text.size = 1;
  text.bytes[0] = '-';
  return text;
}

RateText limitRateText(std::int32_t limitRate, std::int32_t thirdRate, std::int16_t actionCode) {
  if (thirdRate > 0) return rateText(thirdRate);
  return actionHasNoLimitRate(actionCode) ? noRate() : rateText(limitRate);
}

RateText trigRateText(std::int32_t trigRate) { return trigRate == 0 ? noRate() : rateText(trigRate); }

// ---- The walk through the records -------------------------------------------------------------------------------------

static const OrderLogBlocks& blocksOf(OrderLogList list, bool wide) {
  switch (list) {
    case OrderLogList::orders:
      return wide ? wideOrderBlocks : narrowOrderBlocks;
    case OrderLogList::clientRectification:
      return wide ? wideClientBlocks : narrowClientBlocks;
    case OrderLogList::typeRectification:
      return wide ? wideTypeBlocks : narrowTypeBlocks;
    case OrderLogList::consolidated:
      break;
  }
  return wide ? wideConsolidatedBlocks : narrowConsolidatedBlocks;
}

// The records of rec136 that a list shows.
static char kindOf(OrderLogList list) {
  switch (list) {
    case OrderLogList::clientRectification:
      return orderRecordKind(OrderLogChoice::clientRectification);
    case OrderLogList::typeRectification:
      return orderRecordKind(OrderLogChoice::typeRectification);
    case OrderLogList::orders:
    case OrderLogList::consolidated:
      break;
  }
  return orderRecordKind(OrderLogChoice::orders);
}

static char letterOf(OrderLogList list, std::int16_t actionCode) {
  switch (list) {
    case OrderLogList::clientRectification:
      return clientRectificationLetter(actionCode);
    case OrderLogList::typeRectification:
      return typeRectificationLetter(actionCode);
    case OrderLogList::orders:
    case OrderLogList::consolidated:
      break;
  }
  return orderActionLetter(actionCode);
}

template <class Order>
static void showOrder(const Order& order, const OrderLogOptions& options, OrderLogRow& row) {
  row.side = shownOrderSide(order.side, options.isLendingFile);
  if (const char* text = retentionText(order.retention)) row.retention = text;
  if (const char letter = letterOf(options.list, order.actionCode); letter != noLetter) row.letter = letter;
}

static bool isListed(const OrderLogRecords& records, const void* record, OrderLogList list) {
  if (records.layout != OrderLogLayout::rec136) return true;
  return static_cast<const OrderRec136*>(record)->recordKind == kindOf(list);
}

static void printRecord(Output& out, const OrderLogBlocks& blocks, const OrderLogRecords& records, std::size_t place,
                        const OrderLogOptions& options, OrderLogRow& row, std::string& room) {
  const void* record = orderRecordAt(records, place);
  if (records.layout == OrderLogLayout::consolidated)
    showOrder(*static_cast<const ConsolidatedOrderRec*>(record), options, row);
  else
    showOrder(*static_cast<const OrderRec112*>(record), options, row);
  row.message = orderMessage(records, place, room);
  blocks.record(out, record, row);
}

void printOrderLog(Output& out, const TradeHeader& header, const OrderLogRecords& records, const OrderLogOptions& options) {
  // The short records are older than the narrow pages.
  const bool wide = options.preCutover || options.isLendingFile || records.layout == OrderLogLayout::rec112;
  const OrderLogBlocks& blocks = blocksOf(options.list, wide);
  OrderLogPage page = {header, options.isLendingFile,
                       formatText<"%02d/%02d/%02d%02d">(header.day, header.month, header.century, header.year), 1};
  OrderLogRow row;
  std::string room;
  blocks.heading(out, page);
  unsigned recordsOnPage = 0;
  for (std::size_t i = 0; i < records.count; ++i) {
    if (recordsOnPage == options.recordsPerPage) {
      blocks.breakRule(out);
      print<"%c">(out, formFeed);
      recordsOnPage = 0;
      ++page.number;
      blocks.heading(out, page);
    }
    if (records.order) {
      fetchAhead(records.bytes, orderLogRecordSize(records.layout), {records.order, records.count}, i);
    }
    // A record of another kind takes no place on the page, though the page that it would begin has begun.
    if (!isListed(records, orderRecordAt(records, i), options.list)) continue;
    printRecord(out, blocks, records, i, options, row, room);
    ++recordsOnPage;
  }
  if (recordsOnPage > 0 && recordsOnPage < options.recordsPerPage) blocks.closingRule(out);
}

}  // namespace quillon
