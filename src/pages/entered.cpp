#include "pages/entered.h"

namespace quillon {

bool enteredCount(std::string_view text, std::size_t least, std::size_t most, std::size_t& value) {
  if (text.empty() || text.size() > 9) return false;
  std::size_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
    number = number * 10 + static_cast<std::size_t>(c - '0');
  }
  if (number < least || number > most) return false;
  value = number;
  return true;
}

bool enteredLength(std::string_view text, double least, double most, double& value) {
  double number = 0;
  double unit = 1;
  bool fraction = false;
  bool digits = false;
  for (const char c : text) {
    if ((c == '.' || c == ',') && !fraction) {
      fraction = true;
    } else if (c >= '0' && c <= '9') {
      digits = true;
      number = number * 10 + (c - '0');
      if (fraction) unit *= 10;
    } else {
      return false;
    }
  }
  number /= unit;
  if (!digits || text.size() > 12 || number < least || number > most) return false;
  value = number;
  return true;
}

}  // namespace quillon
