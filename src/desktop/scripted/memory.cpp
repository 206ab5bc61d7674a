#include "desktop/scripted/memory.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "desktop/scripted/faults.h"

namespace quillon {

// Beyond this no machine has a block to give; a sanitizer's allocator would stop the program rather than refuse.
static constexpr std::size_t largestBlock = std::size_t{1} << 38;

static std::vector<void*> held;

void* memoryTake(std::size_t size) {
  if (faultFires(Fault::memory) || size > largestBlock) return nullptr;
  void* block = std::calloc(size > 0 ? size : 1, 1);
  if (block) held.push_back(block);
  return block;
}

// A block that is not held is left alone: a form may still know one of an earlier run, which has been given back since.
void memoryFree(void* block) {
  const auto found = std::find(held.begin(), held.end(), block);
  if (!block || found == held.end()) return;
  held.erase(found);
  std::free(block);
}

std::size_t memoryBlocksHeld() { return held.size(); }

void memoryReset() {
  for (void* block : held) std::free(block);
  held.clear();
}

}  // namespace quillon
