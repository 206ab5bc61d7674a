// A 6A/7A file: the member's 6A/7A entries of a day as '|' delimited text. Line 1 holds a date and a time, each further line is
// one entry. Files of entries that can still be changed (*.UPD, *.SUPD) and of those that cannot (*.NUP, *.SNUP) are alike.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/fields.h"
#include "text/input.h"

namespace quillon {

// No text of line 1 is longer than what of it is read.
struct Header6A7A {
  TextField<128> date;  // with its year in full
  TextField<128> time;
};

struct Record6A7A {
  std::int32_t scripCode;
  std::int32_t custCode;
  char ndFlag;
  std::int32_t tradeId;
  char buySell;  // 'B' or 'S'; on lending files 'B' or 'L', and 'L' is held as 'S'
  char deliveryMonth;
  std::int32_t quantity;
  std::int64_t value;  // paise, of the contract or the lending
  TextField<11> tradeDate;
  TextField<13> clientId;
  char confirmFlag;
  std::int32_t entry6a7aId;
  TextField<26> contractNo;  // on lending files the number of the confirmation memo
  TextField<22> comments;
  std::int16_t blockDeal;  // 1 for a block deal
};

static_assert(sizeof(Record6A7A) == 120);
static_assert(offsetof(Record6A7A, scripCode) == 0);
static_assert(offsetof(Record6A7A, custCode) == 4);
static_assert(offsetof(Record6A7A, ndFlag) == 8);
static_assert(offsetof(Record6A7A, tradeId) == 12);
static_assert(offsetof(Record6A7A, buySell) == 16);
static_assert(offsetof(Record6A7A, deliveryMonth) == 17);
static_assert(offsetof(Record6A7A, quantity) == 20);
static_assert(offsetof(Record6A7A, value) == 24);
static_assert(offsetof(Record6A7A, tradeDate) == 32);
static_assert(offsetof(Record6A7A, clientId) == 43);
static_assert(offsetof(Record6A7A, confirmFlag) == 56);
static_assert(offsetof(Record6A7A, entry6a7aId) == 60);
static_assert(offsetof(Record6A7A, contractNo) == 64);
static_assert(offsetof(Record6A7A, comments) == 90);
static_assert(offsetof(Record6A7A, blockDeal) == 112);

// What one pass over the file found. The header counts as a piece, so the records are pieces less one.
struct Count6A7A {
  std::size_t pieces;  // of 499 characters at most
  bool failed;         // the pass ended at a read that failed, not at the end of the file
};

// Counts from where the file stands.
Count6A7A count6A7A(Input& input);

// Loads the header and up to `count` records from where the file stands, into a zero-filled block. Of line 1 the first 119
// characters are read, of every other piece the first 139; what stands behind them is passed over and takes no other record's
// place. Fields behind the first one that is missing or empty stay zero, and so do records that the file no longer holds; what
// it holds beyond them is not read. False when a read failed on the way; its record stays zero and the rest is loaded.
[[nodiscard]] bool read6A7A(Input& input, Header6A7A& header, Record6A7A* records, std::size_t count, bool lending);

// The header's date with its year in full: the first six characters stay, the seventh and eighth are the year, whatever the
// length of the text, and nothing stays behind them. Years below 99 belong to the years from 2000 on, 99 is 1999.
void rewrite6A7ADate(TextField<128>& date);

}  // namespace quillon
