#include "logs/log_file.h"

#include <cstdint>

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

void readLogRecords(Input& input, TradeHeader& header, std::size_t recordSize, void* block, std::size_t count,
                    void (*readFailed)()) {
  TradeHeader again;
  if (inputRead(input, &again, sizeof again))
    header = again;
  else
    readFailed();
  char* const records = static_cast<char*>(block);
  for (std::size_t done = 0; done < count; ++done) {
    done += inputReadRecords(input, records + done * recordSize, recordSize, count - done);
    if (done < count) readFailed();
  }
}

}  // namespace quillon
