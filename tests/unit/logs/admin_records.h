// Admin log records for tests, written as rows.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "logs/admin_log_report.h"

namespace quillon::test {

// Fills the field to its last byte where the text is that long.
template <std::size_t N>
void setText(TextField<N>& field, std::string_view text) {
  field = {};
  std::copy_n(text.begin(), std::min(text.size(), N), field.bytes);
}

struct TimeOfDay {
  std::uint8_t hour, minute, second;
};

struct TraderLimits {
  std::int32_t traderNo;
  std::string_view alias;
  std::string_view flags;  // seventeen, in the order in which they stand in the record
  TimeOfDay time;
  std::int16_t opCode;
  std::int32_t grBuy, grSell, netVal, netBuyQty, netSellQty, singleOrdQty, singleOrdVal;
  std::string_view message;
};

struct ScripLimits {
  std::int32_t traderId, scripCode, buyLimit, sellLimit;
  std::string_view scripId;
  TimeOfDay time;
  std::int16_t opCode;
  std::string_view message;
};

struct GroupLimits {
  std::int32_t traderId;
  double buyLimit, sellLimit;
  TimeOfDay time;
  std::string_view groupName;
  std::int16_t opCode;
  std::string_view message;
};

struct Activity {
  std::int32_t traderId;
  std::string_view oprType, oldPwd, newPwd;
  TimeOfDay time;
  std::string_view message;
};

template <class Record>
void setTime(Record& record, const TimeOfDay& time) {
  record.hour = time.hour;
  record.minute = time.minute;
  record.second = time.second;
}

inline TraderLimitRec recordOf(const TraderLimits& row) {
  TraderLimitRec record = {};
  record.traderNo = row.traderNo;
  setText(record.alias, row.alias);
  std::copy_n(row.flags.begin(), 17, &record.utr);
  setTime(record, row.time);
  record.opCode = row.opCode;
  record.grBuy = row.grBuy;
  record.grSell = row.grSell;
  record.netVal = row.netVal;
  record.netBuyQty = row.netBuyQty;
  record.netSellQty = row.netSellQty;
  record.singleOrdQty = row.singleOrdQty;
  record.singleOrdVal = row.singleOrdVal;
  setText(record.message, row.message);
  return record;
}

inline ScripLimitRec recordOf(const ScripLimits& row) {
  ScripLimitRec record = {};
  record.traderId = row.traderId;
  record.scripCode = row.scripCode;
  record.buyLimit = row.buyLimit;
  record.sellLimit = row.sellLimit;
  setText(record.scripId, row.scripId);
  setTime(record, row.time);
  record.opCode = row.opCode;
  setText(record.message, row.message);
  return record;
}

inline GroupLimitRec recordOf(const GroupLimits& row) {
  GroupLimitRec record = {};
  record.traderId = row.traderId;
  record.buyLimit = row.buyLimit;
  record.sellLimit = row.sellLimit;
  setTime(record, row.time);
  setText(record.groupName, row.groupName);
  setText(record.message, row.message);
  record.opCode = row.opCode;
  return record;
}

inline ActivityRec recordOf(const Activity& row) {
  ActivityRec record = {};
  record.traderId = row.traderId;
  setText(record.oprType, row.oprType);
  setText(record.oldPwd, row.oldPwd);
  setText(record.newPwd, row.newPwd);
  setTime(record, row.time);
  setText(record.message, row.message);
  return record;
}

// The bytes of a section, one record behind the other.
template <class Row>
std::string sectionOf(const std::vector<Row>& rows) {
  std::string bytes;
  for (const Row& row : rows) {
    const auto record = recordOf(row);
    bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
  }
  return bytes;
}

}  // namespace quillon::test
