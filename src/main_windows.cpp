// quillon.exe: the program on the Windows desktop. It takes no arguments and reads no settings.

#include "desktop/windows/start.h"
#include "frame/main_window.h"
#include "report_forms.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  quillon::windowsStart(instance);
  return quillon::frameRun(quillon::reportForms());
}
