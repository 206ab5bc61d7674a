#include "unattended/print_all.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <system_error>
#include <utility>

#include "frame/file_selection.h"
#include "text/encoding.h"
#include "text/letters.h"
#include "unattended/print_output.h"
#include "unattended/print_run.h"
#include "unattended/process.h"

namespace quillon {

namespace fs = std::filesystem;

// ---- Which form -------------------------------------------------------------------------------------------------------

namespace {

// Files that a form's dialog shows in one state of the form, and what brings the form there.
struct FilesOfForm {
  int request;
  LoadVariant variant;
  const char* form;
  const char* option;  // null: a fresh form is there
  const char* value;
  bool kestoByName;  // the form prints two kinds of file and nothing in the file tells which
};

}  // namespace

static constexpr char kestoKind[] = "--select-type-of-file-to-print";

// Files that the Convert form alone can read, though the masks of others would show them.
static constexpr const char* convertedFiles[] = {"Adel*.adl", "TrdRect*.*"};

// In this order: the first one that knows a file prints it.
// clang-format off
static constexpr FilesOfForm filesOfForms[] = {
    {loadTrades,           LoadVariant::standard,     "trades", nullptr, nullptr, false},
    {loadTrades,           LoadVariant::oddLot,       "trades", "--select", "Oddlot File", false},
    {loadKestoTrades,      LoadVariant::standard,     "kesto", nullptr, nullptr, false},
    {loadKestoBrokerQuery, LoadVariant::standard,     "kesto", kestoKind, "Broker Query Printing", false},
    {loadKestoTouchlines,  LoadVariant::standard,     "kesto", kestoKind, "TouchLines Printing", false},
    {loadBrokerQuery,      LoadVariant::standard,     "broker-query", nullptr, nullptr, false},
    {loadTouchlines,       LoadVariant::standard,     "touchlines", nullptr, nullptr, true},
    {loadTraderLimits,     LoadVariant::standard,     "trader-limits", nullptr, nullptr, true},
    {load6A7A,             LoadVariant::standard,     "6a7a", nullptr, nullptr, false},
    {load6A7A,             LoadVariant::nonUpdatable, "6a7a", "--select", "Non-Updatable", false},
    {loadAuction,          LoadVariant::standard,                    "auction", nullptr, nullptr, false},
    {loadAuction,          LoadVariant::auctionDelivery,             "auction", "--select", "Delivery Statement", false},
    {loadAuction,          LoadVariant::auctionOfferStatus,          "auction", "--select", "Offer Status Statement", false},
    {loadAuction,          LoadVariant::auctionBdaDetails,           "auction", "--select", "BDA Details", false},
    {loadAuction,          LoadVariant::auctionRejectedEntitlements, "auction", "--select", "Rejected Entitlements", false},
    {loadOrderLog,         LoadVariant::standard,     "order-log", nullptr, nullptr, false},
    {loadQuoteLog,         LoadVariant::standard,     "quote-log", nullptr, nullptr, false},
    {loadAdminLog,         LoadVariant::standard,     "admin-log", nullptr, nullptr, false},
    {loadBreakup,          LoadVariant::standard,     "breakup", nullptr, nullptr, true},
    {loadConvert,          LoadVariant::standard,     "convert", nullptr, nullptr, false},  // what has no report becomes lines
};
// clang-format on

// Where what follows a star does not fit, the star takes one character more: only the last one met is gone back to, so that no
// mask takes long.
static bool fits(std::string_view mask, std::string_view name) {
  std::size_t at = 0;  // in the mask
  std::size_t behindStar = std::string_view::npos;
  std::size_t starEnd = 0;  // in the name: what the star took ends here
  for (std::size_t i = 0; i < name.size();) {
    const char wanted = at < mask.size() ? mask[at] : '\0';
    if (wanted == '*') {
      behindStar = ++at;
      starEnd = i;
    } else if (at < mask.size() && (wanted == '?' || upperCase(wanted) == upperCase(name[i]))) {
      ++at;
      ++i;
    } else {
      if (behindStar == std::string_view::npos) return false;
      at = behindStar;
      i = ++starEnd;
    }
  }
  return mask.find_first_not_of('*', at) == std::string_view::npos;
}

bool maskFits(std::string_view mask, std::string_view name) {
  return fits(mask, name) || (mask.ends_with(".*") && fits(mask.substr(0, mask.size() - 2), name));
}

std::optional<FormForFile> formForFile(const std::vector<FormForMask>& first, std::string_view name) {
  for (const FormForMask& told : first) {
    if (!maskFits(told.mask, name)) continue;
    return told.form ? std::optional(FormForFile{told.form->name, told.options}) : std::nullopt;
  }
  for (const char* mask : convertedFiles) {
    if (maskFits(mask, name)) return FormForFile{"convert", {}};
  }
  const std::string upper = upperCased(name);
  for (const FilesOfForm& files : filesOfForms) {
    for (const FileMask& mask : fileMasks(files.request, files.variant)) {
      if (mask.pattern == "*.*" || !maskFits(mask.pattern, name)) continue;
      FormForFile form = {files.form, {}};
      if (files.option) form.options = {files.option, files.value};
      if (files.kestoByName && (upper.starts_with("K") || upper.starts_with("SK"))) form.options = {"--select", "Kesto"};
      return form;
    }
  }
  return std::nullopt;
}

// ---- Runs -------------------------------------------------------------------------------------------------------------

namespace {

struct FileRun {
  std::string name;
  std::string form;  // with the label that it is set to; empty: no form knows the file
  fs::path report;
  fs::path messages;
  ProcessHandle process;
};

}  // namespace

static std::string plainText(const fs::path& path) {
#ifdef _WIN32
  const std::u8string text = path.generic_u8string();
  return {text.begin(), text.end()};
#else
  return path.string();
#endif
}

// The files of the folder by name; the problem in `error`.
static std::vector<std::string> filesIn(const fs::path& folder, std::error_code& error) {
  std::vector<std::string> names;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code ignored;
    if (entry->is_regular_file(ignored)) names.push_back(plainText(entry->path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

static FileRun startRun(const PrintCall& call, const std::string& name, const FormForFile& form) {
  static int number;
  std::error_code ignored;
  FileRun run = {name, form.form, {}, {}, noProcess};
  if (!form.options.empty()) run.form += " (" + form.options.back() + ")";
  run.report = systemPath(call.output) / systemPath(name + (call.pdf ? ".pdf" : ".txt"));
  const std::string messages = "quillon-print-" + std::to_string(systemProcessId()) + "-" + std::to_string(++number) + ".log";
  run.messages = fs::temp_directory_path(ignored) / messages;
  std::vector<std::string> arguments = {form.form, plainText(systemPath(call.input) / systemPath(name))};
  arguments.insert(arguments.end(), form.options.begin(), form.options.end());
  arguments.insert(arguments.end(), {"-o", plainText(run.report), "--messages", plainText(run.messages)});
  if (call.pdf) arguments.emplace_back("--pdf");
  if (!call.clock.empty()) arguments.insert(arguments.end(), {"--clock", call.clock});
  run.process = processStart(arguments);
  return run;
}

// Why a run failed, out of its messages, in one line: the last box that a user would have seen, the Reply line where there was
// none, and the program's own words where the form had none at all. What a run told that was broken off is not the reason.
static std::string whyFailed(int status, const std::vector<std::string>& messages) {
  if (status != printFailed && status != printWrongCall) return "it came to no end of its own";
  if (messages.empty()) return "its messages could not be kept";
  std::string box;
  std::string reply;
  std::string own;
  for (const std::string& line : messages) {
    std::string& told = line.starts_with("quillon-print: ") ? own : line.starts_with("Reply: ") ? reply : box;
    if (!line.empty() && line[0] != ' ') told = line;
  }
  if (upperCased(box).find("COMPLETE") != std::string::npos) return own;  // an error was told ahead of it
  return !box.empty() ? box : !reply.empty() ? reply : own;
}

// The messages of the run, which go to standard error on the way.
static std::vector<std::string> passMessages(const FileRun& run) {
  std::vector<std::string> lines;
  std::FILE* const file = systemFile(run.messages, false);
  if (!file) return lines;
  std::string text;
  char piece[4096];
  for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, file)) > 0;) text.append(piece, got);
  (void)std::fclose(file);
  std::error_code ignored;
  fs::remove(run.messages, ignored);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    std::fprintf(stderr, "%s: %s\n", utf8FromEither(run.name).c_str(), lines.back().c_str());
    at = end + 1;
  }
  return lines;
}

