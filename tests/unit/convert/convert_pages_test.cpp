// Every layout of the conversion whole: ordinary, wide and narrow values, and the sides of lending files. In the approved texts
// a line that ends in CR CR LF shows its first CR.
#include <gtest/gtest.h>

#include "convert/convert_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

template <typename Record, typename Row>
void expectLines(const std::string& name, const TradeHeader& header, const ConvertRules& rules, const std::vector<Row>& rows) {
  expectApproved("convert/" + name + ".txt", linesOfRecords(header, rules, recordsOf<Record>(rows)));
}

template <typename Record>
void expectTrades(const std::string& name, const TradeHeader& header, ConvertRules rules) {
  expectLines<Record>(name + "_ordinary", header, rules, ordinaryConvertTrades);
  expectLines<Record>(name + "_wide_values", header, rules, wideConvertTrades);
  expectLines<Record>(name + "_narrow_values", header, rules, narrowConvertTrades);
  if (header.fileKind == 'B') return;
  rules.isLendingFile = true;
  expectLines<Record>(name + "_lending", header, rules, ordinaryConvertTrades);
}

TEST(ConvertPages, trades132) { expectTrades<TradeRec132>("trades132", convertHeader('N', 'T'), {.tradeRec132 = true}); }
TEST(ConvertPages, trades144Short) {
  expectTrades<TradeRec144>("trades144_short", convertHeader('V', 'T'), {.tradeShortLine = true});
}
TEST(ConvertPages, trades144Long) { expectTrades<TradeRec144>("trades144_long", convertHeader('V', 'T'), {}); }

TEST(ConvertPages, broker132) { expectTrades<BrokerRec132>("broker132", convertHeader('N', 'B'), {.brokerRec132 = true}); }
TEST(ConvertPages, broker160Short) {
  expectTrades<BrokerRec160>("broker160_short", convertHeader('V', 'B'), {.brokerShortLine = true});
}
TEST(ConvertPages, broker160Long) { expectTrades<BrokerRec160>("broker160_long", convertHeader('V', 'B'), {}); }

TEST(ConvertPages, kestoTrades) { expectTrades<KestoTradeRec>("kesto_trades", convertHeader('B', 'T'), {}); }
TEST(ConvertPages, kestoBrokerQuery) { expectTrades<KestoBrokerRec>("kesto_broker", convertHeader('B', 'B'), {}); }

TEST(ConvertPages, adminTradesInTheNormalFormat) {
  const TradeHeader header = convertHeader('V', 'A');
  expectTrades<AdminRec144>("admin144_normal", header, {.adminRec144 = true, .adminFormat = AdminFormat::normal});
  expectTrades<AdminRec168>("admin168_normal", header, {.adminRec168 = true, .adminFormat = AdminFormat::normal});
  expectTrades<AdminRec176>("admin176_normal", header, {.adminFormat = AdminFormat::normal});
}
TEST(ConvertPages, adminTradesInTheBrFormat) {
  const TradeHeader header = convertHeader('V', 'A');
  expectTrades<AdminRec144>("admin144_br", header, {.adminRec144 = true, .adminFormat = AdminFormat::br});
  expectTrades<AdminRec168>("admin168_br", header, {.adminRec168 = true, .adminFormat = AdminFormat::br});
  expectTrades<AdminRec176>("admin176_br", header, {.adminFormat = AdminFormat::br});
}

TEST(ConvertPages, adminDeletions) {
  const TradeHeader header = convertHeader('N', 'J');
  expectLines<AdminDeletionRec>("deletions_ordinary", header, {}, ordinaryDeletions);
  expectLines<AdminDeletionRec>("deletions_wide_values", header, {}, wideDeletions);
  expectLines<AdminDeletionRec>("deletions_narrow_values", header, {}, narrowDeletions);
  expectLines<AdminDeletionRec>("deletions_lending", header, {.isLendingFile = true}, ordinaryDeletions);
}

// Their letter is no side: a lending file has it as it stands.
TEST(ConvertPages, tradeRectifications) {
  const TradeHeader header = convertHeader('S', 'S');
  expectLines<TradeRectificationRec>("trade_rectifications_ordinary", header, {}, ordinaryRectifications);
  expectLines<TradeRectificationRec>("trade_rectifications_wide_values", header, {}, wideRectifications);
  expectLines<TradeRectificationRec>("trade_rectifications_narrow_values", header, {}, narrowRectifications);
  expectLines<TradeRectificationRec>("trade_rectifications_lending", header, {.isLendingFile = true}, ordinaryRectifications);
}

// One file, of which each choice has its own records.
TEST(ConvertPages, orderLogByChoice) {
  const std::pair<const char*, OrderLogChoice> choices[] = {{"orders", OrderLogChoice::orders},
                                                            {"client_rectifications", OrderLogChoice::clientRectification},
                                                            {"type_rectifications", OrderLogChoice::typeRectification}};
  for (const auto& [name, choice] : choices) {
    const std::string stem = name;
    expectLines<OrderRec136>(stem + "_ordinary", convertHeader('N', 'O'), {.logChoice = choice}, ordinaryOrders);
    expectLines<OrderRec136>(stem + "_wide_values", logHeader(most, least, 31, 12, 3276), {.logChoice = choice}, wideOrders);
    expectLines<OrderRec136>(stem + "_narrow_values", logHeader(1, 2, 3, 4, 506), {.logChoice = choice}, narrowOrders);
    expectLines<OrderRec136>(stem + "_lending", convertHeader('N', 'O'), {.isLendingFile = true, .logChoice = choice},
                             ordinaryOrders);
  }
}

TEST(ConvertPages, oldOrders) {
  const TradeHeader header = convertHeader('N', 'O');
  const ConvertRules rules = {.orderRec112 = true};
  expectApproved("convert/orders112_ordinary.txt", linesOfRecords(header, rules, oldOrders(ordinaryOrders, 21, 11, 3)));
  expectApproved("convert/orders112_wide_values.txt", linesOfRecords(header, rules, oldOrders(wideOrders, 255, 255, 255)));
  expectApproved("convert/orders112_narrow_values.txt", linesOfRecords(header, rules, oldOrders(narrowOrders, 1, 2, 9)));
}

TEST(ConvertPages, quotes) {
  expectLines<QuoteRec>("quotes_ordinary", convertHeader('N', 'Q'), {}, ordinaryQuotes);
  expectLines<QuoteRec>("quotes_wide_values", logHeader(most, least, 31, 12, 3276, 'Q'), {}, wideQuotes);
  expectLines<QuoteRec>("quotes_narrow_values", logHeader(1, 2, 3, 4, 506, 'Q'), {}, narrowQuotes);
}

TEST(ConvertPages, consolidatedOrders) {
  const TradeHeader header = convertHeader('N', 'L');
  const auto ordinary = datedOrders(ordinaryConsolidated, "25/05/2010");
  expectApproved("convert/consolidated_ordinary.txt", linesOfRecords(header, {}, ordinary));
  expectApproved("convert/consolidated_lending.txt", linesOfRecords(header, {.isLendingFile = true}, ordinary));
  expectApproved("convert/consolidated_wide_values.txt",
                 linesOfRecords(header, {}, datedOrders(wideConsolidated, "DATE-OF-FIFTEEN")));
  expectApproved("convert/consolidated_narrow_values.txt",
                 linesOfRecords(header, {}, datedOrders(narrowConsolidated, "3/4/09")));
}

}  // namespace
}  // namespace quillon::test
