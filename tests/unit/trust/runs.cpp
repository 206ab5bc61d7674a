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
  };
  return runs;
}

std::string loadAndPrint(const FormRun& run, const std::string& out) {
  const auto press = [](int control) { return "press " + std::to_string(control) + "\n"; };
  std::string commands = "choose " + run.sample + "\n" + press(run.load);
  for (int option : run.options) commands += press(option);
  return commands + press(run.file) + "type " + std::to_string(run.outFile) + " " + out + "\n" + press(run.print);
}

std::string commandsOf(const FormRun& run, const std::string& out) {
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

std::string sampleBytes(const FormRun& run) {
  return readWhole(std::filesystem::path(QUILLON_REPORTS_FOLDER).parent_path().parent_path() / "samples" / "export" / run.sample);
}

void writeFile(const std::string& name, const std::string& bytes) { std::ofstream(name, std::ios::binary) << bytes; }

}  // namespace quillon::test
