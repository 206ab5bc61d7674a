// A report that grew is told from one that was written anew.
#include "pages/report_samples.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

bool continues(const std::string& before, const std::string& now) {
  return reportContinues(reportSamples(before), before.size(), now);
}

// A report of pages that are alike but for their figures.
std::string report(int pages, int seed) {
  std::string text;
  for (int page = 0; page < pages; ++page) {
    text += "Member: 418   TRADES\r\n" + std::string(60, '-') + "\r\n";
    for (int line = 0; line < 20; ++line) {
      text += "scrip " + std::to_string((page * 37 + line * 11 + seed) % 997) + std::string(40, ' ') + "\r\n";
    }
    text += '\f';
  }
  return text;
}

TEST(ReportSamples, aReportThatGrewContinues) {
  const std::string before = report(10, 1);
  EXPECT_TRUE(continues(before, before));
  EXPECT_TRUE(continues(before, before + report(3, 5)));
  EXPECT_TRUE(continues("", before));
  EXPECT_TRUE(continues("short", "shorter"));
}

TEST(ReportSamples, aShorterReportDoesNot) {
  EXPECT_FALSE(continues("short", "sho"));
  EXPECT_FALSE(continues(report(10, 1), report(9, 1)));
}

TEST(ReportSamples, aLongerOneThatWasWrittenAnewDoesNot) {
  EXPECT_FALSE(continues("Trades of Monday", "Trades of Tuesday"));
  EXPECT_FALSE(continues(report(10, 1), report(12, 2)));
}

TEST(ReportSamples, anotherFirstOrLastByteIsSeen) {
  const std::string before = report(10, 1);
  std::string first = before + "more";
  first[0] = 'm';
  EXPECT_FALSE(continues(before, first));
  std::string last = before + "more";
  last[before.size() - 1] = ' ';
  EXPECT_FALSE(continues(before, last));
}

TEST(ReportSamples, samplesOfALargeReportAreFewAndOfAShortOneAll) {
  EXPECT_EQ(reportSamples("abc"), "abc");
  EXPECT_EQ(reportSamples(std::string(1024, 'x')).size(), 1024u);
  EXPECT_EQ(reportSamples(std::string(1025, 'x')).size(), 1024u);
  EXPECT_EQ(reportSamples(std::string(5'000'000, 'x')).size(), 1024u);
}

TEST(ReportSamples, samplesAreSpreadEvenly) {
  // 16 samples of 64 bytes: the fifth begins a third of the way to the last.
  std::string bytes(64 + 15 * 100, '.');
  for (std::size_t i = 0; i < 16; ++i) bytes[i * 100] = static_cast<char>('a' + i);
  const std::string samples = reportSamples(bytes);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(samples[i * 64], static_cast<char>('a' + i)) << i;
}

}  // namespace
}  // namespace quillon
