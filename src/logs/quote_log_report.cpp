#include "logs/quote_log_report.h"

#include <string_view>

#include "logs/log_codes.h"
#include "logs/log_page.h"
#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;
static constexpr std::size_t messageColumn = 24;

// clang-format off

static void printRule(Output& out) {
  print<"%1c%8s%1c%11s%1c%3s%1c%9s%1c%9s%1c%8s%1c%11s%1c%10s%1c%8s%1c%18s%1c%1s%1c%24s%1c\n">(out, '|', logRule(8), '|',
      logRule(11), '|', logRule(3), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(11), '|', logRule(10),
      '|', logRule(8), '|', logRule(18), '|', logRule(1), '|', logRule(24), '|');
}

// The top rule's text is one character wider than its cell, so that its last blank stands at the end of the line.
static constexpr std::string_view topRule = " ____________________________________________________________________"
                                            "________________________________________________________________ ";
static_assert(topRule.size() == 134);

static void printHeading(Output& out, const TradeHeader& header, bool isLendingFile, int page) {
  const auto date = formatCell<"%02d/%02d/%02d%02d">(header.day, header.month, header.century, header.year);
  print<"%85s%42s%2d\n">(out, logExchangeLine(isLendingFile), "Page:", page);
  print<"%10s%7ld\n">(out, "Broker Id. :", header.memberId);
  print<"%10s%7ld\n">(out, "Trader Id. :", header.traderId);
  print<"%82s%10s\n">(out, "LIST OF QUOTES ENTERED ON:", date);
  print<"%-133s\n">(out, topRule);
  print<"%1c%-8s%1c%11s%1c%55s%1c%8s%1c%18s%1c%1s%1c%24s%1c\n">(out, '|', "ScripCd ", '|', " Scrip Id  ", '|',
      "Bid Part (Line -I)               Offer Part(Line -II)", '|', "  Time  ", '|', "     QuoteId      ", '|', "A", '|',
      "      Reply Message     ", '|');
  print<"%1c%8s%1c%11s%1c%55s%1c%8s%1c%18s%1c%1s%1c%24s%1c\n">(out, '|', " ", '|', " ", '|', logRule(55), '|', "", '|', "",
      '|', "U", '|', " ", '|');
  print<"%1c%8s%1c%11s%1c%3s%1c%9s%1c%9s%1c%8s%1c%11s%1c%10s%1c%8s%1c%18s%1c%1s%1c%24s%1c\n">(out, '|', " ", '|', " ", '|',
      " ", '|', "TotalQty", '|', "Rev. Qty", '|', "  Rate  ", '|', " Client-Id ", '|', "  Inst-Id ", '|', " ", '|', " ", '|',
      "D", '|', " ", '|');
  printRule(out);
}

static auto rateCell(std::int32_t rate) {
  auto cell = formatCell<"%ld">(rate);
  if (rate == 0) cell.bytes[0] = '-';
  return cell;
}

// A message that is longer than its column goes on in the offer row.
static void printQuote(Output& out, const QuoteRec& quote, char letter) {
  const SplitMessage message = splitMessage(firstLine(quote.message.view()), messageColumn);
  print<"|%8ld|%11s|%3s|%9ld|%9ld|%8s|%11s|%10s|%02d:%02d:%02d|%18I64d|%1c|%-24s|\n">(out, quote.scripCode, quote.scripId,
      "Bid", quote.bidQty, quote.bidRevQty, rateCell(quote.bidRate), quote.bidClientId, clientTypeName(quote.bidClientType),
      quote.hour, quote.minute, quote.second, quote.quoteId, letter, message.head);
  print<"|%8s|%11s|%3s|%9ld|%9ld|%8s|%11s|%10s|%8s|%18s|%1c|%-24s|\n">(out, " ", " ", "Off", quote.offerQty,
      quote.offerRevQty, rateCell(quote.offerRate), quote.offerClientId, clientTypeName(quote.offerClientType), " ", " ",
      ' ', message.rest);
  printRule(out);
}

// clang-format on

void printQuoteLog(Output& out, const TradeHeader& header, const QuoteRec* records, std::span<const std::uint32_t> order,
                   const QuoteLogOptions& options) {
  int page = 1;
  unsigned quotesOnPage = 0;
  char letter = ' ';
  printHeading(out, header, options.isLendingFile, page);
  for (const QuoteRec& quote : inOrder(records, order)) {
    if (quotesOnPage == options.quotesPerPage) {
      printRule(out);
      print<"%c">(out, formFeed);
      quotesOnPage = 0;
      ++page;
      printHeading(out, header, options.isLendingFile, page);
    }
    // A code that is none of a quote's keeps the letter of the quote before it.
    if (const char known = quoteActionLetter(quote.actionCode); known != noLetter) letter = known;
    printQuote(out, quote, letter);
    ++quotesOnPage;
  }
  if (quotesOnPage > 0 && quotesOnPage < options.quotesPerPage) printRule(out);
}

}  // namespace quillon
