// Times a whole run of a program of the Windows side, from its start to its end, and prints microseconds.
// Usage: process_time COMMAND_LINE
#include <stdio.h>
#include <windows.h>

static long long now(void) {
  LARGE_INTEGER count, frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return count.QuadPart * 1000000 / frequency.QuadPart;
}

int wmain(int argc, wchar_t** argv) {
  if (argc != 2) {
    fputs("usage: process_time COMMAND_LINE\n", stderr);
    return 2;
  }
  STARTUPINFOW start = {.cb = sizeof start};
  PROCESS_INFORMATION process;
  const long long began = now();
  if (!CreateProcessW(NULL, argv[1], NULL, NULL, FALSE, 0, NULL, NULL, &start, &process)) {
    fprintf(stderr, "process_time: error %lu at the start\n", GetLastError());
    return 1;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  const long long took = now() - began;
  DWORD status = 1;
  GetExitCodeProcess(process.hProcess, &status);
  printf("%lld\n", took);
  return (int)status;
}
