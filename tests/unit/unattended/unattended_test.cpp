// The parts of quillon-print that need no run of a form: words, masks, which form knows a file, the command line.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/clock.h"
#include "pages/page_index.h"
#include "unattended/form_options.h"
#include "unattended/print_all.h"
#include "unattended/print_call.h"
#include "unattended/print_output.h"

namespace quillon {
namespace {

TEST(FormOptions, labelsBecomeOptions) {
  EXPECT_EQ(optionName("Lines Per Page :"), "lines-per-page");
  EXPECT_EQ(optionName("LinesPerPage"), "lines-per-page");
  EXPECT_EQ(optionName("Broker No. :"), "broker-no");
  EXPECT_EQ(optionName("Select Type of File  To Print :"), "select-type-of-file-to-print");
  EXPECT_EQ(optionName("C&onvert"), "convert");
  EXPECT_EQ(optionName(" : "), "");
}

TEST(FormOptions, wordsAreComparedWithoutCaseBlanksAndPunctuation) {
  EXPECT_TRUE(sameWords("--lines-per-page", "LinesPerPage :"));
  EXPECT_TRUE(sameWords("no. of days", "No. Of Days"));
  EXPECT_FALSE(sameWords("Scrip Code", "Scrip ID"));
  EXPECT_FALSE(sameWords("", ""));
  EXPECT_FALSE(sameWords("--", " :"));
}

TEST(FormOptions, everyFormHasItsParts) {
  EXPECT_EQ(formNames().size(), 16u);
  for (const NamedForm* form : formNames()) {
    const std::optional<FormParts> parts = formParts(*form);
    ASSERT_TRUE(parts) << form->name;
    EXPECT_GE(parts->load, 0) << form->name;
    const bool convert = std::string_view(form->name) == "convert";
    EXPECT_EQ(parts->print < 0, convert) << form->name;
    EXPECT_GE(parts->reply, 0) << form->name;
    const bool oneDestination = std::string_view(form->name) == "delivery-slips";
    EXPECT_EQ(parts->printer < 0, oneDestination || convert) << form->name;
    EXPECT_EQ(parts->outFile < 0, oneDestination) << form->name;
    EXPECT_EQ(parts->convert >= 0, convert || std::string_view(form->name) == "kesto") << form->name;
    for (const FormOption& option : parts->options) EXPECT_FALSE(option.label.empty()) << form->name;
  }
}

TEST(FormOptions, aButtonBelongsToTheBoxAroundIt) {
  const std::optional<FormParts> parts = formParts(*formNamed("trades"));
  ASSERT_TRUE(parts);
  const auto groupOf = [&](const char* word, const char* label) {
    const std::optional<FormSetting> setting = formSetting(*parts, word, label);
    return setting ? setting->option.group : "none of that name";
  };
  EXPECT_EQ(groupOf("--sort", "Client ID"), "Sort By");
  EXPECT_EQ(groupOf("--check", "Print Net Position"), "");  // stands below the box, not in it
}

TEST(FormOptions, aFormIsFoundByItsNameInAnyCase) {
  EXPECT_NE(formNamed("Trades"), nullptr);
  EXPECT_EQ(formNamed("trade"), nullptr);
  EXPECT_EQ(formNamed(""), nullptr);
}

TEST(PrintAll, masksAsTheDialogsHaveThem) {
  EXPECT_TRUE(maskFits("TR*.B*", "tr010109.b01"));
  EXPECT_FALSE(maskFits("TR*.B*", "STR010109.B01"));
  EXPECT_FALSE(maskFits("TR*.B*", "TR010109"));
  EXPECT_TRUE(maskFits("*.sav", "A.B.SAV"));
  EXPECT_FALSE(maskFits("*.sav", "A.SAVE"));
  EXPECT_TRUE(maskFits("mony*.*", "MONY0101"));  // ".*" goes without a dot
  EXPECT_TRUE(maskFits("K?01*.SAV", "KT010109.SAV"));
  EXPECT_FALSE(maskFits("K?", "K"));
  EXPECT_FALSE(maskFits("", "x"));
  EXPECT_TRUE(maskFits("*", ""));
}

TEST(PrintAll, starsTakeAsMuchAsTheyMust) {
  EXPECT_TRUE(maskFits("a*b*c", "a-b-b-c-c"));
  EXPECT_FALSE(maskFits("a*b*c", "a-b-b-c-d"));
  EXPECT_TRUE(maskFits("*ab", "aab"));
  EXPECT_TRUE(maskFits("**", "x"));
  EXPECT_TRUE(maskFits("x**", "x"));
  EXPECT_FALSE(maskFits("x*?", "x"));
  EXPECT_TRUE(maskFits("x*?", "xy"));
  EXPECT_FALSE(maskFits("*x", ""));
  EXPECT_FALSE(maskFits(".*", "x"));
  EXPECT_TRUE(maskFits(".*", ""));
  EXPECT_FALSE(maskFits("a", "ab"));
  EXPECT_FALSE(maskFits("ab", "a"));
  // Where every star tried every length this would take longer than anybody waits.
  EXPECT_FALSE(maskFits("*a*a*a*a*a*a*a*a*a*a*b", std::string(250, 'a')));
}

std::string formOf(std::string_view name) {
  const std::optional<FormForFile> found = formForFile({}, name);
  if (!found) return "";
  std::string told = found->form;
  for (const std::string& option : found->options) told += "|" + option;
  return told;
}

TEST(PrintAll, theFirstFormThatKnowsAFilePrintsIt) {
  EXPECT_EQ(formOf("TR010109.B01"), "trades");
  EXPECT_EQ(formOf("STR010109.B01"), "trades");
  EXPECT_EQ(formOf("X.ORD"), "trades");
  EXPECT_EQ(formOf("TO010109.B01"), "trades|--select|Oddlot File");
  EXPECT_EQ(formOf("BT010109.B02"), "kesto");
  EXPECT_EQ(formOf("BB010109.BIN"), "kesto|--select-type-of-file-to-print|Broker Query Printing");
  EXPECT_EQ(formOf("a.vqt"), "kesto|--select-type-of-file-to-print|TouchLines Printing");
  EXPECT_EQ(formOf("BR010109.SBIN"), "broker-query");
  EXPECT_EQ(formOf("6A.NUP"), "6a7a|--select|Non-Updatable");
  EXPECT_EQ(formOf("ENTL0101.215"), "auction|--select|Rejected Entitlements");
  EXPECT_EQ(formOf("SBO250509.BIN"), "order-log");
  EXPECT_EQ(formOf("SAd010109.adl"), "admin-log");
}

// The table of docs/unattended.md, row by row.
TEST(PrintAll, everyMaskOfTheManualLeadsToItsForm) {
  const std::pair<const char*, std::vector<const char*>> rows[] = {
      {"trades", {"TR1.B1", "STR1.B1", "X.ORD", "X.SORD"}},
      {"trades|--select|Oddlot File", {"TO1.B1"}},
      {"kesto", {"CT1.B1", "BT1.B1"}},
      {"kesto|--select-type-of-file-to-print|Broker Query Printing", {"CB1.BIN", "BB1.BIN"}},
      {"kesto|--select-type-of-file-to-print|TouchLines Printing", {"X.VQT"}},
      {"broker-query", {"BR1.BIN", "BR1.SBIN"}},
      {"touchlines", {"X.SAV", "X.SSAV"}},
      {"trader-limits", {"X.TRD", "X.TSL", "X.STRD", "X.STSL"}},
      {"6a7a", {"X.UPD", "X.SUPD"}},
      {"6a7a|--select|Non-Updatable", {"X.NUP", "X.SNUP"}},
      {"auction", {"MONY1"}},
      {"auction|--select|Delivery Statement", {"DELY1"}},
      {"auction|--select|Offer Status Statement", {"OFFS1"}},
      {"auction|--select|BDA Details", {"CLBD1"}},
      {"auction|--select|Rejected Entitlements", {"ENTL1"}},
      {"order-log", {"OR1", "SOR1", "BO1.BIN", "SBO1.BIN"}},
      {"quote-log", {"QO1"}},
      {"admin-log", {"AD1.ADL", "SAD1.ADL"}},
      {"breakup", {"X.DAT"}},
      {"convert", {"X.ADM", "X.SADM", "ADEL1.ADL", "TRDRECT1", "X.ADL", "X.BIN", "X.SBIN"}},
  };
  for (const auto& [form, names] : rows) {
    for (const char* name : names) EXPECT_EQ(formOf(name), form) << name;
  }
}

TEST(PrintAll, kestoFilesOfThreeFormsAreToldByTheirNames) {
  EXPECT_EQ(formOf("TL010109.SAV"), "touchlines");
  EXPECT_EQ(formOf("kt010109.sav"), "touchlines|--select|Kesto");
  EXPECT_EQ(formOf("SKB010109.DAT"), "breakup|--select|Kesto");
  EXPECT_EQ(formOf("SC010109.TSL"), "trader-limits");
  EXPECT_EQ(formOf("KL010109.STRD"), "trader-limits|--select|Kesto");
}

TEST(PrintAll, whatHasNoReportIsConverted) {
  EXPECT_EQ(formOf("AD010109.SADM"), "convert");
  EXPECT_EQ(formOf("TrdRect1.dat"), "convert");
  EXPECT_EQ(formOf("Adel250509.adl"), "convert");
  EXPECT_EQ(formOf("SBB250509.BIN"), "convert");
}

TEST(PrintAll, filesThatAllFilesAloneWouldShowAreKnownByNoForm) {
  EXPECT_EQ(formOf("SCT250509.B01"), "");
  EXPECT_EQ(formOf("README.TXT"), "");
  EXPECT_EQ(formOf(""), "");
}

TEST(PrintAll, theCallsOwnMasksGoFirst) {
  const PrintCall call =
      printCall({"--all", "in", "-o", "out", "--as", "TR*=net-position:Scrip Wise NetPosion", "--as", "*.DAT=none", "--as",
                 "KB*.DAT=kesto:BreakUp Data Printing", "--as", "CT*=kesto:Print Net Position"});
  ASSERT_EQ(call.action, PrintAction::all) << call.problem;
  EXPECT_STREQ(formForFile(call.forms, "TR1.B01")->form, "net-position");
  EXPECT_EQ(formForFile(call.forms, "TR1.B01")->options, (std::vector<std::string>{"--select", "Scrip Wise NetPosion"}));
  EXPECT_FALSE(formForFile(call.forms, "KB1.DAT"));  // the first that fits counts
  EXPECT_EQ(formForFile(call.forms, "CT1.B01")->options, (std::vector<std::string>{"--check", "Print Net Position"}));
}

TEST(PrintCall, choicesOfAReport) {
  const PrintCall call =
      printCall({"trades", "--sort", "scrip id", "TR.B01", "--uncheck", "Print Net Position", "--lines-per-page", "-1",
                 "--answer", "Yes", "--answer", "no", "-o", "-x", "--pdf", "--clock", "2009-05-22 10:11:12"});
  ASSERT_EQ(call.action, PrintAction::report) << call.problem;
  EXPECT_EQ(call.input, "TR.B01");
  EXPECT_EQ(call.output, "-x");  // a value may begin like an option
  ASSERT_EQ(call.settings.size(), 3u);
  EXPECT_EQ(call.settings[0].option.label, "Scrip ID");
  EXPECT_TRUE(call.settings[0].checked);
  EXPECT_FALSE(call.settings[1].checked);
  EXPECT_EQ(call.settings[2].value, "-1");
  EXPECT_EQ(call.answers, (std::vector<BoxChoice>{BoxChoice::yes, BoxChoice::no}));
  EXPECT_TRUE(call.pdf);
  EXPECT_EQ(call.clock, "2009-05-22 10:11:12");
}

TEST(PrintCall, aLoneDashIsAFile) {
  const PrintCall call = printCall({"trades", "-", "-o", "x"});
  ASSERT_EQ(call.action, PrintAction::report) << call.problem;
  EXPECT_EQ(call.input, "-");
}

TEST(PrintCall, jobsAreDigitsAlone) {
  EXPECT_EQ(printCall({"--all", "in", "-o", "out", "-j", "10"}).jobs, 10);
  for (const char* jobs : {"1:", "1/", ":", "+5", "5 "}) {
    EXPECT_EQ(printCall({"--all", "in", "-o", "out", "-j", jobs}).action, PrintAction::wrongCall) << jobs;
  }
}

TEST(PrintCall, theClockRunsOnUntilTheReportIsMade) {
  ASSERT_EQ(printCall({"trades", "TR.B01", "-o", "x", "--clock", "1999-12-31 10:11:12"}).action, PrintAction::report);
  EXPECT_GT(clockNow().year, 1999);
}

std::filesystem::path inTemp(const char* name) { return std::filesystem::path(testing::TempDir()) / name; }

TEST(PrintOutput, aFileIsWrittenBesideItsPlaceWhetherOneStandsThereOrNot) {
  const std::filesystem::path folder = inTemp("quillon print output");
  std::filesystem::create_directories(folder);
  for (const bool older : {false, true}) {
    if (older) std::fclose(systemFile(folder / "r.txt", true));
    PrintOutput output;
    EXPECT_EQ(printOutputBegin(output, (folder / "r.txt").string()), "");
    EXPECT_FALSE(output.isDevice) << older;
    EXPECT_EQ(output.written.parent_path(), output.place.parent_path()) << older;
    EXPECT_TRUE(std::filesystem::exists(output.written)) << older;
    printOutputDrop(output);
    EXPECT_FALSE(std::filesystem::exists(output.written)) << older;
  }
  std::filesystem::remove_all(folder);
}

TEST(PrintOutput, aReportThatIsGoneBecomesNoPdf) {
  PrintOutput output;
  output.written = inTemp("quillon-print-none.txt");
  EXPECT_EQ(printOutputToPdf(output, "x"), "The report cannot be read again.");
  EXPECT_FALSE(std::filesystem::exists(output.written));
}

TEST(PrintOutput, aReportOfMorePagesThanAnIndexHoldsBecomesNoPdf) {
  PrintOutput output;
  output.written = inTemp("quillon-print-pages.txt");
  const std::string report = std::string(mostPages, '\f') + "x";  // one page more
  std::FILE* const file = systemFile(output.written, true);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(std::fwrite(report.data(), 1, report.size(), file), report.size());
  std::fclose(file);
  EXPECT_EQ(printOutputToPdf(output, "x"), "The report has too many pages for a PDF.");
  EXPECT_EQ(std::filesystem::file_size(output.written), report.size());  // as it was
  printOutputDrop(output);
}

}  // namespace
}  // namespace quillon
