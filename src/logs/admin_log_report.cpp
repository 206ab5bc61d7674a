// A record of trader limits takes three lines, the third of which is its rule as well; records of the other sections take one
// line and a rule below it. Where another page follows, each gets a rule more. The last page of trader limits gets one as well
// unless it is full; the last one of the others does not.
#include "logs/admin_log_report.h"

#include <string>

#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

namespace {

// The blocks of one section's pages.
template <class Record>
struct AdminBlocks {
  void (*heading)(Output& out, const AdminPage& page);
  void (*record)(Output& out, const Record& record, bool isLendingFile);
  void (*rule)(Output& out, bool isLendingFile);
  bool rulesItsEnd;  // a last page that is neither empty nor full ends in the rule
};

}  // namespace

static std::string adminDate(const AdminHeader& header) {
  return formatText<"%02d/%02d/%02d%02d">(header.day, header.month, header.century, header.yearOfCentury);
}

// clang-format off

static void printPageTop(Output& out, const AdminPage& page) {
  const char* const exchange = page.isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
  print<"%85s%42s%2d\n">(out, exchange, "Page:", page.number);
  print<"%10s%7ld\n">(out, "Broker Id. :", page.header.memberId);
}

// ---- Trader limits ----------------------------------------------------------------------------------------------------

static void printTraderRule(Output& out, bool isLendingFile) {
  if (isLendingFile) {
    print<"|___|______|_|_|_|_|_|_|_|_|_|_|_|______|______|______|__________|__________|__________|______|_____|_|________________|\n">(out);
  } else {
    print<"|___|______|_|_|_|_|_|_|_|_|_|_|_|_|_|_|_|_|_|______|______|______|__________|__________|__________|______|_____|_|________________|\n">(out);
  }
}

// The names of the flags are read downward. The rule above is narrower than the cells below it.
static void printTraderHeading(Output& out, const AdminPage& page) {
  printPageTop(out, page);
  print<"%82s%10s\n">(out, "ADMIN LOG AS ON:", adminDate(page.header));
  print<"%82s\n\n">(out, "Trader Limits Log");
  if (page.isLendingFile) {
    print<" %s\n">(out, std::string(118, '_'));
    print<"|Trd|Alias |U|C|C|A|6|M|C|A|C|S|S|GL    |GL    |NetVal|DefBorrow |DefLend   |  MaxQty  |MaxVal| Time|O|Reply Message   |\n">(out);
    print<"|r  |      |T|D|R|c|A|Q|R|u|l|e|e|Borrow|Lend  |      |          |          |          |      |     |T|                |\n">(out);
    print<"|   |      | | | |t|7| |E|c|R|t|t|      |      |      |          |          |          |      |     | |                |\n">(out);
    print<"|   |      | | | |i|A| |G| |e|G|S|      |      |      |          |          |          |      |     | |                |\n">(out);
    print<"|   |      | | | |v| | | | |c|B|B|      |      |      |          |          |          |      |     | |                |\n">(out);
    print<"|   |      | | | |e| | | | | |L|L|      |      |      |          |          |          |      |     | |                |\n">(out);
  } else {
    print<" %s\n">(out, std::string(128, '_'));
    print<"|Trd|Alias |U|C|R|A|O|B|R|S|6|M|R|A|C|R|B|U|U|Gr    |Gr    |NetVal|  NetBuy  | NetSell  |  Single  |Single| Time|O|Reply Message   |\n">(out);
    print<"|r  |      |T|D|e|c|L|T|e|L|A|Q|e|u|l|e|l|Q|G|Buy   |Sell  |      |    Qty   |   Qty    |  Ord Qty |OrdVal|     |T|                |\n">(out);
    print<"|   |      |R| |s|t| | |s| |7| |s|c|R|s|o|L|L|      |      |      |          |          |          |      |     | |                |\n">(out);
    print<"|   |      | | |F|i| | |F| |A| |F| |e|F|c| | |      |      |      |          |          |          |      |     | |                |\n">(out);
    print<"|   |      | | |l|v| | |l| | | |l| |c|l|k| | |      |      |      |          |          |          |      |     | |                |\n">(out);
    print<"|   |      | | |d|e| | |f| | | |d| | |d|D| | |      |      |      |          |          |          |      |     | |                |\n">(out);
  }
  printTraderRule(out, page.isLendingFile);
}

