// Formatting alone: rows of the commonest reports by print and by snprintf with the same format, and delimited lines by the
// piece reader and scan against fgets and sscanf. bench/compare turns the times into ratios.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "text/input.h"
#include "text/print.h"
#include "text/scan.h"
#include "trades/trade_file.h"

namespace {

using namespace quillon;

constexpr std::size_t rowCount = 1024;
constexpr std::size_t rowRoom = 512;

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

struct Position {
  TextField<12> name;
  double buy;
  double sell;
  double net;
};

std::vector<TradeRec132> makeTrades() {
  std::vector<TradeRec132> trades(rowCount);
  for (TradeRec132& trade : trades) {
    trade = {};
    trade.scripCode = static_cast<std::int32_t>(500000 + randomNumber(40000));
    setText(trade.scripId, "SCRIP", randomNumber(9000));
    trade.trdId = static_cast<std::int32_t>(randomNumber(900000));
    trade.rate = static_cast<std::int32_t>(1000 + randomNumber(500000));
    trade.qty = static_cast<std::int32_t>(1 + randomNumber(5000));
    trade.brokerId = static_cast<std::int32_t>(randomNumber(1000));
    trade.traderId = static_cast<std::int32_t>(randomNumber(99));
    fieldSet(trade.time, "10:15:32");
    setText(trade.clientId, "CL", randomNumber(9999999));
    trade.side = 'B';
    trade.tradeType = 'L';
    trade.trnId = static_cast<std::int64_t>(randomNumber(2000000000));
    fieldSet(trade.cliTyp, randomNumber(3) ? "CLIENT" : "OWN");
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

// Runs `row` over all records into the output's buffer, which holds all the rows, as snprintf's text does.
template <class Record, class Row>
void byPrint(benchmark::State& state, const std::vector<Record>& records, Row row) {
  std::string text;
  Output* output = outputToMemory(&text);
  for (auto _ : state) {
    output->next = output->buffer;
    for (const Record& record : records) row(*output, record);
    benchmark::DoNotOptimize(output->buffer);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records.size()));
  if (!text.empty()) state.SkipWithError("the rows did not fit the buffer");
  if (!outputClose(output)) state.SkipWithError("the rows could not be written");
}

template <class Record, class Row>
void bySnprintf(benchmark::State& state, const std::vector<Record>& records, Row row) {
  std::vector<char> text(rowCount * rowRoom);
  for (auto _ : state) {
    char* to = text.data();
    for (const Record& record : records) to += row(to, record);
    benchmark::DoNotOptimize(text.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records.size()));
}

// A text field for C's "%.*s": no more than the field holds.
#define FIELD(f) static_cast<int>(sizeof(f).bytes), (f).bytes

// clang-format off
void tradesByPrint(benchmark::State& state) {
  byPrint(state, makeTrades(), [](Output& out, const TradeRec132& t) {
    print<"%1c%4ld%1c%2ld%1c%9ld%1c%8.2f%1c%11s%1c%6ld%1c%7s%1c%9s%1c%10s%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(
        out, '|', t.brokerId, '/', t.traderId, '|', t.qty, '|', t.rate / 100.0, '|', t.scripId, '|', t.scripCode, '|', "", '|',
        "", '|', "", '|', t.clientId, '|', t.trnId, t.tradeType, '|', t.trdId, '|', t.time, '|', t.cliTyp, '|');
  });
}

void tradesBySnprintf(benchmark::State& state) {
  bySnprintf(state, makeTrades(), [](char* to, const TradeRec132& t) {
    return std::snprintf(to, rowRoom,
        "%1c%4d%1c%2d%1c%9d%1c%8.2f%1c%11.*s%1c%6d%1c%7s%1c%9s%1c%10s%1c%11.*s%1c%11lld%1c%1c%6d%1c%9.*s%1c%-6.*s%1c\r\n",
        '|', t.brokerId, '/', t.traderId, '|', t.qty, '|', t.rate / 100.0, '|', FIELD(t.scripId), '|', t.scripCode, '|', "", '|',
        "", '|', "", '|', FIELD(t.clientId), '|', static_cast<long long>(t.trnId), t.tradeType, '|', t.trdId, '|', FIELD(t.time),
        '|', FIELD(t.cliTyp), '|');
  });
}

void positionsByPrint(benchmark::State& state) {
  byPrint(state, makePositions(), [](Output& out, const Position& p) {
    print<"|%12s|%17.2f|%17.2f|%17.2f|\n">(out, p.name, p.buy, p.sell, p.net);
  });
}

void positionsBySnprintf(benchmark::State& state) {
  bySnprintf(state, makePositions(), [](char* to, const Position& p) {
    return std::snprintf(to, rowRoom, "|%12.*s|%17.2f|%17.2f|%17.2f|\r\n", FIELD(p.name), p.buy, p.sell, p.net);
  });
}

// The broker query's row has the same fields; its counterparty's cells are blank.
void brokerQueryByPrint(benchmark::State& state) {
  byPrint(state, makeTrades(), [](Output& out, const TradeRec132& t) {
    print<"%1c%2ld%1c%4lc%1c%2lc%1c%9ld%1c%8.2f%1c%11s%1c%6ld%1c%8c%10c%11c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(
        out, '|', t.traderId, '|', ' ', ' ', ' ', '|', t.qty, '|', t.rate / 100.0, '|', t.scripId, '|', t.scripCode, '|', '|', '|',
        '|', t.clientId, '|', t.trnId, t.tradeType, '|', t.trdId, '|', t.time, '|', t.cliTyp, '|');
  });
}

