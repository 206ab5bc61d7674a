#include "convert/converted_name.h"

#include <cstddef>

namespace quillon {

// TR230404.B01 becomes TR230404.001.
static std::string withDigit(std::string title) {
  if (title.size() >= 3) title[title.size() - 3] = '0';
  return title;
}

// BR230404.BIN becomes BR230404.DAT.
static std::string withNewEnding(std::string title) {
  if (title.size() >= 3) title.replace(title.size() - 3, 3, "DAT");
  return title;
}

// OR230404.ORD becomes OG230404ORD.DAT. It is the fourth character from the end that goes, be it a dot or not: a name with four
// letters behind its dot keeps the dot and loses the first of them.
static std::string logName(std::string title) {
  if (title.size() >= 2) title[1] = 'G';
  if (title.size() >= 4) title.erase(title.size() - 4, 1);
  return title + ".DAT";
}

// BO230404.BIN becomes COL230404.DAT.
static std::string consolidatedLogName(const std::string& title) {
  constexpr std::size_t front = 2;
  return "COL" + (title.size() > front ? title.substr(front, 6) : "") + ".DAT";
}

std::string convertedName(const TradeHeader& header, std::string fileTitle) {
  if (header.fileKind == 'S') return logName(std::move(fileTitle));
  switch (header.kind) {
    case 'B':
      return withNewEnding(std::move(fileTitle));
    case 'O':
    case 'Q':
      return logName(std::move(fileTitle));
    case 'L':
      return consolidatedLogName(fileTitle);
  }
  return withDigit(std::move(fileTitle));  // a trade file, and any other
}

}  // namespace quillon
