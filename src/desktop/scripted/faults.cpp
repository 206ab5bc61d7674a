#include "desktop/scripted/faults.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quillon {

namespace {

struct Counter {
  std::size_t next;  // the fault is this many uses away; 0: none is armed
  bool always;
  std::size_t uses;
  std::size_t fired;
};

}  // namespace

// In the order of the kinds.
static constexpr std::string_view names[] = {"memory", "open",  "create", "seek",  "tell",   "rewind", "read",
                                             "write",  "close", "form",   "class", "string", "order"};
static_assert(std::size(names) == faultKinds);

static std::array<Counter, faultKinds> counters;

static Counter& counterOf(Fault kind) { return counters[static_cast<std::size_t>(kind)]; }

std::optional<Fault> faultNamed(std::string_view name) {
  const auto found = std::find(std::begin(names), std::end(names), name);
  if (found == std::end(names)) return std::nullopt;
  return static_cast<Fault>(found - std::begin(names));
}

void faultsArm(Fault kind, std::size_t number, bool always) {
  counterOf(kind).next = number;
  counterOf(kind).always = always;
}

void faultsClear() {
  for (Counter& counter : counters) counter.next = 0;
}

void faultsReset() { counters = {}; }

std::size_t faultsGrant(Fault kind, std::size_t count) {
  Counter& counter = counterOf(kind);
  if (counter.next == 0 || counter.next > count) {
    counter.uses += count;
    if (counter.next > 0) counter.next -= count;
    return count;
  }
  const std::size_t granted = counter.next - 1;
  counter.uses += granted + 1;
  ++counter.fired;
  counter.next = counter.always ? 1 : 0;
  return granted;
}

bool faultFires(Fault kind) { return faultsGrant(kind, 1) == 0; }

std::size_t faultUses(Fault kind) { return counterOf(kind).uses; }

std::size_t faultsFired(Fault kind) { return counterOf(kind).fired; }

}  // namespace quillon
