// Memory blocks, taken for the length of one run.
#pragma once

#include <cstddef>

namespace quillon {

// A zero-filled block, or null when it is not granted. Whoever takes a block frees it at the end of the run, save where a
// report tells that it stays; what was not freed goes with the program.
void* memoryTake(std::size_t size);
// The memory in which a sort keeps its order, or null when it is not granted: told apart from a block by the faults alone, so
// that the want of either can be shown. Not zero-filled. memoryFree gives it back.
void* memoryTakeForOrder(std::size_t size);
void memoryFree(void* block);  // null is left alone

}  // namespace quillon
