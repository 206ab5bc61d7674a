#include "auction/delivery_slips.h"

#include "text/print.h"

namespace quillon {

static std::string_view piece(std::string_view text, std::size_t begin, std::size_t size) {
  return begin < text.size() ? text.substr(begin, size) : std::string_view();
}

// The clock's years since 1900, as two digits were once told apart: one of up to 96 belongs to the century after.
static int yearOf(const LocalTime& now) {
  const int years = now.year - 1900;
  return years > 96 ? 1900 + years : 2000 + years;
}

SlipName slipNameOf(std::string_view fileName, const LocalTime& now) {
  constexpr std::size_t noticeSize = 3;
  const std::size_t begin = fileName.size() > noticeSize ? fileName.size() - noticeSize : 0;
  return {std::string(fileName.substr(begin)),
          formatText<"%s-%s-%04d">(piece(fileName, 4, 2), piece(fileName, 6, 2), yearOf(now))};
}

static bool isDelivery(const DelyRec& record) { return record.side == 'B'; }

void keepDeliveries(DelyRec* records, std::size_t count) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (isDelivery(records[i])) records[kept++] = records[i];
  }
  for (; kept < count; ++kept) records[kept] = {};
}

// clang-format off

namespace {

// Two slips side by side; null: nothing is delivered there.
struct Pair {
  const DelyRec* left;
  const DelyRec* right;
};

constexpr std::int32_t vbAccount = 999;  // the bank code of what does not go to the clearing house

}  // namespace

static void printNoticeLine(Output& out, const SlipName& name, const Pair& pair) {
  if (pair.left) {
    print<"%25cAuction Notice No.: %3s">(out, ' ', name.noticeNo);
  } else {
    print<"%48c">(out, ' ');
  }
  if (pair.right) print<"%46cAuction Notice No.: %3s">(out, ' ', name.noticeNo);
  print<"\n\n\n\n\n">(out);
}

static void printMemberLine(Output& out, const AuctionHeader& header, const SlipName& name, const Pair& pair) {
  if (pair.left) {
    print<"%4ld %.19s %6ld %.19s  %.10s">(out, header.clearingNo, header.memberName, pair.left->brokerNo,
        pair.left->brokerName, name.date);
  }
  if (pair.right) {
    print<"%6s%4ld %.19s %6ld %.19s  %.10s">(out, " ", header.clearingNo, header.memberName, pair.right->brokerNo,
        pair.right->brokerName, name.date);
  }
  print<"\n">(out);
}

static void printAccountLine(Output& out, const Pair& pair) {
  if (pair.left) {
    if (pair.left->bankCode == vbAccount) {
      print<"%30c KOR - VB A/C%55c">(out, ' ', ' ');
    } else {
      print<"%27c THE CLEARING HOUSE A/C%47c">(out, ' ', ' ');
    }
  }
  if (pair.right) {
    if (pair.right->bankCode == vbAccount) {
      print<"KOR - VB A/C">(out);
    } else {
      print<"THE CLEARING HOUSE A/C">(out);
    }
  }
  print<"\n\n\n\n\n">(out);
}

static void printSecurityLine(Output& out, const Pair& pair) {
  if (pair.left) {
    print<"%22c%6ld %.12s %8ld %40c">(out, ' ', pair.left->scripCode, pair.left->scripName, pair.left->quantity, ' ');
  }
  if (pair.right) print<"%6ld %.12s %8ld">(out, pair.right->scripCode, pair.right->scripName, pair.right->quantity);
  print<"\n\n\n\n\n\n\n">(out);
}

// clang-format on

std::size_t printDeliverySlips(Output& out, const AuctionHeader& header, const SlipName& name, const DelyRec* records,
                               std::size_t count) {
  const auto deliveryAt = [&](std::size_t i) { return i < count && isDelivery(records[i]) ? &records[i] : nullptr; };
  std::size_t slips = 0;
  for (std::size_t i = 0; i < count; i += 2) {
    const Pair pair = {deliveryAt(i), deliveryAt(i + 1)};
    slips += (pair.left ? 1u : 0u) + (pair.right ? 1u : 0u);
    printNoticeLine(out, name, pair);
    printMemberLine(out, header, name, pair);
    printAccountLine(out, pair);
    printSecurityLine(out, pair);
  }
  return slips;
}

}  // namespace quillon
