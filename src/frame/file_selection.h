// Choosing the input file: the one place where every form's Load button comes.
#pragma once

#include <string>
#include <vector>

#include "desktop/forms.h"
#include "desktop/open_dialog.h"

namespace quillon {

// What the last selection left behind, for all forms alike.
struct FileSelection {
  bool fileChosen;            // it ended with a file, not with Cancel
  bool isLendingFile;         // the file belongs to the lending market
  bool isLendingAuctionFile;  // read by the auction reports alone
  // The file's name without its folder, UTF-8 as a form's title is; edits, boxes and formats take bytesFromUtf8 of it. The form
  // blanks it once its title shows it.
  std::string fileTitle;
};
extern FileSelection fileSelection;

inline constexpr int loadNetPosition = 1111;
inline constexpr int loadTrades = 1112;
inline constexpr int loadTouchlines = 2011;
inline constexpr int loadTraderLimits = 2013;
inline constexpr int load6A7A = 2015;
inline constexpr int loadBreakup = 2017;
inline constexpr int loadConvert = 2019;
inline constexpr int loadDelivery = 2021;
inline constexpr int loadKestoTrades = 2024;
inline constexpr int loadKestoTouchlines = 2025;
inline constexpr int loadKestoBrokerQuery = 2026;
inline constexpr int loadKestoBreakup = 2027;
inline constexpr int loadKestoTraderLimits = 2028;
inline constexpr int loadKestoConvert = 2033;
inline constexpr int loadKestoNetPosition = 2046;
inline constexpr int loadAuction = 2222;
inline constexpr int loadBrokerQuery = 3333;
inline constexpr int loadOrderLog = 4050;
inline constexpr int loadQuoteLog = 5050;
inline constexpr int loadAdminLog = 6060;
inline constexpr int loadSlbPosition = 7021;

// Which masks a form with several lists wants; the others pass `standard`.
enum class LoadVariant {
  standard,  // Trades: market lot; 6A7A: updatable; Auction: money statement
  oddLot,
  nonUpdatable,
  auctionDelivery,
  auctionOfferStatus,
  auctionBdaDetails,
  auctionRejectedEntitlements,
};

// Shows the open-file dialog for a request code, beginning with the file that `path` names where it names one. With a file
// chosen, `path` becomes its full path and fileSelection is set from its name; on Cancel, and when the masks cannot be loaded,
// `path` stays as it was. `owner` is the asking form; some codes belong to the main window whoever asks.
void loadFile(int request, LoadVariant variant, FormHandle owner, std::string& path);

// The masks that loadFile shows for a request; none where there is no such request or its text is missing.
std::vector<FileMask> fileMasks(int request, LoadVariant variant);

// The flags that a file's name gives, on top of what stands in fileSelection; loadFile calls it.
void applyFileTitle(const std::string& title);

}  // namespace quillon
