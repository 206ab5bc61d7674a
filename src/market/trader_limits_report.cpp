#include "market/trader_limits_report.h"

#include "text/letters.h"
#include "text/print.h"
#include "text/tokens.h"

namespace quillon {

static constexpr char formFeed = 12;

// ---- Normal, trader-wise ----------------------------------------------------------------------------------------------

namespace {

// How a token of a trader's line is printed.
enum class Cell { trader, alias, flag, narrowFlag, limit6, limit9, limit10 };

}  // namespace

// clang-format off

static constexpr Cell ordinaryCells[] = {
    Cell::trader,      // Trdr
    Cell::alias,       // Alias
    Cell::flag,        // UTR
    Cell::flag,        // CD
    Cell::flag,        // ResFld
    Cell::flag,        // Active
    Cell::flag,        // OL
    Cell::flag,        // BT
    Cell::flag,        // ResFld
    Cell::flag,        // SL
    Cell::flag,        // 6A7A
    Cell::narrowFlag,  // MQ
    Cell::flag,        // ResFld
    Cell::flag,        // Auc
    Cell::flag,        // ClRec
    Cell::flag,        // ResFld
    Cell::flag,        // BlockD
    Cell::flag,        // UQL
    Cell::flag,        // UGL
    Cell::limit6,      // GrBuy
    Cell::limit6,      // GrSell
    Cell::limit10,     // NetValue
    Cell::limit9,      // NetBuy Qty
    Cell::limit9,      // NetSell Qty
    Cell::limit9,      // Single Qrd Qty
    Cell::limit9,      // Single Qrd Val
};

static constexpr Cell lendingCells[] = {
    Cell::trader,      // Trdr
    Cell::alias,       // Alias
    Cell::flag,        // UT
    Cell::flag,        // CD
    Cell::flag,        // CR
    Cell::flag,        // Active
    Cell::flag,        // 6A7A
    Cell::narrowFlag,  // MQ
    Cell::flag,        // CREG
    Cell::flag,        // Auc
    Cell::flag,        // ClRec
    Cell::flag,        // SetGBL
    Cell::flag,        // SetSBL
    Cell::limit9,      // GLBorrow
    Cell::limit6,      // GLLend
    Cell::limit10,     // NetValue
    Cell::limit9,      // DefBorrow
    Cell::limit9,      // DefLend
    Cell::limit9,      // MaxQty
    Cell::limit9,      // MaxVal
};

static_assert(std::size(ordinaryCells) == limitLineTokens);
static_assert(std::size(lendingCells) == 20);

static void normalTitle(LimitsReport& report) {
  const char* const title = report.options.lending ? "KOR SHARE HOLDING LTD.  <NORMAL TRADER LIMITS>"
                                                   : "TARVEN STOCK EXCHANGE LTD.  <NORMAL TRADER LIMITS>";
  print<" %5s%s%10s%2d\n\n">(report.out, "", title, "Page:", report.page);
  print<" %s%ld\n">(report.out, "Broker Id :", report.header.brokerId);
}

static void traderwiseClosingRule(LimitsReport& report) {
  if (report.options.lending) {
    print<"|___|___________|__|__|__|__|__|_|__|__|__|__|__|_________|______|__________|_________|_________|_________|_________|\n">(report.out);
  } else {
    print<"|___|___________|__|__|__|__|__|__|__|__|__|_|__|__|__|__| _|__|__|______|______|__________|_________|_________|_________|_________|\n">(report.out);
  }
}

// At the end of a page that is followed by another. On lending files its GLBorrow cell is three columns narrower than the
// table's.
static void traderwisePageEndRule(LimitsReport& report) {
  if (report.options.lending) {
    print<"|___|___________|__|__|__|__|__|_|__|__|__|__|__|______|______|__________|_________|_________|_________|_________|\n">(report.out);
  } else {
    traderwiseClosingRule(report);
  }
}

static void traderwiseHeading(LimitsReport& report) {
  Output& out = report.out;
  normalTitle(report);
  print<" Traderwise Limits Report as on date:  %s\n">(out, report.header.date);
  // The blank before the third line's end belongs to the layout.
  if (report.options.lending) {
    print<" ___________________________________________________________________________________________________________________\n">(out);
    print<"|Trd|Alias      |UT|CD|CR|Ac|6A|M|CR|Au|Cl|Se|Se|GLBorrow |GLLend|NetValue  |DefBorrow|DefLend  |  MaxQty |MaxVal   |\n">(out);
    print<"|r  |           |  |  |  |ti|7A|Q|EG|c |Re|tG|tS|         |      |          |         |         |         |         |\n">(out);
    print<"|   |           |  |  |  |ve|  | |  |  |c |BL|BL|         |      |          |         |         |         |         | \n">(out);
  } else {
    print<" __________________________________________________________________________________________________________________________________\n">(out);
    print<"|Trd|Alias      |UT|CD|Re|Ac|OL|BT|Re|SL|6A|M|Re|Au|Cl|Re|Bl|UQ|UG|GrBuy |GrSell|NetValue  |  NetBuy | NetSell |  Single |Single   |\n">(out);
    print<"|r  |           |R |  |sF|ti|  |  |sF|  |7A|Q|sF|c |Re|sF|oc|L |L |      |      |          |    Qty  |   Qty   |  Qrd Qty|Qrd Val  |\n">(out);
    print<"|   |           |  |  |ld|ve|  |  |ld|  |  | |ld|  |c |ld|kD|  |  |      |      |          |         |         |         |         | \n">(out);
  }
  traderwiseClosingRule(report);
}

static void traderwiseCell(Output& out, Cell cell, std::string_view token) {
  switch (cell) {
    case Cell::trader:     print<"|%-3d|">(out, textToNumber(token)); break;
    case Cell::alias:      print<"%-11s|">(out, token); break;
    case Cell::flag:       print<"%2c|">(out, upperCase(token.front())); break;
    case Cell::narrowFlag: print<"%1c|">(out, upperCase(token.front())); break;
    case Cell::limit6:     print<"%6d|">(out, textToNumber(token)); break;
    case Cell::limit9:     print<"%9d|">(out, textToNumber(token)); break;
    case Cell::limit10:    print<"%10d|">(out, textToNumber(token)); break;
  }
}

// clang-format on

static void pageBreak(LimitsReport& report) {
  print<"%c">(report.out, formFeed);
  print<"\n\n\n">(report.out);
  ++report.page;
  report.rows = 0;
}

void traderwiseBegin(LimitsReport& report) {
  report.page = 1;
  report.rows = 0;
  traderwiseHeading(report);
}

void traderwiseRow(LimitsReport& report, std::span<const std::string_view> tokens) {
  if (report.rows == report.options.linesPerPage) {
    traderwisePageEndRule(report);
    pageBreak(report);
    traderwiseHeading(report);
  }
  const std::span<const Cell> cells = report.options.lending ? std::span<const Cell>(lendingCells) : ordinaryCells;
  for (std::size_t i = 0; i < tokens.size() && i < cells.size(); ++i) traderwiseCell(report.out, cells[i], tokens[i]);
  print<"\n">(report.out);
  ++report.rows;
}

void traderwiseEnd(LimitsReport& report) { traderwiseClosingRule(report); }

// ---- Normal, scrip-wise -----------------------------------------------------------------------------------------------

// clang-format off

static void scripwiseClosingRule(LimitsReport& report) {
  print<"|_______________|_______________|_______________|_______________|\n">(report.out);
}

static void scripwiseHeading(LimitsReport& report) {
  Output& out = report.out;
  normalTitle(report);
  print<" ScripWise Limits as on Date : %s\n">(out, report.header.date);
  print<"________________________________________________________________\n">(out);
  if (report.options.lending) {
    print<"|   Trader Id   |   Scrip Code  | Borrow Limit  |   Lend limit  |\n">(out);
  } else {
    print<"|   Trader Id   |   Scrip Code  |   Buy Limit   |   Sell limit  |\n">(out);
  }
  scripwiseClosingRule(report);
}

// clang-format on

void scripwiseBegin(LimitsReport& report) {
  report.page = 1;
  report.rows = 0;
  scripwiseHeading(report);
}

void scripwiseRow(LimitsReport& report, std::span<const std::string_view> tokens) {
  if (report.rows == report.options.linesPerPage) {
    scripwiseClosingRule(report);
    pageBreak(report);
    scripwiseHeading(report);
  }
  // The first token is not used: trader id, scrip code and the two limits follow it.
  if (tokens.size() > 1) print<"|%15d|">(report.out, textToNumber(tokens[1]));
  for (std::size_t i = 2; i < tokens.size() && i < 5; ++i) print<"%15d|">(report.out, textToNumber(tokens[i]));
  print<"\n">(report.out);
  ++report.rows;
}

void scripwiseEnd(LimitsReport& report) { scripwiseClosingRule(report); }

// ---- Kesto, trader-wise -----------------------------------------------------------------------------------------------

static constexpr std::uint32_t allRights = 0x1FFFFFFF;

static bool hasBit(std::uint32_t flags, int bit) { return (flags >> bit & 1) != 0; }

static char yesNo(bool yes) { return yes ? 'Y' : 'N'; }

TraderRights traderRights(std::uint32_t controlFlags) {
  constexpr int tradeSecuritiesBit = 15, normalDealBit = 6, crossDealBit = 7, lendLimitBit = 29, borrowLimitBit = 30;
  // Whether a trader may trade securities says nothing about being unrestricted.
  const bool unrestricted = (controlFlags | 1u << tradeSecuritiesBit) == allRights;
  return {
      .noRights = yesNo(controlFlags == 0),
      .unrestricted = yesNo(unrestricted),
      .tradeSecurities = yesNo(hasBit(controlFlags, tradeSecuritiesBit)),
      .normalDeal = yesNo(hasBit(controlFlags, normalDealBit) || unrestricted),
      .crossDeal = yesNo(hasBit(controlFlags, crossDealBit) || unrestricted),
      .lendLimit = yesNo(hasBit(controlFlags, lendLimitBit) && !unrestricted),
      .borrowLimit = yesNo(hasBit(controlFlags, borrowLimitBit) && !unrestricted),
  };
}

// clang-format off

static void kestoTitle(Output& out, const LimitsOptions& options, int page) {
  const char* const title = options.lending ? "KOR SHARE HOLDING LTD.  <KESTO TRADER LIMITS>"
                                            : "TARVEN STOCK EXCHANGE LTD.  <KESTO TRADER LIMITS>";
  print<" %5s%s%10s%2d\n\n">(out, "", title, "Page:", page);
}

static void kestoTraderRule(Output& out) {
  print<"|____|___________|____|____|____|____|____|____|__________|____|__________|\n">(out);
}

static void kestoTraderHeading(Output& out, const TraderLimitsHeader& header, const LimitsOptions& options, int page) {
  kestoTitle(out, options, page);
  print<" %s%ld\n">(out, "Broker Id :", header.brokerId);
  print<"%2s Traderwise Kesto Binary Control Detail Report as on date : %s\n">(out, "", header.date);
  print<" _________________________________________________________________________\n">(out);
  print<"|Trd.|Trader Name| No |UTrd|Trd | N  | X  |Llim|GrossLend |BLim|GrossBorr |\n">(out);
  print<"|No. |           |Rgts|    |Sec |Deal|Deal|    | Limit    |    | Limit    |\n">(out);
  kestoTraderRule(out);
}

static void kestoTraderRow(Output& out, const KestoTraderLimit& record) {
  const TraderRights rights = traderRights(record.controlFlags);
  print<"|%ld   |%-11s| %c  | %c  | %c  | %c  | %c  | %c  |%10d|">(out, record.traderNo, record.traderName,
      rights.noRights, rights.unrestricted, rights.tradeSecurities, rights.normalDeal, rights.crossDeal,
      rights.lendLimit, record.grossLendLimit);
  print<" %c  |%10d|\n">(out, rights.borrowLimit, record.grossBorrowLimit);
  kestoTraderRule(out);
}

// clang-format on

void writeKestoTraderLimits(Output& out, const TraderLimitsHeader& header, std::span<const KestoTraderLimit> records,
                            const LimitsOptions& options) {
  int page = 1;
  unsigned rows = 0;
  kestoTraderHeading(out, header, options, page);
  for (const KestoTraderLimit& record : records) {
    if (rows == options.linesPerPage) {
      // Every row has its own rule, so a full page needs none.
      print<"%c">(out, formFeed);
      print<"\n\n\n">(out);
      kestoTraderHeading(out, header, options, ++page);
      rows = 0;
    }
    kestoTraderRow(out, record);
    ++rows;
  }
  print<"\n\n%65s">(out, "***** End  Of   Traderwise Binary Report *****");
  print<"%c">(out, formFeed);
}

// ---- Kesto, scrip-wise ------------------------------------------------------------------------------------------------

// clang-format off

static void kestoScripRule(Output& out) {
  print<"|__________|_______________|__________|__________|\n">(out);
}

static void kestoScripHeading(Output& out, const TraderLimitsHeader& header, const LimitsOptions& options, int page) {
  kestoTitle(out, options, page);
  print<"%s%ld\n">(out, "Broker Id :", header.brokerId);
  print<"%6s Kesto Scripwise limits for Trader : %ld   as on %s\n">(out, "", header.traderId, header.date);
  print<" ________________________________________________\n">(out);
  print<"|Scrip Code|  Scrip_Id     |Lend Limit|Borrow Lim|\n">(out);
  kestoScripRule(out);
}

static void kestoScripRow(Output& out, const KestoScripLimit& record) {
  print<"|%10Fld|%-15Fs|%10Fld|%10Fld|\n">(out, record.scripCode, record.scripId, record.lendLimit, record.borrowLimit);
}

// clang-format on

void writeKestoScripLimits(Output& out, const TraderLimitsHeader& header, std::span<const KestoScripLimit> records,
                           const LimitsOptions& options) {
  int page = 1;
  unsigned rows = 0;
  kestoScripHeading(out, header, options, page);
  for (const KestoScripLimit& record : records) {
    if (rows == options.linesPerPage) {
      kestoScripRule(out);
      print<"%c">(out, formFeed);
      print<"\n\n\n">(out);
      kestoScripHeading(out, header, options, ++page);
      rows = 0;
    }
    kestoScripRow(out, record);
    ++rows;
  }
  kestoScripRule(out);
  print<"\n\n%20s">(out, "***** End  Of Kesto Trader Scrip Report *****");
  print<"%c">(out, formFeed);
}

}  // namespace quillon
