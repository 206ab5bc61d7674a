// The pages of both position tools, compared with approved reports.
#include "position/position_report.h"

#include <gtest/gtest.h>

#include "position_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

struct ReportCase {
  const char* approved;  // under tests/reports/position
  const PositionTool& tool;
  char letter;
  bool isLendingFile;
  PositionReport report;
  unsigned linesPerPage;
  const std::vector<Deal>& deals;
};

// What the user chose in the two lists.
struct Selected {
  const char* client;
  const char* scrip;
};

std::string reportOf(const ReportCase& c, const TradeHeader& header, const Selected& selected) {
  const LoadedDeals loaded(c.letter, c.deals);
  const Totalled result(loaded.file, c.report, selected.client, selected.scrip);
  const PositionPages pages = {.report = c.report,
                               .header = header,
                               .selected = c.report == PositionReport::clientScrip ? selected.client : selected.scrip,
                               .isLendingFile = c.isLendingFile,
                               .linesPerPage = c.linesPerPage,
                               .words = c.tool.words};
  std::string text;
  Output* out = outputToMemory(&text);
  writePositionReport(*out, pages, {result.totals.rows, result.totals.rowCount});
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string reportOf(const ReportCase& c) { return reportOf(c, dealHeader(c.letter), {"C1", "AXLE"}); }

// Seven clients of AXLE and seven scrips of C1. Quantities beyond their columns, a negative value, a side that adds nothing,
// only buys, only sells, a net quantity of 0, an average that is rounded up.
const std::vector<Deal> sevenRows = {
    {"C1", "AXLE", 'B', 100, 12345},      {"C1", "AXLE", 'S', 40, 12400},     {"C2", "AXLE", 'B', 2147483647, 2147483647},
    {"C3", "AXLE", 'S', 7, 999},          {"C4", "AXLE", 'B', 3, 1000},       {"C4", "AXLE", 'S', 3, 1100},
    {"C5", "AXLE", 'Z', 9, 100},          {"C6", "AXLE", 'B', -5, 20000},     {"C777777777", "AXLE", 'B', 2, 1234},
    {"C777777777", "AXLE", 'B', 2, 1235}, {"C1", "BOLT", 'B', 1000, 5},       {"C1", "COIL", 'S', 12, 2147483647},
    {"C1", "DRUM", 'B', 999999999, 100},  {"C1", "DRUM", 'S', 999999999, 50}, {"C1", "EAGLEIRON", 'B', 8, 1225},
    {"C1", "EAGLEIRON", 'S', 3, 1301},    {"C1", "FIR", 'S', 3, 10000},       {"C1", "FIR", 'S', 4, 10001},
    {"C1", "GEARWHEEL11", 'B', 1, 1},
};
const std::vector<Deal> threeRows = {
    {"C1", "AXLE", 'B', 10, 10000}, {"C2", "AXLE", 'S', 4, 10050}, {"C3", "AXLE", 'B', 6, 9950},
    {"C1", "BOLT", 'B', 10, 2000},  {"C1", "COIL", 'S', 5, 3000},
};
const std::vector<Deal> kestoRows = {
    {"C1", "AXLE", 'T', 100, 123456}, {"C1", "AXLE", 'M', 30, 125000}, {"C2", "AXLE", 'S', 8, 99999},
    {"C2", "AXLE", 'V', 8, 100001},   {"C1", "BOLT", 'V', 50, 70001},  {"C3", "COIL", 'T', 1000, 5},
};
const std::vector<Deal> lendingRows = {
    {"C1", "AXLE", 'B', 100, 250}, {"C1", "AXLE", 'S', 40, 300}, {"C2", "AXLE", 'S', 8, 425}, {"C3", "AXLE", 'B', 3, 333},
    {"C4", "AXLE", 'B', 5, 101},   {"C1", "BOLT", 'S', 1, 1},    {"C1", "COIL", 'B', 70, 99}, {"C1", "DRUM", 'B', 2, 50},
};
const std::vector<Deal> noRows = {{"C1", "AXLE", 'B', 100, 12345, 'O'}};

const PositionTool& net = netPositionTool;
const PositionTool& slb = slbPositionTool;
using enum PositionReport;

// clang-format off
const ReportCase cases[] = {
    {"net_11_seven_rows",    net, 'N', false, clientWise,  3,  sevenRows},
    {"net_22_seven_rows",    net, 'N', false, clientScrip, 3,  sevenRows},
    {"net_33_seven_rows",    net, 'V', false, scripClient, 3,  sevenRows},
    {"net_44_seven_rows",    net, 'V', false, scripWise,   3,  sevenRows},
    {"net_11_page_full",     net, 'N', false, clientWise,  3,  threeRows},
    {"net_44_row_a_page",    net, 'N', false, scripWise,   1,  threeRows},
    {"net_11_empty",         net, 'N', false, clientWise,  50, noRows},
    {"net_22_empty",         net, 'N', false, clientScrip, 50, noRows},
    {"net_33_empty",         net, 'N', false, scripClient, 50, noRows},
    {"net_44_empty",         net, 'N', false, scripWise,   50, noRows},
    {"net_44_lending_file",  net, 'V', true,  scripWise,   50, lendingRows},
    {"net_11_kesto",         net, 'B', false, clientWise,  2,  kestoRows},
    {"net_22_kesto",         net, 'B', false, clientScrip, 50, kestoRows},
    {"net_33_kesto",         net, 'B', false, scripClient, 50, kestoRows},
    {"net_44_kesto",         net, 'B', false, scripWise,   2,  kestoRows},
    {"slb_11_lending",       slb, 'V', true,  clientWise,  3,  lendingRows},
    {"slb_22_lending",       slb, 'V', true,  clientScrip, 3,  lendingRows},
    {"slb_33_lending",       slb, 'V', true,  scripClient, 3,  lendingRows},
    {"slb_44_lending",       slb, 'N', true,  scripWise,   3,  lendingRows},
    {"slb_22_lending_empty", slb, 'V', true,  clientScrip, 50, noRows},
    {"slb_11_normal",        slb, 'V', false, clientWise,  50, threeRows},
    {"slb_22_normal",        slb, 'V', false, clientScrip, 50, threeRows},
    {"slb_33_normal",        slb, 'V', false, scripClient, 2,  threeRows},
    {"slb_44_normal",        slb, 'V', false, scripWise,   50, threeRows},
    {"slb_11_kesto_letter",  slb, 'B', true,  clientWise,  50, kestoRows},
    {"slb_22_kesto_letter",  slb, 'B', true,  clientScrip, 50, kestoRows},
    {"slb_33_kesto_letter",  slb, 'B', false, scripClient, 50, kestoRows},
    {"slb_44_kesto_letter",  slb, 'B', false, scripWise,   50, kestoRows},
};
// clang-format on

TEST(PositionReports, areAsApproved) {
  for (const ReportCase& c : cases) {
    SCOPED_TRACE(c.approved);
    expectApproved(std::string("position/") + c.approved + ".txt", reportOf(c));
  }
}

// Every value narrower than its cell, so that a cell which changed its width or its alignment shows. Of C in AB 2 bought at
// 1.05 and 31 sold at 0.07; in the lending market and in Kesto files the same borrowed and lent, lent and borrowed.
const std::vector<Deal> narrowRows = {
    {"C", "AB", 'B', 2, 105},  {"C", "AB", 'S', 31, 7}, {"C", "Q", 'S', 5, 209},
    {"R2", "AB", 'S', 4, 305}, {"R2", "Q", 'B', 6, 1},
};
const std::vector<Deal> narrowKestoRows = {
    {"C", "AB", 'T', 2, 10500},  {"C", "AB", 'M', 31, 700}, {"C", "Q", 'V', 5, 20900},
    {"R2", "AB", 'V', 4, 30500}, {"R2", "Q", 'S', 6, 100},
};

// clang-format off
const ReportCase narrowCases[] = {
    {"net_11_narrow_values",         net, 'N', false, clientWise,  1, narrowRows},
    {"net_22_narrow_values",         net, 'V', false, clientScrip, 1, narrowRows},
    {"net_33_narrow_values",         net, 'N', false, scripClient, 1, narrowRows},
    {"net_44_narrow_values",         net, 'V', false, scripWise,   1, narrowRows},
    {"net_11_kesto_narrow_values",   net, 'B', false, clientWise,  1, narrowKestoRows},
    {"net_22_kesto_narrow_values",   net, 'B', false, clientScrip, 1, narrowKestoRows},
    {"net_33_kesto_narrow_values",   net, 'B', false, scripClient, 1, narrowKestoRows},
    {"net_44_kesto_narrow_values",   net, 'B', false, scripWise,   1, narrowKestoRows},
    {"net_11_lending_narrow_values", net, 'V', true,  clientWise,  1, narrowRows},
    {"net_22_lending_narrow_values", net, 'V', true,  clientScrip, 1, narrowRows},
    {"net_33_lending_narrow_values", net, 'V', true,  scripClient, 1, narrowRows},
    {"net_44_lending_narrow_values", net, 'V', true,  scripWise,   1, narrowRows},
    {"slb_11_narrow_values",         slb, 'V', false, clientWise,  1, narrowRows},
    {"slb_22_narrow_values",         slb, 'V', false, clientScrip, 1, narrowRows},
    {"slb_33_narrow_values",         slb, 'V', false, scripClient, 1, narrowRows},
    {"slb_44_narrow_values",         slb, 'V', false, scripWise,   1, narrowRows},
    {"slb_11_kesto_narrow_values",   slb, 'B', false, clientWise,  1, narrowKestoRows},
    {"slb_22_kesto_narrow_values",   slb, 'B', false, clientScrip, 1, narrowKestoRows},
    {"slb_33_kesto_narrow_values",   slb, 'B', false, scripClient, 1, narrowKestoRows},
    {"slb_44_kesto_narrow_values",   slb, 'B', false, scripWise,   1, narrowKestoRows},
    {"slb_11_lending_narrow_values", slb, 'V', true,  clientWise,  1, narrowRows},
    {"slb_22_lending_narrow_values", slb, 'V', true,  clientScrip, 1, narrowRows},
    {"slb_33_lending_narrow_values", slb, 'V', true,  scripClient, 1, narrowRows},
    {"slb_44_lending_narrow_values", slb, 'V', true,  scripWise,   1, narrowRows},
};
// clang-format on

TEST(PositionReports, valuesNarrowerThanTheirCellsAreAligned) {
  for (const ReportCase& c : narrowCases) {
    SCOPED_TRACE(c.approved);
    TradeHeader header = dealHeader(c.letter);
    header.memberId = 5;
    header.day = 3;
    header.month = 4;
    header.century = 9;
    header.year = 5;
    header.hour = 9;
    header.minute = 5;
    header.second = 3;
    expectApproved(std::string("position/") + c.approved + ".txt", reportOf(c, header, {"C", "AB"}));
  }
}

std::vector<std::string> pagesOf(const std::string& report) {
  std::vector<std::string> pages;
  std::size_t start = 0;
  for (std::size_t end; (end = report.find('\f', start)) != std::string::npos; start = end + 1) {
    pages.push_back(report.substr(start, end - start));
  }
  EXPECT_EQ(start, report.size()) << "text behind the last form feed";
  return pages;
}

// A row begins with the blanks of its name; the column titles and the rules do not.
std::size_t rowsOn(const std::string& page) {
  std::size_t rows = 0;
  for (const std::string& line : linesOf(page)) rows += line.starts_with("| ") ? 1 : 0;
  return rows;
}

TEST(PositionReports, sevenRowsAtThreeAPageAreThreePagesOfThreeThreeAndOne) {
  for (PositionReport report : {clientWise, clientScrip, scripClient, scripWise}) {
    SCOPED_TRACE(static_cast<int>(report));
    const std::vector<std::string> pages = pagesOf(reportOf({"", net, 'N', false, report, 3, sevenRows}));
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(rowsOn(pages[0]), 3u);
    EXPECT_EQ(rowsOn(pages[1]), 3u);
    EXPECT_EQ(rowsOn(pages[2]), 1u);
    for (std::size_t i = 0; i < pages.size(); ++i) {
      EXPECT_NE(pages[i].find("Page: " + std::to_string(i + 1) + "\r\n"), std::string::npos);
    }
  }
}

TEST(PositionReports, noRowsAreAHeadingTheRuleTheEndAndAFormFeed) {
  for (PositionReport report : {clientWise, clientScrip, scripClient, scripWise}) {
    SCOPED_TRACE(static_cast<int>(report));
    const std::vector<std::string> pages = pagesOf(reportOf({"", net, 'N', false, report, 1, noRows}));
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_NE(pages[0].find("Page: 1\r\n"), std::string::npos);
    EXPECT_EQ(rowsOn(pages[0]), 0u);
    const std::vector<std::string> lines = linesOf(pages[0]);
    ASSERT_GE(lines.size(), 5u);
    // The last piece is what stands behind the last line feed.
    EXPECT_EQ(lines[lines.size() - 4], lines[lines.size() - 3]) << "the rule under the heading, then the closing rule";
    EXPECT_NE(lines[lines.size() - 2].find("***End of "), std::string::npos);
    EXPECT_EQ(lines.back(), "");
  }
}

TEST(PositionReports, secondReportBeginsAtPageOneAgain) {
  for (int run = 0; run < 2; ++run) {
    const std::vector<std::string> pages = pagesOf(reportOf({"", net, 'N', false, clientWise, 3, sevenRows}));
    EXPECT_NE(pages.front().find("Page: 1\r\n"), std::string::npos);
    EXPECT_NE(pages.back().find("Page: 3\r\n"), std::string::npos);
  }
}

TEST(PositionReports, normalFileInTheSlbToolHasTheBuyAndSellLayoutUnderTheExchange) {
  const std::string text = reportOf({"", slb, 'V', false, clientScrip, 50, threeRows});
  EXPECT_NE(text.find("TARVEN STOCK EXCHANGE LTD."), std::string::npos);
  EXPECT_EQ(text.find("KOR SHARE"), std::string::npos);
  EXPECT_NE(text.find(" ScripWise  Position of Client : C1\r\n"), std::string::npos);
  EXPECT_NE(text.find("| Buy Avg Rate | Sell Qty   | Sell AvgRate |   Net Qty  |   Net Value    |      BEP     |"),
            std::string::npos);
  EXPECT_EQ(text.find("Borrow"), std::string::npos);
}

TEST(PositionReports, lendingFileHasTheClearingHouseOnEachPageAndNoBreakEven) {
  for (PositionReport report : {clientWise, clientScrip, scripClient, scripWise}) {
    SCOPED_TRACE(static_cast<int>(report));
    const std::string text = reportOf({"", slb, 'V', true, report, 1, lendingRows});
    for (const std::string& page : pagesOf(text)) EXPECT_NE(page.find("KOR SHARE HOLDING LTD."), std::string::npos);
    EXPECT_EQ(text.find("TARVEN"), std::string::npos);
    EXPECT_EQ(text.find("BEP"), std::string::npos);
    EXPECT_EQ(text.find("Net Qty"), std::string::npos);
  }
}

TEST(PositionReports, rowsOfOneClientAndByScripEndInABlankAndByClientDoNot) {
  struct Case {
    const PositionTool& tool;
    bool isLendingFile;
    PositionReport report;
    bool blank;
  };
  const Case blanks[] = {{net, false, clientWise, false}, {net, false, clientScrip, true}, {net, false, scripClient, false},
                         {net, false, scripWise, true},   {slb, true, clientWise, false},  {slb, true, clientScrip, true},
                         {slb, true, scripClient, false}, {slb, true, scripWise, false}};
  for (const Case& c : blanks) {
    SCOPED_TRACE(static_cast<int>(c.report));
    for (const std::string& line : linesOf(reportOf({"", c.tool, 'V', c.isLendingFile, c.report, 50, lendingRows}))) {
      if (line.starts_with("| ")) {
        EXPECT_EQ(line.ends_with("| \r\n"), c.blank) << line;
      }
    }
  }
}

}  // namespace
}  // namespace quillon::test
