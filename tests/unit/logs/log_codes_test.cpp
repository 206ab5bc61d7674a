// The words and letters of the log's codes, every code of them.
#include "logs/log_codes.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

#include "frame/client_types.h"

namespace quillon::test {
namespace {

constexpr int lowest = std::numeric_limits<std::int16_t>::min();
constexpr int highest = std::numeric_limits<std::int16_t>::max();

TEST(LogCodes, retentionHasFiveWordsAndNoOther) {
  constexpr std::string_view texts[] = {"IOC", "EOSESS", "EOTODY", "EOD", "EOSTLM"};
  for (int code = lowest; code <= highest; ++code) {
    const char* text = retentionText(static_cast<std::int16_t>(code));
    if (code < 0 || code > 4) {
      EXPECT_EQ(text, nullptr) << code;
    } else {
      EXPECT_EQ(text, texts[code]) << code;
    }
  }
}

// The letter of each code from 0 on; a dot where there is none, as for all codes beyond.
void expectLetters(char (*letterOf)(std::int16_t), std::string_view letters) {
  for (int code = lowest; code <= highest; ++code) {
    const bool known = code >= 0 && code < static_cast<int>(letters.size()) && letters[static_cast<std::size_t>(code)] != '.';
    EXPECT_EQ(letterOf(static_cast<std::int16_t>(code)), known ? letters[static_cast<std::size_t>(code)] : noLetter) << code;
  }
}

TEST(LogCodes, orderActionsAreAddedUpdatedOrDeleted) {
  //                                0123456789012345678
  expectLetters(orderActionLetter, ".AUDAUDAAAUDAUDADAD");
}

TEST(LogCodes, rectificationsAreAcceptedOrRejected) {
  //                                        01234567890123456789012
  expectLetters(clientRectificationLetter, "...................AR");
  expectLetters(typeRectificationLetter, ".....................AR");
}

TEST(LogCodes, quotesKnowSixActions) { expectLetters(quoteActionLetter, ".AUDAUD"); }

TEST(LogCodes, actionsNineToFourteenHaveNoLimitRate) {
  for (int code = lowest; code <= highest; ++code) {
    EXPECT_EQ(actionHasNoLimitRate(static_cast<std::int16_t>(code)), code >= 9 && code <= 14) << code;
  }
}

TEST(LogCodes, clientTypeIsNamedByEitherCodeAndIsAClientOtherwise) {
  registerClientTypes();
  EXPECT_EQ(clientTypeName(50), std::string("BANK"));
  EXPECT_EQ(clientTypeName(51), std::string("BANK"));
  EXPECT_EQ(clientTypeName(90), std::string("INST"));
  EXPECT_EQ(clientTypeName(30), std::string("CLIENT"));
  EXPECT_EQ(clientTypeName(99), std::string("CLIENT"));
  EXPECT_EQ(clientTypeName(-1), std::string("CLIENT"));
}

}  // namespace
}  // namespace quillon::test
