#include "logs/quote_log_file.h"

namespace quillon {

std::array<RecordKey, 3> quoteLogSortKeys(QuoteSort sort) {
  constexpr RecordKey none = {KeyKind::none, 0, 0};
  constexpr RecordKey time = {KeyKind::time, offsetof(QuoteRec, hour), 3};
  constexpr RecordKey quoteId = {KeyKind::number64, offsetof(QuoteRec, quoteId), sizeof(QuoteRec::quoteId)};
  switch (sort) {
    case QuoteSort::scripCode:
      return {{{KeyKind::number, offsetof(QuoteRec, scripCode), sizeof(QuoteRec::scripCode)}, time, quoteId}};
    case QuoteSort::scripId:
      return {{{KeyKind::text, offsetof(QuoteRec, scripId), sizeof(QuoteRec::scripId)}, time, quoteId}};
    case QuoteSort::bidClientId:
      return {{{KeyKind::text, offsetof(QuoteRec, bidClientId), sizeof(QuoteRec::bidClientId)}, time, quoteId}};
    case QuoteSort::offerClientId:
      return {{{KeyKind::text, offsetof(QuoteRec, offerClientId), sizeof(QuoteRec::offerClientId)}, time, quoteId}};
    case QuoteSort::time:
      break;
  }
  return {{none, none, none}};
}

}  // namespace quillon
