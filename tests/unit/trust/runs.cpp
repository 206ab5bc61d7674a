#include "runs.h"

#include <fstream>

#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "report_forms.h"
#include "resource.h"
#include "support/approved.h"

namespace quillon::test {

static FormRun trades(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTRPT",
          .sample = sample,
          .load = IDC_TRADES_LOAD,
          .print = IDC_TRADES_PRINT,
          .cancel = IDC_TRADES_CANCEL,
          .file = IDC_TRADES_FILE,
          .outFile = IDC_TRADES_OUTFILE,
          .options = std::move(options),
          .memory = "Trades Data : Memory Allocation Failure",
          .open = "Error in Loading Trade File",
          .create = "Error In Opening Output File",
          .seek = "Error In Calculating No Of Records",
          .tell = "Error In Calculating No Of Records"};
}

static FormRun brokerQuery(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTBRKREP",
          .sample = sample,
          .load = IDC_BRKQRY_LOAD,
          .print = IDC_BRKQRY_PRINT,
          .cancel = IDC_BRKQRY_CANCEL,
          .file = IDC_BRKQRY_FILE,
          .outFile = IDC_BRKQRY_OUTFILE,
          .options = std::move(options),
          .memory = "Broker Report Data : Memory Allocation Failure",
          .open = "Error In Opening Broker Report File",
          .create = "Error In Opening Output File",
          .seek = "Error In Calculating No Of Records",
          .tell = "Error In Calculating No Of Records",
          .keepsInputWithoutOutput = true};
}

static FormRun netPosition(const char* name, const char* sample, int option) {
  return {.name = name,
          .form = "PRNTNP",
          .sample = sample,
          .load = IDC_NETPOS_LOAD,
          .print = IDC_NETPOS_PRINT,
          .cancel = IDC_NETPOS_CANCEL,
          .file = IDC_NETPOS_FILE,
          .outFile = IDC_NETPOS_OUTFILE,
          .options = {option},
          .memory = " Data : Memory Allocation Failure",
          .open = "Error in Loading Trade File",
          .create = "Error In Opening Output File",
          .seek = "",
          .tell = "",
          .readsAtLoad = true};
}

static FormRun slbPosition(const char* name, const char* sample, int option) {
  FormRun run = netPosition(name, sample, option);
  run.form = "PRNTNPRET";
  run.load = IDC_SLB_LOAD;
  run.print = IDC_SLB_PRINT;
  run.cancel = IDC_SLB_CANCEL;
  run.file = IDC_SLB_FILE;
  run.outFile = IDC_SLB_OUTFILE;
  return run;
}

// What is told of a block depends on the view and on the step; in most it is that the run was cancelled.
static FormRun kestoNetPosition(const char* name, const char* sample, int option, const char* memory) {
  FormRun run = netPosition(name, sample, option);
  run.form = "PRNTNETPOS";
  run.load = IDC_KNETPOS_LOAD;
  run.print = IDC_KNETPOS_PRINT;
  run.cancel = IDC_KNETPOS_CANCEL;
  run.file = IDC_KNETPOS_FILE;
  run.outFile = IDC_KNETPOS_OUTFILE;
  run.memory = memory;
  run.open = "";  // told at the load, and as a cancelled run at Print
  run.tell = "Error In Calculating No Of Records";
  run.read = "File cannot be read";
  run.reply = IDC_KNETPOS_REPLY;
  return run;
}

static FormRun touchlines(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTTLINE",
          .sample = sample,
          .load = IDC_TLINE_LOAD,
          .print = IDC_TLINE_PRINT,
          .cancel = IDC_TLINE_CANCEL,
          .file = IDC_TLINE_FILE,
          .outFile = IDC_TLINE_OUTFILE,
          .options = std::move(options),
          .memory = "Touchlines Data: Memory Allocation Failure",
          .open = "Error In Opening ",
          .create = "Error ",
          .seek = "",
          .tell = ""};
}

