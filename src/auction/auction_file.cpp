#include "auction/auction_file.h"

#include <string_view>

#include "frame/file_name.h"

namespace quillon {
namespace {

struct KindRow {
  AuctionKind kind;
  const char* prefix;
  std::size_t recordSize;
};

constexpr KindRow kinds[] = {
    {AuctionKind::mony, "MONY", sizeof(MonyRec)}, {AuctionKind::dely, "DELY", sizeof(DelyRec)},
    {AuctionKind::offs, "OFFS", sizeof(OffsRec)}, {AuctionKind::clbd, "CLBD", sizeof(ClbdRec)},
    {AuctionKind::entl, "ENTL", sizeof(EntlRec)},
};

// Types that are read whole, ahead of all others: "DI" is no D, "OT" no O, "CB" and "CM" no C.
struct EntryRow {
  std::string_view entryType;
  char group;
  const char* word;
};

constexpr EntryRow wholeEntryTypes[] = {
    {"CC", 'A', ""},           {"DI", 'Z', "Dividend"}, {"CB", 'Z', "Cash Bonus"}, {"CM", 'Z', "Call Money"},
    {"SD", 'Z', "Stamp Duty"}, {"OT", 'Z', "Other"},    {"RR", 'Z', "Rights"},
};

const KindRow& rowOf(AuctionKind kind) {
  for (const KindRow& row : kinds) {
    if (row.kind == kind) return row;
  }
  return kinds[0];
}

const EntryRow* wholeEntryType(std::string_view entryType) {
  for (const EntryRow& row : wholeEntryTypes) {
    if (row.entryType == entryType) return &row;
  }
  return nullptr;
}

// Where the last so many characters of a path begin; npos where it has fewer. A letter outside ASCII is one of them, however
// many bytes it takes in UTF-8.
std::size_t placeFromEnd(std::string_view path, std::size_t characters) {
  std::size_t place = path.size();
  for (; characters > 0; --characters) {
    if (place == 0) return std::string_view::npos;
    do {
      --place;
    } while (place > 0 && (static_cast<unsigned char>(path[place]) & 0xC0) == 0x80);
  }
  return place;
}

}  // namespace

const char* auctionPrefix(AuctionKind kind) { return rowOf(kind).prefix; }

std::size_t auctionRecordSize(AuctionKind kind) { return rowOf(kind).recordSize; }

bool auctionPathIsOfKind(const std::string& path, AuctionKind kind) { return fileNameHolds(path, {auctionPrefix(kind)}); }

std::string offerStatusPath(const std::string& moneyPath) {
  constexpr std::size_t nameSize = 12, prefixSize = 4;
  const std::size_t name = placeFromEnd(moneyPath, nameSize);
  if (name == std::string::npos) return {};
  const std::size_t behindPrefix = placeFromEnd(moneyPath, nameSize - prefixSize);
  return moneyPath.substr(0, name) + auctionPrefix(AuctionKind::offs) + moneyPath.substr(behindPrefix);
}

bool isSpecialNotice(const AuctionHeader& header) {
  const char first = header.auctionNoticeNo.bytes[0];
  return first == 'X' || first == 'Y';
}

bool auctionFileSize(Input& input, std::int64_t& size) {
  if (!inputSeekEnd(input)) return false;
  size = inputTell(input);
  return size >= 0 && inputSeekStart(input);
}

std::size_t auctionRecordCount(std::int64_t fileSize, AuctionKind kind) {
  constexpr std::int64_t headerSize = sizeof(AuctionHeader);
  if (fileSize < headerSize) return 0;
  return static_cast<std::size_t>(fileSize - headerSize) / auctionRecordSize(kind);
}

bool readAuctionRecords(Input& input, AuctionKind kind, void* block, std::size_t count) {
  return inputReadRecords(input, block, auctionRecordSize(kind), count) == count;
}

char moneyGroup(const TextField<3>& entryType) {
  if (const EntryRow* row = wholeEntryType(entryType.view())) return row->group;
  const char first = entryType.bytes[0];
  if (first == 'A') return 'a';
  if (first == 'Z') return 'z';
  return first;
}

bool isMoneyGroup(char group) {
  constexpr std::string_view groups = "ABCDOZ";
  return groups.find(group) != std::string_view::npos;
}

const char* entitlementWord(const TextField<3>& entryType) {
  const EntryRow* row = wholeEntryType(entryType.view());
  return row ? row->word : "";
}

}  // namespace quillon
