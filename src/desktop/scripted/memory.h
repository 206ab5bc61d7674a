// Memory blocks of the scripted desktop are counted, so that a test can see that none was lost.
#pragma once

#include <cstddef>

#include "desktop/memory.h"

namespace quillon {

std::size_t memoryBlocksHeld();
void memoryReset();  // frees what is still held

}  // namespace quillon