static FormRun traderLimits(const char* name, const char* sample, std::vector<int> options,
                                              const char* memory) {
  return {.name = name,
          .form = "PRNTTRDLM",
          .sample = sample,
          .load = IDC_TRDLIM_LOAD,
          .print = IDC_TRDLIM_PRINT,
          .cancel = IDC_TRDLIM_CANCEL,
          .file = IDC_TRDLIM_FILE,
          .outFile = IDC_TRDLIM_OUTFILE,
          .options = std::move(options),
          .memory = memory,
          .open = "Error In Opening ",
          .create = "Error ",
          .seek = "",
          .tell = "",
          .endsProgram = "Zero Records !! Cannot Print"};
}

static FormRun auction(const char* name, const char* sample, std::vector<int> options, std::vector<std::string> beside = {}) {
  return {.name = name,
          .form = "AUCRPT",
          .sample = sample,
          .load = IDC_AUC_LOAD,
          .print = IDC_AUC_PRINT,
          .cancel = IDC_AUC_CANCEL,
          .file = IDC_AUC_FILE,
          .outFile = IDC_AUC_OUTFILE,
          .options = std::move(options),
          .beside = std::move(beside),
          .memory = "Memory Allocation Failure",
          .open = "",
          .create = "Error In Opening OutFile",
          .seek = "Error Reading File ",
          .tell = "Error Reading File "};
}

static FormRun delivery(const char* name, const char* sample) {
  return {.name = name,
          .form = "DELV",
          .sample = sample,
          .load = IDC_DELV_LOAD,
          .print = IDC_DELV_PRINT,
          .cancel = IDC_DELV_CANCEL,
          .file = 0,
          .outFile = 0,
          .options = {},
          .memory = "Delv Data : Memory Allocation Failure",
          .open = "Error in opening Delivery File",
          .create = "Unable to connect to printer",
          .seek = "Error in opening Delivery File",
          .tell = "Error in opening Delivery File",
          .endsProgram = "Unable to read Header from the file .",
          .endStatus = 1};
}

static FormRun adminLog(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTADMINLOG",
          .sample = sample,
          .load = IDC_ADMLOG_LOAD,
          .print = IDC_ADMLOG_PRINT,
          .cancel = IDC_ADMLOG_CANCEL,
          .file = IDC_ADMLOG_FILE,
          .outFile = IDC_ADMLOG_OUTFILE,
          .options = std::move(options),
          .memory = " : Memory Allocation Failure",
          .open = "File Cannot be opened",
          .create = "Error In Opening Output File",
          .seek = "Error in Reading File",
          .tell = "Error in Reading File",
          .string = "Load String Failed"};
}

static FormRun sixaSevena(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTSIXASEVENA",
          .sample = sample,
          .load = IDC_6A7A_LOAD,
          .print = IDC_6A7A_PRINT,
          .cancel = IDC_6A7A_CANCEL,
          .file = IDC_6A7A_FILE,
          .outFile = IDC_6A7A_OUTFILE,
          .options = std::move(options),
          .memory = "6A7A Report: Memory Allocation Failure",
          .open = "Error In Opening ",
          .create = "Error ",
          .seek = "",
          .tell = ""};
}

static FormRun breakup(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTBRKUP",
          .sample = sample,
          .load = IDC_BRKUP_LOAD,
          .print = IDC_BRKUP_PRINT,
          .cancel = IDC_BRKUP_CANCEL,
          .file = IDC_BRKUP_FILE,
          .outFile = IDC_BRKUP_OUTFILE,
          .options = std::move(options),
          .memory = "BreakUp Report: Memory Allocation Failure",
          .open = "Error In Opening BreakUp Report File.....",
          .create = "Error In Opening Output File",
          .seek = "",
          .tell = ""};
}

static FormRun orderLog(const char* name, const char* sample, std::vector<int> options) {
  return {.name = name,
          .form = "PRNTORDLOG",
          .sample = sample,
          .load = IDC_ORDLOG_LOAD,
          .print = IDC_ORDLOG_PRINT,
          .cancel = IDC_ORDLOG_CANCEL,
          .file = IDC_ORDLOG_FILE,
          .outFile = IDC_ORDLOG_OUTFILE,
          .options = std::move(options),
          .memory = "OrderLog Data : Memory Allocation Failure",
          .open = "File cannot be opened!",
          .create = "Error In Opening Output File",
          .seek = "Error In Calculating No Of Records",
          .tell = "Error In Calculating No Of Records",
          .readsAtLoad = true};
}

