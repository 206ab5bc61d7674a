// Faults on request: the place where every call of the seam that can fail is made to fail.
//
// Each kind counts for itself. A fault is armed for the Nth next use of its kind, and fires once or from then on. The counts
// of uses and of fired faults stay readable, so that a test can arm N = 1, 2, 3... until a run meets no fault.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillon {

enum class Fault { memory, open, create, seek, tell, rewind, read, write, close, form, windowClass, string, order };
inline constexpr std::size_t faultKinds = 13;

// "memory", "open" ... "order"; nothing where there is no such kind.
std::optional<Fault> faultNamed(std::string_view name);

// The `number`th next use fails (from 1); with `always` all after it as well. Takes the place of what was armed before.
void faultsArm(Fault kind, std::size_t number, bool always);
void faultsClear();  // nothing is armed any more
void faultsReset();  // and the counts start at 0

// One use: true when it is to fail.
bool faultFires(Fault kind);
// `count` uses, up to the first that is to fail; gives how many come before that one, `count` when none does.
std::size_t faultsGrant(Fault kind, std::size_t count);

std::size_t faultUses(Fault kind);  // asked so far, the failed ones among them
std::size_t faultsFired(Fault kind);

}  // namespace quillon
