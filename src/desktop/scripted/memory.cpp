#include "desktop/scripted/memory.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#ifdef __linux__
#include <sys/mman.h>
#endif

#include "desktop/scripted/faults.h"

namespace quillon {

// Beyond this no machine has a block to give; a sanitizer's allocator would stop the program rather than refuse.
static constexpr std::size_t largestBlock = std::size_t{1} << 38;

static std::vector<void*> held;

// A day's records fill a block of many megabytes, which a report then walks in an order that is not the block's. In pages of
// 2 MB the system has them ready sooner, and finding each is cheaper. Without them all is the same, only slower.
static void preferLargePages(void* block, std::size_t size) {
#ifdef __linux__
  constexpr std::size_t page = 4096;
  constexpr std::size_t worthwhile = std::size_t{4} << 20;
  if (size < worthwhile) return;
  const std::size_t skipped = (page - reinterpret_cast<std::uintptr_t>(block) % page) % page;
  static_cast<void>(madvise(static_cast<char*>(block) + skipped, (size - skipped) / page * page, MADV_HUGEPAGE));
#else
  static_cast<void>(block);
  static_cast<void>(size);
#endif
}

static void* hold(void* block, std::size_t size) {
  if (!block) return nullptr;
  held.push_back(block);
  preferLargePages(block, size);
  return block;
}

void* memoryTake(std::size_t size) {
  if (faultFires(Fault::memory) || size > largestBlock) return nullptr;
  return hold(std::calloc(size > 0 ? size : 1, 1), size);
}

void* memoryTakeForOrder(std::size_t size) {
  if (faultFires(Fault::order) || size > largestBlock) return nullptr;
  return hold(std::malloc(size > 0 ? size : 1), size);
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
