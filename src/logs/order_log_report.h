// The four lists of an order log: orders, rectifications of client ids, rectifications of client types, and the orders of a
// consolidated log. Each record is a block of rows between rules; nothing is totalled.
//
// Files dated before 22 May 2009 and those of the lending market are listed wide, with an order number of 11 digits and the
// message in a column of its own; later files narrow, with 18 digits and the message in a row of its own.
#pragma once

#include <cstddef>

#include "logs/order_log_file.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

enum class OrderLogList { orders, clientRectification, typeRectification, consolidated };

// The list of a choice; a consolidated log has one list alone.
OrderLogList orderLogList(OrderLogLayout layout, OrderLogChoice choice);

struct OrderLogOptions {
  OrderLogList list;        // one that the records' layout has: consolidated for those, else orders, and for rec136 all three
  bool preCutover;          // the file is dated before 22 May 2009
  bool isLendingFile;       // of the lending market
  unsigned recordsPerPage;  // from 1
};

// Writes the whole list, page numbers from 1. Of rec136 only the records of the list's own kind are printed.
void printOrderLog(Output& out, const TradeHeader& header, const OrderLogRecords& records, const OrderLogOptions& options);

}  // namespace quillon
