#include "frame/file_selection.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "desktop/boxes.h"
#include "desktop/open_dialog.h"
#include "desktop/strings.h"

namespace quillon {

FileSelection fileSelection;

namespace {

enum class Owner { form, mainWindow };

struct LoadRequest {
  int code;
  LoadVariant variant;
  const char* title;
  int string;  // of the mask list
  Owner owner;
};

}  // namespace

// clang-format off
static constexpr LoadRequest requests[] = {
    {loadNetPosition,       LoadVariant::standard,     "LOAD TRADE FILE",                  2098, Owner::form},
    {loadTrades,            LoadVariant::standard,     "LOAD TRADE FILE",                  1141, Owner::form},
    {loadTrades,            LoadVariant::oddLot,       "LOAD TRADE FILE",                  2042, Owner::form},
    {loadTouchlines,        LoadVariant::standard,     "LOAD TOUCHLINE FILE",              2012, Owner::form},
    {loadTraderLimits,      LoadVariant::standard,     "LOAD TRADER LIMITS FILE",          2014, Owner::form},
    {load6A7A,              LoadVariant::standard,     "LOAD 6A7A REPORT ",                2016, Owner::form},
    {load6A7A,              LoadVariant::nonUpdatable, "LOAD 6A7A REPORT ",                2099, Owner::form},
    {loadBreakup,           LoadVariant::standard,     "LOAD BREAKUP DATA FILE ",          2018, Owner::form},
    {loadConvert,           LoadVariant::standard,     "LOAD FILE ",                       2020, Owner::form},
    {loadDelivery,          LoadVariant::standard,     "LOAD DELIVERY STATEMENT",          2022, Owner::form},
    {loadKestoTrades,       LoadVariant::standard,     "LOAD KESTO TRADES FILE",           2023, Owner::form},
    {loadKestoTouchlines,   LoadVariant::standard,     "LOAD KESTO TOUCHLINES FILE",       2029, Owner::mainWindow},
    {loadKestoBrokerQuery,  LoadVariant::standard,     "LOAD KESTO BROKER QUERY FILE",     2030, Owner::mainWindow},
    {loadKestoBreakup,      LoadVariant::standard,     "LOAD KESTO (R) BREAKUP DATA FILE", 2031, Owner::mainWindow},
    {loadKestoTraderLimits, LoadVariant::standard,     "LOAD KESTO TRADERS LIMIT FILE",    2032, Owner::mainWindow},
    {loadKestoConvert,      LoadVariant::standard,     "LOAD KESTO CONVERT FILE",          2034, Owner::mainWindow},
    {loadKestoNetPosition,  LoadVariant::standard,     "LOAD KESTO TRADES FILE",           2023, Owner::form},
    {loadAuction,           LoadVariant::standard,                    "LOAD AUCTION FILE", 2039, Owner::form},
    {loadAuction,           LoadVariant::auctionDelivery,             "LOAD AUCTION FILE", 2040, Owner::form},
    {loadAuction,           LoadVariant::auctionOfferStatus,          "LOAD AUCTION FILE", 2041, Owner::form},
    {loadAuction,           LoadVariant::auctionBdaDetails,           "LOAD AUCTION FILE", 2043, Owner::form},
    {loadAuction,           LoadVariant::auctionRejectedEntitlements, "LOAD AUCTION FILE", 2044, Owner::form},
    {loadBrokerQuery,       LoadVariant::standard,     "LOAD BROKER QUERY FILE",           1203, Owner::form},
    {loadOrderLog,          LoadVariant::standard,     "LOAD ORDERLOG FILE ",              2035, Owner::form},
    {loadQuoteLog,          LoadVariant::standard,     "LOAD QUOTELOG FILE ",              2037, Owner::form},
    {loadAdminLog,          LoadVariant::standard,     "LOAD ADMIN LOG FILE",              2038, Owner::form},
    {loadSlbPosition,       LoadVariant::standard,     "LOAD TRADE FILE",                  7022, Owner::form},
};

static constexpr std::string_view lendingExtensions[] = {"SORD", "SSAV", "STRD", "STSL", "SUPD", "SNUP", "SADM"};
static constexpr std::string_view normalExtensions[] = {"ORD", "SAV", "TRD", "TSL", "UPD", "NUP", "ADM"};
// clang-format on

static constexpr std::size_t maskListLimit = 700;

// The last character of the list is its separator: "name|pattern|name|pattern|".
static std::vector<FileMask> splitMasks(std::string_view list) {
  std::vector<FileMask> masks;
  if (list.empty()) return masks;
  const char separator = list.back();
  const auto takeUpToSeparator = [&list, separator] {
    const std::size_t end = std::min(list.find(separator), list.size());
    std::string piece(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
    return piece;
  };
  while (!list.empty()) {
    std::string name = takeUpToSeparator();
    std::string pattern = takeUpToSeparator();
    masks.push_back({std::move(name), std::move(pattern)});
  }
  return masks;
}

static std::string withoutFolder(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\:");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

// What stands behind the last dot, in its own case; the whole name where there is no dot.
static std::string_view extensionOf(std::string_view title) {
  const std::size_t dot = title.rfind('.');
  return dot == std::string_view::npos ? title : title.substr(dot + 1);
}

template <std::size_t N>
static bool isOneOf(std::string_view text, const std::string_view (&list)[N]) {
  return std::find(std::begin(list), std::end(list), text) != std::end(list);
}

void applyFileTitle(const std::string& title) {
  const std::string_view name = title;
  fileSelection.isLendingAuctionFile = false;
  const std::string_view extension = extensionOf(name);
  if (isOneOf(extension, lendingExtensions)) {
    fileSelection.isLendingFile = true;
  } else if (isOneOf(extension, normalExtensions)) {
    fileSelection.isLendingFile = false;
  } else {
    fileSelection.isLendingFile = name.starts_with('S');
  }

  if (extension == "SBIN") fileSelection.isLendingFile = true;
  if (extension == "BIN" && name.starts_with("SBo")) fileSelection.isLendingFile = true;
  const bool auctionName = name.starts_with("MONY") || name.starts_with("DELY") || name.starts_with("OFFS");
  if (auctionName && extension.starts_with('S')) {
    fileSelection.isLendingFile = true;
    fileSelection.isLendingAuctionFile = true;
  }
}

std::vector<FileMask> fileMasks(int request, LoadVariant variant) {
  for (const LoadRequest& row : requests) {
    if (row.code == request && row.variant == variant) return splitMasks(stringLoad(row.string, maskListLimit).value_or(""));
  }
  return {};
}

void loadFile(int request, LoadVariant variant, FormHandle owner, std::string& path) {
  fileSelection.fileTitle.clear();
  fileSelection.fileChosen = true;

  OpenDialog dialog = {};
  dialog.folder = openDialogCurrentFolder() + "\\export";
  dialog.name = path;
  dialog.selected = 1;
  if (variant == LoadVariant::auctionBdaDetails || variant == LoadVariant::auctionRejectedEntitlements) dialog.selected = 0;

  // A code that is not in the table goes on with no masks.
  std::vector<FileMask> masks;
  for (const LoadRequest& row : requests) {
    if (row.code != request || row.variant != variant) continue;
    const std::optional<std::string> list = stringLoad(row.string, maskListLimit);
    if (!list) {
      boxShow(owner, nullptr, request == loadAdminLog ? "Load String Failed" : "LoadString Failed", BoxIcon::error);
      return;
    }
    masks = splitMasks(*list);
    dialog.title = row.title;
    dialog.owner = row.owner == Owner::form ? owner : nullptr;
  }
  dialog.masks = masks;

  const std::optional<std::string> chosen = openDialogAsk(dialog);
  if (!chosen) {
    fileSelection.fileChosen = false;
    if (request == loadTrades) fileSelection.isLendingFile = false;
    return;
  }
  path = *chosen;
  fileSelection.fileTitle = withoutFolder(path);
  applyFileTitle(fileSelection.fileTitle);
}

}  // namespace quillon
