// The 6A7A report: one row an entry, in the order of the file, in an ordinary layout and one for lending files.
#pragma once

#include <span>
#include <string_view>

#include "market/sixa_sevena_file.h"
#include "text/output.h"

namespace quillon {

struct Options6A7A {
  unsigned linesPerPage;      // rows on a page, from 1
  bool updatable;             // the entries are not confirmed yet
  bool lending;               // the file belongs to the lending market
  std::string_view brokerId;  // as the user typed it
};

// Writes the whole report, page numbers from 1. Without records it is a heading with its closing rule.
void write6A7A(Output& out, const Header6A7A& header, std::span<const Record6A7A> records, const Options6A7A& options);

}  // namespace quillon
