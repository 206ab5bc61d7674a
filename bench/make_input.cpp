// Makes a trade file for the measure: a busy day of one member, the same bytes for the same arguments on every machine.
// Usage: make_input 132|144 RECORDS CLIENTS SEED FILE
//
// Trades come in the order of their time; scrips and clients are drawn with a few much busier than the rest, as on a
// real day. All are regular market-lot trades, dated after the cut-over.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "trades/trade_file.h"

using namespace quillon;

static std::uint64_t randomState;

// SplitMix64: one line a step, and the same everywhere.
static std::uint64_t randomBits() {
  std::uint64_t z = randomState += 0x9e3779b97f4a7c15u;
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
  return z ^ (z >> 31);
}

static int randomBelow(int limit) { return static_cast<int>((randomBits() >> 33) % static_cast<std::uint64_t>(limit)); }

// Half of the draws fall on the first tenth.
static int randomSkewed(int limit) { return randomBelow(2) ? randomBelow(limit) : randomBelow(limit / 10 + 1); }

template <std::size_t N, typename... Numbers>
static void setText(TextField<N>& field, const char* format, Numbers... numbers) {
  char text[64];
  std::snprintf(text, sizeof text, format, numbers...);
  fieldSet(field, text);
}

// What both record sizes share. `at` runs from 0 to 1 over the day.
template <typename Record>
static void fillTrade(Record& trade, int index, double at, int clients) {
  static constexpr const char* clientTypes[] = {"CLIENT", "CLIENT_SD", "OWN", "INST", "NRI"};
  const int scrip = randomSkewed(4000);
  const int client = randomSkewed(clients);
  const int second = 9 * 3600 + 15 * 60 + static_cast<int>(at * (6 * 3600 + 15 * 60));
  trade.scripCode = 500000 + scrip * 7;
  setText(trade.scripId, "SCRIP%d", scrip * 7919 % 100003);
  trade.trdId = index + 1;
  trade.rate = 100 + randomBelow(randomBelow(4) ? 99900 : 9999900);
  trade.qty = 1 + randomBelow(randomBelow(8) ? 500 : 100000);
  trade.brokerId = 101;
  trade.traderId = 1 + randomBelow(40);
  setText(trade.time, "%02d:%02d:%02d", second / 3600, second / 60 % 60, second % 60);
  setText(trade.date, "01/06/2010");
  setText(trade.clientId, "C%07d", client * 179 % 9999991);
  trade.side = randomBelow(2) ? 'B' : 'S';
  trade.tradeType = "LHMTQPBK"[randomBelow(8)];
  trade.trnId = 10000000000 + static_cast<std::int64_t>(index) * 17 + randomBelow(17);
  setText(trade.cliTyp, "%s", clientTypes[randomBelow(5)]);
}

static bool writeFile(std::FILE* file, char kind, const std::vector<char>& records) {
  TradeHeader header{};
  header.fileKind = kind;
  header.kind = 'T';
  header.memberId = 101;
  header.traderId = 7;
  header.day = 1;
  header.month = 6;
  header.century = 20;
  header.year = 10;
  header.hour = 15;
  header.minute = 45;
  return std::fwrite(&header, sizeof header, 1, file) == 1 &&
         std::fwrite(records.data(), 1, records.size(), file) == records.size();
}

int main(int argc, char** argv) {
  if (argc != 6) {
    std::fputs("usage: make_input 132|144 RECORDS CLIENTS SEED FILE\n", stderr);
    return 2;
  }
  const bool isShort = std::strcmp(argv[1], "132") == 0;
  const int count = std::atoi(argv[2]);
  const int clients = std::atoi(argv[3]);
  randomState = std::strtoull(argv[4], nullptr, 10);
  const std::size_t size = isShort ? sizeof(TradeRec132) : sizeof(TradeRec144);
  std::vector<char> records(static_cast<std::size_t>(count) * size);
  for (int i = 0; i < count; ++i) {
    char* place = records.data() + static_cast<std::size_t>(i) * size;
    const double at = static_cast<double>(i) / count;
    if (isShort) {
      TradeRec132 trade{};
      fillTrade(trade, i, at, clients);
      std::memcpy(place, &trade, size);
    } else {
      TradeRec144 trade{};
      fillTrade(trade, i, at, clients);
      setText(trade.orderTimeStamp, "01/06/2010 %s", trade.time.bytes);
      setText(trade.scGr, "%c", "ABT"[randomBelow(3)]);
      trade.settlementYear = 1011;
      trade.settlementNo = 42;
      std::memcpy(place, &trade, size);
    }
  }
  std::FILE* file = std::fopen(argv[5], "wb");
  if (!file) {
    std::perror(argv[5]);
    return 1;
  }
  const bool written = writeFile(file, isShort ? 'N' : 'V', records);
  if (std::fclose(file) != 0 || !written) {
    std::perror(argv[5]);
    return 1;
  }
  return 0;
}
