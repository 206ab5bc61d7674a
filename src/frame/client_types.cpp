#include "frame/client_types.h"

#include <algorithm>
#include <iterator>

namespace quillon {

// clang-format off
static constexpr ClientType rows[] = {
    {"BANK",   50, 51},
    {"CLIENT", 30, 30},
    {"DFI",    60, 61},
    {"FII",    80, 81},
    {"INS",    85, 86},
    {"MF",     70, 71},
    {"NRI",    87, 88},
    {"OWN",    20, 20},
    {"FI",     10, 11},
    {"SPLCLI", 40, 40},
    {"NPS",    75, 76},
    {"QFI",    89, 89},
    {"HNI",    28, 28},
    {"BCO",    29, 29},
    {"INST",   90, 90},
};
// clang-format on
static_assert(std::size(rows) == clientTypeCount);

ClientType clientTypeTable[clientTypeCount];

void registerClientTypes() { std::copy(std::begin(rows), std::end(rows), clientTypeTable); }

int clientTypeIndex(std::int16_t code) {
  for (int i = 0; i < clientTypeCount; ++i) {
    if (clientTypeTable[i].codeA == code || clientTypeTable[i].codeB == code) return i;
  }
  return 1;
}

}  // namespace quillon