static void printNormalLimits(Output& out, const TraderLimitRec& record, std::string_view alias, std::string_view message) {
  print<"|%03d|%6s|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%5dL|%5dL|%5dL|%10d|%10d|%10d|%5dL|%02d:%02d|%c|%16s|\n">(out,
      record.traderNo, alias, record.utr, record.cd, record.resFlag4, record.active, record.ol, record.bt, record.resFlag1,
      record.sl, record.sixASevenA, record.mq, record.resFlag2, record.auc, record.clRec, record.resFlag3, record.blockD,
      record.uql, record.ugl, record.grBuy, record.grSell, record.netVal, record.netBuyQty, record.netSellQty,
      record.singleOrdQty, record.singleOrdVal, record.hour, record.minute, adminOpLetter(record.opCode), message);
}

static void printLendingLimits(Output& out, const TraderLimitRec& record, std::string_view alias, std::string_view message) {
  print<"|%03d|%6s|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%c|%5dL|%5dL|%5dL|%10d|%10d|%10d|%5dL|%02d:%02d|%c|%16s|\n">(out,
      record.traderNo, alias, record.utr, record.cd, record.resFlag4, record.active, record.sixASevenA, record.mq,
      record.resFlag2, record.auc, record.clRec, record.uql, record.ugl, record.grBuy, record.grSell, record.netVal,
      record.netBuyQty, record.netSellQty, record.singleOrdQty, record.singleOrdVal, record.hour, record.minute,
      adminOpLetter(record.opCode), message);
}

// The name goes on in the second line, the reply in the second and third.
static void printTraderRecord(Output& out, const TraderLimitRec& record, bool isLendingFile) {
  constexpr std::size_t aliasCell = 6, messageCell = 16;
  const std::string_view alias = record.alias.view(), message = adminMessage(record.message);
  const auto from = [](std::string_view text, std::size_t at) { return text.substr(at < text.size() ? at : text.size()); };
  const std::string_view aliasRest = from(alias, aliasCell), messageEnd = from(message, 2 * messageCell);
  const std::string_view messageMiddle = from(message, messageCell).substr(0, messageCell);
  if (isLendingFile) {
    printLendingLimits(out, record, alias.substr(0, aliasCell), message.substr(0, messageCell));
    print<"|   |%6s| | | | | | | | | | | |      |      |      |          |          |          |      |     | |%16s|\n">(out, aliasRest, messageMiddle);
    print<"|___|______|_|_|_|_|_|_|_|_|_|_|_|______|______|______|__________|__________|__________|______|_____|_|%-16s|\n">(out, messageEnd);
  } else {
    printNormalLimits(out, record, alias.substr(0, aliasCell), message.substr(0, messageCell));
    print<"|   |%6s| | | | | | | | | | | | | | | | | |      |      |      |          |          |          |      |     | |%16s|\n">(out, aliasRest, messageMiddle);
    print<"|___|______|_|_|_|_|_|_|_|_|_|_|_|_|_|_|_|_|_|______|______|______|__________|__________|__________|______|_____|_|%-16s|\n">(out, messageEnd);
  }
}

static constexpr AdminBlocks<TraderLimitRec> traderBlocks = {printTraderHeading, printTraderRecord, printTraderRule, true};

// ---- Scrip-wise limits ------------------------------------------------------------------------------------------------

// A blank stands between the words and the date here and on no other report.
static void printScripHeading(Output& out, const AdminPage& page) {
  printPageTop(out, page);
  print<"%82s%11s\n">(out, "ADMIN LOG AS ON:", adminDate(page.header));
  print<"%82s\n\n">(out, "Net Scripwise Limits Log");
  print<"%s\n">(out, std::string(115, '_'));
  if (page.isLendingFile) {
    print<"|TraderId|ScCode|  Scrip Id |BorrLimit|Lend limit| Time|Opr Type|Reply Message                                     |\n">(out);
  } else {
    print<"|TraderId|ScCode|  Scrip Id |Buy Limit|Sell limit| Time|Opr Type|Reply Message                                     |\n">(out);
  }
}

static void printScripRule(Output& out, bool) {
  print<"|________|______|___________|_________|__________|_____|________|__________________________________________________|\n">(out);
}

