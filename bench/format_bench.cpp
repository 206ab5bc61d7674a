// Formatting alone: rows of the commonest reports by print and by snprintf with the same format, and delimited lines by the
// piece reader and scan against fgets and sscanf. bench/compare turns the times into ratios.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "text/input.h"
#include "text/print.h"
#include "text/scan.h"

namespace {

using namespace quillon;

constexpr std::size_t rowCount = 4096;

std::uint64_t randomState = 18;
std::uint64_t randomNumber(std::uint64_t below) {
  randomState = randomState * 6364136223846793005u + 1442695040888963407u;
  return (randomState >> 33) % below;
}

template <std::size_t N>
void setText(TextField<N>& field, const char* stem, std::uint64_t number) {
  char text[32];
  std::snprintf(text, sizeof text, "%s%u", stem, static_cast<unsigned>(number));
  fieldSet(field, text);
}

#pragma pack(push, 1)
struct Trade {
  std::int32_t tradeNo;
  std::int32_t scripCode;
  TextField<12> scripId;
  char buySell;
  std::int32_t quantity;
  std::int32_t rate;
  std::int64_t orderId;
  TextField<12> clientId;
  TextField<12> time;
  std::int16_t group;
  std::int32_t trader;
};
#pragma pack(pop)

struct Position {
  TextField<12> name;
  double buy;
  double sell;
  double net;
};

std::vector<Trade> makeTrades() {
  std::vector<Trade> trades(rowCount);
  for (Trade& trade : trades) {
    trade = {};
    trade.tradeNo = static_cast<std::int32_t>(randomNumber(900000));
    trade.scripCode = static_cast<std::int32_t>(500000 + randomNumber(40000));
    setText(trade.scripId, "SCRIP", randomNumber(90000));
    trade.buySell = randomNumber(2) ? 'B' : 'S';
    trade.quantity = static_cast<std::int32_t>(1 + randomNumber(5000));
    trade.rate = static_cast<std::int32_t>(1000 + randomNumber(500000));
    trade.orderId = static_cast<std::int64_t>(1000000000000 + randomNumber(2000000000));
    setText(trade.clientId, "CL", randomNumber(99999));
    fieldSet(trade.time, "10:15:32");
    trade.trader = static_cast<std::int32_t>(randomNumber(400));
  }
  return trades;
}

std::vector<Position> makePositions() {
  std::vector<Position> positions(rowCount);
  for (Position& position : positions) {
    setText(position.name, "CLIENT", randomNumber(99999));
    position.buy = static_cast<double>(randomNumber(2000000000)) / 100.0;
    position.sell = static_cast<double>(randomNumber(2000000000)) / 100.0;
    position.net = position.buy - position.sell;
  }
  return positions;
}

// Runs `row` over all records into one output that is emptied each time around.
template <class Record, class Row>
void byPrint(benchmark::State& state, const std::vector<Record>& records, Row row) {
  std::string text;
  text.reserve(16 * 1024 * 1024);
  Output* output = outputToMemory(&text);
  for (auto _ : state) {
    text.clear();
    for (const Record& record : records) row(*output, record);
    outputFlush(*output);
    benchmark::DoNotOptimize(text.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records.size()));
  if (!outputClose(output)) state.SkipWithError("the rows could not be written");
}

template <class Record, class Row>
void bySnprintf(benchmark::State& state, const std::vector<Record>& records, Row row) {
  std::vector<char> text(rowCount * 512);
  for (auto _ : state) {
    char* to = text.data();
    for (const Record& record : records) to += row(to, record);
    benchmark::DoNotOptimize(text.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records.size()));
}

// The widths of a text field in C's form: no more than the field holds.
#define FIELD(f) static_cast<int>((f).view().size()), (f).bytes

void tradesRowByPrint(benchmark::State& state) {
  byPrint(state, makeTrades(), [](Output& out, const Trade& t) {
    print<"%1c%6ld%1c%11s%1c%1c%1c%9ld%1c%10.2f%1c%18I64d%1c%11s%1c%12s%1c%4ld%1c%4ld%1c%6ld%1c\n">(
        out, '|', t.scripCode, '|', t.scripId, '|', t.buySell, '|', t.quantity, '|', t.rate / 100.0, '|', t.orderId, '|',
        t.clientId, '|', t.time, '|', t.group, '|', t.trader, '|', t.tradeNo, '|');
  });
}

void tradesRowBySnprintf(benchmark::State& state) {
  bySnprintf(state, makeTrades(), [](char* to, const Trade& t) {
    return std::snprintf(to, 512, "%1c%6d%1c%11.*s%1c%1c%1c%9d%1c%10.2f%1c%18ld%1c%11.*s%1c%12.*s%1c%4d%1c%4d%1c%6d%1c\r\n",
                         '|', t.scripCode, '|', FIELD(t.scripId), '|', t.buySell, '|', t.quantity, '|', t.rate / 100.0, '|',
                         static_cast<long>(t.orderId), '|', FIELD(t.clientId), '|', FIELD(t.time), '|', t.group, '|', t.trader,
                         '|', t.tradeNo, '|');
  });
}

void positionRowByPrint(benchmark::State& state) {
  byPrint(state, makePositions(), [](Output& out, const Position& p) {
    print<"|%12s|%17.2f|%17.2f|%17.2f|\n">(out, p.name, p.buy, p.sell, p.net);
  });
}

void positionRowBySnprintf(benchmark::State& state) {
  bySnprintf(state, makePositions(), [](char* to, const Position& p) {
    return std::snprintf(to, 512, "|%12.*s|%17.2f|%17.2f|%17.2f|\r\n", FIELD(p.name), p.buy, p.sell, p.net);
  });
}

BENCHMARK(tradesRowByPrint);
BENCHMARK(tradesRowBySnprintf);
BENCHMARK(positionRowByPrint);
BENCHMARK(positionRowBySnprintf);

}  // namespace

BENCHMARK_MAIN();
