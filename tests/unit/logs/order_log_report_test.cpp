// The four lists of an order log, each in the wide arrangement of early and lending files and the narrow one of late files.
#include "logs/order_log_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "frame/client_types.h"
#include "logs/order_log_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

const TradeHeader late = logHeader(123, 45, 25, 5, 2010);
const TradeHeader early = logHeader(123, 45, 21, 5, 2009);
const TradeHeader bigIds = logHeader(1234567890, -2147483647 - 1, 31, 12, 2010);
const TradeHeader smallIds = logHeader(7, 3, 5, 3, 2010);

// The file's side letters are rewritten as a run does it, so that every page shows them turned back.
template <typename Record>
std::string listed(std::vector<Record> records, const TradeHeader& header, const OrderLogOptions& options) {
  registerClientTypes();
  OrderLogRecords view = inFileOrder(records);
  if (options.isLendingFile) rewriteOrderLends(view.layout, records.data(), view.count);
  return reportOf([&](Output& out) { printOrderLog(out, header, view, options); });
}

template <typename Record, typename Row>
void expectPages(const std::string& name, OrderLogList list, const std::vector<Row>& ordinary, const std::vector<Row>& wide,
                 const std::vector<Row>& narrow) {
  for (const bool preCutover : {false, true}) {
    const std::string base = "logs/" + name + (preCutover ? "_early" : "_late");
    expectApproved(base + ".txt", listed(block<Record>(ordinary), preCutover ? early : late, {list, preCutover, false, 3}));
    expectApproved(base + "_wide_values.txt", listed(block<Record>(wide), bigIds, {list, preCutover, false, 1}));
    expectApproved(base + "_narrow_values.txt", listed(block<Record>(narrow), smallIds, {list, preCutover, false, 50}));
  }
  expectApproved("logs/" + name + "_lending.txt", listed(block<Record>(ordinary), late, {list, false, true, 3}));
  expectApproved("logs/" + name + "_lending_narrow_values.txt",
                 listed(block<Record>(narrow), smallIds, {list, false, true, 50}));
}

TEST(OrderLogPages, orders) {
  expectPages<OrderRec136>("orders", OrderLogList::orders, ordinaryOrders, wideOrders, narrowOrders);
}
TEST(OrderLogPages, clientRectification) {
  expectPages<OrderRec136>("clients", OrderLogList::clientRectification, ordinaryOrders, wideOrders, narrowOrders);
}
TEST(OrderLogPages, typeRectification) {
  expectPages<OrderRec136>("types", OrderLogList::typeRectification, ordinaryOrders, wideOrders, narrowOrders);
}
TEST(OrderLogPages, consolidated) {
  expectPages<ConsolidatedOrderRec>("consolidated", OrderLogList::consolidated, ordinaryConsolidated, wideConsolidated,
                                    narrowConsolidated);
}

// They know no kinds: every record is an order.
TEST(OrderLogPages, shortRecordsAreAllListedAndAlwaysWide) {
  const TradeHeader oldest = logHeader(123, 45, 21, 11, 2003);
  expectApproved("logs/orders_rec112.txt",
                 listed(block<OrderRec112>(ordinaryOrders), oldest, {OrderLogList::orders, false, false, 3}));
  expectApproved("logs/orders_rec112_wide_values.txt",
                 listed(block<OrderRec112>(wideOrders), bigIds, {OrderLogList::orders, false, false, 1}));
}

}  // namespace
}  // namespace quillon::test
