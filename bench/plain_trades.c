// The measure's plain program: what a good C programmer writes to print a trade file sorted by scrip code. The file is
// taken by fread, an index is sorted by qsort with the file position as last key, and every line goes out by fprintf to a
// stream with a buffer of 1 MiB. No other trick, and no step that a careful programmer would leave out.
//
// Usage: plain_trades INPUT OUTPUT. Market-lot files dated after the cut-over: the 132-byte layout, and the 144-byte layout
// of regular trades without scrip group and settlement number. 50 rows a page, lines end in CR LF.
#include <inttypes.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#pragma pack(push, 1)
struct Header {
  char fileKind, kind;
  int32_t memberId, traderId;
  int16_t day, month, century, year, hour, minute, second;
};

struct Trade132 {
  int32_t scripCode;
  char scripId[12];
  int32_t trdId, rate, qty, brokerId, traderId;
  char time[15], date[15], clientId[12];
  char side, tradeType;
  int64_t trnId;
  char cliTyp[10];
  char unread[34];
};

struct Trade144 {
  int32_t scripCode;
  char scripId[12];
  int32_t trdId, rate, qty, brokerId, traderId;
  char time[15], date[15], orderTimeStamp[20], clientId[12];
  char side, tradeType;
  int64_t trnId;
  char cliTyp[10];
  char secondClient[13], scGr[5];
  int16_t settlementYear;
  char padding[2];
  int32_t settlementNo;
};
#pragma pack(pop)

_Static_assert(sizeof(struct Header) == 24, "the header is 24 bytes");
_Static_assert(sizeof(struct Trade132) == 132, "a short record is 132 bytes");
_Static_assert(sizeof(struct Trade144) == 144, "a long record is 144 bytes");

enum { rowsPerPage = 50, bufferSize = 1 << 20 };

static const char rule[] =
    "________________________________________________________________________________________________________"
    "______________________";

static const char rule107[] =
    "_____________________________________________________________________________________________"
    "______________|";

// The last `n` of the underscores, so that "%s" prints n of them.
static const char* underscores(int n) { return rule + sizeof rule - 1 - n; }

static const struct Trade132* trades132;
static const struct Trade144* trades144;

static int compare132(const void* left, const void* right) {
  const uint32_t a = *(const uint32_t*)left, b = *(const uint32_t*)right;
  const struct Trade132 *x = &trades132[a], *y = &trades132[b];
  if (x->scripCode != y->scripCode) return x->scripCode < y->scripCode ? -1 : 1;
  const int clients = strcmp(x->clientId, y->clientId);
  if (clients != 0) return clients;
  return a < b ? -1 : a > b;
}

static int compare144(const void* left, const void* right) {
  const uint32_t a = *(const uint32_t*)left, b = *(const uint32_t*)right;
  const struct Trade144 *x = &trades144[a], *y = &trades144[b];
  if (x->scripCode != y->scripCode) return x->scripCode < y->scripCode ? -1 : 1;
  const int clients = strcmp(x->clientId, y->clientId);
  if (clients != 0) return clients;
  return a < b ? -1 : a > b;
}

