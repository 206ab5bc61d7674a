// The pages of the Kesto net position, compared with approved reports.
#include "position/kesto_net_position_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "kesto_deals.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

// Five clients of AXLEIND and five scrips and days of C100: both sides, one alone, a net quantity of 0, a loss, a rate that
// single precision does not hold.
const std::string ordinaryDeals = R"(
C100 AXLEIND 500101 7 S 1000000 52501 L
C100 AXLEIND 500101 7 M 400 53333 L
C100 AXLEIND 500101 30 V 25 61250 L
C100 BRASSCO 500102 7 T 10 10000 L
C100 BRASSCO 500102 7 M 10 20000 L
C100 CORALTEX 500103 126 S 3 5 L
C100 CORALTEX 500103 126 S 9 99999 O
C100 DELTAFAB 500104 -1 V 7 30001 L
C200 AXLEIND 500101 14 T 200 52750 L
C300 AXLEIND 500101 7 M 1700 53000 L
C400 AXLEIND 500101 7 Q 99 53000 L
C500 AXLEIND 500101 60 S 12 49999 L
)";

// Names of one letter, quantities and values of one digit.
const std::string narrowDeals = R"(
A B 1 1 S 1 1 L
A B 1 1 M 2 10000 L
A D 2 2 V 1 1 L
E B 1 1 T 3 20000 L
)";

// Names of eleven letters and of twelve, quantities and values beyond their cells.
const std::string wideDeals = R"(
CLIENTELEVN SCRIPELEVEN 2147483647 127 S 2147483647 2147483647 L
CLIENTELEVN SCRIPELEVEN 2147483647 127 M -2147483647 2147483647 L
CLIENTELEVN SCRIPELEVEN 2147483647 -128 V 2147483647 2147483647 L
CLIENTELEVN SCRIPELEVEM 2147483647 100 V 2147483647 2147483647 L
CLIENTELEVN SCRIPELEVEM 2147483647 100 S 2147483646 -2147483647 L
CLIENTELEVM SCRIPELEVEN 2147483647 100 V 2147483647 2147483647 L
)";

TradeHeader wideHeader() {
  TradeHeader header = dealHeader('B');
  header.memberId = -2147483647;
  header.traderId = 123456;
  header.day = 31;
  header.month = 12;
  header.century = 20;
  header.year = 26;
  header.hour = 23;
  header.minute = 59;
  header.second = 58;
  return header;
}

TradeHeader narrowHeader() {
  TradeHeader header = dealHeader('C');
  header.memberId = 5;
  header.century = 9;
  header.hour = 9;
  header.second = 3;
  return header;
}

struct ReportCase {
  const std::string& deals;
  PositionReport report;
  std::string_view selected;
  TradeHeader header;
  bool isLendingFile;
  unsigned linesPerPage;
};

std::string reportOf(const ReportCase& c) {
  const LoadedKesto loaded(c.deals, c.header);
  const KestoTotalled result(loaded.file, c.report, c.selected, c.selected);
  const KestoPositionPages pages = {.report = c.report,
                                    .header = c.header,
                                    .selected = c.selected,
                                    .isLendingFile = c.isLendingFile,
                                    .linesPerPage = c.linesPerPage};
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoPosition(*out, pages, {result.totals.rows, result.totals.rowCount});
  EXPECT_TRUE(outputClose(out));
  return text;
}

TEST(KestoPositionReport, clientWisePages) {
  const PositionReport report = PositionReport::clientWise;
  expectApproved("position/kesto_client_ordinary.txt", reportOf({ordinaryDeals, report, "", dealHeader('C'), false, 3}));
  expectApproved("position/kesto_client_lending.txt", reportOf({ordinaryDeals, report, "", dealHeader('B'), true, 50}));
  expectApproved("position/kesto_client_narrow_values.txt", reportOf({narrowDeals, report, "", narrowHeader(), false, 1}));
  expectApproved("position/kesto_client_wide_values.txt", reportOf({wideDeals, report, "", wideHeader(), true, 1}));
}

