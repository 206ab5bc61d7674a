#include "position/position_tool.h"

#include "frame/file_selection.h"
#include "frame/tools.h"
#include "resource.h"

namespace quillon {

// clang-format off
const PositionTool netPositionTool = {
    .tool                 = toolNetPosition,
    .loadRequest          = loadNetPosition,
    .always144            = false,
    .plainTitle           = "NET POSITION PRINTING",
    .loadedTitle          = "PRINTING NETPOSITION- ",
    .loadedTitleLending   = "PRINTING NETPOSITION- ",
    .completionTitle      = "PRINTING NET POSITION",
    .clientsInScripFailed = "hClientsInScrip Data : Memory Allocation Failure",
    .scNetPosFailed       = "SCNetPos Data : Memory Allocation Failure",
    .controls = {
        .load            = IDC_NETPOS_LOAD,
        .clientWise      = IDC_NETPOS_CLIENT,
        .scripWise       = IDC_NETPOS_SCRIP,
        .clientScrip     = IDC_NETPOS_CLIENT_SCRIP,
        .scripClient     = IDC_NETPOS_SCRIP_CLIENT,
        .clientList      = IDC_NETPOS_CLIENT_LIST,
        .clientListLabel = IDC_NETPOS_CLIENT_LIST_LABEL,
        .scripList       = IDC_NETPOS_SCRIP_LIST,
        .scripListLabel  = IDC_NETPOS_SCRIP_LIST_LABEL,
        .printer         = IDC_NETPOS_PRINTER,
        .file            = IDC_NETPOS_FILE,
        .outFileControls = {IDC_NETPOS_OUTFILE, IDC_NETPOS_OUTFILE_LABEL},
        .lines           = IDC_NETPOS_LINES,
        .print           = IDC_NETPOS_PRINT,
        .cancel          = IDC_NETPOS_CANCEL,
        .reply           = IDC_NETPOS_REPLY,
    },
    .words = {
        .hasLendingLayout = false,
        .clientScripTitle = "ScripWise Net Position of Client : ",
        .scripClientTitle = "ClientWise Net Position of Scrip : ",
        .endClientWise    = "****End of Clientwise Netposition Report****\n",
        .endClientScrip   = "***End of ClientwiseScripwise Netposition Report**\n",
        .endScripClient   = "***End of ScripwiseClientwise Netposition Report**\n",
        .endScripWise     = "***End of Scripwise Netposition Report**\n",
    },
};

const PositionTool slbPositionTool = {
    .tool                 = toolSlbPosition,
    .loadRequest          = loadSlbPosition,
    .always144            = true,
    .plainTitle           = "SLB POSITION PRINTING",
    .loadedTitle          = "PRINTING NET POSITION- ",
    .loadedTitleLending   = "PRINTING POSITION- ",
    .completionTitle      = "PRINTING POSITION",
    .clientsInScripFailed = "hClientsInScripRET Data : Memory Allocation Failure",
    .scNetPosFailed       = "SCNetPosRET Data : Memory Allocation Failure",
    .controls = {
        .load            = IDC_SLB_LOAD,
        .clientWise      = IDC_SLB_CLIENT,
        .scripWise       = IDC_SLB_SCRIP,
        .clientScrip     = IDC_SLB_CLIENT_SCRIP,
        .scripClient     = IDC_SLB_SCRIP_CLIENT,
        .clientList      = IDC_SLB_CLIENT_LIST,
        .clientListLabel = IDC_SLB_CLIENT_LIST_LABEL,
        .scripList       = IDC_SLB_SCRIP_LIST,
        .scripListLabel  = IDC_SLB_SCRIP_LIST_LABEL,
        .printer         = IDC_SLB_PRINTER,
        .file            = IDC_SLB_FILE,
        .outFileControls = {IDC_SLB_OUTFILE, IDC_SLB_OUTFILE_LABEL},
        .lines           = IDC_SLB_LINES,
        .print           = IDC_SLB_PRINT,
        .cancel          = IDC_SLB_CANCEL,
        .reply           = IDC_SLB_REPLY,
    },
    .words = {
        .hasLendingLayout = true,
        // The two blanks belong to the layout.
        .clientScripTitle = "ScripWise  Position of Client : ",
        .scripClientTitle = "ClientWise  Position of Scrip : ",
        .endClientWise    = "****End of Clientwise position Report****\n",
        .endClientScrip   = "***End of ClientwiseScripwise position Report**\n",
        .endScripClient   = "***End of ScripwiseClientwise position Report**\n",
        .endScripWise     = "***End of Scripwise position Report**\n",
    },
};
// clang-format on

}  // namespace quillon
