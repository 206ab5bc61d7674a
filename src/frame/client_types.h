// The 15 client types of the exchange, each with its two codes.
#pragma once

#include <cstdint>

namespace quillon {

struct ClientType {
  char name[12];  // at most 11 characters
  std::int16_t codeA;
  std::int16_t codeB;
};

inline constexpr int clientTypeCount = 15;
extern ClientType clientTypeTable[clientTypeCount];

// Fills the table. May be called any number of times.
void registerClientTypes();

// Position of the first row whose code A or code B is this code; 1, "CLIENT", for a code found in no row.
int clientTypeIndex(std::int16_t code);

}  // namespace quillon
