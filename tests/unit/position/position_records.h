// Trades for the tests of the position tools, each told by what counts for a position, and files made of them.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "position/position_engine.h"
#include "position/position_tool.h"

namespace quillon::test {

struct Deal {
  std::string_view client;
  std::string_view scrip;
  char side;
  std::int32_t qty;
  std::int32_t rate;  // hundredths; ten-thousandths in a Kesto file
  char type = 'L';
};

inline TradeHeader dealHeader(char fileKind) {
  TradeHeader header = {};
  header.fileKind = fileKind;
  header.kind = 'T';
  header.memberId = 123;
  header.traderId = 7;
  header.day = 4;
  header.month = 5;
  header.century = 20;
  header.year = 9;
  header.hour = 16;
  header.minute = 5;
  header.second = 9;
  return header;
}

template <class Record>
void setDeal(Record& record, const Deal& deal) {
  record.scripCode = 500010;
  fieldSet(record.scripId, deal.scrip);
  fieldSet(record.clientId, deal.client);
  record.side = deal.side;
  record.qty = deal.qty;
  record.rate = deal.rate;
  record.tradeType = deal.type;
}

template <class Record>
std::string bytesOf(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

template <class Record>
std::string dealBytes(const std::vector<Deal>& deals) {
  std::string bytes;
  for (const Deal& deal : deals) {
    Record record = {};
    setDeal(record, deal);
    bytes += bytesOf(record);
  }
  return bytes;
}

// A file with its records in a block, as the load leaves it behind.
struct LoadedDeals {
  PositionFile file = {};
  std::vector<char> block;

  // `fileKind` 'N', 'V' or 'B' gives the form in which each tool but SLB holds the records.
  LoadedDeals(char fileKind, const std::vector<Deal>& deals) {
    file.header = dealHeader(fileKind);
    positionSetLayout(file, false);
    file.count = deals.size();
    block.resize(positionBlockSize(file));
    const std::string bytes = file.recordSize132 ? dealBytes<TradeRec132>(deals) : dealBytes<TradeRec144>(deals);
    std::memcpy(block.data(), bytes.data(), bytes.size());
    file.block = block.data();
  }
};

// The totals of one report, given back when the test is done with them.
struct Totalled {
  PositionLists lists;
  PositionTotals totals;
  PositionBlock failed;

  Totalled(const PositionFile& file, PositionReport report, std::string_view client = {}, std::string_view scrip = {})
      : lists(positionListsOf(file)) {
    failed = positionTotal(file, {report, client, scrip, lists.clients.size(), lists.scrips.size()}, totals);
  }
  Totalled(const Totalled&) = delete;
  Totalled& operator=(const Totalled&) = delete;
  ~Totalled() { positionFreeTotals(totals); }
};

}  // namespace quillon::test
