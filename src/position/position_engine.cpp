#include "position/position_engine.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "desktop/memory.h"
#include "frame/rounding.h"
#include "position/position_groups.h"
#include "text/in_order.h"
#include "text/record_order.h"

namespace quillon {

// ---- The file ---------------------------------------------------------------------------------------------------------

void positionSetLayout(PositionFile& file, bool always144) {
  file.recordSize132 = !always144 && file.header.fileKind != 'V';
  file.fromKesto = !always144 && file.header.fileKind == 'B';
}

TradeLayout positionLayoutInFile(const PositionFile& file) {
  if (file.fromKesto) return TradeLayout::kesto;
  return file.recordSize132 ? TradeLayout::rec132 : TradeLayout::rec144;
}

std::size_t positionBlockSize(const PositionFile& file) {
  return (file.count + 1) * (file.recordSize132 ? sizeof(TradeRec132) : sizeof(TradeRec144));
}

TradeRec132 positionFromKesto(const KestoTradeRec& record) {
  TradeRec132 copy = {};
  copy.scripCode = record.scripCode;
  copy.scripId = record.scripId;
  copy.trdId = record.trdId;
  copy.rate = record.rate;
  copy.qty = record.qty;
  copy.brokerId = record.brokerId;
  copy.traderId = record.traderId;
  copy.time = record.time;
  copy.date = record.date;
  copy.clientId = record.clientId;
  copy.side = record.side;
  copy.tradeType = record.tradeType;
  copy.trnId = record.trnId;
  return copy;
}

// In bounded pieces, so that the file is never in memory twice.
static bool readKestoRecords(Input& input, PositionFile& file) {
  constexpr std::size_t pieceSize = 256;
  KestoTradeRec piece[pieceSize];
  TradeRec132* const records = static_cast<TradeRec132*>(file.block);
  for (std::size_t done = 0; done < file.count;) {
    const std::size_t wanted = std::min(pieceSize, file.count - done);
    const std::size_t got = inputReadRecords(input, piece, sizeof(KestoTradeRec), wanted);
    std::transform(piece, piece + got, records + done, positionFromKesto);
    if (got < wanted) return false;
    done += got;
  }
  return true;
}

bool positionReadRecords(Input& input, PositionFile& file, bool isLendingFile) {
  TradeHeader again;
  if (!inputRead(input, &again, sizeof again)) return false;
  if (file.fromKesto) return readKestoRecords(input, file);

  const std::size_t size = tradeRecordSize(positionLayoutInFile(file));
  if (inputReadRecords(input, file.block, size, file.count) < file.count) return false;
  if (isLendingFile && !file.recordSize132 && file.header.fileKind != 'B') {
    rewriteLends(static_cast<TradeRec144*>(file.block), file.count);
  }
  return true;
}

// ---- The lists --------------------------------------------------------------------------------------------------------

bool positionExcludes(char tradeType) { return tradeType == 'O' || tradeType == 'D' || tradeType == 'X'; }

static unsigned char folded(char c) {
  const unsigned char letter = static_cast<unsigned char>(c);
  return letter >= 'A' && letter <= 'Z' ? static_cast<unsigned char>(letter - 'A' + 'a') : letter;
}

static int compareFolded(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = folded(a[i]) - folded(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

namespace {

// The texts met so far, each once without regard to case. A file of a million records may hold tens of thousands of clients,
// so that a text is found by its hash and not by a walk.
struct TextSet {
  std::vector<std::string> texts;    // as spelled first, in the order in which they came
  std::vector<std::uint32_t> slots;  // by hash: position in texts + 1; 0 is free
};

}  // namespace

// The same for texts that differ in case alone; a few more share it, which costs a comparison.
static std::size_t hashFolded(std::string_view text) {
  constexpr std::size_t wordSize = sizeof(std::uint64_t);
  constexpr std::uint64_t smallLetters = 0x2020202020202020;
  std::uint64_t hash = 0;
  for (std::size_t at = 0; at < text.size(); at += wordSize) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + at, std::min(wordSize, text.size() - at));
    hash = (hash ^ (word | smallLetters)) * 0x9e3779b97f4a7c15u;
    hash ^= hash >> 32;
  }
  return static_cast<std::size_t>(hash);
}

static bool isSameFolded(std::string_view a, std::string_view b) { return a == b || compareFolded(a, b) == 0; }

// The slot that holds the text, or the free one where it belongs.
static std::size_t slotOf(const TextSet& set, std::string_view text) {
  std::size_t slot = hashFolded(text) & (set.slots.size() - 1);
  while (set.slots[slot] != 0 && !isSameFolded(set.texts[set.slots[slot] - 1], text)) {
    slot = (slot + 1) & (set.slots.size() - 1);
  }
  return slot;
}

static void offerText(TextSet& set, std::string_view text) {
  // Never more than half full; the size stays a power of two.
  if (set.texts.size() * 2 >= set.slots.size()) {
    set.slots.assign(std::max<std::size_t>(1024, set.slots.size() * 2), 0);
    for (std::size_t i = 0; i < set.texts.size(); ++i) {
      set.slots[slotOf(set, set.texts[i])] = static_cast<std::uint32_t>(i + 1);
    }
  }
  const std::size_t slot = slotOf(set, text);
  if (set.slots[slot] != 0) return;
  set.texts.emplace_back(text);
  set.slots[slot] = static_cast<std::uint32_t>(set.texts.size());
}

static TextSet setOf(const std::vector<std::string>& texts) {
  TextSet set;
  for (const std::string& text : texts) offerText(set, text);
  return set;
}

template <class Record>
static PositionLists listsOf(const Record* records, std::size_t count, const PositionLists& known = {}) {
  TextSet clients = setOf(known.clients);
  TextSet scrips = setOf(known.scrips);
  for (std::size_t i = 0; i < count; ++i) {
    if (positionExcludes(records[i].tradeType)) continue;
    offerText(clients, records[i].clientId.view());
    offerText(scrips, records[i].scripId.view());
  }
  const auto before = [](const std::string& a, const std::string& b) { return compareFolded(a, b) < 0; };
  std::sort(clients.texts.begin(), clients.texts.end(), before);
  std::sort(scrips.texts.begin(), scrips.texts.end(), before);
  return {std::move(clients.texts), std::move(scrips.texts)};
}

PositionLists positionListsOf(const PositionFile& file) {
  if (file.recordSize132) return listsOf(static_cast<const TradeRec132*>(file.block), file.count);
  return listsOf(static_cast<const TradeRec144*>(file.block), file.count);
}

PositionLists positionListsOf(std::span<const KestoTradeRec> records, const PositionLists& known) {
  return listsOf(records.data(), records.size(), known);
}

// ---- The totals -------------------------------------------------------------------------------------------------------

void positionAdd(NetPosRow& row, const TextField<12>& name, std::int32_t rate, std::int32_t qty, char side, bool kesto) {
  row.name = name;
  const double price = rate / (kesto ? 10000.0 : 100.0);
  const double value = static_cast<double>(qty) * price;
  const bool buys = kesto ? side == 'S' || side == 'T' : side == 'B';
  const bool sells = kesto ? side == 'M' || side == 'V' : side == 'S';
  if (buys) {
    row.buyValue += value;
    row.buyQty = wrappingSum(row.buyQty, qty);
  } else if (sells) {
    row.sellValue += value;
    row.sellQty = wrappingSum(row.sellQty, qty);
  }
}

namespace {

// One record as a walk sees it.
struct Leg {
  const TextField<12>* name;  // the group's key
  std::int32_t rate;
  std::int32_t qty;
  char side;
  char tradeType;
};

}  // namespace

static bool isSameGroup(const Leg& leg, const Leg& next) { return isSameName(*leg.name, *next.name); }

// One row for each list entry and one more is the measure of the block; names that differ only in case share an entry but
// not a row, so that a file which has them may need more.
template <class LegAt>
static bool totalGroups(std::size_t count, LegAt legAt, bool kesto, std::size_t listCount, PositionTotals& totals) {
  const std::size_t needed = walkGroups(count, legAt, isSameGroup, [](std::size_t, const Leg&) {});
  const std::size_t size = std::max(listCount + 1, needed);
  totals.rows = static_cast<NetPosRow*>(memoryTake(size * sizeof(NetPosRow)));
  if (!totals.rows) return false;
  totals.rowCount = walkGroups(count, legAt, isSameGroup, [&totals, kesto](std::size_t row, const Leg& leg) {
    positionAdd(totals.rows[row], *leg.name, leg.rate, leg.qty, leg.side, kesto);
  });
  return true;
}

static bool isKesto(const PositionFile& file) { return file.header.fileKind == 'B'; }

// Rows of all records, by client or by scrip.
template <class Record>
static bool totalRecords(const PositionFile& file, TextField<12> Record::*name, const RecordKey& key, std::size_t listCount,
                         PositionTotals& totals) {
  const Record* const records = static_cast<const Record*>(file.block);
  const RecordOrder order = orderOfRecords({records, sizeof(Record), file.count}, {key});
  if (!order) return false;
  const std::span<const std::uint32_t> positions = order.positions();
  const auto legAt = [records, name, positions](std::size_t i) -> Leg {
    fetchAhead(records, sizeof(Record), positions, i);
    const Record& record = records[positions[i]];
    return {&(record.*name), record.rate, record.qty, record.side, record.tradeType};
  };
  return totalGroups(file.count, legAt, isKesto(file), listCount, totals);
}

// Copies the records whose `field` is the chosen text into totals.details; gives their number.
template <class Record>
static std::size_t copyDetails(const PositionFile& file, TextField<12> Record::*field, std::string_view chosen,
                               PositionTotals& totals) {
  const Record* const records = static_cast<const Record*>(file.block);
  std::size_t count = 0;
  for (std::size_t i = 0; i < file.count; ++i) {
    const Record& record = records[i];
    if (positionExcludes(record.tradeType) || (record.*field).view() != chosen) continue;
    totals.details[count++] = {record.scripId,  record.scripCode, record.rate,     record.qty,
                               record.clientId, record.side,      record.tradeType};
  }
  return count;
}

// Rows of the chosen client's or scrip's records, by the other of the two.
static bool totalDetails(const PositionFile& file, std::size_t count, TextField<12> NetPosDetail::*name, const RecordKey& key,
                         std::size_t listCount, PositionTotals& totals) {
  const NetPosDetail* const details = totals.details;
  const RecordOrder order = orderOfRecords({details, sizeof(NetPosDetail), count}, {key});
  if (!order) return false;
  const auto legAt = [details, name, positions = order.positions()](std::size_t i) -> Leg {
    const NetPosDetail& detail = details[positions[i]];
    return {&(detail.*name), detail.rate, detail.qty, detail.side, detail.tradeType};
  };
  return totalGroups(count, legAt, isKesto(file), listCount, totals);
}

template <class Record>
static PositionBlock totalOf(const PositionFile& file, const PositionChoice& choice, PositionTotals& totals) {
  constexpr std::size_t width = sizeof(TextField<12>);
  const RecordKey byClient = {KeyKind::foldedText, offsetof(Record, clientId), width};
  const RecordKey byScrip = {KeyKind::text, offsetof(Record, scripId), width};
  const RecordKey detailsByClient = {KeyKind::foldedText, offsetof(NetPosDetail, client), width};
  const RecordKey detailsByScrip = {KeyKind::text, offsetof(NetPosDetail, scrip), width};
  const auto takeDetails = [&file, &totals] {
    totals.details = static_cast<NetPosDetail*>(memoryTake((file.count + 1) * sizeof(NetPosDetail)));
    return totals.details != nullptr;
  };

  switch (choice.report) {
    case PositionReport::clientWise:
      if (!totalRecords(file, &Record::clientId, byClient, choice.clientCount, totals)) return PositionBlock::clientNetPos;
      return PositionBlock::none;
    case PositionReport::scripWise:
      if (!totalRecords(file, &Record::scripId, byScrip, choice.scripCount, totals)) return PositionBlock::scripNetPos;
      return PositionBlock::none;
    case PositionReport::clientScrip: {
      if (!takeDetails()) return PositionBlock::scripByClient;
      const std::size_t count = copyDetails(file, &Record::clientId, choice.client, totals);
      const bool taken = totalDetails(file, count, &NetPosDetail::scrip, detailsByScrip, choice.scripCount, totals);
      return taken ? PositionBlock::none : PositionBlock::csNetPos;
    }
    case PositionReport::scripClient: {
      if (!takeDetails()) return PositionBlock::clientsInScrip;
      const std::size_t count = copyDetails(file, &Record::scripId, choice.scrip, totals);
      const bool taken = totalDetails(file, count, &NetPosDetail::client, detailsByClient, choice.clientCount, totals);
      return taken ? PositionBlock::none : PositionBlock::scNetPos;
    }
  }
  return PositionBlock::none;
}

PositionBlock positionTotal(const PositionFile& file, const PositionChoice& choice, PositionTotals& totals) {
  return file.recordSize132 ? totalOf<TradeRec132>(file, choice, totals) : totalOf<TradeRec144>(file, choice, totals);
}

void positionFreeTotals(PositionTotals& totals) {
  memoryFree(totals.details);
  memoryFree(totals.rows);
  totals = {};
}

// ---- What a row says --------------------------------------------------------------------------------------------------

static std::int64_t averageOf(double value, std::int32_t qty) { return qty > 0 ? roundHalfAway(value / qty * 100.0) : 0; }

std::int64_t positionAverageBuy(const NetPosRow& row) { return averageOf(row.buyValue, row.buyQty); }

std::int64_t positionAverageSell(const NetPosRow& row) { return averageOf(row.sellValue, row.sellQty); }

std::int32_t positionNetQty(const NetPosRow& row) { return wrappingDifference(row.buyQty, row.sellQty); }

double positionNetValue(const NetPosRow& row) { return row.buyValue - row.sellValue; }

double positionBreakEven(const NetPosRow& row) {
  const std::int32_t netQty = positionNetQty(row);
  return netQty != 0 ? positionNetValue(row) / netQty : 0;
}

}  // namespace quillon
