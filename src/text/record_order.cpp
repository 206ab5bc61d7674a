// The order in which records are printed.
//
// The keys of a record are read as one row of bytes that compare as unsigned: a text with zeros behind its end, a number
// with its sign turned and its highest byte first. Eight of those bytes at a time are taken out of the records as one number
// and sorted with the positions; each run that is equal on them is then sorted on the next eight. So a record is looked at once
// for each step that its neighbours do not settle, and it is never moved.
#include "text/record_order.h"

#include <cassert>
#include <cstring>
#include <utility>

#include "desktop/memory.h"

namespace quillon {
namespace {

constexpr std::size_t chunkSize = 8;
constexpr std::size_t insertionLimit = 24;  // up to here moving neighbours is quicker
constexpr std::size_t mergeLimit = 96;      // up to here merging is quicker than counting digits

struct Sorting {
  Records records;
  RecordKey keys[recordKeysMost];  // those that are there
  std::size_t keyCount;
  std::uint64_t* chunks;  // beside `order`
  std::uint64_t* spareChunks;
  std::uint32_t* order;
  std::uint32_t* spareOrder;
};

// What one step takes out of the records: eight bytes of a text from `at`, or a number. Where half of them are left, a number
// that is the next key joins it.
struct Step {
  std::size_t key;
  std::size_t at;
  bool joined;
};

std::uint64_t foldCase(std::uint64_t word) {
  constexpr std::uint64_t every = 0x0101010101010101;
  const std::uint64_t low = word & (every * 0x7f);
  const std::uint64_t fromA = low + every * (0x80 - 'A');
  const std::uint64_t behindZ = low + every * (0x7f - 'Z');
  const std::uint64_t capitals = ~word & (fromA ^ behindZ) & (every * 0x80);
  return word | (capitals >> 2);  // as small letters, so that '_' stands before them
}

// The text's bytes from `at`, at most eight, first byte highest, zeros behind its end.
std::uint64_t textChunk(const char* record, std::size_t recordSize, const RecordKey& key, std::size_t at) {
  const char* bytes = record + key.offset + at;
  const std::size_t left = key.width - at;
  const std::size_t size = left < chunkSize ? left : chunkSize;
  std::uint64_t word = 0;
  if (key.offset + at + chunkSize <= recordSize) {
    std::memcpy(&word, bytes, chunkSize);
  } else {
    std::memcpy(&word, bytes, size);
  }
  if (size < chunkSize) word &= (std::uint64_t{1} << (8 * size)) - 1;
  const std::uint64_t nul = (word - 0x0101010101010101) & ~word & 0x8080808080808080;
  if (nul) word &= (nul & (0 - nul)) / 0x80 - 1;  // the bytes below the first NUL
  if (key.kind == KeyKind::foldedText) word = foldCase(word);
  return __builtin_bswap64(word);
}

// A byte of 100 and above has three digits.
std::uint32_t timeNumber(const char* record, const RecordKey& key) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::uint32_t part = static_cast<unsigned char>(record[key.offset + i]);
    number = number * (part < 100 ? 100 : 1000) + part;
  }
  return number;
}

// Of a number with at most 32 bits.
std::uint32_t numberChunk(const char* record, const RecordKey& key) {
  if (key.kind == KeyKind::number8) return static_cast<unsigned char>(record[key.offset]) ^ 0x80u;
  if (key.kind == KeyKind::time) return timeNumber(record, key);
  std::uint32_t number;
  std::memcpy(&number, record + key.offset, sizeof number);
  return number ^ 0x80000000u;
}

std::uint64_t wideNumberChunk(const char* record, const RecordKey& key) {
  std::uint64_t number;
  std::memcpy(&number, record + key.offset, sizeof number);
  return number ^ (std::uint64_t{1} << 63);
}

bool isText(const RecordKey& key) { return key.kind == KeyKind::text || key.kind == KeyKind::foldedText; }

bool isShortNumber(const RecordKey& key) { return !isText(key) && key.kind != KeyKind::number64; }

