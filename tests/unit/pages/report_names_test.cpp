// Which files the list of reports shows.
#include "pages/report_names.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ReportNames, anyNameThatAFormMayWriteIsAReport) {
  for (const char* name : {"TRADES.TXT", "REPORT", "NETPOS.LST", "A.PRN", "TR010109.B01.txt", "X.001", "a.b.c", "trailing."}) {
    EXPECT_TRUE(isReportName(name)) << name;
  }
}

TEST(ReportNames, whatIsKnownToBeSomethingElseIsNot) {
  for (const char* name : {"TRADES.pdf", "TRADES.PDF", "quillon.exe", "settings.ini", "a.zip", "b.Xlsx", "c.lnk", "d.dll"}) {
    EXPECT_FALSE(isReportName(name)) << name;
  }
}

TEST(ReportNames, anExtensionIsWhatStandsBehindTheLastDot) {
  EXPECT_TRUE(isReportName("pdf"));
  EXPECT_TRUE(isReportName("a.pdf.txt"));
  EXPECT_FALSE(isReportName("a.txt.pdf"));
  EXPECT_FALSE(isReportName(".pdf"));
}

TEST(ReportNames, whatQuillonPrintHasNotFinishedIsNoReport) {
  EXPECT_FALSE(isReportName(".quillon-print-1234.tmp"));
  EXPECT_FALSE(isReportName(".quillon-print-1234"));
}

TEST(ReportNames, noNameIsNoReport) { EXPECT_FALSE(isReportName("")); }

}  // namespace
}  // namespace quillon
