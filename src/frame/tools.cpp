#include "frame/tools.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "desktop/boxes.h"

namespace quillon {

// clang-format off
static constexpr ToolButton buttons[] = {
    {toolTrades,           183, "Trades Printing",             "PRNTRPT"},
    {toolNetPosition,      196, "NetPosition Printing",        "PRNTNP"},
    {toolSlbPosition,      200, "SLB Position Printing",       "PRNTNPRET"},
    {toolAuction,          184, "Auction Report Printing",     "AUCRPT"},
    {toolTouchlines,       192, "TouchLines Printing",         "PRNTTLINE"},
    {toolTraderLimits,     195, "Trader Limits Printing",      "PRNTTRDLM"},
    {tool6A7A,             194, "6A 7A Report Printing",       "PRNTSIXASEVENA"},
    {toolBreakup,          189, "BreakUp Data Printing",       "PRNTBRKUP"},
    {toolBrokerQuery,      187, "Broker Query Printing",       "PRNTBRKREP"},
    {toolConvert,          188, "Convert",                     "CONVERT"},
    {toolDelivery,         190, "Auc.Delv Statement Printing", "DELV"},
    {toolKesto,            185, "Kesto Printing",              "PRNTVQLS"},
    {toolKestoNetPosition, 186, "Kesto Net Position Printing", "PRNTNETPOS"},
    {toolOrderLog,         191, "Order Log Printing",          "PRNTORDLOG"},
    {toolQuoteLog,         197, "Quote Log Printing",          "PRNTQUOTELOG"},
    {toolAdminLog,         202, "Admin Log Printing",          "PRNTADMINLOG"},
};

static constexpr int routingOrder[] = {
    toolTrades,  toolBrokerQuery, toolConvert,     tool6A7A,  toolTraderLimits,     toolTouchlines, toolAuction,  toolBreakup,
    toolNetPosition, toolSlbPosition, toolKesto, toolKestoNetPosition, toolOrderLog,  toolQuoteLog,  toolDelivery, toolAdminLog,
};

// Trades stands twice: the second time its handle is already null, which does nothing.
static constexpr int shutdownBeforeToolbar[] = {
    toolTrades, toolTrades, toolNetPosition, toolSlbPosition, toolConvert, toolAuction, toolBreakup, toolTouchlines,
    toolTraderLimits, tool6A7A,
};
static constexpr int shutdownAfterToolbar[] = {
    toolDelivery, toolKesto, toolKestoNetPosition, toolOrderLog, toolAdminLog,
};
// clang-format on

static constexpr std::size_t toolCount = std::size(buttons);
static_assert(toolCount == 16 && std::size(routingOrder) == toolCount);

const std::span<const ToolButton> toolTable = buttons;

static struct {
  std::span<const FormEntry> forms;
  std::array<FormHandle, toolCount> handles;
  std::array<FormHandle, toolCount> routed;
} state;

static int positionOf(int tool) {
  for (std::size_t i = 0; i < toolCount; ++i) {
    if (buttons[i].tool == tool) return static_cast<int>(i);
  }
  return -1;
}

// Null for a form that this program does not have.
static FormHandler handlerOf(const char* resource) {
  for (const FormEntry& entry : state.forms) {
    if (std::strcmp(entry.resource, resource) == 0) return entry.handler;
  }
  return nullptr;
}

namespace {

// What is told when a form cannot be made.
struct CreationFailure {
  int tool;
  const char* text;
  const char* title;
};

}  // namespace

static constexpr CreationFailure commonFailure = {0, "Dialog Creation Failed", nullptr};
static constexpr CreationFailure ownFailures[] = {
    {toolDelivery, "Error Creating Delivery Box", "ERROR"},
    {toolConvert, "Dialog Creation Failed", "CONVERT"},
};

static FormHandle createDialog(const ToolButton& button) {
  const FormHandler handler = handlerOf(button.form);
  const FormHandle form = handler ? formCreate(button.form, handler) : nullptr;
  if (form) return form;
  const auto isOwn = [&button](const CreationFailure& row) { return row.tool == button.tool; };
  const auto own = std::find_if(std::begin(ownFailures), std::end(ownFailures), isOwn);
  const CreationFailure& told = own != std::end(ownFailures) ? *own : commonFailure;
  boxShow(nullptr, told.title, told.text, BoxIcon::error);
  return nullptr;
}

void toolsSetForms(std::span<const FormEntry> forms) {
  state.forms = forms;
  state.handles = {};
}

FormHandle toolForm(int tool) {
  const int position = positionOf(tool);
  return position < 0 ? nullptr : state.handles[static_cast<std::size_t>(position)];
}

void toolFormGone(int tool) {
  const int position = positionOf(tool);
  if (position >= 0) state.handles[static_cast<std::size_t>(position)] = nullptr;
}

void toolCommand(int tool) {
  const int position = positionOf(tool);
  if (position < 0) return;
  FormHandle& handle = state.handles[static_cast<std::size_t>(position)];
  if (handle) {
    formDestroy(handle);
    appSetToolChecked(tool, false);
    return;
  }
  handle = createDialog(buttons[position]);
  if (handle) formShow(handle);
  appSetToolChecked(tool, true);
}

const char* toolTooltip(int tool) {
  const int position = positionOf(tool);
  return position < 0 ? nullptr : buttons[position].tooltip;
}

std::span<const FormHandle> toolsInRoutingOrder() {
  for (std::size_t i = 0; i < toolCount; ++i) state.routed[i] = toolForm(routingOrder[i]);
  return state.routed;
}

void toolsDestroyAll() {
  for (int tool : shutdownBeforeToolbar) formDestroy(toolForm(tool));
  appDestroyToolbar();
  for (int tool : shutdownAfterToolbar) formDestroy(toolForm(tool));
}

}  // namespace quillon
