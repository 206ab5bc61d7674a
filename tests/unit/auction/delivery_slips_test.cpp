// Delivery slips: what is kept of a file, the walk over its positions, and what its name tells.
#include "auction/delivery_slips.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "auction/delivery_cases.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

std::string slips(const SlipCase& c, std::size_t* printed = nullptr) {
  std::vector<DelyRec> records = deliveryRecords(c.deliveries);
  keepDeliveries(records.data(), records.size());
  std::string text;
  Output* out = outputToMemory(&text);
  const std::size_t count = printDeliverySlips(*out, c.header, c.slipName, records.data(), records.size());
  EXPECT_TRUE(outputClose(out));
  if (printed) *printed = count;
  return text;
}

std::vector<std::string> slipLines(const std::vector<Delivery>& deliveries, std::size_t* printed = nullptr) {
  return linesOf(withoutCarriageReturns(slips({"", auctionHeader("A1"), {"215", "01-06-2009"}, deliveries}, printed)));
}

Delivery toDeliver(std::int32_t orderId) {
  return {.side = 'B', .orderId = orderId, .quantity = orderId, .scripCode = 5, .scripName = "S"};
}

constexpr LocalTime june2009 = {2009, 6, 5, 10, 11, 12};

TEST(DeliverySlips, pagesStandAsApproved) {
  for (const SlipCase& c : slipCases()) expectApproved(std::string("auction/") + c.name + ".txt", slips(c));
}

TEST(DeliverySlips, whatIsDeliveredIsPackedInFileOrderAndTheRestIsEmpty) {
  std::vector<DelyRec> records = deliveryRecords({{.side = 'O', .orderId = 1},
                                                  {.side = 'B', .orderId = 2},
                                                  {.side = 'b', .orderId = 3},
                                                  {.side = 'B', .orderId = 4},
                                                  {.side = '\0', .orderId = 5}});
  keepDeliveries(records.data(), records.size());
  const std::int32_t first = records[0].orderId, second = records[1].orderId;
  EXPECT_EQ(first, 2);
  EXPECT_EQ(second, 4);
  for (std::size_t i = 2; i < records.size(); ++i) EXPECT_EQ(bytesOf(records[i]), std::string(sizeof(DelyRec), '\0')) << i;
}

// Three records, of which the second is delivered: it stands on the left of the first pair, and the second pair is blank.
TEST(DeliverySlips, emptyPositionsTakeTheirFullHeight) {
  std::size_t printed = 0;
  const std::vector<std::string> lines = slipLines({{.side = 'O'}, toDeliver(7), {.side = 'O'}}, &printed);
  EXPECT_EQ(printed, 1u);
  ASSERT_EQ(lines.size(), 37u);  // twice 18 and what is behind the last line feed
  EXPECT_EQ(lines[0], std::string(25, ' ') + "Auction Notice No.: 215\n");
  EXPECT_EQ(lines[18], std::string(48, ' ') + "\n");
  for (std::size_t i = 19; i < 36; ++i) EXPECT_EQ(lines[i], "\n") << i;
  EXPECT_EQ(lines[36], "");
}

TEST(DeliverySlips, oddNumberLeavesTheLastRightHalfBlank) {
  std::size_t printed = 0;
  const std::vector<std::string> lines = slipLines({toDeliver(1), toDeliver(2), toDeliver(3)}, &printed);
  EXPECT_EQ(printed, 3u);
  ASSERT_EQ(lines.size(), 37u);
  const std::string left = std::string(25, ' ') + "Auction Notice No.: 215";
  EXPECT_EQ(lines[0], left + std::string(46, ' ') + "Auction Notice No.: 215\n");
  EXPECT_EQ(lines[18], left + "\n");
}

TEST(DeliverySlips, nothingToDeliverIsBlankPairsAndNoSlip) {
  std::size_t printed = 9;
  const std::vector<std::string> lines = slipLines({{.side = 'O'}, {.side = 'O'}, {.side = 'O'}}, &printed);
  EXPECT_EQ(printed, 0u);
  EXPECT_EQ(lines.size(), 37u);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), std::string(48, ' ') + "\n"), 2);
}

