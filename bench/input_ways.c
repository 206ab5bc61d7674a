// Two ways to have a file's records in memory with a record of zeros behind the last one, and a walk over all of them:
//   read   into a zero-filled block in large pages, as Quillon does
//   map    the file itself, copied only where it is written to, with a page of zeros behind it
// Usage: input_ways read|map INPUT RECORD_SIZE file|mixed ; the walk goes in the file's order, or in one that no cache likes.
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

enum { header = 24, page = 4096, line = 64 };

static int fail(const char* what) {
  perror(what);
  return 1;
}

static char* readWhole(int in, size_t size, size_t room) {
  char* bytes = calloc(room, 1);
  if (!bytes) return NULL;
  const uintptr_t first = ((uintptr_t)bytes + page - 1) / page * page;
  madvise((void*)first, (room - page) / page * page, MADV_HUGEPAGE);
  for (size_t done = 0; done < size;) {
    const ssize_t got = read(in, bytes + done, size - done);
    if (got <= 0) return NULL;
    done += (size_t)got;
  }
  return bytes;
}

static char* mapWhole(int in, size_t size, size_t room) {
  char* bytes = mmap(NULL, room + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (bytes == MAP_FAILED) return NULL;
  bytes = mmap(bytes, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_FIXED | MAP_POPULATE, in, 0);
  return bytes == MAP_FAILED ? NULL : bytes;
}

int main(int argc, char** argv) {
  if (argc != 5) {
    fputs("usage: input_ways read|map INPUT RECORD_SIZE file|mixed\n", stderr);
    return 2;
  }
  const int in = open(argv[2], O_RDONLY);
  struct stat status;
  if (in < 0 || fstat(in, &status) != 0) return fail(argv[2]);
  const size_t size = (size_t)status.st_size, record = strtoull(argv[3], NULL, 10), count = (size - header) / record;
  char* bytes = strcmp(argv[1], "map") == 0 ? mapWhole(in, size, size + record) : readWhole(in, size, size + record);
  if (!bytes) return fail(argv[2]);
  // A step that has no factor in common with the count comes by every record once.
  size_t step = 1, at = 0;
  if (strcmp(argv[4], "mixed") == 0) {
    for (step = 618033; count % step == 0 || step % 2 == 0 || step % 5 == 0;) ++step;
  }
  uint64_t sum = 0;
  for (size_t i = 0; i <= count; ++i) {
    const char* const found = bytes + header + (i < count ? at : count) * record;
    for (size_t byte = 0; byte < record; byte += line) sum += (unsigned char)found[byte];
    at = (at + step) % count;
  }
  printf("%llu\n", (unsigned long long)sum);
  return 0;
}
