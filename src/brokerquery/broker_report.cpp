#include "brokerquery/broker_report.h"

#include "brokerquery/broker_report_blocks.h"
#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

BrokerArrangement chooseBrokerArrangement(BrokerLayout layout, const BrokerOptions& options) {
  switch (layout) {
    case BrokerLayout::kesto:
      return BrokerArrangement::kesto;
    case BrokerLayout::rec132:
      return BrokerArrangement::rec132;
    case BrokerLayout::rec160:
      break;
  }
  const bool old = options.preCutover || options.isLendingFile;
  if (options.shortColumns) return old ? BrokerArrangement::shortOld : BrokerArrangement::shortNew;
  return old ? BrokerArrangement::groupOld : BrokerArrangement::groupNew;
}

std::string brokerDateText(const TradeHeader& header) {
  return formatText<"%02d/%02d/%02d%02d">(header.day, header.month, header.century, header.year);
}

const char* brokerExchangeLine(bool isLendingFile) {
  return isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
}

// clang-format off
void printBrokerPageTop(Output& out, const BrokerPage& page) {
  const std::string date = brokerDateText(page.header);
  print<"%72s%49s%2d\n">(out, brokerExchangeLine(page.isLendingFile), "Page:", page.number);
  print<"%10s%7ld%95s%10s\n">(out, "Broker Id. :", page.header.memberId, "Date :", date);
  print<"%72s%10s\n">(out, "List of trades executed on:", date);
}
// clang-format on

bool isListedTradeType(char tradeType) {
  constexpr std::string_view listed = "LHMTQPBKGC";
  return listed.find(tradeType) != std::string_view::npos;
}

static const BrokerBlocks& blocksOf(BrokerArrangement arrangement) {
  switch (arrangement) {
    case BrokerArrangement::rec132:
      return rec132Blocks;
    case BrokerArrangement::shortOld:
      return shortOldBlocks;
    case BrokerArrangement::shortNew:
      return shortNewBlocks;
    case BrokerArrangement::groupOld:
      return groupOldBlocks;
    case BrokerArrangement::groupNew:
      return groupNewBlocks;
    case BrokerArrangement::kesto:
      break;
  }
  return kestoBlocks;
}

static void startPage(Output& out, const BrokerBlocks& blocks, BrokerPage& page) {
  blocks.heading(out, page);
  ++page.number;
}

void printBrokerReport(Output& out, const BrokerRecords& records, BrokerArrangement arrangement, unsigned linesPerPage,
                       BrokerPage& page) {
  const BrokerBlocks& blocks = blocksOf(arrangement);
  startPage(out, blocks, page);
  // A record takes its place on the page whatever it prints: four lines, one, or none.
  unsigned recordOnPage = 1;
  for (std::size_t i = 0; i < records.count; ++i) {
    if (recordOnPage > linesPerPage) {
      blocks.breakRule(out);
      print<"%c">(out, formFeed);
      startPage(out, blocks, page);
      recordOnPage = 1;
    }
    if (records.order) fetchAhead(records.bytes, brokerRecordSize(records.layout), {records.order, records.count}, i);
    blocks.record(out, brokerRecordAt(records, i));
    ++recordOnPage;
  }
  blocks.endRule(out);
  print<"%c">(out, formFeed);
}

}  // namespace quillon