static FormRun quoteLog(const char* name, const char* sample, std::vector<int> options) {
  FormRun run = orderLog(name, sample, std::move(options));
  run.form = "PRNTQUOTELOG";
  run.load = IDC_QUOTELOG_LOAD;
  run.print = IDC_QUOTELOG_PRINT;
  run.cancel = IDC_QUOTELOG_CANCEL;
  run.file = IDC_QUOTELOG_FILE;
  run.outFile = IDC_QUOTELOG_OUTFILE;
  run.memory = "QuoteLog Data : Memory Allocation Failure";
  return run;
}

static FormRun kesto(const char* name, const char* kind, const char* sample, std::vector<int> options, const char* memory,
                     const char* seek) {
  return {.name = name,
          .form = "PRNTVQLS",
          .sample = sample,
          .load = IDC_KESTO_LOAD,
          .print = IDC_KESTO_PRINT,
          .cancel = IDC_KESTO_CANCEL,
          .file = IDC_KESTO_FILE,
          .outFile = IDC_KESTO_OUTFILE,
          .options = std::move(options),
          .memory = memory,
          .open = "Error In Loading File !!",
          .create = "Error In Opening Output File",
          .seek = seek,
          .tell = "Error In Calculating No Of Records",
          .kindList = IDC_KESTO_KIND,
          .kind = kind,
          .read = "Error "};
}

static FormRun convert(const char* name, const char* sample, std::vector<int> options = {}) {
  return {.name = name,
          .form = "CONVERT",
          .sample = sample,
          .load = IDC_CONVERT_LOAD,
          .print = IDC_CONVERT_CONVERT,
          .cancel = IDC_CONVERT_CANCEL,
          .file = 0,
          .outFile = IDC_CONVERT_OUTFILE,
          .options = std::move(options),
          .memory = "",
          .open = "Error In Opening Binary File.....",
          .create = "Error opening Output File",
          .seek = "Error",  // of counting, or of reading the file again
          .tell = "Error-2 In Calculating No Of Records",
          .proposesAtLoad = true};
}

