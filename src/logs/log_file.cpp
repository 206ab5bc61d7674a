#include "logs/log_file.h"

#include <cstdint>

#include "trades/trade_file.h"

namespace quillon {

bool countLogRecords(Input& input, std::size_t recordSize, std::size_t& count) {
  if (!inputSeekEnd(input)) return false;
  const std::int64_t size = inputTell(input);
  if (size < 0) return false;
  if (!inputSeekStart(input)) return false;
  const std::size_t bytes = static_cast<std::size_t>(size);
  count = bytes < sizeof(TradeHeader) ? 0 : (bytes - sizeof(TradeHeader)) / recordSize;
  return true;
}

bool readLogRecords(Input& input, std::size_t recordSize, void* block, std::size_t count, bool (*readFailed)()) {
  TradeHeader header;
  if (!inputRead(input, &header, sizeof header) && !readFailed()) return false;
  char* const records = static_cast<char*>(block);
  std::size_t done = 0;
  while (true) {
    done += inputReadRecords(input, records + done * recordSize, recordSize, count - done);
    if (done == count) return true;
    if (!readFailed()) return false;
    if (++done == count) return true;
  }
}

}  // namespace quillon
