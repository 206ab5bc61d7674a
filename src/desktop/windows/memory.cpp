// Memory blocks straight from the system, which gives them zero-filled and backs a page only once it is touched.
#include "desktop/memory.h"

#include <algorithm>

#include "desktop/windows/start.h"

namespace quillon {

void* memoryTake(std::size_t size) {
  const std::size_t atLeastOne = std::max<std::size_t>(size, 1);
  return VirtualAlloc(nullptr, atLeastOne, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void* memoryTakeForOrder(std::size_t size) { return memoryTake(size); }

void memoryFree(void* block) {
  if (block) VirtualFree(block, 0, MEM_RELEASE);
}

}  // namespace quillon
