#include "desktop/strings.h"

#include "desktop/scripted/faults.h"
#include "desktop/scripted/resources.h"

namespace quillon {

std::optional<std::string> stringLoad(int id, std::size_t limit) {
  if (faultFires(Fault::string)) return std::nullopt;
  std::optional<std::string> text = resourceString(resourceBytes(), id);
  if (text && limit > 0 && text->size() > limit - 1) text->resize(limit - 1);
  return text;
}

}  // namespace quillon
