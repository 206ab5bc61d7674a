// The least that a Windows program can show: one maximised, empty window. Start-up is measured against it.
#include <windows.h>

static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wide, narrow);
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, PWSTR line, int show) {
  (void)previous, (void)line, (void)show;
  const WNDCLASSW windowClass = {
      .lpfnWndProc = windowProc,
      .hInstance = instance,
      .hCursor = LoadCursorW(NULL, (LPCWSTR)IDC_ARROW),
      .hbrBackground = (HBRUSH)(COLOR_WINDOW + 1),
      .lpszClassName = L"EmptyWndClass",
  };
  RegisterClassW(&windowClass);
  HWND window = CreateWindowW(L"EmptyWndClass", L"Empty", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, NULL, NULL, instance, NULL);
  ShowWindow(window, SW_SHOWMAXIMIZED);
  UpdateWindow(window);
  MSG message;
  while (GetMessageW(&message, NULL, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
