// Deals of the lending product for the tests, a line each: "client scrip code days side qty rate type". A client or scrip of
// "-" is empty. The position tests and the report tests read them alike.
#pragma once

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "position/kesto_net_position_engine.h"
#include "position_records.h"

namespace quillon::test {

inline std::vector<KestoTradeRec> kestoDeals(const std::string& lines) {
  std::vector<KestoTradeRec> records;
  std::istringstream in(lines);
  std::string client, scrip;
  char side, type;
  std::int32_t code, days, qty, rate;
  while (in >> client >> scrip >> code >> days >> side >> qty >> rate >> type) {
    KestoTradeRec record = {};
    record.scripCode = code;
    fieldSet(record.scripId, scrip == "-" ? "" : scrip);
    record.days = static_cast<std::int8_t>(days);
    record.rate = rate;
    record.qty = qty;
    fieldSet(record.clientId, client == "-" ? "" : client);
    record.side = side;
    record.tradeType = type;
    records.push_back(record);
  }
  return records;
}

// A file's bytes, as the workstation writes them.
inline std::string kestoFileBytes(const TradeHeader& header, const std::vector<KestoTradeRec>& records) {
  std::string bytes = bytesOf(header);
  for (const KestoTradeRec& record : records) bytes += bytesOf(record);
  return bytes;
}

// A file as the load leaves it behind: read from the disk, with a zero record behind the others.
struct LoadedKesto {
  KestoPositionFile file = {};
  std::vector<KestoTradeRec> block;
  bool whole = false;

  explicit LoadedKesto(const std::string& lines, TradeHeader header = dealHeader('C'));
};

// The totals of one report, given back when the test is done with them.
struct KestoTotalled {
  PositionLists lists;
  KestoPositionTotals totals;
  PositionBlock failed;

  KestoTotalled(const KestoPositionFile& file, PositionReport report, std::string_view client = {}, std::string_view scrip = {})
      : lists(kestoPositionListsOf(file, {})) {
    failed = kestoPositionTotal(file, {report, client, scrip, lists.clients.size()}, totals);
  }
  KestoTotalled(const KestoTotalled&) = delete;
  KestoTotalled& operator=(const KestoTotalled&) = delete;
  ~KestoTotalled() { kestoPositionFreeTotals(totals); }
};

}  // namespace quillon::test
