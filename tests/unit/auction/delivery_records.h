// Records of deliveries, close-outs and rejected entitlements for tests, written as rows.
#pragma once

#include <string_view>
#include <vector>

#include "auction/auction_file.h"

namespace quillon::test {

struct Delivery {
  char side = 'O';
  std::int32_t brokerNo = 0;
  std::string_view brokerName = {};
  std::int32_t orderId = 0;
  std::int16_t subBrokerId = 0;
  std::int32_t bankCode = 0, quantity = 0;
  std::string_view deliveryType = {}, clientId = {};
  std::int32_t scripCode = 0;
  std::string_view scripName = {};
  std::int32_t stdRate = 0, bdcNo = 0;
};

inline DelyRec deliveryRecord(const Delivery& delivery) {
  DelyRec record = {};
  record.scripCode = delivery.scripCode;
  fieldSet(record.scripName, delivery.scripName);
  record.side = delivery.side;
  record.stdRate = delivery.stdRate;
  record.orderId = delivery.orderId;
  record.brokerNo = delivery.brokerNo;
  record.bdcNo = delivery.bdcNo;
  fieldSet(record.brokerName, delivery.brokerName);
  record.quantity = delivery.quantity;
  record.bankCode = delivery.bankCode;
  fieldSet(record.remarks, "PRINTED NOWHERE");
  fieldSet(record.deliveryType, delivery.deliveryType);
  fieldSet(record.clientId, delivery.clientId);
  record.subBrokerId = delivery.subBrokerId;
  return record;
}

struct CloseOut {
  std::int32_t scripCode = 0, bdcNo = 0, totalAuctionQty = 0, qtyAuctioned = 0, qtyClosedOut = 0;
  std::int32_t closeOutRate = 0, auctionRate = 0, closeOutValue = 0;
};

inline ClbdRec closeOutRecord(const CloseOut& closeOut) {
  ClbdRec record = {};
  record.scripCode = closeOut.scripCode;
  record.bdcNo = closeOut.bdcNo;
  record.totalAuctionQty = closeOut.totalAuctionQty;
  record.qtyAuctioned = closeOut.qtyAuctioned;
  record.qtyClosedOut = closeOut.qtyClosedOut;
  record.closeOutRate = closeOut.closeOutRate;
  record.auctionRate = closeOut.auctionRate;
  record.closeOutValue = closeOut.closeOutValue;
  return record;
}

struct Entitlement {
  std::int16_t reason = 0;
  char buySellFlag = 'B';
  std::int32_t scripCode = 0;
  std::string_view scripName = {};
  std::int32_t oppMemberId = 0;
  std::string_view oppMemberName = {};
  std::int32_t bdcNo = 0;
  std::string_view entitlementType = {};
  std::int32_t closingRate = 0, entitlementRate = 0;
};

inline EntlRec entitlementRecord(const Entitlement& entitlement) {
  EntlRec record = {};
  record.buySellFlag = entitlement.buySellFlag;
  record.scripCode = entitlement.scripCode;
  fieldSet(record.scripName, entitlement.scripName);
  record.oppMemberId = entitlement.oppMemberId;
  fieldSet(record.oppMemberName, entitlement.oppMemberName);
  record.bdcNo = entitlement.bdcNo;
  fieldSet(record.entitlementType, entitlement.entitlementType);
  record.closingRate = entitlement.closingRate;
  record.entitlementRate = entitlement.entitlementRate;
  record.reason = entitlement.reason;
  return record;
}

inline std::vector<DelyRec> deliveryRecords(const std::vector<Delivery>& deliveries) {
  std::vector<DelyRec> records;
  for (const Delivery& delivery : deliveries) records.push_back(deliveryRecord(delivery));
  return records;
}

inline std::vector<ClbdRec> closeOutRecords(const std::vector<CloseOut>& closeOuts) {
  std::vector<ClbdRec> records;
  for (const CloseOut& closeOut : closeOuts) records.push_back(closeOutRecord(closeOut));
  return records;
}

inline std::vector<EntlRec> entitlementRecords(const std::vector<Entitlement>& entitlements) {
  std::vector<EntlRec> records;
  for (const Entitlement& entitlement : entitlements) records.push_back(entitlementRecord(entitlement));
  return records;
}

}  // namespace quillon::test
