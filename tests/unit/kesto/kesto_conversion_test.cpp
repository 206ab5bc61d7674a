// The delimited text of the Kesto form's own conversion.
#include "kesto/kesto_conversion.h"

#include <gtest/gtest.h>

#include "kesto/deals.h"
#include "text/output.h"

namespace quillon::test {

template <typename Record, typename Convert>
static std::string converted(const std::vector<Record>& block, Convert convert) {
  std::string text;
  Output* out = outputToMemory(&text);
  convert(*out, block.data(), block.size() - 1);
  EXPECT_TRUE(outputClose(out));
  return text;
}

static const std::vector<Deal> deals = {
    {.traderNo = 11,
     .scripCode = 590023,
     .scripId = "NILGRITEA",
     .days = 15,
     .trdId = 10021,
     .rate = 471049,
     .qty = 250,
     .broker = 907,
     .trader = 21,
     .time = "10:16:02",
     .clientId = "R2315",
     .side = 'M',
     .tradeType = 'O',
     .trnId = 10040002,
     .settFyear = "2009101/09-10"},
    {.traderNo = -1,
     .scripCode = -2,
     .scripId = "TWELVECHARS!",
     .days = -128,
     .trdId = -3,
     .rate = -4,
     .qty = -5,
     .broker = -6,
     .trader = -7,
     .clientId = "CLIENT12CHRS",
     .side = 'S',
     .trnId = -8},
};

TEST(KestoConversion, oneLineATradeWithNumbersAsStored) {
  std::vector<KestoTradeRec> block = blockOf<KestoTradeRec>(deals);
  fillField(block[0].date, "25/05/2009");
  fillField(block[1].time, "FIFTEENCHARSTIM");
  fillField(block[1].date, "FIFTEENCHARSDAT");
  EXPECT_EQ(converted(block, convertKestoTrades),
            "590023|NILGRITEA|10021|471049|250|907|21|10:16:02|25/05/2009|R2315|M|O|10040002|15|2009101/09-10|\r\n"
            "-2|TWELVECHARS!|-3|-4|-5|-6|-7|FIFTEENCHARSTIM|FIFTEENCHARSDAT|CLIENT12CHRS|S|L|-8|-128||\r\n");
}

TEST(KestoConversion, oneLineABrokerQueryRecordWithLegCodeAsStored) {
  std::vector<KestoBrokerRec> block = blockOf<KestoBrokerRec>(deals);
  block[0].leadingNumber = 77;
  block[1].leadingNumber = -78;
  fillField(block[0].tradeDate, "25/05/2009");
  fillField(block[1].tradeTime, "NINECHARS");
  fillField(block[1].tradeDate, "ELEVENCHARS");
  EXPECT_EQ(converted(block, convertKestoBrokerQuery),
            "77|11|590023|NILGRITEA|471049|250|907|21|10:16:02|25/05/2009|R2315|M|10021|15|2009101/09-10|\r\n"
            "-78|-1|-2|TWELVECHARS!|-4|-5|-6|-7|NINECHARS|ELEVENCHARS|CLIENT12CHRS|S|-3|-128||\r\n");
}

TEST(KestoConversion, noRecordsGiveNoText) {
  EXPECT_EQ(converted(blockOf<KestoTradeRec>({}), convertKestoTrades), "");
  EXPECT_EQ(converted(blockOf<KestoBrokerRec>({}), convertKestoBrokerQuery), "");
}

}  // namespace quillon::test
