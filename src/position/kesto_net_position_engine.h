// The position in a Kesto trade file: totals per client, and per scrip and number of days. It follows the plan of
// position_engine.h, with the records in their own form. Records in, rows out: no form and no layout is known here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "position/position_engine.h"
#include "text/input.h"
#include "trades/trade_file.h"

namespace quillon {

// ---- The file ---------------------------------------------------------------------------------------------------------

struct KestoPositionFile {
  TradeHeader header;
  std::size_t count;          // records, not counting the zero record at the end
  KestoTradeRec* block;       // count + 1 records; whoever takes it frees it; null while none is held
  std::size_t scripDayCount;  // distinct pairs of scrip code and days among all records, set as they are read
};

// Whether the header's letter is one of a Kesto file's. What its second letter says is not looked at.
bool isKestoPositionFile(const TradeHeader& header);

// Reads the header and file.count records from the start of the file into the zero-filled file.block, and sets scripDayCount.
// False at the first header or record that comes back short.
[[nodiscard]] bool kestoPositionReadRecords(Input& input, KestoPositionFile& file);

// What the lists show once this file is loaded: its clients and scrips that take part, as positionListsOf gives them. Only a
// first record that takes part empties the lists before; behind one that does not, what they have shown so far stays.
PositionLists kestoPositionListsOf(const KestoPositionFile& file, const PositionLists& shown);

// ---- The totals -------------------------------------------------------------------------------------------------------

// One row of a report.
struct KestoNetPosRow {
  TextField<12> name;  // a client or a scrip
  std::int8_t day;     // number of days of the deals; 0 in the rows of clients
  std::int32_t lendQty;
  std::int32_t borrowQty;
  double lendValue;  // currency units, as is the other
  double borrowValue;
};

// One record of the chosen client or scrip.
struct KestoNetPosDetail {
  TextField<12> scrip;
  std::int32_t scripCode;
  std::int8_t day;
  std::int32_t rate;  // ten-thousandths
  std::int32_t qty;
  TextField<12> client;
  char side;
  char tradeType;
};

// How a rate is held before a quantity is multiplied by it. The rows of all scrips hold it in full, all others in single
// precision, so that values of the same trades may differ in their last digits from report to report. Their users know it.
enum class KestoRate { single, full };

// The value of `qty` units at a rate in ten-thousandths: currency units.
double kestoPositionValue(std::int32_t qty, std::int32_t rate, KestoRate precision);

struct KestoPositionTotals {
  KestoNetPosDetail* details = nullptr;  // clientScrip and scripClient alone
  KestoNetPosRow* rows = nullptr;
  std::size_t rowCount = 0;  // filled rows, in the order of the report
};

struct KestoPositionChoice {
  PositionReport report;
  std::string_view client;  // of clientScrip; compared with regard to case
  std::string_view scrip;   // of scripClient; likewise
  std::size_t clientCount;  // entries of the list of clients, by which the blocks of client rows are measured
};

// Takes the blocks of the report and fills them. Gives the block that could not be taken, `none` when all is well; whatever
// it gives, kestoPositionFreeTotals is due afterwards.
[[nodiscard]] PositionBlock kestoPositionTotal(const KestoPositionFile& file, const KestoPositionChoice& choice,
                                               KestoPositionTotals& totals);
// Frees the blocks in the order in which they were taken.
void kestoPositionFreeTotals(KestoPositionTotals& totals);

// ---- What a row says --------------------------------------------------------------------------------------------------

double kestoAverageLend(const KestoNetPosRow& row);    // currency units; 0 where no quantity was lent
double kestoAverageBorrow(const KestoNetPosRow& row);  // likewise
std::int32_t kestoNetQty(const KestoNetPosRow& row);
double kestoNetValue(const KestoNetPosRow& row);
double kestoBreakEven(const KestoNetPosRow& row);  // with its sign; 0 where the net quantity is 0

}  // namespace quillon
