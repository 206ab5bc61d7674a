// The list of a quote log: a bid row and an offer row for each quote.
#include "logs/quote_log_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "frame/client_types.h"
#include "logs/quote_log_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

const TradeHeader ordinary = logHeader(123, 45, 25, 5, 2010, 'Q');
const TradeHeader bigIds = logHeader(1234567890, -2147483647 - 1, 31, 12, 2010, 'Q');
const TradeHeader smallIds = logHeader(7, 3, 5, 3, 2010, 'Q');

std::string listed(const std::vector<QuoteRow>& rows, const TradeHeader& header, const QuoteLogOptions& options) {
  registerClientTypes();
  const std::vector<QuoteRec> records = block<QuoteRec>(rows);
  std::vector<std::uint32_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0u);
  return reportOf([&](Output& out) { printQuoteLog(out, header, records.data(), order, options); });
}

TEST(QuoteLogPages, ordinaryQuotes) { expectApproved("logs/quotes.txt", listed(ordinaryQuotes, ordinary, {false, 2})); }
TEST(QuoteLogPages, lendingFileNamesTheClearingHouse) {
  expectApproved("logs/quotes_lending.txt", listed(ordinaryQuotes, ordinary, {true, 2}));
}
TEST(QuoteLogPages, wideValuesArePrintedWhole) {
  expectApproved("logs/quotes_wide_values.txt", listed(wideQuotes, bigIds, {false, 1}));
}
TEST(QuoteLogPages, narrowValuesStandOnTheirSideOfTheCell) {
  expectApproved("logs/quotes_narrow_values.txt", listed(narrowQuotes, smallIds, {false, 25}));
}

}  // namespace
}  // namespace quillon::test
