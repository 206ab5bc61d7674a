// Quote log records for tests, written as rows.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "logs/order_log_records.h"
#include "logs/quote_log_report.h"

namespace quillon::test {

struct QuoteRow {
  std::int32_t scripCode = 0, bidQty = 0, bidRevQty = 0, bidRate = 0, offerQty = 0, offerRevQty = 0, offerRate = 0;
  std::int64_t quoteId = 0;
  std::int16_t bidClientType = 0, offerClientType = 0;
  std::uint8_t hour = 0, minute = 0, second = 0;
  std::int16_t actionCode = 0;
  std::string_view bidClientId = "", offerClientId = "", scripId = "", message = "";
};

inline void fill(const QuoteRow& row, QuoteRec& quote) {
  quote.scripCode = row.scripCode;
  quote.bidQty = row.bidQty;
  quote.bidRevQty = row.bidRevQty;
  quote.bidRate = row.bidRate;
  quote.offerQty = row.offerQty;
  quote.offerRevQty = row.offerRevQty;
  quote.offerRate = row.offerRate;
  quote.quoteId = row.quoteId;
  quote.bidClientType = row.bidClientType;
  quote.offerClientType = row.offerClientType;
  quote.hour = row.hour;
  quote.minute = row.minute;
  quote.second = row.second;
  quote.actionCode = row.actionCode;
  put(quote.bidClientId, row.bidClientId);
  put(quote.offerClientId, row.offerClientId);
  put(quote.scripId, row.scripId);
  put(quote.message, row.message);
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

// Scrip code, bid quantity, revealed, rate, offer quantity, revealed, rate, quote id, both client types, time, action, both
// clients, scrip, message.
inline const std::vector<QuoteRow> ordinaryQuotes = {
    {500010, 100, 40, 12345, 200, 50, 12445, 90525000001, 30, 20, 10, 15, 30, 1, "C0001", "HOUSE-77", "AXLE", "Quote accepted"},
    {532540, 25, 10, 250075, 30, 3, 0, 90525000002, 80, 70, 11, 2, 9, 2, "C0002", "C0003", "BOLTSTEEL",
     "Twenty-four characters !"},
    {500011, 1, 0, 0, 2, 1, 99, 90525000003, 50, 61, 11, 30, 0, 3, "C0004", "C0005", "CRANK", "Twenty-five characters, 5"},
    {500012, 700000, 70000, 5, 800000, 80000, 7, 90525000004, 10, 88, 12, 45, 17, 4, "C0006", "C0007", "DERRICK",
     "Updated by the trader, who sent it twice"},
    {500010, 40, 4, 12400, 50, 5, 12500, 90525000005, 85, 90, 15, 29, 59, 6, "C0008", "C0009", "AXLE",
     "Deleted by the trader\nat the close"},
};

// Values that are wider than their cells; texts to the last byte of their fields.
inline const std::vector<QuoteRow> wideQuotes = {
    {most, most, most, most, most, most, most, mostId, 30, 40, 255, 255, 255, 5, "BIDDER-TWELV", "OFFERER-12CH", "SCRIP-TWELVE",
     forty},
    {least, least, least, least, least, least, least, leastId, 40, 30, 100, 100, 100, 3, "BIDDER-TWELV", "OFFERER-12CH",
     "SCRIP-TWELVE", forty},
};

// Values far narrower than their cells.
inline const std::vector<QuoteRow> narrowQuotes = {
    {1, 2, 3, 4, 5, 6, 7, 8, 10, 70, 9, 5, 3, 1, "A", "B", "C", "D"},
    {12, 34, 56, 78, 90, 98, 76, 543, 70, 10, 0, 0, 0, 5, "EF", "GH", "IJ", "KL"},
    {-1, -2, -3, -4, -5, -6, -7, -8, 60, 60, 0, 0, 9, 3, "", "", "", ""},
};

}  // namespace quillon::test
