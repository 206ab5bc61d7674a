// quillon-script [FILE]: the program's forms on the scripted desktop, worked by commands, told in JSON lines.

#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "report_forms.h"

int main(int argc, char** argv) {
  return quillon::scriptMain(argc, argv, [] { return quillon::frameRun(quillon::reportForms()); });
}
