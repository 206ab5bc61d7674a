// quillon-pages.exe: reports on the screen, on a printer, as PDF. With an option that says what to do it does that and shows
// nothing; its status tells how it went.

#include "pages/windows/pages_run.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int show) { return quillon::pagesRun(instance, show); }
