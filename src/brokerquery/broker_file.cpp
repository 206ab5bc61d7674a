#include "brokerquery/broker_file.h"

namespace quillon {

const KestoLeg* findKestoLeg(char legCode) {
  for (const KestoLeg& leg : kestoLegs) {
    if (leg.legCode == legCode) return &leg;
  }
  return nullptr;
}

std::optional<BrokerLayout> chooseBrokerLayout(char fileKind, bool recordSize132) {
  if (fileKind == 'N' || fileKind == 'V') return recordSize132 ? BrokerLayout::rec132 : BrokerLayout::rec160;
  if (fileKind == 'B') return BrokerLayout::kesto;
  return std::nullopt;
}

bool countBrokerRecords(Input& input, BrokerLayout layout, std::size_t& count) {
  if (!inputSeekEnd(input)) return false;
  const std::int64_t size = inputTell(input);
  if (size < 0) return false;
  if (!inputSeekStart(input)) return false;
  const std::size_t bytes = static_cast<std::size_t>(size);
  count = bytes < sizeof(TradeHeader) ? 0 : (bytes - sizeof(TradeHeader)) / brokerRecordSize(layout);
  return true;
}

bool readBrokerRecords(Input& input, BrokerLayout layout, void* block, std::size_t count, bool (*readFailed)()) {
  TradeHeader header;
  if (!inputRead(input, &header, sizeof header) && !readFailed()) return false;
  const std::size_t size = brokerRecordSize(layout);
  char* const records = static_cast<char*>(block);
  std::size_t done = 0;
  while (true) {
    done += inputReadRecords(input, records + done * size, size, count - done);
    if (done == count) return true;
    if (!readFailed()) return false;
    if (++done == count) return true;
  }
}

template <typename Record>
static BrokerSortKeys sortKeys(BrokerSort sort) {
  constexpr RecordKey tradeTime = {KeyKind::text, offsetof(Record, tradeTime), sizeof(Record::tradeTime)};
  constexpr RecordKey scripCode = {KeyKind::number, offsetof(Record, scripCode), sizeof(Record::scripCode)};
  constexpr RecordKey scripId = {KeyKind::text, offsetof(Record, scripId), sizeof(Record::scripId)};
  constexpr RecordKey clientId = {KeyKind::text, offsetof(Record, clientId), sizeof(Record::clientId)};
  constexpr RecordKey traderNo = {KeyKind::number, offsetof(Record, traderNo), sizeof(Record::traderNo)};
  switch (sort) {
    case BrokerSort::time:
      return {tradeTime, clientId};
    case BrokerSort::scripCode:
      return {scripCode, clientId};
    case BrokerSort::scripId:
      return {scripId, clientId};
    case BrokerSort::clientId:
      return {clientId, scripId};
    case BrokerSort::trader:
      break;
  }
  return {traderNo, scripId};
}

BrokerSortKeys brokerSortKeys(BrokerLayout layout, BrokerSort sort) {
  switch (layout) {
    case BrokerLayout::rec132:
      return sortKeys<BrokerRec132>(sort);
    case BrokerLayout::rec160:
      return sortKeys<BrokerRec160>(sort);
    case BrokerLayout::kesto:
      break;
  }
  return sortKeys<KestoBrokerRec>(sort);
}

}  // namespace quillon
