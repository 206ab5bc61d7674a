// Auction records for tests: a record with sensible values that a case changes where it matters.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "auction/auction_file.h"
#include "desktop/scripted/faults.h"

namespace quillon::test {

inline AuctionHeader auctionHeader(std::string_view notice, std::string_view memberName = "LAKEVIEW SECURITIES") {
  AuctionHeader header = {};
  header.settlementNo = 37;
  fieldSet(header.auctionNoticeNo, notice);
  header.auctionNo = 215;
  header.clearingNo = 418;
  fieldSet(header.memberName, memberName);
  return header;
}

inline TextField<3> entryType(std::string_view type) {
  TextField<3> field;
  fieldSet(field, type);
  return field;
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
