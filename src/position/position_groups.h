// The walk that turns sorted records into rows of totals, common to all position reports: whichever the record and whatever
// makes a group.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "position/position_engine.h"
#include "text/fields.h"

namespace quillon {

inline bool isSameName(const TextField<12>& a, const TextField<12>& b) {
  return std::memcmp(a.bytes, b.bytes, sizeof a.bytes) == 0 || std::strncmp(a.bytes, b.bytes, sizeof a.bytes) == 0;
}

// Quantities are 32 bits wide and wrap beyond that.
inline std::int32_t wrappingSum(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
inline std::int32_t wrappingDifference(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

// Walks `count` legs in report order and calls add(row index, leg) for each that takes part. The row goes on only behind a leg
// that takes part: where the last leg of a group is excluded, the next group piles up on the same row and under its own name,
// as it always has. Gives the number of rows to which anything was added. A leg has a member tradeType.
template <class LegAt, class IsSameGroup, class Add>
std::size_t walkGroups(std::size_t count, LegAt legAt, IsSameGroup isSameGroup, Add add) {
  std::size_t row = 0;
  bool rowStarted = false;
  for (std::size_t i = 0; i < count; ++i) {
    const auto leg = legAt(i);
    if (positionExcludes(leg.tradeType)) continue;
    add(row, leg);
    const bool endsGroup = i + 1 == count || !isSameGroup(leg, legAt(i + 1));
    if (endsGroup) ++row;
    rowStarted = !endsGroup;
  }
  return row + (rowStarted ? 1 : 0);
}

}  // namespace quillon
