// Times programs from their start to their main window. For each pair of arguments the program is started, its window is
// waited for, and the window is closed again; this is done in turn over all pairs, ROUNDS times. One line a round, in
// microseconds. Status 1 when a window has not come after half a minute.
//
// Usage: window_time ROUNDS PROGRAM CLASS [PROGRAM CLASS ...]
#include <stdio.h>
#include <stdlib.h>
#include <windows.h>

// Class names are known, so a program that was left over from another run would be taken for ours: the window must belong
// to the process that was started.
static HWND windowOf(DWORD process, const wchar_t* windowClass) {
  HWND window = NULL;
  while ((window = FindWindowExW(NULL, window, windowClass, NULL)) != NULL) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == process && IsWindowVisible(window)) return window;
  }
  return NULL;
}

static long long now(void) {
  LARGE_INTEGER count, frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return count.QuadPart * 1000000 / frequency.QuadPart;
}

// Microseconds, or -1.
static long long timeOne(const wchar_t* program, const wchar_t* windowClass) {
  wchar_t line[1024];
  swprintf(line, 1024, L"\"%ls\"", program);
  STARTUPINFOW start = {.cb = sizeof start};
  PROCESS_INFORMATION process;
  const long long began = now();
  if (!CreateProcessW(program, line, NULL, NULL, FALSE, 0, NULL, NULL, &start, &process)) {
    fprintf(stderr, "window_time: %ls does not start, error %lu\n", program, GetLastError());
    return -1;
  }
  HWND window = NULL;
  while (!window && now() - began < 30000000) {
    window = windowOf(process.dwProcessId, windowClass);
    if (!window) Sleep(1);
  }
  const long long took = now() - began;
  if (window) PostMessageW(window, WM_CLOSE, 0, 0);
  if (!window || WaitForSingleObject(process.hProcess, 30000) != WAIT_OBJECT_0) {
    fprintf(stderr, "window_time: %ls %s\n", program, window ? "does not end" : "shows no window");
    TerminateProcess(process.hProcess, 1);
    return -1;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return took;
}

int wmain(int argc, wchar_t** argv) {
  if (argc < 4 || argc % 2 != 0) {
    fputs("usage: window_time ROUNDS PROGRAM CLASS [PROGRAM CLASS ...]\n", stderr);
    return 2;
  }
  const int rounds = _wtoi(argv[1]);
  for (int round = 0; round < rounds; ++round) {
    for (int i = 2; i < argc; i += 2) {
      const long long took = timeOne(argv[i], argv[i + 1]);
      if (took < 0) return 1;
      printf("%s%lld", i > 2 ? " " : "", took);
    }
    printf("\n");
    fflush(stdout);
  }
  return 0;
}