TEST(DeliverySlips, noFormFeedIsWritten) {
  for (const SlipCase& c : slipCases()) EXPECT_EQ(slips(c).find('\f'), std::string::npos) << c.name;
}

TEST(DeliverySlips, bankCodeIsLookedAtSlipBySlip) {
  Delivery left = toDeliver(1), right = toDeliver(2);
  left.bankCode = 999;
  right.bankCode = 998;
  EXPECT_EQ(slipLines({left, right})[6],
            std::string(30, ' ') + " KOR - VB A/C" + std::string(55, ' ') + "THE CLEARING HOUSE A/C\n");
  EXPECT_EQ(slipLines({right, left})[6],
            std::string(27, ' ') + " THE CLEARING HOUSE A/C" + std::string(47, ' ') + "KOR - VB A/C\n");
}

TEST(DeliverySlips, longTextsAreCut) {
  const std::vector<std::string> lines =
      slipLines({{.side = 'B', .brokerName = "BROKERS OF LONG NAMES", .scripName = "TWELVELETTER"}});
  EXPECT_EQ(lines[5], " 418 LAKEVIEW SECURITIES      0 BROKERS OF LONG NAM  01-06-2009\n");
  EXPECT_EQ(lines[11], std::string(27, ' ') + "0 TWELVELETTER        0 " + std::string(40, ' ') + "\n");
}

// A scrip's name may fill its 13 bytes, without the NUL that would end it.
TEST(DeliverySlips, nameThatFillsItsFieldIsCutAtTwelve) {
  std::vector<DelyRec> records = deliveryRecords({toDeliver(1), toDeliver(2)});
  for (DelyRec& record : records) std::memcpy(record.scripName.bytes, "ABCDEFGHIJKLM", sizeof record.scripName.bytes);
  std::string text;
  Output* out = outputToMemory(&text);
  (void)printDeliverySlips(*out, auctionHeader("A1"), {"215", "01-06-2009"}, records.data(), records.size());
  EXPECT_TRUE(outputClose(out));
  EXPECT_NE(text.find(" 5 ABCDEFGHIJKL        1 "), std::string::npos);
  EXPECT_NE(text.find(" 5 ABCDEFGHIJKL        2\r\n"), std::string::npos);
}

TEST(DeliverySlips, nameTellsNoticeAndDate) {
  const SlipName name = slipNameOf("DELY0106.215", june2009);
  EXPECT_EQ(name.noticeNo, "215");
  EXPECT_EQ(name.date, "01-06-2009");
}

// Nothing is read beyond a name that is shorter than the workstation's.
TEST(DeliverySlips, shortNamesTellWhatTheyHold) {
  EXPECT_EQ(slipNameOf("DELY010.S", june2009).date, "01-0.-2009");
  EXPECT_EQ(slipNameOf("DELY010", june2009).date, "01-0-2009");
  EXPECT_EQ(slipNameOf("DELY01", june2009).date, "01--2009");
  EXPECT_EQ(slipNameOf("DELY0", june2009).date, "0--2009");
  EXPECT_EQ(slipNameOf("DELY", june2009).date, "--2009");
  EXPECT_EQ(slipNameOf("ABC", june2009).noticeNo, "ABC");
  EXPECT_EQ(slipNameOf("AB", june2009).noticeNo, "AB");
  EXPECT_EQ(slipNameOf("", june2009).noticeNo, "");
}

// The year comes from the clock, and from its last two digits up to 96.
TEST(DeliverySlips, yearIsTheClocks) {
  const auto yearIn = [](int year) { return slipNameOf("DELY0106.215", {year, 6, 5, 10, 11, 12}).date.substr(6); };
  EXPECT_EQ(yearIn(1996), "2096");
  EXPECT_EQ(yearIn(1997), "1997");
  EXPECT_EQ(yearIn(1999), "1999");
  EXPECT_EQ(yearIn(2000), "2000");
  EXPECT_EQ(yearIn(2101), "2101");
}

}  // namespace
}  // namespace quillon::test
