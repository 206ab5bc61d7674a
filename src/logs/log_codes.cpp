#include "logs/log_codes.h"

#include <iterator>

#include "frame/client_types.h"

namespace quillon {

const char* retentionText(std::int16_t retention) {
  static constexpr const char* texts[] = {"IOC", "EOSESS", "EOTODY", "EOD", "EOSTLM"};
  if (retention < 0 || retention >= static_cast<int>(std::size(texts))) return nullptr;
  return texts[retention];
}

char orderActionLetter(std::int16_t actionCode) {
  switch (actionCode) {
    case 1:
    case 4:
    case 7:
    case 8:
    case 9:
    case 12:
    case 15:
    case 17:
      return 'A';
    case 2:
    case 5:
    case 10:
    case 13:
      return 'U';
    case 3:
    case 6:
    case 11:
    case 14:
    case 16:
    case 18:
      return 'D';
    default:
      return noLetter;
  }
}

bool actionHasNoLimitRate(std::int16_t actionCode) { return actionCode >= 9 && actionCode <= 14; }

char clientRectificationLetter(std::int16_t actionCode) {
  if (actionCode == 19) return 'A';
  return actionCode == 20 ? 'R' : noLetter;
}

char typeRectificationLetter(std::int16_t actionCode) {
  if (actionCode == 21) return 'A';
  return actionCode == 22 ? 'R' : noLetter;
}

char quoteActionLetter(std::int16_t actionCode) {
  return actionCode >= 1 && actionCode <= 6 ? orderActionLetter(actionCode) : noLetter;
}

const char* clientTypeName(std::int16_t clientType) { return clientTypeTable[clientTypeIndex(clientType)].name; }

}  // namespace quillon
