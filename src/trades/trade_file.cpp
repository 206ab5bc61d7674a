#include "trades/trade_file.h"

#include <cstring>

namespace quillon {

std::size_t tradeRecordSize(TradeLayout layout) {
  switch (layout) {
    case TradeLayout::rec132:
      return sizeof(TradeRec132);
    case TradeLayout::rec144:
      return sizeof(TradeRec144);
    case TradeLayout::kesto:
      return sizeof(KestoTradeRec);
  }
  return sizeof(TradeRec132);
}

bool isTradeFileLetter(char fileKind) { return fileKind == 'N' || fileKind == 'V' || fileKind == 'B'; }

bool isTradeFile(const TradeHeader& header) { return isTradeFileLetter(header.fileKind) && header.kind == 'T'; }

TradeLayout tradeLayoutOf(const TradeHeader& header) {
  if (header.fileKind == 'B') return TradeLayout::kesto;
  return header.fileKind == 'V' ? TradeLayout::rec144 : TradeLayout::rec132;
}

TradeLayout tradeLayoutOf(const TradeHeader& header, bool isLendingFile) {
  const TradeLayout byLetter = tradeLayoutOf(header);
  return isLendingFile && byLetter != TradeLayout::kesto ? TradeLayout::rec144 : byLetter;
}

NoHeader whyNoHeader(Input& input) {
  if (!inputSeekEnd(input)) return NoHeader::notMeasured;
  const std::int64_t size = inputTell(input);
  if (size < 0) return NoHeader::notMeasured;
  if (size == 0) return NoHeader::emptyFile;
  return size < static_cast<std::int64_t>(sizeof(TradeHeader)) ? NoHeader::tooShort : NoHeader::notRead;
}

std::size_t tradeCountOf(std::int64_t fileSize, TradeLayout layout) {
  constexpr std::int64_t headerSize = sizeof(TradeHeader);
  if (fileSize < headerSize) return 0;
  return static_cast<std::size_t>(fileSize - headerSize) / tradeRecordSize(layout);
}

TradeCount countTrades(Input& input, TradeLayout layout, std::size_t& count) {
  if (!inputSeekEnd(input)) return TradeCount::notCalculated;
  const std::int64_t fileSize = inputTell(input);
  if (fileSize < 0) return TradeCount::notCalculated;
  if (fileSize == 0) return TradeCount::emptyFile;
  if (!inputSeekStart(input)) return TradeCount::notCalculated;
  count = tradeCountOf(fileSize, layout);
  return TradeCount::counted;
}

bool readTrades(Input& input, TradeLayout layout, void* block, std::size_t count, bool (*readFailed)()) {
  TradeHeader again;
  if (!inputRead(input, &again, sizeof again) && !readFailed()) return false;

  const std::size_t size = tradeRecordSize(layout);
  char* const bytes = static_cast<char*>(block);
  for (std::size_t done = 0; done < count; ++done) {
    done += inputReadRecords(input, bytes + done * size, size, count - done);
    if (done < count && !readFailed()) return false;
  }
  return true;
}

void rewriteLends(TradeRec144* records, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (records[i].side == 'L') records[i].side = 'S';
  }
}

TextField<8> timeOfStamp(const TextField<20>& stamp) {
  TextField<8> time;
  std::memcpy(time.bytes, stamp.bytes + 11, sizeof time);
  return time;
}

bool isOddLotFile(TradeLayout layout, const void* block) {
  switch (layout) {
    case TradeLayout::rec132:
      return static_cast<const TradeRec132*>(block)->tradeType == 'O';
    case TradeLayout::rec144:
      return static_cast<const TradeRec144*>(block)->tradeType == 'O';
    case TradeLayout::kesto:
      return false;
  }
  return false;
}

}  // namespace quillon
