// Choosing the input file: what the dialog shows for each request, and what a file's name tells.
#include "frame/file_selection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/scripted_run.h"

namespace quillon::test {

// ---- What a name tells ----------------------------------------------------------------------------------------------------

struct TitleCase {
  const char* title;
  bool isLendingFile;
  bool isLendingAuctionFile;
};

TEST(FileTitle, namesAndTheirFlags) {
  static constexpr TitleCase rows[] = {
      // The first letter decides where the extension does not.
      {"STR010109.B01", true, false},
      {"TR010109.B01", false, false},
      {"str010109.B01", false, false},
      {"S", true, false},
      {"T", false, false},
      // Extensions of lending files, exact to their case.
      {"X.SORD", true, false},
      {"X.SSAV", true, false},
      {"X.STRD", true, false},
      {"X.STSL", true, false},
      {"X.SUPD", true, false},
      {"X.SNUP", true, false},
      {"X.SADM", true, false},
      {"X.Sord", false, false},
      {"X.sord", false, false},
      {"SX.Sord", true, false},
      // Extensions of normal files, whatever the first letter.
      {"S.ORD", false, false},
      {"S.SAV", false, false},
      {"S.TRD", false, false},
      {"S.TSL", false, false},
      {"S.UPD", false, false},
      {"S.NUP", false, false},
      {"S.ADM", false, false},
      {"S.ord", true, false},
      // What stands behind the last dot counts.
      {"X.ORD.SORD", true, false},
      {"S.SORD.ORD", false, false},
      // A name without a dot is its own extension.
      {"SORD", true, false},
      {"ORD", false, false},
      // Broker query and consolidated order files.
      {"BR010109.SBIN", true, false},
      {"BR010109.BIN", false, false},
      {"SBO010109.BIN", true, false},
      {"SBo010109.BIN", true, false},
      {"SBo010109.bin", true, false},
      {"XSBo.BIN", false, false},
      // Auction files of the lending market.
      {"MONY0101.S01", true, true},
      {"DELY0101.S01", true, true},
      {"OFFS0101.S01", true, true},
      {"MONY0101.N01", false, false},
      {"mony0101.S01", false, false},
      {"CLBD0101.S01", false, false},
      {"MONY0101.s01", false, false},
      {"", false, false},
  };
  for (const TitleCase& row : rows) {
    for (const bool before : {false, true}) {
      fileSelection = {};
      fileSelection.isLendingFile = before;
      fileSelection.isLendingAuctionFile = before;
      applyFileTitle(row.title);
      EXPECT_EQ(fileSelection.isLendingFile, row.isLendingFile) << row.title;
      EXPECT_EQ(fileSelection.isLendingAuctionFile, row.isLendingAuctionFile) << row.title;
    }
  }
}

static FileSelection selectionOf(const char* title) {
  fileSelection = {};
  applyFileTitle(title);
  return fileSelection;
}

TEST(FileTitle, tradeFileBelongsToTheLendingMarketByItsFirstLetter) {
  EXPECT_TRUE(selectionOf("STR010109.B01").isLendingFile);
  EXPECT_FALSE(selectionOf("TR010109.B01").isLendingFile);
}

TEST(FileTitle, extensionCountsInItsExactCaseOnly) {
  EXPECT_TRUE(selectionOf("X.SORD").isLendingFile);
  EXPECT_FALSE(selectionOf("X.Sord").isLendingFile);
}

TEST(FileTitle, consolidatedOrderFileOfTheLendingMarketIsToldInEitherCase) {
  EXPECT_TRUE(selectionOf("SBO010109.BIN").isLendingFile);
  EXPECT_TRUE(selectionOf("SBo010109.BIN").isLendingFile);
}

TEST(FileTitle, moneyFileOfTheLendingMarketSetsBothFlags) {
  const FileSelection selection = selectionOf("MONY0101.S01");
  EXPECT_TRUE(selection.isLendingFile);
  EXPECT_TRUE(selection.isLendingAuctionFile);
}

// ---- The dialog -----------------------------------------------------------------------------------------------------------

struct RequestCase {
  int number;
  int request;
  LoadVariant variant;
  const char* title;
  const char* masks;  // name and pattern in pairs, each followed by a bar
};

// clang-format off
static constexpr RequestCase requests[] = {
    {1111, loadNetPosition, LoadVariant::standard, "LOAD TRADE FILE",
     "Tr Files(Trddmmyy.BNN)|TR*.B*|Ord Files(*.ord)|*.ord|All Files(*.*)|*.*|"},
    {1112, loadTrades, LoadVariant::standard, "LOAD TRADE FILE",
     "Tr Files(Trddmmyy.BNN)|TR*.B*|STr Files(Strddmmyy.BNN)|STR*.B*|Ord Files(*.ord)|*.or"
     "d|SOrd Files(*.Sord) |*.Sord|All Files(*.*)|*.*|"},
    {1112, loadTrades, LoadVariant::oddLot, "LOAD TRADE FILE",
     "To Files(Toddmmyy.BNN)|TO*.B*|Ord Files(*.ord)|*.ord|All Files(*.*)|*.*|"},
    {2011, loadTouchlines, LoadVariant::standard, "LOAD TOUCHLINE FILE",
     "Tline Files(*.sav)|*.SAV|Tline Files(*.Ssav)|*.SSAV|All Files(*.*)|*.*|"},
    {2013, loadTraderLimits, LoadVariant::standard, "LOAD TRADER LIMITS FILE",
     "Trdlim Files(*.trd)|*.trd|Trdlim Files(*.Strd)|*.Strd|Trdlim Files(*.tsl)|*.tsl|Trdl"
     "im Files(*.Stsl)|*.Stsl|All Files(*.*)|*.*|"},
    {2015, load6A7A, LoadVariant::standard, "LOAD 6A7A REPORT ",
     "6A7A Files(*.upd)|*.upd|6A7A Files(*.Supd)|*.Supd|All Files(*.*)|*.*|"},
    {2015, load6A7A, LoadVariant::nonUpdatable, "LOAD 6A7A REPORT ",
     "6A7A Files(*.nup)|*.nup|6A7A Files(*.Snup)|*.Snup|All Files(*.*)|*.*|"},
    {2017, loadBreakup, LoadVariant::standard, "LOAD BREAKUP DATA FILE ",
     "BrkUp Files(*.dat)|*.dat|All Files(*.*)|*.*|"},
    {2019, loadConvert, LoadVariant::standard, "LOAD FILE ",
     "Tr Files(Trddmmyy.BNN)|TR*.B*|STr Files(STrddmmyy.BNN)|STR*.B*|To Files(Toddmmyy.BNN"
     ")|TO*.B*|Ord Files(*.ord)|*.ord|Ord Files(*.Sord)|*.Sord|BrkQry Files(*.BIN)|*.bin|B"
     "rkQry Files(*.SBIN)|*.Sbin|Admn Files[*.adm]|*.adm|Admin Files(*.Sadm)|*.Sadm|(Or*.*"
     ")|Or*.*|[SOr*.*)|SOr*.*|(Qo*.*)|Qo*.*|Con Order Files(Boddmmyy.BIN)|Bo*.bin|Con Orde"
     "r Files(SBoddmmyy.BIN)|SBo*.bin|Admin Pending Order(Adel*.adl)|*.adl|Trade Rectifica"
     "tion file (TrdRect*.*)|TrdRect*.*|All Files(*.*)|*.*|"},
    {2021, loadDelivery, LoadVariant::standard, "LOAD DELIVERY STATEMENT",
     "Dely Files|dely*.*|All Files(*.*)|*.*|"},
    {2024, loadKestoTrades, LoadVariant::standard, "LOAD KESTO TRADES FILE",
     "CT Files(Ctddmmyy.BNN)|CT*.B*|BT Files(BTddmmyy.BNN)|BT*.B*|Ord Files(*.ord)|*.ord|A"
     "ll Files(*.*)|*.*|"},
    {2025, loadKestoTouchlines, LoadVariant::standard, "LOAD KESTO TOUCHLINES FILE",
     "CTline Files(*.vqt)|*.VQT|All Files(*.*)|*.*|"},
    {2026, loadKestoBrokerQuery, LoadVariant::standard, "LOAD KESTO BROKER QUERY FILE",
     "CB Files(Cbddmmyy.BIN)|CB*.BIN|BB Files(BBddmmyy.BIN)|BB*.BIN|All Files(*.*)|*.*|"},
    {2027, loadKestoBreakup, LoadVariant::standard, "LOAD KESTO (R) BREAKUP DATA FILE",
     "CBrkUp Files(*.dat)|*.DAT|All Files(*.*)|*.*|"},
    {2028, loadKestoTraderLimits, LoadVariant::standard, "LOAD KESTO TRADERS LIMIT FILE",
     "CTrdlimFiles(*.trd)|*.trd|CTrdlimFiles(*.tsl)|*.tsl|All Files(*.*)|*.*|"},
    {2033, loadKestoConvert, LoadVariant::standard, "LOAD KESTO CONVERT FILE",
     "CT Files(Ctddmmyy.BNN)|CT*.B0*|Ord Files(*.ord)|*.ord|CB Files(Cbddmmyy.BIN)|CB*.BIN"
     "|BT Files(BTddmmyy.BNN)|BT*.B*|BB Files(BBddmmyy.BIN)|BB*.BIN|All Files(*.*)|*.*|"},
    {2046, loadKestoNetPosition, LoadVariant::standard, "LOAD KESTO TRADES FILE",
     "CT Files(Ctddmmyy.BNN)|CT*.B*|BT Files(BTddmmyy.BNN)|BT*.B*|Ord Files(*.ord)|*.ord|A"
     "ll Files(*.*)|*.*|"},
    {2222, loadAuction, LoadVariant::standard, "LOAD AUCTION FILE",
     "Mony Files|mony*.*|"},
    {2222, loadAuction, LoadVariant::auctionDelivery, "LOAD AUCTION FILE",
     "Dely Files|dely*.*|"},
    {2222, loadAuction, LoadVariant::auctionOfferStatus, "LOAD AUCTION FILE",
     "Off Files|offs*.*|"},
    {2222, loadAuction, LoadVariant::auctionBdaDetails, "LOAD AUCTION FILE",
     "Clbd Files|clbd*.*|All Files(*.*)|*.*|"},
    {2222, loadAuction, LoadVariant::auctionRejectedEntitlements, "LOAD AUCTION FILE",
     "Entl Files|entl*.*|All Files(*.*)|*.*|"},
    {3333, loadBrokerQuery, LoadVariant::standard, "LOAD BROKER QUERY FILE",
     "BrkQry Files(Br*.bin)|Br*.BIN|BrkQry Files(Br*.Sbin)|Br*.SBIN| All Files(*.*)|*.*|"},
    {4050, loadOrderLog, LoadVariant::standard, "LOAD ORDERLOG FILE ",
     "Or Files(Or*.*)|Or*.*|Consolidated Order Files(Boddmmyy.BIN)|Bo*.bin|SOr Files(SOr*."
     "*)|SOr*.*|Consolidated Order Files(SBoddmmyy.BIN)|SBo*.bin|"},
    {5050, loadQuoteLog, LoadVariant::standard, "LOAD QUOTELOG FILE ",
     "Qo Files(Qo*.*)|Qo*.*|"},
    {6060, loadAdminLog, LoadVariant::standard, "LOAD ADMIN LOG FILE",
     "AdminLog Files (Ad*.adl)|Ad*.adl|SAdminLog Files (SAd*.adl)|SAd*.adl|"},
    {7021, loadSlbPosition, LoadVariant::standard, "LOAD TRADE FILE",
     "STr Files(Strddmmyy.BNN)|STR*.B*|SOrd Files(*.Sord) |*.Sord|All Files(*.*)|*.*|"},
};
// clang-format on

// Runs one request from a form, with these commands ahead of it; gives the line of the dialog.
static std::string dialogOf(int request, LoadVariant variant, std::string& path, const std::string& commands = {}) {
  const ScriptResult result = runForm(commands + "tool PRNTRPT\npress 1015\n", [&](const FormEvent& event) {
    if (event.kind == FormEventKind::press) loadFile(request, variant, event.form, path);
  });
  for (const std::string& line : splitLines(result.transcript)) {
    if (line.starts_with("{\"files\":")) return line;
  }
  return {};
}

// The line that a dialog with this title and these masks is written as.
static std::string lineOf(const RequestCase& row, int selected) {
  std::string masks, list = row.masks;
  while (!list.empty()) {
    std::string pieces[2];
    for (std::string& piece : pieces) {
      piece = list.substr(0, list.find('|'));
      list.erase(0, piece.size() + 1);
    }
    masks += (masks.empty() ? "[\"" : ",[\"") + pieces[0] + "\",\"" + pieces[1] + "\"]";
  }
  return "{\"files\":{\"title\":\"" + std::string(row.title) + "\",\"folder\":\"export\",\"masks\":[" + masks +
         "],\"selected\":" + std::to_string(selected) + ",\"answer\":null}}";
}

TEST(LoadFile, everyRequestHasItsTitleAndMasks) {
  EXPECT_EQ(std::size(requests), 27u);
  for (const RequestCase& row : requests) {
    EXPECT_EQ(row.request, row.number);
    const bool none = row.variant == LoadVariant::auctionBdaDetails || row.variant == LoadVariant::auctionRejectedEntitlements;
    std::string path;
    EXPECT_EQ(dialogOf(row.request, row.variant, path), lineOf(row, none ? 0 : 1)) << row.number;
    EXPECT_EQ(path, "");
  }
}

TEST(LoadFile, dialogBeginsWithTheCallersFileAndLeavesItOnCancel) {
  for (const RequestCase& row : requests) {
    std::string path = "export/TR010109.B01";
    const std::string line = dialogOf(row.request, row.variant, path);
    EXPECT_TRUE(line.ends_with(R"(,"name":"TR010109.B01","answer":null}})")) << line;
    EXPECT_EQ(path, "export/TR010109.B01");
  }
}

TEST(LoadFile, masksThatCannotBeLoadedAreToldAndLeaveThePath) {
  for (const RequestCase& row : requests) {
    fileSelection = {};
    std::string path = "export/TR010109.B01";
    const ScriptResult result = runForm("tool PRNTRPT\nfail string\npress 1015\n", [&](const FormEvent& event) {
      if (event.kind == FormEventKind::press) loadFile(row.request, row.variant, event.form, path);
    });
    const std::string told = row.request == loadAdminLog ? "Load String Failed" : "LoadString Failed";
    EXPECT_NE(result.transcript.find(R"({"box":{"title":null,"text":")" + told + R"(","icon":"error")"), std::string::npos);
    EXPECT_EQ(result.transcript.find("{\"files\":"), std::string::npos) << row.number;
    EXPECT_EQ(path, "export/TR010109.B01");
    EXPECT_TRUE(fileSelection.fileChosen);
  }
}

TEST(LoadFile, codeThatIsNotInTheTableGoesOnWithoutMasks) {
  std::string path;
  EXPECT_EQ(dialogOf(1, LoadVariant::standard, path), lineOf({1, 1, LoadVariant::standard, "", ""}, 1));
}

class LoadFileInFolder : public InFreshFolder {};

TEST_F(LoadFileInFolder, chosenFileGivesPathTitleAndFlags) {
  std::filesystem::create_directory("export");
  std::ofstream("export/STR010109.B01") << "x";
  fileSelection = {};
  std::string path;
  dialogOf(loadTrades, LoadVariant::standard, path, "choose export/STR010109.B01\n");
  EXPECT_TRUE(fileSelection.fileChosen);
  EXPECT_TRUE(fileSelection.isLendingFile);
  EXPECT_EQ(fileSelection.fileTitle, "STR010109.B01");
  EXPECT_TRUE(path.ends_with("STR010109.B01") && path.size() > std::string("export/STR010109.B01").size()) << path;
}

TEST(LoadFile, cancelOnTradesForgetsTheLendingMarketAndOthersKeepIt) {
  for (const RequestCase& row : requests) {
    fileSelection = {.fileChosen = true, .isLendingFile = true, .isLendingAuctionFile = true, .fileTitle = "STR010109.B01"};
    std::string path;
    dialogOf(row.request, row.variant, path);
    EXPECT_FALSE(fileSelection.fileChosen) << row.number;
    EXPECT_EQ(fileSelection.isLendingFile, row.request != loadTrades) << row.number;
    EXPECT_TRUE(fileSelection.isLendingAuctionFile) << row.number;
    EXPECT_EQ(fileSelection.fileTitle, "") << row.number;
  }
}

TEST(FileMasks, areThoseOfTheDialog) {
  const std::vector<FileMask> masks = fileMasks(loadTrades, LoadVariant::oddLot);
  ASSERT_EQ(masks.size(), 3u);
  EXPECT_EQ(masks[0].name, "To Files(Toddmmyy.BNN)");
  EXPECT_EQ(masks[0].pattern, "TO*.B*");
  EXPECT_EQ(masks[2].pattern, "*.*");
  EXPECT_TRUE(fileMasks(loadTrades, LoadVariant::nonUpdatable).empty());  // no such request
}

}  // namespace quillon::test
