#include "pages/deflate.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillon {

static constexpr std::size_t shortestMatch = 3;
static constexpr std::size_t longestMatch = 258;
static constexpr std::size_t farthestMatch = 32768;
static constexpr int mostTries = 48;          // how many earlier places are looked at
static constexpr std::size_t goodMatch = 64;  // long enough not to look further
static constexpr unsigned hashBits = 14;
static constexpr std::uint32_t nowhere = 0xFFFFFFFF;

// ---- Bits -------------------------------------------------------------------------------------------------------------

struct BitWriter {
  std::string* out;
  std::uint64_t bits = 0;
  unsigned count = 0;
};

// Numbers go out with their lowest bit first.
static void putBits(BitWriter& writer, std::uint32_t value, unsigned count) {
  writer.bits |= std::uint64_t{value} << writer.count;
  writer.count += count;
  for (; writer.count >= 8; writer.count -= 8, writer.bits >>= 8) *writer.out += static_cast<char>(writer.bits & 0xFF);
}

// Codes go out with their highest bit first.
static void putCode(BitWriter& writer, std::uint32_t code, unsigned count) {
  std::uint32_t turned = 0;
  for (unsigned i = 0; i < count; ++i) turned |= ((code >> i) & 1) << (count - 1 - i);
  putBits(writer, turned, count);
}

// The fixed code of a literal, a length or the end of the block.
static void putSymbol(BitWriter& writer, unsigned symbol) {
  if (symbol < 144) return putCode(writer, 0x30 + symbol, 8);
  if (symbol < 256) return putCode(writer, 0x190 + symbol - 144, 9);
  if (symbol < 280) return putCode(writer, symbol - 256, 7);
  putCode(writer, 0xC0 + symbol - 280, 8);
}

static constexpr unsigned endOfBlock = 256;

// Lengths and distances are given by a class, which has a smallest value and a number of further bits.
struct ValueClass {
  std::uint16_t smallest;
  std::uint8_t bits;
};
// clang-format off
static constexpr ValueClass lengthClasses[29] = {
    {3, 0}, {4, 0}, {5, 0}, {6, 0}, {7, 0}, {8, 0}, {9, 0}, {10, 0}, {11, 1}, {13, 1}, {15, 1}, {17, 1}, {19, 2},
    {23, 2}, {27, 2}, {31, 2}, {35, 3}, {43, 3}, {51, 3}, {59, 3}, {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5},
    {163, 5}, {195, 5}, {227, 5}, {258, 0},
};
static constexpr ValueClass distanceClasses[30] = {
    {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 1}, {7, 1}, {9, 2}, {13, 2}, {17, 3}, {25, 3}, {33, 4}, {49, 4}, {65, 5},
    {97, 5}, {129, 6}, {193, 6}, {257, 7}, {385, 7}, {513, 8}, {769, 8}, {1025, 9}, {1537, 9}, {2049, 10}, {3073, 10},
    {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13},
};
// clang-format on

template <std::size_t N>
static unsigned classOf(const ValueClass (&classes)[N], std::size_t value) {
  unsigned found = N - 1;
  while (classes[found].smallest > value) --found;
  return found;
}

static void putMatch(BitWriter& writer, std::size_t length, std::size_t distance) {
  const unsigned lengthClass = classOf(lengthClasses, length);
  putSymbol(writer, 257 + lengthClass);
  putBits(writer, static_cast<std::uint32_t>(length - lengthClasses[lengthClass].smallest), lengthClasses[lengthClass].bits);
  const unsigned distanceClass = classOf(distanceClasses, distance);
  putCode(writer, distanceClass, 5);
  putBits(writer, static_cast<std::uint32_t>(distance - distanceClasses[distanceClass].smallest),
          distanceClasses[distanceClass].bits);
}

// ---- Earlier text -----------------------------------------------------------------------------------------------------

// For every three bytes the last place where they stood, and from each place the one before it.
struct EarlierText {
  std::vector<std::uint32_t> last = std::vector<std::uint32_t>(std::size_t{1} << hashBits, nowhere);
  std::vector<std::uint32_t> before;
};

static std::size_t hashAt(std::string_view bytes, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])); };
  return ((byte(0) << 16 | byte(1) << 8 | byte(2)) * 0x9E3779B1u) >> (32 - hashBits);
}

static void remember(EarlierText& earlier, std::string_view bytes, std::size_t at) {
  if (bytes.size() - at < shortestMatch) return;
  std::uint32_t& last = earlier.last[hashAt(bytes, at)];
  earlier.before[at] = last;
  last = static_cast<std::uint32_t>(at);
}

// The longest text before `at` that stands there again; its length, 0 when it is too short.
static std::size_t findMatch(const EarlierText& earlier, std::string_view bytes, std::size_t at, std::size_t& distance) {
  const std::size_t most = std::min(longestMatch, bytes.size() - at);
  if (most < shortestMatch) return 0;
  std::size_t best = shortestMatch - 1;
  std::uint32_t place = earlier.last[hashAt(bytes, at)];
  for (int tries = 0; tries < mostTries && place != nowhere && at - place <= farthestMatch; ++tries) {
    std::size_t length = 0;
    while (length < most && bytes[place + length] == bytes[at + length]) ++length;
    if (length > best) {
      best = length;
      distance = at - place;
      if (best >= goodMatch || best == most) break;
    }
    place = earlier.before[place];
  }
  return best < shortestMatch ? 0 : best;
}

static std::uint32_t checksum(std::string_view bytes) {
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const char c : bytes) {
    low = (low + static_cast<unsigned char>(c)) % 65521;
    high = (high + low) % 65521;
  }
  return high << 16 | low;
}

// One block of fixed codes. Places are counted in 32 bits, which a page is far from.
static void deflateBlock(BitWriter& writer, std::string_view bytes, bool isLast) {
  putBits(writer, isLast ? 1 : 0, 1);
  putBits(writer, 1, 2);
  EarlierText earlier;
  earlier.before.resize(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    std::size_t distance = 0;
    const std::size_t length = findMatch(earlier, bytes, at, distance);
    if (length == 0) {
      putSymbol(writer, static_cast<unsigned char>(bytes[at]));
    } else {
      putMatch(writer, length, distance);
    }
    for (const std::size_t next = at + std::max<std::size_t>(length, 1); at < next; ++at) remember(earlier, bytes, at);
  }
  putSymbol(writer, endOfBlock);
}

std::string deflated(std::string_view bytes) {
  constexpr std::size_t blockSize = std::size_t{1} << 24;
  std::string out = "\x78\x9c";
  BitWriter writer = {&out};
  std::size_t at = 0;
  do {
    const std::string_view block = bytes.substr(at, blockSize);
    at += block.size();
    deflateBlock(writer, block, at == bytes.size());
  } while (at < bytes.size());
  if (writer.count > 0) putBits(writer, 0, 8 - writer.count);
  const std::uint32_t sum = checksum(bytes);
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(sum >> shift & 0xFF);
  return out;
}

}  // namespace quillon
