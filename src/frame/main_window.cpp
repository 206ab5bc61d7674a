#include "frame/main_window.h"

#include "desktop/app.h"
#include "desktop/boxes.h"
#include "frame/client_types.h"

namespace quillon {

static constexpr char mutexName[] = "QuillonMutex";

static constexpr AppWindow mainWindow = {
    .windowClass = "PrntWndClass",
    .title = "Windows Printing Program for Windows 2000, Version 18.02",
    .icon = "QUILLON",
    .accelerators = "QUILLONACC",
};

static bool toolbarBuilt;

static bool initialise() { return true; }

static void onCreated() {
  if (!toolbarBuilt) {
    toolbarBuilt = true;  // first, since a toolbar tells of its own making, and that notification comes here too
    appBuildToolbar(toolTable);
  }
  registerClientTypes();
}

// Any notification but the tooltip request goes the way of the window's creation: the toolbar is there already and is left
// alone, and the client types are filled in again. Harmless, and to stay.
static void onNotified() { onCreated(); }

static void onDestroyed() {
  toolsDestroyAll();
  toolbarBuilt = false;
  appMutexRelease();
  appQuit(0);
}

static constexpr AppHandler handler = {
    .created = onCreated,
    .command = toolCommand,
    .tooltip = toolTooltip,
    .notified = onNotified,
    .destroyed = onDestroyed,
    .openForms = toolsInRoutingOrder,
};

int frameRun(std::span<const FormEntry> forms) {
  if (!initialise()) return 0;
  toolsSetForms(forms);
  toolbarBuilt = false;
  // The class is registered inside this test on purpose: a second copy has no class, so its window cannot be made.
  if (!appMutexExists(mutexName)) {
    appMutexCreate(mutexName);
    if (!appRegisterClass(mainWindow)) boxShow(nullptr, nullptr, "Error in InitWindow", BoxIcon::error);
  }
  if (!appCreateWindow(mainWindow, handler)) return 0;
  return appRun(mainWindow);
}

}  // namespace quillon