static void printScripRecord(Output& out, const ScripLimitRec& record, bool isLendingFile) {
  print<"|%8d|%6d|%11s|%9d|%10d|%02d:%02d|%8c|%50s|\n">(out, record.traderId, record.scripCode, record.scripId, record.buyLimit,
      record.sellLimit, record.hour, record.minute, adminOpLetter(record.opCode), adminMessage(record.message));
  printScripRule(out, isLendingFile);
}

static constexpr AdminBlocks<ScripLimitRec> scripBlocks = {printScripHeading, printScripRecord, printScripRule, false};

// ---- Group-wise limits ------------------------------------------------------------------------------------------------

static void printGroupHeading(Output& out, const AdminPage& page) {
  printPageTop(out, page);
  print<"%82s%10s\n">(out, "ADMIN LOG AS ON:", adminDate(page.header));
  print<"%82s\n\n">(out, "Gross Groupwise Limits Log");
  print<"%s\n">(out, std::string(105, '_'));
  print<"|Trader Id|GrName|Buy Limit |Sell limit| Time|Opr Type|Reply Message                                     |\n">(out);
}

static void printGroupRule(Output& out, bool) {
  print<"|_________|______|__________|__________|_____|________|__________________________________________________|\n">(out);
}

static void printGroupRecord(Output& out, const GroupLimitRec& record, bool isLendingFile) {
  print<"|%9d|%6s|%9.0fL|%9.0fL|%02d:%02d|%8c|%50s|\n">(out, record.traderId, record.groupName, record.buyLimit, record.sellLimit,
      record.hour, record.minute, adminOpLetter(record.opCode), adminMessage(record.message));
  printGroupRule(out, isLendingFile);
}

static constexpr AdminBlocks<GroupLimitRec> groupBlocks = {printGroupHeading, printGroupRecord, printGroupRule, false};

// ---- General activities -----------------------------------------------------------------------------------------------

static void printActivityHeading(Output& out, const AdminPage& page) {
  printPageTop(out, page);
  print<"%82s%10s\n">(out, "ADMIN LOG AS ON:", adminDate(page.header));
  print<"%82s\n\n">(out, "Genaral Activities Log");
  print<"%s\n">(out, std::string(111, '_'));
  print<"|Trader Id|    Opr Type       |   Old Pwd |  New Pwd  | Time|Reply Message                                     |\n">(out);
}

static void printActivityRule(Output& out, bool) {
  print<"|_________|___________________|___________|___________|_____|__________________________________________________|\n">(out);
}

static void printActivityRecord(Output& out, const ActivityRec& record, bool isLendingFile) {
  print<"|%9d|%19s|%11s|%11s|%02d:%02d|%50s|\n">(out, record.traderId, record.oprType, record.oldPwd, record.newPwd,
      record.hour, record.minute, adminMessage(record.message));
  printActivityRule(out, isLendingFile);
}

static constexpr AdminBlocks<ActivityRec> activityBlocks = {printActivityHeading, printActivityRecord, printActivityRule, false};

// clang-format on

// ---- Pages ------------------------------------------------------------------------------------------------------------

template <class Record>
static void printPages(Output& out, const AdminBlocks<Record>& blocks, const void* records,
                       std::span<const std::uint32_t> order, AdminPage& page) {
  ++page.number;
  blocks.heading(out, page);
  unsigned onPage = 0;
  for (const Record& record : inOrder(static_cast<const Record*>(records), order)) {
    if (onPage == page.recordsPerPage) {
      blocks.rule(out, page.isLendingFile);
      print<"%c">(out, formFeed);
      onPage = 0;
      ++page.number;
      blocks.heading(out, page);
    }
    blocks.record(out, record, page.isLendingFile);
    ++onPage;
  }
  if (blocks.rulesItsEnd && onPage > 0 && onPage < page.recordsPerPage) blocks.rule(out, page.isLendingFile);
  print<"%c">(out, formFeed);
}

void printAdminSection(Output& out, AdminSection section, const void* records, std::span<const std::uint32_t> order,
                       AdminPage& page) {
  switch (section) {
    case AdminSection::traderLimits:
      return printPages(out, traderBlocks, records, order, page);
    case AdminSection::scripLimits:
      return printPages(out, scripBlocks, records, order, page);
    case AdminSection::groupLimits:
      return printPages(out, groupBlocks, records, order, page);
    case AdminSection::activities:
      return printPages(out, activityBlocks, records, order, page);
  }
}

}  // namespace quillon
