// What the machine allows at best: the input is read into memory, and a file of the report's size is written from memory in
// equal pieces. Nothing is sorted or formatted.
// Usage: limit INPUT OUTPUT BYTES PIECE
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

static int fail(const char* what) {
  perror(what);
  return 1;
}

int main(int argc, char** argv) {
  if (argc != 5) {
    fputs("usage: limit INPUT OUTPUT BYTES PIECE\n", stderr);
    return 2;
  }
  const int in = open(argv[1], O_RDONLY);
  struct stat status;
  if (in < 0 || fstat(in, &status) != 0) return fail(argv[1]);
  const size_t size = (size_t)status.st_size;
  char* records = malloc(size);
  if (!records) return fail("memory");
  // Large pages, as Quillon asks for too: whole pages inside the block.
  const uintptr_t page = 4096, first = ((uintptr_t)records + page - 1) / page * page;
  if (size > page) madvise((void*)first, (size - page) / page * page, MADV_HUGEPAGE);
  for (size_t done = 0; done < size;) {
    const ssize_t got = read(in, records + done, size - done);
    if (got <= 0) return fail(argv[1]);
    done += (size_t)got;
  }
  close(in);

  const size_t pieceSize = strtoull(argv[4], NULL, 10);
  char* piece = malloc(pieceSize);
  if (!piece) return fail("memory");
  memset(piece, ' ', pieceSize);
  const int out = open(argv[2], O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (out < 0) return fail(argv[2]);
  for (size_t left = strtoull(argv[3], NULL, 10); left > 0;) {
    const ssize_t put = write(out, piece, left < pieceSize ? left : pieceSize);
    if (put <= 0) return fail(argv[2]);
    left -= (size_t)put;
  }
  return close(out) == 0 ? 0 : fail(argv[2]);
}
