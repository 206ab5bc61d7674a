// The list of a member's trades, page after page, in one of six arrangements.
//
// A record's buy stands in the left block of the page and its sell in the right one, with the scrip between them and the
// client, numbers and times to the right. Amounts are shown in rupees.
#pragma once

#include <cstddef>
#include <cstdint>

#include "brokerquery/broker_file.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

enum class BrokerArrangement {
  rec132,    // one line a record
  shortOld,  // four lines a record, without scrip group and settlement number, from before the cut-over
  shortNew,  // the same, from the cut-over on
  groupOld,  // four lines a record, with scrip group and settlement number, from before the cut-over and for lending files
  groupNew,  // the same, from the cut-over on
  kesto,     // one line a record
};

struct BrokerOptions {
  bool shortColumns;   // without scrip group and settlement number
  bool preCutover;     // the file is dated before the cut-over
  bool isLendingFile;  // of the lending market
};
BrokerArrangement chooseBrokerArrangement(BrokerLayout layout, const BrokerOptions& options);

// What every page of a report shows.
struct BrokerPage {
  TradeHeader header;
  bool isLendingFile;
  int number;  // of the next page
};

// Records in the order in which they are printed.
struct BrokerRecords {
  BrokerLayout layout;
  const void* bytes;  // count records and the zero record behind them
  std::size_t count;
  const std::uint32_t* order;  // positions; null: as they stand in the file
};

inline const void* brokerRecordAt(const BrokerRecords& records, std::size_t place) {
  const std::size_t position = records.order ? records.order[place] : place;
  return static_cast<const char*>(records.bytes) + position * brokerRecordSize(records.layout);
}

// Prints all pages, `linesPerPage` (at least 1) records on each, and ends the last one; page.number goes on counting. The
// arrangement is one of the records' layout.
void printBrokerReport(Output& out, const BrokerRecords& records, BrokerArrangement arrangement, unsigned linesPerPage,
                       BrokerPage& page);

}  // namespace quillon
