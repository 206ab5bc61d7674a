#include "frame/client_types.h"

#include <gtest/gtest.h>

#include <cstring>

namespace quillon {

struct TypeCase {
  const char* name;
  std::int16_t codeA, codeB;
};

static constexpr TypeCase types[] = {
    {"BANK", 50, 51}, {"CLIENT", 30, 30}, {"DFI", 60, 61}, {"FII", 80, 81}, {"INS", 85, 86},
    {"MF", 70, 71},   {"NRI", 87, 88},    {"OWN", 20, 20}, {"FI", 10, 11},  {"SPLCLI", 40, 40},
    {"NPS", 75, 76},  {"QFI", 89, 89},    {"HNI", 28, 28}, {"BCO", 29, 29}, {"INST", 90, 90},
};

TEST(ClientTypes, rowsStandInTheirOrderHoweverOftenTheyAreRegistered) {
  std::memset(clientTypeTable, 0x55, sizeof clientTypeTable);
  for (int time = 0; time < 2; ++time) {
    registerClientTypes();
    for (int i = 0; i < clientTypeCount; ++i) {
      EXPECT_STREQ(clientTypeTable[i].name, types[i].name);
      EXPECT_EQ(clientTypeTable[i].codeA, types[i].codeA) << types[i].name;
      EXPECT_EQ(clientTypeTable[i].codeB, types[i].codeB) << types[i].name;
    }
  }
}

TEST(ClientTypes, eitherCodeFindsItsRow) {
  registerClientTypes();
  for (int i = 0; i < clientTypeCount; ++i) {
    EXPECT_EQ(clientTypeIndex(types[i].codeA), i);
    EXPECT_EQ(clientTypeIndex(types[i].codeB), i);
  }
}

TEST(ClientTypes, code51Gives0) {
  registerClientTypes();
  EXPECT_EQ(clientTypeIndex(51), 0);
}

TEST(ClientTypes, code30Gives1) {
  registerClientTypes();
  EXPECT_EQ(clientTypeIndex(30), 1);
}

TEST(ClientTypes, codeOfNoRowGivesClient) {
  registerClientTypes();
  for (const int code : {99, 0, -1, 31, 32767, -32768}) EXPECT_EQ(clientTypeIndex(static_cast<std::int16_t>(code)), 1) << code;
}

TEST(ClientTypes, firstRowFromTheTopIsTaken) {
  registerClientTypes();
  clientTypeTable[5].codeB = 30;
  clientTypeTable[0].codeB = 30;
  EXPECT_EQ(clientTypeIndex(30), 0);
  registerClientTypes();
}

}  // namespace quillon
