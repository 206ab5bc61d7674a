// The statements of the approved pages: what goes in, each under the name of its page.
#pragma once

#include <climits>
#include <string>
#include <vector>

#include "auction/auction_page.h"
#include "auction_records.h"

namespace quillon::test {

constexpr AuctionMarket exchangeMarket = {false, false};
constexpr AuctionMarket lendingAuction = {true, true};
constexpr AuctionMarket lendingOnly = {true, false};

struct OfferCase {
  const char* name;
  AuctionHeader header;
  AuctionMarket market;
  unsigned linesPerPage;
  AuctionSort sort;
  std::vector<Offer> offers;
};

struct MoneyCase {
  const char* name;
  AuctionHeader header;
  AuctionMarket market;
  unsigned linesPerPage;
  AuctionSort sort;
  std::vector<Entry> entries;
  std::vector<Offer> offers;
};

// Two scrips at several rates, so that one goes on over the end of a page of three; the first offer has no code.
inline std::vector<Offer> ordinaryOffers() {
  return {
      {0, "NOCODE", 1000, 1100, 0, 10, 1050, 10, 10500, "R0001", "P"},
      {590011, "SAHYACEM", 61280, 62000, 0, 250, 61900, 250, 15475000, "R1042", "C"},
      {590004, "KAVERIPUMP", 18435, 19500, 20000, 100, 19050, 60, 1143000, "R1042", "C"},
      {590004, "KAVERIPUMP", 18435, 19500, 20000, 75, 18900, 75, 1417500, "OWN", "N"},
      {590004, "KAVERIPUMP", 18435, 19500, 20000, 40, 19600, 0, 0, "MFGROWTH", "X"},
      {590011, "SAHYACEM", 61280, 62000, 0, 50, 61850, 20, 1237000, "K0071", "C"},
      {590011, "SAHYACEM", 61280, 62000, 0, 5, 62500, 0, 0, "R2090", "C"},
  };
}

inline std::vector<Offer> narrowOffers() {
  return {
      {7, "AB", 5, 123, 45678, 9, 101, 8, 808, "C1", "C"},
      {7, "AB", 5, 123, 45678, 1, 99, 0, 0, "C22", "N"},
      {12, "XYZ", 100, 200, 300, 123, 250, 120, 3000000.5, "R", "P"},
  };
}

inline std::vector<Offer> wideOffers() {
  return {
      {INT_MAX, "THIRTEENCHARS", INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX, 1e17, "CLIENT-ELEV", "X"},
      {INT_MAX, "THIRTEENCHARS", INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX, -1e17, "CLIENT-ELEV", "X"},
      {INT_MIN, "THIRTEENCHARS", INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, -1234567890123.0, "CLIENT-ELEV", "X"},
  };
}

inline AuctionHeader narrowHeader(std::string_view notice) { return auctionHeader(notice, "ACE", 5, 3, 7); }

inline AuctionHeader wideHeader(std::string_view notice) {
  return auctionHeader(notice, "A MEMBER WHOSE NAME HAS FORTY-ONE LETTERS", INT_MAX, 32767, 32767);
}

inline std::vector<OfferCase> offerCases() {
  const AuctionHeader header = auctionHeader("A123");
  return {
      {"offers_by_name", header, exchangeMarket, 3, AuctionSort::scripName, ordinaryOffers()},
      {"offers_by_code", header, exchangeMarket, 40, AuctionSort::scripCode, ordinaryOffers()},
      {"offers_lending_auction", header, lendingAuction, 3, AuctionSort::scripName, ordinaryOffers()},
      {"offers_lending", header, lendingOnly, 4, AuctionSort::scripCode, ordinaryOffers()},
      {"offers_narrow_values", narrowHeader("X1"), exchangeMarket, 2, AuctionSort::scripName, narrowOffers()},
      {"offers_lending_narrow_values", narrowHeader("1"), lendingAuction, 2, AuctionSort::scripName, narrowOffers()},
      {"offers_wide_values", wideHeader("ELEVENCHARS"), exchangeMarket, 2, AuctionSort::scripCode, wideOffers()},
      {"offers_lending_wide_values", wideHeader("ELEVENCHARS"), lendingAuction, 2, AuctionSort::scripCode, wideOffers()},
  };
}

// Every kind of row, those of received and auctioned securities with and without a BDC number or as debit and as credit.
// Nine received, four auctioned, three offers, six entitlements; two types belong to no section.
inline std::vector<Entry> everyEntry() {
  return {
      {"DI", 590004, "KAVERIPUMP", 12, 100, 0, 0, 0, 250, 5, 0, 0, 0, 450701},
      {"B", 590023, "NILGRITEA", 12, 500, 4710, 5000, 0, 25000, 50, 0, 0, 0, 0},
      {"O", 590038, "ORBITWIRE", 12, 60, 132855, 0, 132000, 0, 0, 79200, 25, 0, 0},
      {"D", 590042, "TARASTEEL", 14, 300, 9375, 0, 9610, 28830, 75, 0, 0, 14415, 0},
      {"CC", 590011, "SAHYACEM", 7, 40, 61280, 65000, 0, 0, 0, 26000, 0, 0, 450702},
      {"CX", 590004, "KAVERIPUMP", 12, 60, 18435, 20000, 0, 0, 0, 12000, 10, 0, 0},
      {"SD", 590071, "VASTUBANK", 12, 0, 0, 0, 0, 10, 0, 0, 0, 0, 450703},
      {"XX", 590080, "LOTUSGLASS", 1, 1, 1, 1, 1, 111, 1, 111, 1, 1, 1},
      {"B", 590004, "KAVERIPUMP", 12, 100, 18435, 20000, 0, 18435, 0, 0, 0, 0, 450704},
      {"CM", 590066, "PALMOILS", 12, 0, 0, 0, 0, 0, 0, 75, 50, 0, 450705},
      {"DX", 590057, "DECCANYARN", 14, 1000, 2140, 0, 2100, 0, 0, 21000, 0, 2100, 0},
      {"C", 590080, "LOTUSGLASS", 7, 2500, 865, 910, 0, 0, 0, 22750, 99, 0, 450706},
      {"CC", 590071, "VASTUBANK", 7, 5, 204590, 210000, 0, 0, 0, 10500, 5, 0, 0},
      {"CB", 590038, "ORBITWIRE", 12, 0, 0, 0, 0, 0, 0, 1320, 0, 0, 450707},
      {"D", 590057, "DECCANYARN", 14, 200, 2140, 0, 2225, 4450, 0, 0, 0, 445, 0},
      {"OX", 590011, "SAHYACEM", 12, 10, 61280, 0, 61500, 0, 0, 6150, 5, 0, 0},
      {"RR", 590042, "TARASTEEL", 12, 0, 0, 0, 0, 333, 33, 0, 0, 0, 450708},
      {"B", 590066, "PALMOILS", 9, 20, 25600, 27000, 0, 5120, 0, 0, 0, 0, 450709},
      {"OT", 590023, "NILGRITEA", 12, 0, 0, 0, 0, 1, 1, 2, 2, 0, 450710},
      {"b", 590080, "LOTUSGLASS", 1, 1, 1, 1, 1, 111, 1, 111, 1, 1, 1},
      {"C", 590023, "NILGRITEA", 7, 75, 4710, 5000, 0, 0, 0, 3750, 0, 0, 0},
      {"D", 590004, "KAVERIPUMP", 14, 150, 18435, 0, 19050, 28575, 0, 0, 0, 14288, 0},
      {"O", 590004, "KAVERIPUMP", 12, 30, 18435, 0, 19050, 0, 0, 5715, 0, 0, 0},
      {"B", 590038, "ORBITWIRE", 9, 15, 132855, 140000, 0, 19928, 25, 0, 0, 0, 0},
  };
}

// The received side alone outweighs the rest, so that the member gets money.
inline std::vector<Entry> mostlyReceived() {
  return {
      {"CC", 590011, "SAHYACEM", 7, 40, 61280, 65000, 0, 0, 0, 26000, 0, 0, 450702},
      {"C", 590004, "KAVERIPUMP", 12, 60, 18435, 20000, 0, 0, 0, 12000, 10, 0, 0},
      {"B", 590004, "KAVERIPUMP", 12, 100, 18435, 20000, 0, 18435, 0, 0, 0, 0, 450704},
      {"D", 590057, "DECCANYARN", 14, 1000, 2140, 0, 2100, 0, 0, 21000, 0, 2100, 0},
      {"D", 590042, "TARASTEEL", 14, 30, 9375, 0, 9610, 2883, 0, 0, 0, 1442, 0},
      {"DI", 590004, "KAVERIPUMP", 12, 100, 0, 0, 0, 250, 5, 900, 0, 0, 450701},
  };
}

// A debit as buyer and a credit as seller, each on a page that it fills to the last row.
inline std::vector<Entry> mostlyBought() {
  return {
      {"B", 590023, "NILGRITEA", 12, 500, 4710, 5000, 0, 25000, 50, 0, 0, 0, 0},
      {"D", 590057, "DECCANYARN", 14, 1000, 2140, 0, 2100, 0, 0, 210, 5, 2100, 0},
  };
}

// Received rows and an auctioned one that both fill a page of two; the offers behind them have no page.
inline std::vector<Entry> pagesFullWhereSectionsEnd() {
  return {
      {"B", 590004, "KAVERIPUMP", 12, 100, 18435, 20000, 0, 18435, 0, 0, 0, 0, 0},
      {"C", 590011, "SAHYACEM", 7, 40, 61280, 65000, 0, 0, 0, 18435, 0, 0, 0},
      {"D", 590042, "TARASTEEL", 14, 300, 9375, 0, 9610, 28830, 0, 0, 0, 0, 0},
      {"D", 590057, "DECCANYARN", 14, 200, 2140, 0, 2225, 0, 0, 28830, 0, 0, 0},
      {"O", 590038, "ORBITWIRE", 12, 60, 132855, 0, 132000, 0, 0, 0, 0, 0, 0},
  };
}

inline std::vector<Entry> narrowEntries() {
  return {
      {"CC", 7, "AB", 1, 2, 5, 101, 0, 0, 0, 3, 4, 0, 102},    {"CC", 8, "C", 1, 2, 99, 100, 0, 0, 0, 3, 40, 0, 0},
      {"B", 9, "DE", 3, 12, 150, 5, 0, 7, 8, 0, 0, 0, 310},    {"B", 12, "DEF", 3, 12, 150, 5, 0, 70, 80, 0, 0, 0, 0},
      {"C", 123, "GH", 4, 100, 1, 23, 0, 0, 0, 9, 1, 0, 99},   {"C", 1, "G", 4, 100, 1, 23, 0, 0, 0, 99, 11, 0, 0},
      {"D", 5, "IJ", 6, 7, 8, 0, 110, 4, 2, 0, 0, 3, 0},       {"D", 55, "IJK", 66, 77, 888, 0, 9, 0, 0, 6, 7, 101, 0},
      {"O", 5, "IJ", 6, 7, 8, 0, 110, 0, 0, 1, 5, 0, 0},       {"OT", 5, "IJ", 6, 7, 8, 0, 110, 8, 9, 1, 2, 3, 4},
      {"RR", 5, "IJ", 6, 7, 8, 0, 110, 0, 50, 21, 32, 3, 506},
  };
}

// Values beyond their cells. Paise below nothing carry their sign into the fraction, as they do on the workstation.
inline std::vector<Entry> wideEntries() {
  constexpr std::string_view name = "TWELVELETTER";
  constexpr std::int32_t high = INT_MAX, low = INT_MIN;
  return {
      {"CC", high, name, high, high, high, high, high, high, 32767, high, 32767, high, high},
      {"CC", low, name, low, low, low, low, low, low, -32768, low, -32768, low, 0},
      {"B", high, name, high, high, -50, -150, high, high, 32767, high, 32767, high, low},
      {"B", low, name, low, low, low, low, low, low, -32768, low, -32768, low, 0},
      {"C", high, name, high, high, high, high, high, high, 32767, high, 32767, high, -5},
      {"C", low, name, low, low, low, low, low, low, -32768, low, -32768, low, 0},
      {"D", high, name, high, high, high, high, high, high, 32767, high, 32767, high, high},
      {"D", low, name, low, low, low, low, low, low, -32768, low, -32768, low, low},
      {"D", low, name, low, low, -1, low, -99, low, 1, low, -32768, -101, low},
      {"O", low, name, low, low, low, low, low, low, -32768, low, -32768, low, low},
      {"DI", high, name, high, high, high, high, high, high, 32767, high, 32767, high, high},
      {"CB", low, name, low, low, low, low, low, low, -32768, low, -32768, low, low},
  };
}

inline std::vector<Entry> offersOnly() {
  return {
      {"O", 590038, "ORBITWIRE", 12, 60, 132855, 0, 132000, 0, 0, 79200, 25, 0, 0},
      {"OX", 590011, "SAHYACEM", 12, 10, 61280, 0, 61500, 0, 0, 6150, 5, 0, 0},
  };
}

inline std::vector<Entry> offersThenEntitlements() {
  std::vector<Entry> entries = offersOnly();
  entries.push_back({"DI", 590004, "KAVERIPUMP", 12, 100, 0, 0, 0, 250, 5, 0, 0, 0, 450701});
  return entries;
}

inline std::vector<MoneyCase> moneyCases() {
  const AuctionHeader ordinary = auctionHeader("A123"), special = auctionHeader("X0451"), other = auctionHeader("Y7");
  const std::vector<Offer> none;
  constexpr AuctionSort byName = AuctionSort::scripName, byCode = AuctionSort::scripCode;
  return {
      {"money_ordinary", ordinary, exchangeMarket, 4, byName, everyEntry(), ordinaryOffers()},
      {"money_special", special, exchangeMarket, 5, byCode, everyEntry(), ordinaryOffers()},
      {"money_special_to_receive", other, exchangeMarket, 40, byName, mostlyReceived(), none},
      {"money_lending_auction", ordinary, lendingAuction, 4, byName, everyEntry(), ordinaryOffers()},
      {"money_lending_special", special, lendingAuction, 40, byName, mostlyReceived(), ordinaryOffers()},
      {"money_lending", ordinary, lendingOnly, 40, byCode, everyEntry(), ordinaryOffers()},
      {"money_to_pay", ordinary, exchangeMarket, 1, byName, mostlyBought(), none},
      {"money_lending_to_pay", special, lendingAuction, 1, byName, mostlyBought(), none},
      {"money_full_pages", ordinary, exchangeMarket, 2, byName, pagesFullWhereSectionsEnd(), ordinaryOffers()},
      {"money_narrow_values", narrowHeader("1"), exchangeMarket, 3, byName, narrowEntries(), narrowOffers()},
      {"money_special_narrow_values", narrowHeader("X"), exchangeMarket, 40, byName, narrowEntries(), narrowOffers()},
      {"money_lending_narrow_values", narrowHeader("S2"), lendingAuction, 40, byName, narrowEntries(), narrowOffers()},
      {"money_wide_values", wideHeader("ELEVENCHARS"), exchangeMarket, 40, byName, wideEntries(), wideOffers()},
      {"money_special_wide_values", wideHeader("XLEVENCHARS"), exchangeMarket, 3, byCode, wideEntries(), wideOffers()},
      {"money_lending_wide_values", wideHeader("ELEVENCHARS"), lendingAuction, 40, byName, wideEntries(), wideOffers()},
      {"money_offers_only", ordinary, exchangeMarket, 40, byName, offersOnly(), ordinaryOffers()},
      {"money_offers_then_entitlements", special, exchangeMarket, 40, byName, offersThenEntitlements(), none},
      {"money_no_section", ordinary, exchangeMarket, 40, byName, {{"XX"}, {"A"}}, none},
  };
}

}  // namespace quillon::test