const std::vector<FormRun>& allRuns() {
  static const std::vector<FormRun> runs = {
      trades("trades of 132 bytes with the net position", "TR010109.B01", {IDC_TRADES_NETPOS}),
      trades("trades of 144 bytes before the cut-over, by scrip code", "TR210509.B01", {IDC_TRADES_SORT_SCRIP_CODE}),
      trades("trades of 144 bytes after the cut-over, by client", "TR250509.B01", {IDC_TRADES_SORT_CLIENT_ID, IDC_TRADES_NETPOS}),
      trades("trades of the lending market", "STR250509.B01", {IDC_TRADES_SORT_SCRIP_ID}),
      trades("trades of Kesto with the net position", "CT010109.B01", {IDC_TRADES_NETPOS}),
      netPosition("net position by client", "TR010109.B01", IDC_NETPOS_CLIENT),
      netPosition("net position by scrip", "TR250509.B01", IDC_NETPOS_SCRIP),
      netPosition("net position of one client, Kesto", "CT010109.B01", IDC_NETPOS_CLIENT_SCRIP),
      slbPosition("lending position of one scrip", "STR250509.B01", IDC_SLB_SCRIP_CLIENT),
      kestoNetPosition("Kesto net position by scrip", "CT010109.B01", IDC_KNETPOS_SCRIP, " Data : Memory Allocation Failure"),
      kestoNetPosition("Kesto net position of one client", "CT010109.B01", IDC_KNETPOS_CLIENT_SCRIP, ""),
      brokerQuery("broker query of 132 bytes with the net position", "BR010109.BIN", {IDC_BRKQRY_NETPOS}),
      brokerQuery("broker query of 160 bytes before the cut-over", "BR210509.BIN", {IDC_BRKQRY_SORT_TRADER}),
      brokerQuery("broker query of 160 bytes after the cut-over", "BR250509.BIN", {IDC_BRKQRY_SORT_SCRIP_ID, IDC_BRKQRY_NETPOS}),
      brokerQuery("broker query of the lending market", "BR250509.SBIN", {IDC_BRKQRY_SORT_CLIENT_ID, IDC_BRKQRY_NETPOS}),
      brokerQuery("broker query of Kesto with the net position", "BB010109.BIN", {IDC_BRKQRY_NETPOS}),
      touchlines("touchlines by scrip id", "TL010109.SAV", {}),
      touchlines("touchlines of the lending market by scrip code", "TL250509.SSAV", {IDC_TLINE_SORT_SCRIP_CODE}),
      touchlines("touchlines of Kesto", "KT010109.SAV", {IDC_TLINE_KESTO}),
      traderLimits("trader limits by trader", "TD010109.TRD", {}, ""),
      traderLimits("trader limits by scrip, lending market", "SC250509.STSL", {}, ""),
      traderLimits("trader limits of Kesto by trader", "KL010109.TRD", {IDC_TRDLIM_KESTO},
                   "Trader Limits Data: Memory Allocation Failure"),
      traderLimits("trader limits of Kesto by scrip", "KS010109.TSL", {IDC_TRDLIM_KESTO},
                   "Trader Limits  scrip Data: Memory Allocation Failure"),
      auction("money statement by scrip name", "MONY0101.215", {}, {"OFFS0101.215"}),
      auction("money statement of a special notice by scrip code", "MONY0201.007", {IDC_AUC_SORT_SCRIP_CODE}, {"OFFS0201.007"}),
      auction("money statement of a lending auction", "MONY2505.S12", {}, {"OFFS2505.S12"}),
      auction("offer status by scrip name", "OFFS0101.215", {IDC_AUC_OFFERS}),
      auction("offer status of a lending auction by scrip code", "OFFS2505.S12", {IDC_AUC_OFFERS, IDC_AUC_SORT_SCRIP_CODE}),
      auction("delivery statement by scrip name", "DELY0101.215", {IDC_AUC_DELIVERY}),
      auction("delivery statement of a special notice by member", "DELY0201.007", {IDC_AUC_DELIVERY, IDC_AUC_SORT_MEMBER}),
      auction("delivery statement of a lending auction", "DELY2505.S12", {IDC_AUC_DELIVERY, IDC_AUC_SORT_OPP_MEMBER}),
      auction("BDA details", "CLBD0101.215", {IDC_AUC_BDA}),
      auction("rejected entitlements", "ENTL0201.007", {IDC_AUC_ENTITLEMENTS}),
      delivery("delivery slips", "DELY0101.215"),
      delivery("delivery slips of a lending auction", "DELY2505.S12"),
      adminLog("admin log, all four sections", "Ad010109.adl", {}),
      adminLog("admin log of the lending market by trader", "SAd250509.adl", {IDC_ADMLOG_SCRIPS, IDC_ADMLOG_SORT_TRADER}),
      sixaSevena("6A7A, updatable", "6A010109.UPD", {}),
      sixaSevena("6A7A of the lending market, non-updatable", "6A250509.SNUP", {IDC_6A7A_NON_UPDATABLE}),
      breakup("breakup data", "BU010109.DAT", {}),
      breakup("breakup data of the lending market, sorted", "SU250509.DAT", {IDC_BRKUP_SORT}),
      breakup("breakup data of Kesto, sorted", "KU010109.DAT", {IDC_BRKUP_KESTO, IDC_BRKUP_SORT}),
      orderLog("order log of 112 bytes by scrip code", "OR211103.LOG", {IDC_ORDLOG_SORT_SCRIP_CODE}),
      orderLog("order log of 136 bytes after the cut-over", "OR250509.LOG", {}),
      orderLog("clients rectified before the cut-over, by client", "OR210509.LOG",
               {IDC_ORDLOG_CLIENT_RECTIFICATION, IDC_ORDLOG_SORT_CLIENT_ID}),
      orderLog("client types rectified, lending market", "SOR250509.LOG", {IDC_ORDLOG_TYPE_RECTIFICATION}),
      orderLog("consolidated order log by scrip id", "BO250509.BIN", {IDC_ORDLOG_SORT_SCRIP_ID}),
      quoteLog("quote log by bidding client", "QO250509.LOG", {IDC_QUOTELOG_SORT_BID_CLIENT_ID}),
      kesto("Kesto trades with the net position", "Trades Printing", "CT250509.B01", {IDC_KESTO_SORT_SCRIP_ID, IDC_KESTO_NETPOS},
            "KESTO (R)Trades Data : Memory Allocation Failure", "Error In Calculating No Of Records"),
      kesto("Kesto broker query of the lending market", "Broker Query Printing", "SBB250509.BIN", {IDC_KESTO_SORT_TRADER},
            "KESTO (R) Broker Report Data : Memory Allocation Failure", "Error In Calculating No Of Records"),
      kesto("Kesto touchlines by days", "TouchLines Printing", "SVQ250509.VQT", {IDC_KESTO_SORT_DAYS},
            "KESTO Touchlines Data: Memory Allocation Failure!!", "fseek failed"),
      kesto("Kesto breakup data", "BreakUp Data Printing", "KB010109.DAT", {},
            "Kesto (R) BreakUp Report: Memory Allocation Failure", "fseek failed"),
      kesto("Kesto trader limits by trader", "Traders Limit Printing", "KL010109.TRD", {},
            "Trader Limits Data: Memory Allocation Failure", "fseek failed"),
      kesto("Kesto trader limits by scrip", "Traders Limit Printing", "KS010109.TSL", {},
            "Trader Limits Data: Memory Allocation Failure", "fseek failed"),
      convert("trades converted", "TR250509.B01"),
      convert("broker query of the lending market converted", "BR250509.SBIN"),
      convert("Kesto trades converted", "CT010109.B01"),
      convert("admin trades of 144 bytes converted in the Br format", "AD010109.adm", {IDC_CONVERT_BR}),
      convert("admin trades of 168 bytes converted", "AD230710.adm"),
      convert("order log converted", "OR250509.LOG"),
      convert("rectified clients converted", "SOR250509.LOG", {IDC_CONVERT_CLIENT_RECTIFICATION}),
      convert("order log of 112 bytes converted", "OR211103.LOG"),
      convert("quote log converted", "QO250509.LOG"),
      convert("consolidated order log converted", "BO250509.BIN"),
      convert("deletions of the administrator converted", "Adel250509.adl"),
      convert("rectified trades converted", "TrdRect250509.dat"),
  };
  return runs;
}