// How many bytes the key fills, a number that is shorter being widened to 32 bits.
std::size_t sizeInChunk(const RecordKey& key) {
  if (isText(key)) return key.width;
  return key.kind == KeyKind::number64 ? chunkSize : chunkSize / 2;
}

Step stepAt(const Sorting& sorting, std::size_t key, std::size_t at) {
  const std::size_t next = key + 1;
  const std::size_t left = sizeInChunk(sorting.keys[key]) - at;
  return {key, at, left <= chunkSize / 2 && next < sorting.keyCount && isShortNumber(sorting.keys[next])};
}

// The step behind `step` for records that are equal on it, with this chunk. False when there is none: they are equal.
bool followingStep(const Sorting& sorting, Step& step, std::uint64_t chunk) {
  const bool textEnded = (chunk & 0xff) == 0;
  const RecordKey& key = sorting.keys[step.key];
  if (isText(key) && !step.joined && !textEnded && step.at + chunkSize < key.width) {
    step = stepAt(sorting, step.key, step.at + chunkSize);
    return true;
  }
  const std::size_t next = step.key + (step.joined ? 2 : 1);
  if (next >= sorting.keyCount) return false;
  step = stepAt(sorting, next, 0);
  return true;
}

const char* recordAt(const Sorting& sorting, std::uint32_t position) {
  return static_cast<const char*>(sorting.records.bytes) + static_cast<std::size_t>(position) * sorting.records.size;
}

// Takes the step's bytes of the records from `begin` to `end`. True when they stand in order already.
bool loadChunks(const Sorting& sorting, const Step& step, std::size_t begin, std::size_t end) {
  constexpr std::size_t ahead = 12;  // so that records out of order are on their way when they are wanted
  const RecordKey key = sorting.keys[step.key];
  const bool text = isText(key);
  bool inOrder = true;
  std::uint64_t previous = 0;
  for (std::size_t i = begin; i < end; ++i) {
    if (i + ahead < end) __builtin_prefetch(recordAt(sorting, sorting.order[i + ahead]) + key.offset + step.at);
    const char* record = recordAt(sorting, sorting.order[i]);
    std::uint64_t chunk = 0;
    if (text)
      chunk = textChunk(record, sorting.records.size, key, step.at);
    else if (key.kind == KeyKind::number64)
      chunk = wideNumberChunk(record, key);
    else
      chunk = std::uint64_t{numberChunk(record, key)} << 32;
    if (step.joined) chunk |= numberChunk(record, sorting.keys[step.key + 1]);
    sorting.chunks[i] = chunk;
    inOrder &= previous <= chunk;
    previous = chunk;
  }
  return inOrder;
}

void sortByInsertion(std::uint64_t* chunks, std::uint32_t* order, std::size_t count) {
  for (std::size_t i = 1; i < count; ++i) {
    const std::uint64_t chunk = chunks[i];
    const std::uint32_t position = order[i];
    std::size_t at = i;
    for (; at > 0 && chunks[at - 1] > chunk; --at) {
      chunks[at] = chunks[at - 1];
      order[at] = order[at - 1];
    }
    chunks[at] = chunk;
    order[at] = position;
  }
}

void sortByMerging(const Sorting& sorting, std::size_t begin, std::size_t end) {
  std::uint64_t* chunks = sorting.chunks + begin;
  std::uint32_t* order = sorting.order + begin;
  const std::size_t count = end - begin;
  if (count <= insertionLimit) return sortByInsertion(chunks, order, count);
  const std::size_t half = count / 2;
  sortByMerging(sorting, begin, begin + half);
  sortByMerging(sorting, begin + half, end);
  if (chunks[half - 1] <= chunks[half]) return;
  std::memcpy(sorting.spareChunks, chunks, half * sizeof *chunks);
  std::memcpy(sorting.spareOrder, order, half * sizeof *order);
  std::size_t left = 0;
  std::size_t right = half;
  for (std::size_t to = 0; left < half; ++to) {
    const bool fromRight = right < count && chunks[right] < sorting.spareChunks[left];
    chunks[to] = fromRight ? chunks[right] : sorting.spareChunks[left];
    order[to] = fromRight ? order[right] : sorting.spareOrder[left];
    right += fromRight;
    left += !fromRight;
  }
}

