#include "desktop/scripted/open_dialog.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "desktop/scripted/forms.h"
#include "desktop/scripted/json.h"
#include "desktop/scripted/paths.h"
#include "desktop/scripted/transcript.h"

namespace quillon {

static constexpr std::size_t longestPath = 299;

static std::deque<std::optional<std::string>> answers;

static bool isSeparator(char c) { return c == '/' || c == '\\'; }

// As seen from the current folder: "export" rather than "C:\prints\export".
static std::string fromCurrentFolder(const std::string& folder) {
  const std::string current = openDialogCurrentFolder();
  if (current.empty() || !folder.starts_with(current)) return folder;
  if (folder.size() == current.size()) return ".";
  std::size_t start = current.size();
  if (!isSeparator(current.back()) && !isSeparator(folder[start])) return folder;
  while (start < folder.size() && isSeparator(folder[start])) ++start;
  return folder.substr(start);
}

static std::string withoutFolder(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::optional<std::string> openDialogAsk(const OpenDialog& dialog) {
  std::optional<std::string> answer, path;
  if (!answers.empty()) {
    answer = std::move(answers.front());
    answers.pop_front();
  }
  if (answer && pathIsFile(*answer)) path = pathInFull(*answer);
  if (path && path->size() > longestPath) path.reset();

  formsWriteChanges();
  std::string line = "{\"files\":{\"title\":" + jsonOfBytes(dialog.title);
  line += ",\"folder\":" + jsonOfUtf8(fromCurrentFolder(dialog.folder)) + ",\"masks\":[";
  for (std::size_t i = 0; i < dialog.masks.size(); ++i) {
    line += i > 0 ? ",[" : "[";
    line += jsonOfBytes(dialog.masks[i].name) + "," + jsonOfBytes(dialog.masks[i].pattern) + "]";
  }
  line += "],\"selected\":" + std::to_string(dialog.selected);
  if (!dialog.name.empty()) line += ",\"name\":" + jsonOfUtf8(withoutFolder(dialog.name));
  line += ",\"answer\":";
  line += path ? jsonOfUtf8(withoutFolder(*answer)) : "null";
  transcriptWrite(line + "}}");
  return path;
}

std::string openDialogCurrentFolder() { return pathCurrentFolder(); }

void openDialogQueueAnswer(std::optional<std::string> file) { answers.push_back(std::move(file)); }

void openDialogReset() { answers.clear(); }

}  // namespace quillon