std::string loadAndPrint(const FormRun& run, const std::string& out) {
  const auto press = [](int control) { return "press " + std::to_string(control) + "\n"; };
  std::string commands = "choose " + run.sample + "\n" + press(run.load);
  for (int option : run.options) commands += press(option);
  if (!run.outFile) return commands + "printer " + out + "\n" + press(run.print);
  if (run.file) commands += press(run.file);
  return commands + "type " + std::to_string(run.outFile) + " " + out + "\n" + press(run.print);
}

std::string commandsOf(const FormRun& run, const std::string& out) {
  for (const std::string& name : run.beside) writeFile(name, sampleBytes(name));
  const std::string pick = run.kindList ? "pick " + std::to_string(run.kindList) + " " + run.kind + "\n" : "";
  return std::string("tool ") + run.form + "\n" + pick + loadAndPrint(run, out);
}

static struct {
  Fault kind;
  std::size_t number;
  bool andAllLater;
} planted;

Outcome runProgram(const std::string& commands, Fault kind, std::size_t number, bool andAllLater) {
  planted = {kind, number, andAllLater};
  const ScriptResult result = scriptRun(commands, [] {
    if (planted.number > 0) faultsArm(planted.kind, planted.number, planted.andAllLater);
    return frameRun(reportForms());
  });
  return {result.transcript, result.status, result.error, result.blocksHeld, result.streamsOpen};
}

void InOwnFolder::SetUp() {
  before_ = std::filesystem::current_path();
  folder_ = std::filesystem::path(testing::TempDir()) / "trust";
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_);
  std::filesystem::current_path(folder_);
}

void InOwnFolder::TearDown() {
  std::filesystem::current_path(before_);
  std::filesystem::remove_all(folder_);
}

std::string sampleBytes(const std::string& name) {
  return readWhole(std::filesystem::path(QUILLON_REPORTS_FOLDER).parent_path().parent_path() / "samples" / "export" / name);
}

std::string sampleBytes(const FormRun& run) { return sampleBytes(run.sample); }

void writeFile(const std::string& name, const std::string& bytes) { std::ofstream(name, std::ios::binary) << bytes; }

}  // namespace quillon::test