static void printPageHeader(FILE* out, const struct Header* header, int page) {
  char date[32];
  snprintf(date, sizeof date, "%02d/%02d/%02d%02d", header->day, header->month, header->century, header->year);
  fprintf(out, "%72s%45s%2d\r\n", "TARVEN STOCK EXCHANGE LTD.", "Page:", page);
  fprintf(out, "%10s%7ld\r\n", "Broker Id. :", (long)header->memberId);
  fprintf(out, "%10s%7ld\r\n", "Trader Id. :", (long)header->traderId);
  fprintf(out, "%72s%10s\r\n", "LIST OF TRADES EXECUTED ON:", date);
  fprintf(out, "%126s\r\n", underscores(126));
  fprintf(out, "%1c%21s%8c%19c%19s%10c%11s%1c%18s%1c%6s%1c%9s%1c\r\n", '|', "Bought from", '|', '|', "Sold to  ", '|',
          "ClientId", '|', "TrnId", '|', "TrdId", '|', "Time", '|');
  fprintf(out, "%1c%28s%1c%18s%1c%28s%1c%12c%19c%7c%10c\r\n", '|', underscores(28), '|', underscores(18), '|', underscores(28),
          '|', '|', '|', '|', '|');
  fprintf(out, "%1c%7s%1c%6s%4c%8s%3c%11s%1c%6s%1c", '|', "Br/TrId", '|', "Qty", '|', "Rate", '|', "ScripId", '|', "ScrpCd",
          '|');
  fprintf(out, "%7s%1c%6s%4c%8s%3c%12c%19c%7c%10c\r\n", "Br/TrId", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|');
  fprintf(out, "%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c", '|', underscores(7), '|', underscores(9), '|', underscores(10), '|',
          underscores(11), '|', underscores(6), '|');
  fprintf(out, "%7s%1c%9s%1c%10s%1c%11s%1c%18s%1c%6s%1c%9s%1c\r\n", underscores(7), '|', underscores(9), '|', underscores(10),
          '|', underscores(11), '|', underscores(18), '|', underscores(6), '|', underscores(9), '|');
  fprintf(out, "%1c%17s%1c%22s%1c\r\n", '|', "  OrderTimeStamp ", '|', "InstId", '|');
  fprintf(out, "%1c%17s%1c%22s%1c%84s\r\n", '|', underscores(17), '|', underscores(22), '|', underscores(84));
}

static void printRule132(FILE* out) {
  fprintf(out, "%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c", '|', underscores(7), '|', underscores(9), '|', underscores(8), '|',
          underscores(11), '|', underscores(6), '|');
  fprintf(out, "%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\r\n", underscores(7), '|', underscores(9), '|',
          underscores(10), '|', underscores(11), '|', underscores(12), '|', underscores(6), '|', underscores(9), '|',
          underscores(6), '|');
}

static void printTrade132(FILE* out, const struct Trade132* t) {
  if (t->side == 'B') {
    fprintf(out,
            "%1c%4ld%1c%2ld%1c%9ld%1c%8.2f%1c%11s%1c%6ld%1c%7s%1c%9s%1c%10s%1c%11s%1c%11" PRId64
            "%1c%1c%6ld%1c%9s%1c%-6s%1c\r\n",
            '|', (long)t->brokerId, '/', (long)t->traderId, '|', (long)t->qty, '|', t->rate / 100.0, '|', t->scripId, '|',
            (long)t->scripCode, '|', "", '|', "", '|', "", '|', t->clientId, '|', t->trnId, t->tradeType, '|', (long)t->trdId,
            '|', t->time, '|', t->cliTyp, '|');
  } else if (t->side == 'S') {
    fprintf(out, "%1c%7s%1c%9s%1c%8s%1c", '|', "", '|', "", '|', "", '|');
    fprintf(out, "%11s%1c%6ld%1c%4ld%1c%2ld%1c%9ld%1c%10.2f%1c%11s%1c%11" PRId64 "%1c%1c%6ld%1c%9s%1c%-6s%1c\r\n", t->scripId,
            '|', (long)t->scripCode, '|', (long)t->brokerId, '/', (long)t->traderId, '|', (long)t->qty, '|', t->rate / 100.0,
            '|', t->clientId, '|', t->trnId, t->tradeType, '|', (long)t->trdId, '|', t->time, '|', t->cliTyp, '|');
  }
}

static void printTrade144(FILE* out, const struct Trade144* t) {
  if (t->side == 'B') {
    fprintf(out, "%1c%4c%1c%2c%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%7s%1c%9s%1c%10s%1c%11s%1c%17" PRId64 "%1c%1c%6ld%1c%9s%1c\r\n",
            '|', ' ', ' ', ' ', '|', (long)t->qty, '|', t->rate / 100.0, '|', t->scripId, '|', (long)t->scripCode, '|', "", '|',
            "", '|', "", '|', t->clientId, '|', t->trnId, t->tradeType, '|', (long)t->trdId, '|', t->time, '|');
  } else if (t->side == 'S') {
    fprintf(out, "%1c%7s%1c%9s%1c%10s%1c", '|', "", '|', "", '|', "", '|');
    fprintf(out, "%11s%1c%6ld%1c%4c%1c%2c%1c%9ld%1c%10.2f%1c%11s%1c%17" PRId64 "%1c%1c%6ld%1c%9s%1c\r\n", t->scripId, '|',
            (long)t->scripCode, '|', ' ', ' ', ' ', '|', (long)t->qty, '|', t->rate / 100.0, '|', t->clientId, '|', t->trnId,
            t->tradeType, '|', (long)t->trdId, '|', t->time, '|');
  } else {
    return;
  }
  char orderTime[9];
  memcpy(orderTime, t->orderTimeStamp + 11, 8);
  orderTime[8] = 0;
  fprintf(out, "%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c%7s%1c%9s%1c%10s%1c%11s%1c%18s%1c%6s%1c%9s%1c\r\n", '|', underscores(7), '|',
          underscores(9), '|', underscores(10), '|', underscores(11), '|', underscores(6), '|', underscores(7), '|',
          underscores(9), '|', underscores(10), '|', underscores(11), '|', underscores(18), '|', underscores(6), '|',
          underscores(9), '|');
  fprintf(out, "%1c%17s%1c%22s%1c%83s%1c\r\n", '|', orderTime, '|', t->cliTyp, '|', "", '|');
  fprintf(out, "%1c%17s%1c%22s%1c%83s%1c\r\n", '|', underscores(17), '|', underscores(22), '|', underscores(83), '|');
}

// The rules' last cells are as many underscores as told, and a bar behind them.
static void printPageEndRule144(FILE* out) { fprintf(out, "%1c%17s%1c%106s\r\n", '|', underscores(17), '|', rule107 + 1); }

static void printClosingRule144(FILE* out) { fprintf(out, "%1c%17s%1c%99s\r\n", '|', underscores(17), '|', rule107); }

static void shortenType(char* cliTyp) {
  if (strcmp(cliTyp, "CLIENT_SD") == 0) strcpy(cliTyp, "CL_SD");
}

static void fail(const char* what) {
  fprintf(stderr, "plain_trades: %s\n", what);
  exit(1);
}

int main(int argc, char** argv) {
  if (argc != 3) fail("usage: plain_trades INPUT OUTPUT");
  FILE* in = fopen(argv[1], "rb");
  if (!in) fail("the input cannot be opened");
  struct Header header;
  if (fread(&header, sizeof header, 1, in) != 1) fail("the input has no header");
  const int isShort = header.fileKind != 'V';
  const size_t size = isShort ? sizeof(struct Trade132) : sizeof(struct Trade144);
  fseek(in, 0, SEEK_END);
  const size_t count = ((size_t)ftell(in) - sizeof header) / size;
  fseek(in, sizeof header, SEEK_SET);
  char* trades = malloc(count * size);
  uint32_t* order = malloc(count * sizeof *order);
  if (!trades || !order) fail("no memory");
  if (fread(trades, size, count, in) != count) fail("the input cannot be read");
  fclose(in);

  for (size_t i = 0; i < count; ++i) order[i] = (uint32_t)i;
  trades132 = (const struct Trade132*)trades;
  trades144 = (const struct Trade144*)trades;
  qsort(order, count, sizeof *order, isShort ? compare132 : compare144);

  FILE* out = fopen(argv[2], "wb");
  if (!out) fail("the output cannot be opened");
  setvbuf(out, NULL, _IOFBF, bufferSize);
  int page = 1, row = 0;
  printPageHeader(out, &header, page++);
  for (size_t i = 0; i < count; ++i) {
    if (row == rowsPerPage) {
      if (isShort) {
        printRule132(out);
      } else {
        printPageEndRule144(out);
      }
      fprintf(out, "%c", 12);
      printPageHeader(out, &header, page++);
      row = 0;
    }
    char* trade = trades + order[i] * size;
    if (isShort) {
      shortenType(((struct Trade132*)trade)->cliTyp);
      printTrade132(out, (struct Trade132*)trade);
    } else {
      shortenType(((struct Trade144*)trade)->cliTyp);
      printTrade144(out, (struct Trade144*)trade);
    }
    ++row;
  }
  if (isShort) {
    printRule132(out);
  } else {
    printClosingRule144(out);
  }
  if (ferror(out) | fclose(out)) fail("the output cannot be written");
  return 0;
}
