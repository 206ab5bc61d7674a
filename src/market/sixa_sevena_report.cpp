#include "market/sixa_sevena_report.h"

#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

// clang-format off

static void title(Output& out, const Header6A7A& header, const Options6A7A& options, int page) {
  const char* const name = options.lending ? "KOR SHARE HOLDING LTD.   <6A7A  REPORT>"
                                           : "TARVEN STOCK EXCHANGE LTD.   <6A7A  REPORT>";
  print<"\n%27s       %17s%-10s%10s%7s%-10s%10s%7s%3d\n\n">(out, name, "Date : ", header.date, " ", "Time : ", header.time,
      " ", " Page: ", page);
  if (options.updatable) {
    print<"%38s%33s%12s%5s\n">(out, "Report of Non Confirmed 6A/7A Records ", " ", "Broker Id. :", options.brokerId);
  } else {
    print<"%63s%8s%12s%5s\n">(out, "Report of Confirmed and Previous Settlement (Returned) Records ", " ", "Broker Id. :",
        options.brokerId);
  }
}

static void ordinaryColumns(Output& out) {
  print<" \n">(out);
  print<" __________________________________________________________________________________________________________________________________________________\n">(out);
  print<"|Scrip |Cust|ND| Trade |B/|Dly|  Qty    |    Contract       |   Date   |Cust/Client |Cnf|6A/7A|       Contract No       |     Comments       |Block|\n">(out);
  print<"|      |Code|Fg|  Id.  |S |Mth|         |    Value(Rs)      |          |     Id     |Flg| Id. |                         |                    |Deal |\n">(out);
  print<"|------|----|--|-------|--|---|---------|-------------------|----------|------------|---|-----|-------------------------|--------------------|-----|\n">(out);
}

// Without the month and the block deal; the letter of the other side is L.
static void lendingColumns(Output& out) {
  print<" \n">(out);
  print<" ________________________________________________________________________________________________________________________________________\n">(out);
  print<"|Scrip |Cust|ND| Trade |B/|  Qty    |    Lending        |   Date   |Cust/Client |Cnf|6A/7A|       Conf. Memo No.    |     Comments       |\n">(out);
  print<"|      |Code|Fg|  Id.  |L |         |    Value(Rs)      |          |     Id     |Flg| Id. |                         |                    |\n">(out);
  print<"|------|----|--|-------|--|---------|-------------------|----------|------------|---|-----|-------------------------|--------------------|\n">(out);
}

static void closingRule(Output& out, const Options6A7A& options) {
  if (options.lending) {
    print<"|______|____|__|_______|__|_________|___________________|__________|____________|___|_____|_________________________|____________________|\n">(out);
  } else {
    print<"|______|____|__|_______|__|___|_________|___________________|__________|____________|___|_____|_________________________|____________________|_____|\n">(out);
  }
}

// The value's sign stands in both parts, as each is printed by itself.
static void ordinaryRow(Output& out, const Record6A7A& r) {
  print<"%1c%6ld%1c%4ld%1c%1c%1c%1c%7ld%1c%1c%1c%1c%1c%1c%1c%1c%9ld%1c%16I64d.%0.2I64d%1c%-10s%1c%-12s%1c%1c%1c%1c%1c%5ld%1c%-25s%1c%-20s%1c%2s%1c%2s%1c\n">(out,
      '|', r.scripCode,
      '|', r.custCode,
      '|', ' ', r.ndFlag,
      '|', r.tradeId,
      '|', r.buySell, ' ',
      '|', ' ', r.deliveryMonth, ' ',
      '|', r.quantity,
      '|', r.value / 100, r.value % 100,
      '|', r.tradeDate,
      '|', r.clientId,
      '|', ' ', r.confirmFlag, ' ',
      '|', r.entry6a7aId,
      '|', r.contractNo,
      '|', r.comments,
      '|', " ", r.blockDeal == 1 ? 'Y' : 'N', " ",
      '|');
}

static void lendingRow(Output& out, const Record6A7A& r) {
  print<"%1c%6ld%1c%4ld%1c%1c%1c%1c%7ld%1c%1c%1c%1c%9ld%1c%16I64d.%0.2I64d%1c%-10s%1c%-12s%1c%1c%1c%1c%1c%5ld%1c%-25s%1c%-20s%1c\n">(out,
      '|', r.scripCode,
      '|', r.custCode,
      '|', ' ', r.ndFlag,
      '|', r.tradeId,
      '|', r.buySell == 'S' ? 'L' : r.buySell, ' ',
      '|', r.quantity,
      '|', r.value / 100, r.value % 100,
      '|', r.tradeDate,
      '|', r.clientId,
      '|', ' ', r.confirmFlag, ' ',
      '|', r.entry6a7aId,
      '|', r.contractNo,
      '|', r.comments,
      '|');
}

// clang-format on

static void heading(Output& out, const Header6A7A& header, const Options6A7A& options, int page) {
  title(out, header, options, page);
  if (options.lending) {
    lendingColumns(out);
  } else {
    ordinaryColumns(out);
  }
}

void write6A7A(Output& out, const Header6A7A& header, std::span<const Record6A7A> records, const Options6A7A& options) {
  int page = 1;
  unsigned rows = 0;
  heading(out, header, options, page);
  for (const Record6A7A& record : records) {
    if (rows == options.linesPerPage) {
      closingRule(out, options);
      print<"%c">(out, formFeed);
      print<"\n\n\n">(out);
      heading(out, header, options, ++page);
      rows = 0;
    }
    if (options.lending) {
      lendingRow(out, record);
    } else {
      ordinaryRow(out, record);
    }
    ++rows;
  }
  closingRule(out, options);
  print<"%c">(out, formFeed);
}

}  // namespace quillon
