// A breakup data file: for each scrip the member's figures split by client type, as '|' delimited text. There is no header;
// each line is one scrip.
//
// There are two kinds, Normal and Kesto. Nothing in the file tells which it is: the user says so on the form. All figures are
// whole numbers and are printed as they stand.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/input.h"

namespace quillon {

struct NormalClientBlock {
  std::int16_t clientType;  // 1 to 4
  std::int32_t pd;
  std::int32_t sd;
  std::int32_t pc;
  std::int32_t sc;
  std::int32_t vb;
  std::int32_t sb;
};

struct NormalBreakup {
  std::int32_t scripCode;
  NormalClientBlock clients[4];
  std::int32_t totalPD;
  std::int32_t totalSD;
  std::int32_t totalPC;
  std::int32_t totalSC;
  std::int32_t totalVB;
  std::int32_t totalSB;
  std::int32_t netPosition;
  std::int32_t grossPurchase;
  std::int32_t grossSell;
  std::int32_t grossBP;
  std::int32_t grossBS;
};

struct KestoClientBlock {
  std::int16_t clientType;  // 1 to 3, 0 for none
  std::int32_t f1;          // L.M.
  std::int32_t f2;          // B.M.
  std::int32_t f3;          // B.F.
  std::int32_t f4;          // L.F.
};

struct KestoBreakup {
  std::int32_t scripCode;
  KestoClientBlock clients[2];
  std::int32_t totalGP;
  std::int32_t totalLM;
  std::int32_t totalGS;
  std::int32_t totalBM;
  std::int32_t totalLF;
  std::int32_t totalBF;
  std::int32_t netPosition;
  std::int32_t spare;  // not printed
  std::int32_t grossLend;
  std::int32_t grossBorrow;
};

static_assert(sizeof(NormalClientBlock) == 28);
static_assert(offsetof(NormalClientBlock, clientType) == 0);
static_assert(offsetof(NormalClientBlock, pd) == 4);
static_assert(offsetof(NormalClientBlock, sd) == 8);
static_assert(offsetof(NormalClientBlock, pc) == 12);
static_assert(offsetof(NormalClientBlock, sc) == 16);
static_assert(offsetof(NormalClientBlock, vb) == 20);
static_assert(offsetof(NormalClientBlock, sb) == 24);

static_assert(sizeof(NormalBreakup) == 160);
static_assert(offsetof(NormalBreakup, scripCode) == 0);
static_assert(offsetof(NormalBreakup, clients) == 4);
static_assert(offsetof(NormalBreakup, totalPD) == 116);
static_assert(offsetof(NormalBreakup, totalSD) == 120);
static_assert(offsetof(NormalBreakup, totalPC) == 124);
static_assert(offsetof(NormalBreakup, totalSC) == 128);
static_assert(offsetof(NormalBreakup, totalVB) == 132);
static_assert(offsetof(NormalBreakup, totalSB) == 136);
static_assert(offsetof(NormalBreakup, netPosition) == 140);
static_assert(offsetof(NormalBreakup, grossPurchase) == 144);
static_assert(offsetof(NormalBreakup, grossSell) == 148);
static_assert(offsetof(NormalBreakup, grossBP) == 152);
static_assert(offsetof(NormalBreakup, grossBS) == 156);

static_assert(sizeof(KestoClientBlock) == 20);
static_assert(offsetof(KestoClientBlock, clientType) == 0);
static_assert(offsetof(KestoClientBlock, f1) == 4);
static_assert(offsetof(KestoClientBlock, f2) == 8);
static_assert(offsetof(KestoClientBlock, f3) == 12);
static_assert(offsetof(KestoClientBlock, f4) == 16);

static_assert(sizeof(KestoBreakup) == 84);
static_assert(offsetof(KestoBreakup, scripCode) == 0);
static_assert(offsetof(KestoBreakup, clients) == 4);
static_assert(offsetof(KestoBreakup, totalGP) == 44);
static_assert(offsetof(KestoBreakup, totalLM) == 48);
static_assert(offsetof(KestoBreakup, totalGS) == 52);
static_assert(offsetof(KestoBreakup, totalBM) == 56);
static_assert(offsetof(KestoBreakup, totalLF) == 60);
static_assert(offsetof(KestoBreakup, totalBF) == 64);
static_assert(offsetof(KestoBreakup, netPosition) == 68);
static_assert(offsetof(KestoBreakup, spare) == 72);
static_assert(offsetof(KestoBreakup, grossLend) == 76);
static_assert(offsetof(KestoBreakup, grossBorrow) == 80);

// What one pass over the file found.
struct BreakupCount {
  std::size_t records;  // lines, and each further piece of a line that is longer than 199 characters
  bool failed;          // the pass ended at a read that failed, not at the end of the file
};

// Counts from where the file stands.
BreakupCount countBreakups(Input& input);

// Loads up to `count` records from where the file stands, into a zero-filled block. Fields behind the first one that is missing
// or no number stay zero, and so do records that the file no longer holds; what it holds beyond them is not read. False when a
// read failed on the way; its record stays zero and the rest is loaded.
[[nodiscard]] bool readNormalBreakups(Input& input, NormalBreakup* records, std::size_t count);
[[nodiscard]] bool readKestoBreakups(Input& input, KestoBreakup* records, std::size_t count);

}  // namespace quillon
