#include "position/kesto_net_position_engine.h"

#include <algorithm>
#include <span>
#include <vector>

#include "desktop/memory.h"
#include "position/position_groups.h"
#include "text/in_order.h"
#include "text/record_order.h"

namespace quillon {

// ---- The file ---------------------------------------------------------------------------------------------------------

bool isKestoPositionFile(const TradeHeader& header) { return header.fileKind == 'C' || header.fileKind == 'B'; }

namespace {

// The pairs of scrip code and days met so far, found by their hash: a file of a million records may hold thousands.
struct PairSet {
  std::vector<std::uint64_t> slots;  // 0 is free
  std::size_t count = 0;
};

}  // namespace

static std::size_t slotOf(const PairSet& set, std::uint64_t pair) {
  std::uint64_t hash = pair * 0x9e3779b97f4a7c15u;
  hash ^= hash >> 32;
  std::size_t slot = hash & (set.slots.size() - 1);
  while (set.slots[slot] != 0 && set.slots[slot] != pair) slot = (slot + 1) & (set.slots.size() - 1);
  return slot;
}

static void offerPair(PairSet& set, std::uint64_t pair) {
  // Never more than half full; the size stays a power of two.
  if (set.count * 2 >= set.slots.size()) {
    std::vector<std::uint64_t> before(std::max<std::size_t>(1024, set.slots.size() * 2), 0);
    before.swap(set.slots);
    for (const std::uint64_t known : before) {
      if (known != 0) set.slots[slotOf(set, known)] = known;
    }
  }
  const std::size_t slot = slotOf(set, pair);
  if (set.slots[slot] == 0) ++set.count;
  set.slots[slot] = pair;
}

static std::size_t countScripDays(std::span<const KestoTradeRec> records) {
  constexpr std::uint64_t taken = std::uint64_t{1} << 63;  // no pair is the number of a free slot
  PairSet set;
  for (const KestoTradeRec& record : records) {
    const std::uint64_t scrip = static_cast<std::uint32_t>(record.scripCode);
    offerPair(set, taken | scrip << 8 | static_cast<std::uint8_t>(record.days));
  }
  return set.count;
}

static std::span<const KestoTradeRec> recordsOf(const KestoPositionFile& file) { return {file.block, file.count}; }

bool kestoPositionReadRecords(Input& input, KestoPositionFile& file) {
  TradeHeader again;
  if (!inputRead(input, &again, sizeof again)) return false;
  if (inputReadRecords(input, file.block, sizeof(KestoTradeRec), file.count) < file.count) return false;
  file.scripDayCount = countScripDays(recordsOf(file));
  return true;
}

PositionLists kestoPositionListsOf(const KestoPositionFile& file, const PositionLists& shown) {
  const std::span<const KestoTradeRec> records = recordsOf(file);
  const bool firstTakesPart = !records.empty() && !positionExcludes(records.front().tradeType);
  return positionListsOf(records, firstTakesPart ? PositionLists() : shown);
}

// ---- The totals -------------------------------------------------------------------------------------------------------

double kestoPositionValue(std::int32_t qty, std::int32_t rate, KestoRate precision) {
  const double price = rate / 10000.0;
  return qty * (precision == KestoRate::single ? static_cast<double>(static_cast<float>(price)) : price);
}

namespace {

// One record as a walk sees it: name and day are the group's key.
struct Leg {
  const TextField<12>* name;
  std::int8_t day;
  std::int32_t rate;
  std::int32_t qty;
  char side;
  char tradeType;
};

constexpr std::size_t nameWidth = sizeof(TextField<12>);

}  // namespace

static bool isSameGroup(const Leg& leg, const Leg& next) { return leg.day == next.day && isSameName(*leg.name, *next.name); }

// A side that the market does not know adds nothing, but the row has the record's name.
static void addLeg(KestoNetPosRow& row, const Leg& leg, KestoRate precision) {
  row.name = *leg.name;
  row.day = leg.day;
  const double value = kestoPositionValue(leg.qty, leg.rate, precision);
  if (leg.side == 'S' || leg.side == 'T') {
    row.lendValue += value;
    row.lendQty = wrappingSum(row.lendQty, leg.qty);
  } else if (leg.side == 'M' || leg.side == 'V') {
    row.borrowValue += value;
    row.borrowQty = wrappingSum(row.borrowQty, leg.qty);
  }
}

// Takes `size` rows and fills them; totals.rowCount is what the records ask for, be it more. False where there is no memory.
template <class LegAt>
static bool fillRows(std::size_t count, LegAt legAt, KestoRate precision, std::size_t size, KestoPositionTotals& totals) {
  KestoNetPosRow* const rows = static_cast<KestoNetPosRow*>(memoryTake(size * sizeof(KestoNetPosRow)));
  totals.rows = rows;
  if (!rows) return false;
  totals.rowCount = walkGroups(count, legAt, isSameGroup, [rows, size, precision](std::size_t row, const Leg& leg) {
    if (row < size) addLeg(rows[row], leg, precision);
  });
  return true;
}

// `measure` and one more rows do, save where names that differ in case alone share an entry of a list, or scrips of different
// names a code: only then are there more, and the walk is made again with as many.
template <class LegAt>
static bool totalGroups(std::size_t count, LegAt legAt, KestoRate precision, std::size_t measure, KestoPositionTotals& totals) {
  if (!fillRows(count, legAt, precision, measure + 1, totals)) return false;
  if (totals.rowCount <= measure + 1) return true;
  memoryFree(totals.rows);
  return fillRows(count, legAt, precision, totals.rowCount, totals);
}

static bool totalByClient(const KestoPositionFile& file, std::size_t clientCount, KestoPositionTotals& totals) {
  const KestoTradeRec* const records = file.block;
  const RecordKey byClient = {KeyKind::foldedText, offsetof(KestoTradeRec, clientId), nameWidth};
  const RecordOrder order = orderOfRecords({records, sizeof(KestoTradeRec), file.count}, {byClient});
  if (!order) return false;
  const std::span<const std::uint32_t> positions = order.positions();
  const auto legAt = [records, positions](std::size_t i) -> Leg {
    fetchAhead(records, sizeof(KestoTradeRec), positions, i);
    const KestoTradeRec& record = records[positions[i]];
    return {&record.clientId, 0, record.rate, record.qty, record.side, record.tradeType};
  };
  return totalGroups(file.count, legAt, KestoRate::single, clientCount, totals);
}

static bool totalByScrip(const KestoPositionFile& file, KestoPositionTotals& totals) {
  const KestoTradeRec* const records = file.block;
  const RecordKey byScrip = {KeyKind::text, offsetof(KestoTradeRec, scripId), nameWidth};
  const RecordKey byDays = {KeyKind::number8, offsetof(KestoTradeRec, days), 0};
  const RecordOrder order = orderOfRecords({records, sizeof(KestoTradeRec), file.count}, {byScrip, byDays});
  if (!order) return false;
  const std::span<const std::uint32_t> positions = order.positions();
  const auto legAt = [records, positions](std::size_t i) -> Leg {
    fetchAhead(records, sizeof(KestoTradeRec), positions, i);
    const KestoTradeRec& record = records[positions[i]];
    return {&record.scripId, record.days, record.rate, record.qty, record.side, record.tradeType};
  };
  return totalGroups(file.count, legAt, KestoRate::full, file.scripDayCount, totals);
}

// Copies the records that take part and whose `field` is the chosen text. False when there is no memory for them.
static bool takeDetails(const KestoPositionFile& file, TextField<12> KestoTradeRec::*field, std::string_view chosen,
                        KestoPositionTotals& totals, std::size_t& count) {
  totals.details = static_cast<KestoNetPosDetail*>(memoryTake((file.count + 1) * sizeof(KestoNetPosDetail)));
  if (!totals.details) return false;
  count = 0;
  for (const KestoTradeRec& record : recordsOf(file)) {
    if (positionExcludes(record.tradeType) || (record.*field).view() != chosen) continue;
    totals.details[count++] = {record.scripId, record.scripCode, record.days, record.rate,
                               record.qty,     record.clientId,  record.side, record.tradeType};
  }
  return true;
}

static bool totalScripsOfClient(std::size_t count, std::size_t scripDayCount, KestoPositionTotals& totals) {
  const KestoNetPosDetail* const details = totals.details;
  const RecordKey byScrip = {KeyKind::text, offsetof(KestoNetPosDetail, scrip), nameWidth};
  const RecordKey byDay = {KeyKind::number8, offsetof(KestoNetPosDetail, day), 0};
  const RecordOrder order = orderOfRecords({details, sizeof(KestoNetPosDetail), count}, {byScrip, byDay});
  if (!order) return false;
  const auto legAt = [details, positions = order.positions()](std::size_t i) -> Leg {
    const KestoNetPosDetail& detail = details[positions[i]];
    return {&detail.scrip, detail.day, detail.rate, detail.qty, detail.side, detail.tradeType};
  };
  return totalGroups(count, legAt, KestoRate::single, scripDayCount, totals);
}

// A client has one row, whatever the days of its deals.
static bool totalClientsOfScrip(std::size_t count, std::size_t clientCount, KestoPositionTotals& totals) {
  const KestoNetPosDetail* const details = totals.details;
  const RecordKey byClient = {KeyKind::foldedText, offsetof(KestoNetPosDetail, client), nameWidth};
  const RecordOrder order = orderOfRecords({details, sizeof(KestoNetPosDetail), count}, {byClient});
  if (!order) return false;
  const auto legAt = [details, positions = order.positions()](std::size_t i) -> Leg {
    const KestoNetPosDetail& detail = details[positions[i]];
    return {&detail.client, 0, detail.rate, detail.qty, detail.side, detail.tradeType};
  };
  return totalGroups(count, legAt, KestoRate::single, clientCount, totals);
}

PositionBlock kestoPositionTotal(const KestoPositionFile& file, const KestoPositionChoice& choice,
                                 KestoPositionTotals& totals) {
  std::size_t count = 0;
  switch (choice.report) {
    case PositionReport::clientWise:
      return totalByClient(file, choice.clientCount, totals) ? PositionBlock::none : PositionBlock::clientNetPos;
    case PositionReport::scripWise:
      return totalByScrip(file, totals) ? PositionBlock::none : PositionBlock::scripNetPos;
    case PositionReport::clientScrip:
      if (!takeDetails(file, &KestoTradeRec::clientId, choice.client, totals, count)) return PositionBlock::scripByClient;
      return totalScripsOfClient(count, file.scripDayCount, totals) ? PositionBlock::none : PositionBlock::csNetPos;
    case PositionReport::scripClient:
      if (!takeDetails(file, &KestoTradeRec::scripId, choice.scrip, totals, count)) return PositionBlock::clientsInScrip;
      return totalClientsOfScrip(count, choice.clientCount, totals) ? PositionBlock::none : PositionBlock::scNetPos;
  }
  return PositionBlock::none;
}

void kestoPositionFreeTotals(KestoPositionTotals& totals) {
  memoryFree(totals.details);
  memoryFree(totals.rows);
  totals = {};
}

// ---- What a row says --------------------------------------------------------------------------------------------------

double kestoAverageLend(const KestoNetPosRow& row) { return row.lendQty > 0 ? row.lendValue / row.lendQty : 0; }

double kestoAverageBorrow(const KestoNetPosRow& row) { return row.borrowQty > 0 ? row.borrowValue / row.borrowQty : 0; }

std::int32_t kestoNetQty(const KestoNetPosRow& row) { return wrappingDifference(row.lendQty, row.borrowQty); }

double kestoNetValue(const KestoNetPosRow& row) { return row.lendValue - row.borrowValue; }

double kestoBreakEven(const KestoNetPosRow& row) {
  const std::int32_t netQty = kestoNetQty(row);
  return netQty != 0 ? kestoNetValue(row) / netQty : 0;
}

}  // namespace quillon