TEST(KestoPositionReport, scripWisePages) {
  const PositionReport report = PositionReport::scripWise;
  expectApproved("position/kesto_scrip_ordinary.txt", reportOf({ordinaryDeals, report, "", dealHeader('C'), false, 3}));
  expectApproved("position/kesto_scrip_lending.txt", reportOf({ordinaryDeals, report, "", dealHeader('B'), true, 50}));
  expectApproved("position/kesto_scrip_narrow_values.txt", reportOf({narrowDeals, report, "", narrowHeader(), false, 1}));
  expectApproved("position/kesto_scrip_wide_values.txt", reportOf({wideDeals, report, "", wideHeader(), true, 1}));
}

TEST(KestoPositionReport, clientScripWisePages) {
  const PositionReport report = PositionReport::clientScrip;
  expectApproved("position/kesto_client_scrip_ordinary.txt",
                 reportOf({ordinaryDeals, report, "C100", dealHeader('C'), false, 3}));
  expectApproved("position/kesto_client_scrip_lending.txt",
                 reportOf({ordinaryDeals, report, "C100", dealHeader('B'), true, 50}));
  expectApproved("position/kesto_client_scrip_narrow_values.txt",
                 reportOf({narrowDeals, report, "A", narrowHeader(), false, 1}));
  expectApproved("position/kesto_client_scrip_wide_values.txt",
                 reportOf({wideDeals, report, "CLIENTELEVN", wideHeader(), true, 1}));
}

TEST(KestoPositionReport, scripClientWisePages) {
  const PositionReport report = PositionReport::scripClient;
  expectApproved("position/kesto_scrip_client_ordinary.txt",
                 reportOf({ordinaryDeals, report, "AXLEIND", dealHeader('C'), false, 3}));
  expectApproved("position/kesto_scrip_client_lending.txt",
                 reportOf({ordinaryDeals, report, "AXLEIND", dealHeader('B'), true, 50}));
  expectApproved("position/kesto_scrip_client_narrow_values.txt",
                 reportOf({narrowDeals, report, "B", narrowHeader(), false, 1}));
  expectApproved("position/kesto_scrip_client_wide_values.txt",
                 reportOf({wideDeals, report, "SCRIPELEVEN", wideHeader(), true, 1}));
}

TEST(KestoPositionReport, noRowsGiveHeadingsAndClosingRuleAlone) {
  const std::string excluded = "C1 A 1 7 S 1 10000 O\nC2 A 1 7 S 9 10000 D\nC3 A 1 7 S 9 10000 X\n";
  const TradeHeader header = dealHeader('C');
  expectApproved("position/kesto_client_empty.txt", reportOf({excluded, PositionReport::clientWise, "", header, false, 50}));
  expectApproved("position/kesto_scrip_empty.txt", reportOf({excluded, PositionReport::scripWise, "", header, false, 50}));
  expectApproved("position/kesto_client_scrip_empty.txt",
                 reportOf({excluded, PositionReport::clientScrip, "", header, false, 50}));
  expectApproved("position/kesto_scrip_client_empty.txt",
                 reportOf({excluded, PositionReport::scripClient, "", header, false, 50}));
}

TEST(KestoPositionReport, theCounterCountsRowsAndTheFiftyFirstStartsTheSecondPage) {
  std::string deals;
  for (int i = 0; i < 51; ++i) {
    const std::string client = "C" + std::to_string(100 + i);
    deals += client + " A 1 7 S 1 10000 L\n" + client + " B 1 7 S 1 10000 L\n";
  }
  const auto pagesOf = [](const std::string& report) { return std::count(report.begin(), report.end(), '\f'); };
  const TradeHeader header = dealHeader('C');
  EXPECT_EQ(pagesOf(reportOf({deals, PositionReport::clientWise, "", header, false, 50})), 2);
  EXPECT_EQ(pagesOf(reportOf({deals, PositionReport::clientWise, "", header, false, 51})), 1);
  EXPECT_EQ(pagesOf(reportOf({deals, PositionReport::clientWise, "", header, false, 17})), 3) << "as many on every page";
  EXPECT_EQ(pagesOf(reportOf({deals, PositionReport::scripClient, "A", header, false, 50})), 2);
}

}  // namespace
}  // namespace quillon::test