enum class FileOutcome { complete, failed, unknown };

// Waits for the run and tells its outcome.
static FileOutcome endRun(const FileRun& run) {
  const std::string name = utf8FromEither(run.name);
  if (run.form.empty()) {
    std::printf("%s: no form knows it\n", name.c_str());
    return FileOutcome::unknown;
  }
  const bool started = run.process != noProcess;
  const int status = started ? processWait(run.process) : -1;
  const std::vector<std::string> messages = passMessages(run);
  const bool done = status == printDone;
  std::string told = "FAILED: it could not be started";
  if (started) told = "FAILED: " + whyFailed(status, messages);
  if (done) told = "complete: " + utf8FromEither(plainText(run.report));
  std::printf("%s: %s, %s\n", name.c_str(), run.form.c_str(), told.c_str());
  std::fflush(stdout);
  return done ? FileOutcome::complete : FileOutcome::failed;
}

// Both lead to the same folder.
static bool sameFolder(const fs::path& one, const fs::path& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) && !error;
}

static int refuse(const std::string& problem, int status) {
  std::fprintf(stderr, "quillon-print: %s\n", utf8FromEither(problem).c_str());
  return status;
}

int printAll(const PrintCall& call) {
  std::error_code error;
  const std::vector<std::string> names = filesIn(systemPath(call.input), error);
  if (error) return refuse("The folder \"" + call.input + "\" cannot be read.", printFailed);
  if (sameFolder(systemPath(call.input), systemPath(call.output))) {
    return refuse("The reports cannot go to the folder that is printed.", printWrongCall);
  }
  fs::create_directories(systemPath(call.output), error);
  if (!fs::is_directory(systemPath(call.output), error)) {
    return refuse("The folder \"" + call.output + "\" cannot be made.", printFailed);
  }
  std::deque<FileRun> running;
  int counts[3] = {};
  const auto endOldest = [&] {
    ++counts[static_cast<int>(endRun(running.front()))];
    running.pop_front();
  };
  for (const std::string& name : names) {
    const std::optional<FormForFile> form = formForFile(call.forms, name);
    if (running.size() == static_cast<std::size_t>(call.jobs)) endOldest();
    running.push_back(form ? startRun(call, name, *form) : FileRun{name, {}, {}, {}, noProcess});
  }
  while (!running.empty()) endOldest();
  const int complete = counts[static_cast<int>(FileOutcome::complete)];
  const int failed = counts[static_cast<int>(FileOutcome::failed)];
  std::printf("%d complete, %d failed\n", complete, failed);
  return failed == 0 && complete > 0 ? printDone : printFailed;
}

}  // namespace quillon
