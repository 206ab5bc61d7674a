#include "desktop/scripted/faults.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {

class Faults : public ::testing::Test {
 protected:
  void SetUp() override { faultsReset(); }
  void TearDown() override { faultsReset(); }
};

// "." for a use that is granted, "x" for one that fails.
static std::string usesOf(Fault kind, int count) {
  std::string uses;
  for (int i = 0; i < count; ++i) uses += faultFires(kind) ? 'x' : '.';
  return uses;
}

TEST_F(Faults, nothingFailsUnlessAskedTo) { EXPECT_EQ(usesOf(Fault::memory, 5), "....."); }

TEST_F(Faults, secondNextFailsOnce) {
  EXPECT_EQ(usesOf(Fault::memory, 3), "...");
  faultsArm(Fault::memory, 2, false);
  EXPECT_EQ(usesOf(Fault::memory, 5), ".x...");
}

TEST_F(Faults, alwaysFailsTheNextAndAllAfterIt) {
  faultsArm(Fault::open, 1, true);
  EXPECT_EQ(usesOf(Fault::open, 4), "xxxx");
  faultsArm(Fault::open, 3, true);
  EXPECT_EQ(usesOf(Fault::open, 5), "..xxx");
}

TEST_F(Faults, kindsCountForThemselves) {
  faultsArm(Fault::seek, 2, false);
  faultsArm(Fault::tell, 1, false);
  EXPECT_EQ(usesOf(Fault::rewind, 3), "...");
  EXPECT_EQ(usesOf(Fault::tell, 2), "x.");
  EXPECT_EQ(usesOf(Fault::seek, 2), ".x");
}

TEST_F(Faults, clearTakesAllBack) {
  faultsArm(Fault::write, 1, true);
  faultsArm(Fault::close, 1, false);
  faultsClear();
  EXPECT_EQ(usesOf(Fault::write, 2) + usesOf(Fault::close, 2), "....");
}

TEST_F(Faults, armingAgainTakesThePlaceOfWhatWasArmed) {
  faultsArm(Fault::form, 1, true);
  faultsArm(Fault::form, 2, false);
  EXPECT_EQ(usesOf(Fault::form, 4), ".x..");
}

TEST_F(Faults, asksInOneGoStopAtTheOneThatFails) {
  faultsArm(Fault::read, 4, false);
  EXPECT_EQ(faultsGrant(Fault::read, 2), 2u);   // the first and the second
  EXPECT_EQ(faultsGrant(Fault::read, 10), 1u);  // the third is granted, the fourth fails; no more were asked
  EXPECT_EQ(faultUses(Fault::read), 4u);
  EXPECT_EQ(faultsGrant(Fault::read, 10), 10u);
  EXPECT_EQ(faultUses(Fault::read), 14u);
  EXPECT_EQ(faultsFired(Fault::read), 1u);
}

TEST_F(Faults, lastOfTheAsksCanBeTheOneThatFails) {
  faultsArm(Fault::read, 3, false);
  EXPECT_EQ(faultsGrant(Fault::read, 3), 2u);
}

TEST_F(Faults, noAskIsNoUse) {
  faultsArm(Fault::read, 1, false);
  EXPECT_EQ(faultsGrant(Fault::read, 0), 0u);
  EXPECT_EQ(faultsFired(Fault::read), 0u);
  EXPECT_EQ(usesOf(Fault::read, 2), "x.");
}

TEST_F(Faults, alwaysFailsEachAskThatFollows) {
  faultsArm(Fault::read, 2, true);
  EXPECT_EQ(faultsGrant(Fault::read, 5), 1u);
  EXPECT_EQ(faultsGrant(Fault::read, 5), 0u);
  EXPECT_EQ(faultsGrant(Fault::read, 5), 0u);
  EXPECT_EQ(faultUses(Fault::read), 4u);
  EXPECT_EQ(faultsFired(Fault::read), 3u);
}

TEST_F(Faults, everyKindHasItsName) {
  static constexpr std::pair<const char*, Fault> kinds[] = {
      {"memory", Fault::memory}, {"open", Fault::open},     {"create", Fault::create},     {"seek", Fault::seek},
      {"tell", Fault::tell},     {"rewind", Fault::rewind}, {"read", Fault::read},         {"write", Fault::write},
      {"close", Fault::close},   {"form", Fault::form},     {"class", Fault::windowClass}, {"string", Fault::string},
      {"order", Fault::order},
  };
  ASSERT_EQ(std::size(kinds), faultKinds);
  for (const auto& [name, kind] : kinds) EXPECT_EQ(faultNamed(name), kind) << name;
  EXPECT_EQ(faultNamed("Memory"), std::nullopt);
  EXPECT_EQ(faultNamed(""), std::nullopt);
}

}  // namespace quillon
