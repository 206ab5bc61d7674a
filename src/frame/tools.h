// The 16 tools: one toolbar button each, which opens and closes one form.
#pragma once

#include <span>

#include "desktop/app.h"
#include "desktop/forms.h"

namespace quillon {

inline constexpr int toolTrades = 20006;
inline constexpr int toolNetPosition = 20007;
inline constexpr int toolSlbPosition = 7020;
inline constexpr int toolAuction = 20008;
inline constexpr int toolTouchlines = 20009;
inline constexpr int toolTraderLimits = 20010;
inline constexpr int tool6A7A = 20011;
inline constexpr int toolBreakup = 20012;
inline constexpr int toolBrokerQuery = 20013;
inline constexpr int toolConvert = 20014;
inline constexpr int toolDelivery = 40033;
inline constexpr int toolKesto = 20015;
inline constexpr int toolKestoNetPosition = 20016;
inline constexpr int toolOrderLog = 4049;
inline constexpr int toolQuoteLog = 20018;
inline constexpr int toolAdminLog = 40037;

// In the order of the buttons on the toolbar.
extern const std::span<const ToolButton> toolTable;

// A form resource and the handler that answers for it.
struct FormEntry {
  const char* resource;
  FormHandler handler;
};

// The forms that this program has; a tool whose form is not among them cannot be opened.
void toolsSetForms(std::span<const FormEntry> forms);

// The form of a tool; null while it is closed, or where there is no such tool.
FormHandle toolForm(int tool);
// Called by a form on `destroy`: the tool is closed from here on.
void toolFormGone(int tool);

// A press of the tool's button or key, or a form's wish to be closed: opens the form or destroys it, and sets the button's
// check state to match. A form that cannot be made has said so by then, and its button is set to checked all the same. An id
// that is no tool does nothing.
void toolCommand(int tool);

// Null where the id is no tool.
const char* toolTooltip(int tool);

// The open forms in the order in which a message is offered to them; closed ones are null.
std::span<const FormHandle> toolsInRoutingOrder();

// Destroys the forms in the order of the shut-down. Broker Query and Quote Log are not among them: they go with their owner.
void toolsDestroyAll();

}  // namespace quillon
