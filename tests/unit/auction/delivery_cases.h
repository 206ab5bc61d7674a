// The deliveries, slips and listings of the approved pages: what goes in, each under the name of its page.
#pragma once

#include <climits>
#include <vector>

#include "auction/delivery_slips.h"
#include "delivery_records.h"
#include "statement_cases.h"

namespace quillon::test {

struct DeliveryCase {
  const char* name;
  AuctionHeader header;
  AuctionMarket market;
  unsigned linesPerPage;
  AuctionSort sort;
  std::vector<Delivery> deliveries;
};

struct SlipCase {
  const char* name;
  AuctionHeader header;
  SlipName slipName;
  std::vector<Delivery> deliveries;
};

struct CloseOutCase {
  const char* name;
  AuctionHeader header;
  AuctionMarket market;
  unsigned linesPerPage;
  std::vector<CloseOut> closeOuts;
};

struct EntitlementCase {
  const char* name;
  AuctionHeader header;
  AuctionMarket market;
  unsigned linesPerPage;
  std::vector<Entitlement> entitlements;
};

// Every kind of row: from and to members, the member itself (418), closed out and compulsorily closed out with and without a
// bank code, and one of a side that is not printed. No two have one order id, and each of the sorts has an order of its own.
inline std::vector<Delivery> everyDelivery() {
  return {
      {'O', 207, "SUNRISE BROKING", 100123, 12, 7, 250, "C", "R1042", 590011, "SAHYACEM", 61280, 0},
      {'B', 311, "ACME", 100124, 3, 14, 75, "N", "OWN", 590004, "KAVERIPUMP", 18435, 0},
      {'O', 418, "LAKEVIEW SECURITIES", 100125, 1, 12, 40, "P", "K0071", 590023, "NILGRITEA", 4710, 0},
      {'O', -2, "CLOSED OUT", 100126, 2, 0, 60, "X", "MFGROWTH", 590004, "KAVERIPUMP", 18435, 450702},
      {'O', -2, "", 100127, 2, 5, 15, "C", "R1042", 590042, "TARASTEEL", 9375, 450703},
      {'O', -3, "", 100128, 4, 0, 500, "X", "R2090", 590011, "SAHYACEM", 61280, 450704},
      {'O', -3, "HOUSE", 100129, 5, 9, 125, "C", "K0071", 590071, "VASTUBANK", 204590, 450705},
      {'X', 99, "NOBODY", 100130, 6, 9, 9999, "C", "K0071", 590001, "AAA", 100, 0},
      {'B', 418, "LAKEVIEW SECURITIES", 100121, 7, 12, 30, "C", "R1042", 590057, "DECCANYARN", 2140, 0},
      {'B', 1024, "DELTA STOCKS AND SHARES", 100122, 8, 14, 5, "P", "CORP77", 590023, "NILGRITEA", 4710, 0},
  };
}

inline std::vector<Delivery> narrowDeliveries() {
  return {
      {'O', 5, "A", 7, 1, 2, 3, "C", "R1", 8, "AB", 5, 0},      {'O', 5, "ACE", 8, 2, 3, 40, "N", "R", 9, "C", 101, 0},
      {'O', -2, "", 9, 3, 0, 5, "P", "C22", 10, "DE", 99, 0},   {'O', -2, "", 10, 4, 1, 6, "X", "C", 11, "D", 1, 0},
      {'O', -3, "", 11, 5, 0, 7, "C", "H", 12, "F", 100, 102},  {'O', -3, "", 12, 6, 1, 8, "P", "HH", 13, "G", 250, 5},
      {'B', 33, "BO", 1, 7, 4, 99, "N", "S1", 14, "IJ", 23, 0}, {'B', -2, "K", 2, 8, 0, 1, "C", "T", 15, "L", 0, 0},
  };
}

// Values beyond their cells. The numbers of the markers are what they are.
inline std::vector<Delivery> wideDeliveries() {
  constexpr std::string_view name = "FORTYONE LETTERS OF A BROKER'S FULL NAME.", scrip = "TWELVELETTER",
                             client = "CLIENTTWELVE";
  constexpr std::int32_t high = INT_MAX, low = INT_MIN;
  return {
      {'O', high, name, high, 32767, high, high, "C", client, high, scrip, high, high},
      {'O', low, name, low, -32768, low, low, "X", client, low, scrip, low, low},
      {'O', -2, name, high, 32767, high, high, "C", client, high, scrip, high, high},
      {'O', -2, name, low, -32768, 0, low, "N", client, low, scrip, low, low},
      {'O', -3, name, high, 32767, low, high, "P", client, high, scrip, high, high},
      {'O', -3, name, low, -32768, 0, low, "X", client, low, scrip, low, low},
      {'B', high, name, high, 32767, high, high, "C", client, high, scrip, high, high},
      {'B', low, name, low, -32768, low, low, "N", client, low, scrip, low, low},
  };
}

inline std::vector<DeliveryCase> deliveryCases() {
  const AuctionHeader ordinary = auctionHeader("A123"), special = auctionHeader("X0451"), other = auctionHeader("Y7");
  constexpr AuctionSort byName = AuctionSort::scripName, byCode = AuctionSort::scripCode;
  return {
      {"delivery_ordinary", ordinary, exchangeMarket, 5, byName, everyDelivery()},
      {"delivery_special", special, exchangeMarket, 4, byCode, everyDelivery()},
      {"delivery_special_one_page", other, exchangeMarket, 40, AuctionSort::memberId, everyDelivery()},
      {"delivery_by_opposite_member", ordinary, exchangeMarket, 40, AuctionSort::oppMemberId, everyDelivery()},
      {"delivery_lending_auction", ordinary, lendingAuction, 5, byName, everyDelivery()},
      {"delivery_lending", ordinary, lendingOnly, 5, byCode, everyDelivery()},
      {"delivery_lending_special", special, lendingAuction, 40, byName, everyDelivery()},
      {"delivery_one_line_a_page", ordinary, exchangeMarket, 1, byName, everyDelivery()},
      {"delivery_narrow_values", narrowHeader("1"), exchangeMarket, 5, byCode, narrowDeliveries()},
      {"delivery_special_narrow_values", narrowHeader("X"), exchangeMarket, 40, byCode, narrowDeliveries()},
      {"delivery_lending_narrow_values", narrowHeader("S2"), lendingAuction, 5, byCode, narrowDeliveries()},
      {"delivery_lending_special_narrow_values", narrowHeader("Y"), lendingAuction, 40, byCode, narrowDeliveries()},
      {"delivery_wide_values", wideHeader("ELEVENCHARS"), exchangeMarket, 5, byCode, wideDeliveries()},
      {"delivery_special_wide_values", wideHeader("XLEVENCHARS"), exchangeMarket, 40, byCode, wideDeliveries()},
      {"delivery_lending_wide_values", wideHeader("ELEVENCHARS"), lendingAuction, 5, byCode, wideDeliveries()},
      {"delivery_lending_special_wide_values", wideHeader("YLEVENCHARS"), lendingAuction, 40, byCode, wideDeliveries()},
  };
}

// As they stand in the file: what is received is not there any more and leaves empty positions at the end.
inline std::vector<SlipCase> slipCases() {
  const std::vector<Delivery> oneOfThree = {everyDelivery()[0], everyDelivery()[1], everyDelivery()[2]};
  const std::vector<Delivery> toTheBank = {
      {'B', 311, "ACME BROKING AND INVESTMENTS", 1, 3, 999, 75, "N", "OWN", 590004, "KAVERIPUMP", 18435, 0},
      {'B', 207, "SUNRISE", 2, 3, 14, 1250, "N", "OWN", 590011, "SAHYACEM", 18435, 0},
      {'B', 311, "ACME", 3, 3, 14, 80, "N", "OWN", 590023, "NILGRITEA", 18435, 0},
      {'B', 24, "DELTA", 4, 3, 999, 5, "N", "OWN", 590057, "DECCANYARN", 18435, 0},
  };
  const std::vector<Delivery> narrow = {{'B', 5, "A", 1, 3, 1, 7, "N", "OWN", 8, "B", 1, 0},
                                        {'B', 6, "CD", 1, 3, 999, 80, "N", "OWN", 90, "EF", 1, 0}};
  return {
      {"slips_ordinary", auctionHeader("A123"), {"215", "01-06-2009"}, everyDelivery()},
      {"slips_one_of_three", auctionHeader("A123"), {"215", "01-06-2009"}, oneOfThree},
      {"slips_bank_codes", auctionHeader("A123"), {"215", "01-06-2009"}, toTheBank},
      {"slips_nothing_to_deliver", auctionHeader("A123"), {"215", "01-06-2009"}, {everyDelivery()[0], everyDelivery()[2]}},
      {"slips_narrow_values", narrowHeader("1"), {"7", "1--2009"}, narrow},
      {"slips_wide_values", wideHeader("ELEVENCHARS"), {"WIDE", "01-06-20099"}, wideDeliveries()},
  };
}

inline std::vector<CloseOut> ordinaryCloseOuts() {
  return {
      {590011, 450702, 500, 440, 60, 65000, 61280, 3900000}, {590004, 450703, 100, 0, 100, 20000, 0, 2000005},
      {590042, 450704, 75, 70, 5, 9999, 9375, 49995},        {590001, 450705, 12, 11, 1, 105, 99, 105},
      {590071, 450706, 1, 0, 1, 214820, 0, 214820},
  };
}

inline std::vector<CloseOutCase> closeOutCases() {
  constexpr std::int32_t high = INT_MAX, low = INT_MIN;
  const std::vector<CloseOut> narrow = {{7, 1, 2, 3, 4, 5, 110, 99}, {8, 12, 5, 4, 1, 100, 9, 101}, {9, 0, 0, 0, 0, 0, 0, 0}};
  const std::vector<CloseOut> wide = {{high, high, high, high, high, high, high, high},
                                      {low, low, low, low, low, low, low, low},
                                      {-1, -1, -1, -1, -1, -1, -150, -99}};
  return {
      {"bda_ordinary", auctionHeader("A123"), exchangeMarket, 2, ordinaryCloseOuts()},
      {"bda_full_page", auctionHeader("X0451"), exchangeMarket, 5, ordinaryCloseOuts()},
      {"bda_lending", auctionHeader("A123"), lendingOnly, 4, ordinaryCloseOuts()},
      {"bda_narrow_values", narrowHeader("1"), exchangeMarket, 2, narrow},
      {"bda_wide_values", wideHeader("ELEVENCHARS"), exchangeMarket, 2, wide},
  };
}

// Grouped as the workstation writes them, three of each reason but the third.
inline std::vector<Entitlement> ordinaryEntitlements() {
  return {
      {1, 'B', 590011, "SAHYACEM", 207, "SUNRISE BROKING", 450702, "DI", 61280, 65000},
      {1, 'S', 590004, "KAVERIPUMP", 311, "ACME", 450703, "CB", 18435, 105},
      {1, 'B', 590023, "NILGRITEA", 1024, "DELTA STOCKS AND SHARES", 450704, "RR", 4710, 4800},
      {2, 'S', 590042, "TARASTEEL", 207, "SUNRISE BROKING", 450705, "CM", 9375, 0},
      {2, 'B', 590057, "DECCANYARN", 311, "ACME", 450706, "OT", 2140, 0},
      {2, 'B', 590066, "PALMOILS", 311, "ACME", 450707, "SD", 25600, 0},
      {3, 'S', 590071, "VASTUBANK", 1024, "DELTA STOCKS AND SHARES", 450708, "DI", 204590, 0},
      {4, 'B', 590080, "LOTUSGLASS", 207, "SUNRISE BROKING", 450709, "DI", 865, 0},
      {4, 'S', 590038, "ORBITWIRE", 311, "ACME", 450710, "CB", 132855, 0},
      {4, 'B', 590011, "SAHYACEM", 311, "ACME", 450711, "RR", 61280, 0},
  };
}

// Not grouped, and with reasons that are not known between them.
inline std::vector<Entitlement> strayEntitlements() {
  std::vector<Entitlement> entitlements = {ordinaryEntitlements()[0], ordinaryEntitlements()[3], ordinaryEntitlements()[1]};
  for (std::int16_t reason : {std::int16_t{0}, std::int16_t{5}, std::int16_t{5}, std::int16_t{-1}}) {
    entitlements.push_back(ordinaryEntitlements()[6]);
    entitlements.back().reason = reason;
  }
  entitlements.push_back(ordinaryEntitlements()[7]);
  return entitlements;
}

inline std::vector<EntitlementCase> entitlementCases() {
  constexpr std::string_view scrip = "THIRTEENCHARS", member = "A MEMBER WHOSE NAME HAS FORTY-ONE LETTERS";
  constexpr std::int32_t high = INT_MAX, low = INT_MIN;
  const std::vector<Entitlement> narrow = {
      {1, 'B', 7, "A", 5, "ACE", 1, "D", 5, 110},  {1, 'S', 8, "BC", 66, "B", 22, "R", 99, 7},
      {1, 'B', 9, "D", 6, "C", 3, "OT", 100, 101}, {2, 'S', 10, "E", 7, "DE", 4, "D", 1, 2},
      {3, 'B', 11, "F", 8, "F", 5, "E", 1, 2},     {4, ' ', 12, "G", 9, "GH", 6, "F", 1, 2}};
  const std::vector<Entitlement> wide = {{1, '*', high, scrip, high, member, high, "TYP", high, high},
                                         {1, '?', low, scrip, low, member, low, "TYP", low, low},
                                         {1, 'B', -1, scrip, -1, member, -1, "TYP", -150, -99},
                                         {2, 'B', high, scrip, high, member, high, "TYP", high, high},
                                         {3, 'S', low, scrip, low, member, low, "TYP", low, low},
                                         {4, 'B', high, scrip, high, member, high, "TYP", high, high}};
  return {
      {"entitlements_ordinary", auctionHeader("A123"), exchangeMarket, 2, ordinaryEntitlements()},
      {"entitlements_change_on_full_page", auctionHeader("A123"), exchangeMarket, 3, ordinaryEntitlements()},
      {"entitlements_one_page_a_reason", auctionHeader("X0451"), exchangeMarket, 40, ordinaryEntitlements()},
      {"entitlements_lending", auctionHeader("A123"), lendingOnly, 4, ordinaryEntitlements()},
      {"entitlements_not_grouped", auctionHeader("A123"), exchangeMarket, 5, strayEntitlements()},
      {"entitlements_narrow_values", narrowHeader("1"), exchangeMarket, 2, narrow},
      {"entitlements_wide_values", wideHeader("ELEVENCHARS"), exchangeMarket, 40, wide},
  };
}

}  // namespace quillon::test
