// Auction records for tests, written as rows.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "auction/auction_file.h"
#include "desktop/scripted/faults.h"

namespace quillon::test {

inline AuctionHeader auctionHeader(std::string_view notice, std::string_view memberName = "LAKEVIEW SECURITIES",
                                   std::int32_t clearingNo = 418, std::int16_t settlementNo = 37,
                                   std::int16_t auctionNo = 215) {
  AuctionHeader header = {};
  header.settlementNo = settlementNo;
  fieldSet(header.auctionNoticeNo, notice);
  header.auctionNo = auctionNo;
  header.clearingNo = clearingNo;
  fieldSet(header.memberName, memberName);
  return header;
}

inline TextField<3> entryType(std::string_view type) {
  TextField<3> field;
  fieldSet(field, type);
  return field;
}

struct Entry {
  std::string_view type;
  std::int32_t scripCode = 0;
  std::string_view scripName = {};
  std::int32_t bankCode = 0, quantity = 0;
  std::int32_t stdRate = 0, closeOutRate = 0, auctionRate = 0;
  std::int32_t debitRupees = 0;
  std::int16_t debitPaise = 0;
  std::int32_t creditRupees = 0;
  std::int16_t creditPaise = 0;
  std::int32_t auctionCommission = 0, bdcNo = 0;
};

inline MonyRec moneyRecord(const Entry& entry) {
  MonyRec record = {};
  record.scripCode = entry.scripCode;
  fieldSet(record.scripName, entry.scripName);
  record.entryType = entryType(entry.type);
  record.bdcNo = entry.bdcNo;
  record.quantity = entry.quantity;
  record.stdRate = entry.stdRate;
  record.closeOutRate = entry.closeOutRate;
  record.auctionRate = entry.auctionRate;
  record.debitRupees = entry.debitRupees;
  record.debitPaise = entry.debitPaise;
  record.creditPaise = entry.creditPaise;
  record.creditRupees = entry.creditRupees;
  record.auctionCommission = entry.auctionCommission;
  record.bankCode = entry.bankCode;
  return record;
}

struct Offer {
  std::int32_t scripCode = 0;
  std::string_view scripName = {};
  std::int32_t stdRate = 0, highestOfferRateAccepted = 0, closedOutRate = 0;
  std::int32_t qtyOffered = 0, offerRate = 0, qtyAccepted = 0;
  double creditValue = 0;
  std::string_view clientId = {}, deliveryType = {};
};

inline OffsRec offerRecord(const Offer& offer) {
  OffsRec record = {};
  record.scripCode = offer.scripCode;
  fieldSet(record.scripName, offer.scripName);
  record.offerRate = offer.offerRate;
  record.qtyOffered = offer.qtyOffered;
  record.highestOfferRateAccepted = offer.highestOfferRateAccepted;
  record.qtyAccepted = offer.qtyAccepted;
  record.creditValue = offer.creditValue;
  record.stdRate = offer.stdRate;
  record.closedOutRate = offer.closedOutRate;
  fieldSet(record.clientId, offer.clientId);
  fieldSet(record.deliveryType, offer.deliveryType);
  return record;
}

inline std::vector<MonyRec> moneyRecords(const std::vector<Entry>& entries) {
  std::vector<MonyRec> records;
  for (const Entry& entry : entries) records.push_back(moneyRecord(entry));
  return records;
}

inline std::vector<OffsRec> offerRecords(const std::vector<Offer>& offers) {
  std::vector<OffsRec> records;
  for (const Offer& offer : offers) records.push_back(offerRecord(offer));
  return records;
}

template <typename Record>
std::string bytesOf(const Record& record) {
  return {static_cast<const char*>(static_cast<const void*>(&record)), sizeof record};
}

// A file of this test alone, gone with it.
struct TestFile {
  std::filesystem::path path;
  explicit TestFile(const std::string& bytes) {
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    path = std::filesystem::temp_directory_path() / (std::string("auction_") + info->name() + ".BIN");
    std::ofstream(path, std::ios::binary) << bytes;
  }
  ~TestFile() { std::filesystem::remove(path); }
};

struct Faults {
  Faults() { faultsReset(); }
  ~Faults() { faultsReset(); }
};

}  // namespace quillon::test
