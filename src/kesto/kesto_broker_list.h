// The list of a Kesto broker query as the Kesto form prints it: lends in the left half of a row, borrows in the right half,
// with days, settlement and four decimals. The Broker Query form lists the same records more briefly.
#pragma once

#include "brokerquery/broker_file.h"
#include "kesto/kesto_list.h"
#include "text/output.h"

namespace quillon {

// The whole list, from the first page header to the form feed behind the closing rule, list.linesPerPage records on each page.
// A record whose leg code is none of the four prints nothing and takes its place on the page.
void printKestoBrokerList(Output& out, KestoList& list, const KestoBrokerRec* records, KestoOrder order);

}  // namespace quillon
