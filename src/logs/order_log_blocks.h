// The blocks of the order log pages, which order_log_report.cpp puts together: one function a block.
#pragma once

#include <string>
#include <string_view>

#include "logs/order_log_report.h"
#include "text/cells.h"
#include "text/output.h"
#include "text/print.h"

namespace quillon {

// What every page of a list shows.
struct OrderLogPage {
  const TradeHeader& header;
  bool isLendingFile;
  std::string date;  // day, month and year of the file, such as "22/05/2009"
  int number;
};

// The two lines under the title of a page.
void printBrokerId(Output& out, const OrderLogPage& page);
void printTraderId(Output& out, const OrderLogPage& page);
// The title of the wide pages, of all four lists.
void printWideOrderLogTitle(Output& out, const OrderLogPage& page);

// What a row shows that its record does not hold as it stands. The two that come from tables stay as they were for a record
// whose code is in none of them: its row repeats the row above, and shows nothing where there is none.
struct OrderLogRow {
  char side = ' ';
  std::string_view message;
  const char* retention = "";
  char letter = ' ';
};

// One list in one width. `heading` begins a page; `record` takes a record of the list's layout.
struct OrderLogBlocks {
  void (*heading)(Output& out, const OrderLogPage& page);
  void (*record)(Output& out, const void* record, const OrderLogRow& row);
  void (*breakRule)(Output& out);    // closes a page that another one follows
  void (*closingRule)(Output& out);  // closes the last page
};
extern const OrderLogBlocks wideOrderBlocks;
extern const OrderLogBlocks narrowOrderBlocks;
extern const OrderLogBlocks wideClientBlocks;
extern const OrderLogBlocks narrowClientBlocks;
extern const OrderLogBlocks wideTypeBlocks;
extern const OrderLogBlocks narrowTypeBlocks;
extern const OrderLogBlocks wideConsolidatedBlocks;
extern const OrderLogBlocks narrowConsolidatedBlocks;

// The rate cells: stored hundredths without a point, or "-".
using RateText = decltype(formatCell<"%ld">(std::int32_t{}));
RateText rateText(std::int32_t rate);
// "-" for an action that has no limit rate; a third rate above 0 takes the place of either.
RateText limitRateText(std::int32_t limitRate, std::int32_t thirdRate, std::int16_t actionCode);
// "-" for 0.
RateText trigRateText(std::int32_t trigRate);

}  // namespace quillon