// One pass for each byte of the chunks that is not the same in all of them.
void sortByDigits(const Sorting& sorting, std::size_t begin, std::size_t end) {
  const std::size_t count = end - begin;
  std::uint64_t* chunks = sorting.chunks + begin;
  std::uint32_t* order = sorting.order + begin;
  std::uint64_t* otherChunks = sorting.spareChunks;
  std::uint32_t* otherOrder = sorting.spareOrder;
  std::uint32_t counts[chunkSize][256] = {};
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t digit = 0; digit < chunkSize; ++digit) ++counts[digit][(chunks[i] >> (8 * digit)) & 0xff];
  }
  for (std::size_t digit = 0; digit < chunkSize; ++digit) {
    const auto shift = static_cast<int>(8 * digit);
    std::uint32_t* const places = counts[digit];
    if (places[(chunks[0] >> shift) & 0xff] == count) continue;
    std::uint32_t place = 0;
    for (int value = 0; value < 256; ++value) place += std::exchange(places[value], place);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t to = places[(chunks[i] >> shift) & 0xff]++;
      otherChunks[to] = chunks[i];
      otherOrder[to] = order[i];
    }
    std::swap(chunks, otherChunks);
    std::swap(order, otherOrder);
  }
  if (chunks == sorting.spareChunks) {
    std::memcpy(otherChunks, chunks, count * sizeof *chunks);
    std::memcpy(otherOrder, order, count * sizeof *order);
  }
}

// Sorts the positions from `begin` to `end`, which are equal before the step. One call deeper for each further step.
void sortRun(const Sorting& sorting, const Step& step, std::size_t begin, std::size_t end) {
  if (!loadChunks(sorting, step, begin, end)) {
    if (end - begin <= mergeLimit)
      sortByMerging(sorting, begin, end);
    else
      sortByDigits(sorting, begin, end);
  }
  while (begin < end) {
    const std::uint64_t chunk = sorting.chunks[begin];
    std::size_t runEnd = begin + 1;
    while (runEnd < end && sorting.chunks[runEnd] == chunk) ++runEnd;
    Step following = step;
    if (runEnd - begin > 1 && followingStep(sorting, following, chunk)) sortRun(sorting, following, begin, runEnd);
    begin = runEnd;
  }
}

}  // namespace

bool recordOrder(const Records& records, std::span<const RecordKey> keys, std::uint32_t* order) {
  assert(keys.size() <= recordKeysMost);
  for (std::size_t i = 0; i < records.count; ++i) order[i] = static_cast<std::uint32_t>(i);
  Sorting sorting{records, {}, 0, nullptr, nullptr, order, nullptr};
  for (const RecordKey& key : keys) {
    if (key.kind != KeyKind::none && !(isText(key) && key.width == 0)) sorting.keys[sorting.keyCount++] = key;
  }
  if (records.count < 2 || sorting.keyCount == 0) return true;
  const std::size_t size = records.count * (2 * sizeof(std::uint64_t) + sizeof(std::uint32_t));
  auto* memory = static_cast<std::uint64_t*>(memoryTakeForOrder(size));
  if (!memory) return false;
  sorting.chunks = memory;
  sorting.spareChunks = memory + records.count;
  sorting.spareOrder = reinterpret_cast<std::uint32_t*>(memory + 2 * records.count);
  sortRun(sorting, stepAt(sorting, 0, 0), 0, records.count);
  memoryFree(memory);
  return true;
}

void RecordOrder::Free::operator()(std::uint32_t* positions) const { memoryFree(positions); }

RecordOrder orderOfRecords(const Records& records, std::span<const RecordKey> keys) {
  RecordOrder order;
  order.memory.reset(static_cast<std::uint32_t*>(memoryTakeForOrder(records.count * sizeof(std::uint32_t))));
  if (order && recordOrder(records, keys, order.memory.get()))
    order.count = records.count;
  else
    order.memory.reset();
  return order;
}

}  // namespace quillon
