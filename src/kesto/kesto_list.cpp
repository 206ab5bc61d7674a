#include "kesto/kesto_list.h"

#include <cstddef>

#include "brokerquery/broker_file.h"

namespace quillon {

KestoSortKeys kestoTradeSortKeys(KestoSort sort) {
  constexpr RecordKey none = {KeyKind::none, 0, 0};
  constexpr RecordKey time = {KeyKind::text, offsetof(KestoTradeRec, time), sizeof(KestoTradeRec::time)};
  constexpr RecordKey scripCode = {KeyKind::number, offsetof(KestoTradeRec, scripCode), sizeof(KestoTradeRec::scripCode)};
  constexpr RecordKey scripId = {KeyKind::text, offsetof(KestoTradeRec, scripId), sizeof(KestoTradeRec::scripId)};
  constexpr RecordKey clientId = {KeyKind::text, offsetof(KestoTradeRec, clientId), sizeof(KestoTradeRec::clientId)};
  constexpr RecordKey days = {KeyKind::number8, offsetof(KestoTradeRec, days), sizeof(KestoTradeRec::days)};
  switch (sort) {
    case KestoSort::time:
      return {time, clientId};
    case KestoSort::scripCode:
      return {scripCode, clientId};
    case KestoSort::scripId:
      return {scripId, clientId};
    case KestoSort::clientId:
      return {clientId, scripId};
    case KestoSort::days:
      return {days, scripId};
    case KestoSort::trader:
    case KestoSort::fileOrder:
      break;
  }
  return {none, none};
}

KestoSortKeys kestoBrokerSortKeys(KestoSort sort) {
  constexpr RecordKey none = {KeyKind::none, 0, 0};
  constexpr RecordKey days = {KeyKind::number8, offsetof(KestoBrokerRec, days), sizeof(KestoBrokerRec::days)};
  constexpr RecordKey scripId = {KeyKind::text, offsetof(KestoBrokerRec, scripId), sizeof(KestoBrokerRec::scripId)};
  // The others are those of the Broker Query form.
  const auto ofBrokerQuery = [](BrokerSort brokerSort) -> KestoSortKeys {
    const BrokerSortKeys keys = brokerSortKeys(BrokerLayout::kesto, brokerSort);
    return {keys.first, keys.second};
  };
  switch (sort) {
    case KestoSort::time:
      return ofBrokerQuery(BrokerSort::time);
    case KestoSort::scripCode:
      return ofBrokerQuery(BrokerSort::scripCode);
    case KestoSort::scripId:
      return ofBrokerQuery(BrokerSort::scripId);
    case KestoSort::clientId:
      return ofBrokerQuery(BrokerSort::clientId);
    case KestoSort::trader:
      return ofBrokerQuery(BrokerSort::trader);
    case KestoSort::days:
      return {days, scripId};
    case KestoSort::fileOrder:
      break;
  }
  return {none, none};
}

}  // namespace quillon