void brokerQueryBySnprintf(benchmark::State& state) {
  bySnprintf(state, makeTrades(), [](char* to, const TradeRec132& t) {
    return std::snprintf(to, rowRoom,
        "%1c%2d%1c%4c%1c%2c%1c%9d%1c%8.2f%1c%11.*s%1c%6d%1c%8c%10c%11c%11.*s%1c%11lld%1c%1c%6d%1c%9.*s%1c%-6.*s%1c\r\n",
        '|', t.traderId, '|', ' ', ' ', ' ', '|', t.qty, '|', t.rate / 100.0, '|', FIELD(t.scripId), '|', t.scripCode, '|', '|',
        '|', '|', FIELD(t.clientId), '|', static_cast<long long>(t.trnId), t.tradeType, '|', t.trdId, '|', FIELD(t.time), '|',
        FIELD(t.cliTyp), '|');
  });
}
// clang-format on

// ---- Delimited lines --------------------------------------------------------------------------------------------------

constexpr std::size_t lineLimit = 120;  // of a piece
constexpr std::int64_t lineCount = 1000000;

// A file of touchlines that lives as long as the program; its name.
const char* touchlines() {
  static const struct File {
    std::string name;

    File() {
      name = (std::filesystem::temp_directory_path() / ("touchlines." + std::to_string(getpid()))).string();
      std::FILE* file = std::fopen(name.c_str(), "wb");
      if (!file) std::abort();
      for (std::int64_t i = 0; i < lineCount; ++i) {
        std::fprintf(file, "AMBARTEX|%u|123450|123400|120000|125000|119000|123400|%u|\r\n",
                     static_cast<unsigned>(500000 + randomNumber(40000)), static_cast<unsigned>(randomNumber(10000000)));
      }
      std::fclose(file);
    }
    ~File() { std::filesystem::remove(name); }
  } file;
  return file.name.c_str();
}

struct Touchline {
  TextField<12> scripId;
  std::int32_t numbers[8];
};

void touchlinesByScan(benchmark::State& state) {
  const char* const name = touchlines();
  for (auto _ : state) {
    Input* input = inputOpen(name, InputKind::text);
    char piece[lineLimit];
    std::size_t length = 0;
    std::int64_t fields = 0;
    Touchline line{};
    while (inputReadPiece(*input, piece, sizeof piece, &length)) {
      std::int32_t* n = line.numbers;
      fields += scan<"%[^|]|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|">(std::string_view(piece, length), line.scripId, n[0],
                                                                       n[1], n[2], n[3], n[4], n[5], n[6], n[7]);
      benchmark::DoNotOptimize(line);
    }
    inputClose(input);
    if (fields != 9 * lineCount) state.SkipWithError("a line was not scanned");
  }
  state.SetItemsProcessed(state.iterations() * lineCount);
}

void touchlinesBySscanf(benchmark::State& state) {
  const char* const name = touchlines();
  for (auto _ : state) {
    std::FILE* file = std::fopen(name, "r");
    char piece[lineLimit];
    std::int64_t fields = 0;
    Touchline line{};
    while (std::fgets(piece, sizeof piece, file)) {
      std::int32_t* n = line.numbers;
      fields += std::sscanf(piece, "%11[^|]|%d|%d|%d|%d|%d|%d|%d|%d|", line.scripId.bytes, &n[0], &n[1], &n[2], &n[3], &n[4],
                            &n[5], &n[6], &n[7]);
      benchmark::DoNotOptimize(line);
    }
    std::fclose(file);
    if (fields != 9 * lineCount) state.SkipWithError("a line was not scanned");
  }
  state.SetItemsProcessed(state.iterations() * lineCount);
}

BENCHMARK(tradesByPrint)->Name("trades, 132 bytes/print");
BENCHMARK(tradesBySnprintf)->Name("trades, 132 bytes/snprintf");
BENCHMARK(positionsByPrint)->Name("client-wise position/print");
BENCHMARK(positionsBySnprintf)->Name("client-wise position/snprintf");
BENCHMARK(brokerQueryByPrint)->Name("broker query, 132 bytes/print");
BENCHMARK(brokerQueryBySnprintf)->Name("broker query, 132 bytes/snprintf");
BENCHMARK(touchlinesByScan)->Name("touchlines/scan");
BENCHMARK(touchlinesBySscanf)->Name("touchlines/sscanf");

}  // namespace

BENCHMARK_MAIN();
