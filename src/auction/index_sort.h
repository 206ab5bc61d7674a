// The order in which the auction statements print their records: the workstation's own index sort.
//
// It is a quick sort with the last record of a range as the pivot, and it is not stable: where records are equal on all keys,
// their order in the statement follows from its exchanges. Members compare these statements with the workstation's, so the
// exchanges are the same here, one for one. What is not the same is the way to find them: records are told apart by ranks,
// and the next record to exchange is looked up in a tree over the ranks. So no order of the file makes it slow or deep.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>

#include "text/record_order.h"

namespace quillon {

// The group of each record, kept beside the records, and how groups follow each other.
struct IndexGroups {
  const char* letters;                  // one a record; null: there are no groups
  unsigned char (*place)(char letter);  // groups of one place are sorted as one
};
inline constexpr IndexGroups noGroups = {nullptr, nullptr};

// The positions of the records in ascending order: of `groups` first, then of the keys, each a text or a number. Takes 20 bytes
// a record while it sorts. False as any RecordOrder where there is no memory for it.
[[nodiscard]] RecordOrder indexOrder(const Records& records, const IndexGroups& groups, std::span<const RecordKey> keys);
[[nodiscard]] inline RecordOrder indexOrder(const Records& records, const IndexGroups& groups,
                                            std::initializer_list<RecordKey> keys) {
  return indexOrder(records, groups, std::span<const RecordKey>(keys.begin(), keys.size()));
}

}  // namespace quillon
