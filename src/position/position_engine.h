// Totals per client and per scrip over one whole trade file: records in, rows out. No form and no layout is known here.
//
// A file is held as one block of records of a single size, in file order, with one zero record more than the file has. Rates
// are hundredths in normal files and ten-thousandths in Kesto files; quantities are 32 bits wide and wrap beyond that.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/input.h"
#include "trades/trade_file.h"

namespace quillon {

enum class PositionReport {
  clientWise = 11,   // a row for each client
  clientScrip = 22,  // a row for each scrip of one client
  scripClient = 33,  // a row for each client of one scrip
  scripWise = 44,    // a row for each scrip
};

// ---- The file ---------------------------------------------------------------------------------------------------------

struct PositionFile {
  TradeHeader header;
  bool recordSize132;  // the block holds TradeRec132, otherwise TradeRec144
  bool fromKesto;      // the file's own records are KestoTradeRec, held in TradeRec132 form
  std::size_t count;   // records, not counting the zero record at the end
  void* block;         // count + 1 records; whoever takes it frees it; null while none is held
};

// Sets recordSize132 and fromKesto. `always144`: the tool reads 144-byte records whatever the header's letter says.
void positionSetLayout(PositionFile& file, bool always144);
// The layout of the records as they stand in the file.
TradeLayout positionLayoutInFile(const PositionFile& file);
// Bytes of the block that holds file.count records and the zero record.
std::size_t positionBlockSize(const PositionFile& file);

// One Kesto record in the 132-byte form, field by field: the rate keeps its ten-thousandths and the side its Kesto letter.
TradeRec132 positionFromKesto(const KestoTradeRec& record);

// Reads the header and file.count records from the start of the file into the zero-filled file.block. In a lending-market
// file the side 'L' of a normal 144-byte record becomes 'S'. False at the first header or record that comes back short.
[[nodiscard]] bool positionReadRecords(Input& input, PositionFile& file, bool isLendingFile);

// ---- The lists --------------------------------------------------------------------------------------------------------

// Types that take no part in any position: odd lots, 'D' and 'X'.
bool positionExcludes(char tradeType);

// The clients and scrips of the records that take part: each text once without regard to the case of the letters A to Z, as
// it was spelled first, in ascending order without regard to case.
struct PositionLists {
  std::vector<std::string> clients;
  std::vector<std::string> scrips;
};
PositionLists positionListsOf(const PositionFile& file);
// The same of Kesto records, on top of what `known` holds.
PositionLists positionListsOf(std::span<const KestoTradeRec> records, const PositionLists& known);

// ---- The totals -------------------------------------------------------------------------------------------------------

// One row of a report. For a Kesto file "buy" stands for lend and "sell" for borrow; for a lending-market file "buy" stands
// for borrow and "sell" for lend.
struct NetPosRow {
  TextField<12> name;  // a client or a scrip
  double buyValue;     // currency units
  std::int32_t buyQty;
  double sellValue;
  std::int32_t sellQty;
};

// One record of the chosen client or scrip.
struct NetPosDetail {
  TextField<12> scrip;
  std::int32_t scripCode;
  std::int32_t rate;
  std::int32_t qty;
  TextField<12> client;
  char side;
  char tradeType;
};

// Adds one trade to a row and names the row by it. A side that the file's market does not know adds nothing.
void positionAdd(NetPosRow& row, const TextField<12>& name, std::int32_t rate, std::int32_t qty, char side, bool kesto);

// The blocks of a run, by the names under which their failure is told.
enum class PositionBlock { none, trades, clientNetPos, scripNetPos, scripByClient, csNetPos, clientsInScrip, scNetPos };

struct PositionTotals {
  NetPosDetail* details = nullptr;  // clientScrip and scripClient alone
  NetPosRow* rows = nullptr;
  std::size_t rowCount = 0;  // filled rows, in the order of the report
};

// What the user chose, and how many entries the lists have, by which the blocks of rows are measured.
struct PositionChoice {
  PositionReport report;
  std::string_view client;  // of clientScrip; compared with regard to case
  std::string_view scrip;   // of scripClient
  std::size_t clientCount;
  std::size_t scripCount;
};

// Takes the blocks of the report and fills them. Gives the block that could not be taken, `none` when all is well; whatever
// it gives, positionFreeTotals is due afterwards.
[[nodiscard]] PositionBlock positionTotal(const PositionFile& file, const PositionChoice& choice, PositionTotals& totals);
// Frees the blocks in the order in which they were taken.
void positionFreeTotals(PositionTotals& totals);

// ---- What a row says --------------------------------------------------------------------------------------------------

std::int64_t positionAverageBuy(const NetPosRow& row);   // hundredths; 0 where nothing was bought
std::int64_t positionAverageSell(const NetPosRow& row);  // hundredths; 0 where nothing was sold
std::int32_t positionNetQty(const NetPosRow& row);
double positionNetValue(const NetPosRow& row);
double positionBreakEven(const NetPosRow& row);  // currency units, not rounded; 0 where the net quantity is 0

}  // namespace quillon
