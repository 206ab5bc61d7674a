#include "desktop/scripted/boxes.h"

#include <deque>
#include <string>

#include "desktop/scripted/forms.h"
#include "desktop/scripted/json.h"
#include "desktop/scripted/transcript.h"

namespace quillon {

static std::deque<BoxChoice> answers;
static void (*listener)(const BoxTold& box);

static const char* nameOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::none:
      return "none";
    case BoxIcon::information:
      return "information";
    case BoxIcon::exclamation:
      return "exclamation";
    case BoxIcon::error:
      return "error";
    case BoxIcon::question:
      return "question";
  }
  return "none";
}

static const char* nameOf(BoxChoice choice) { return choice == BoxChoice::yes ? "yes" : "no"; }

static void writeBox(const char* title, std::string_view text, BoxIcon icon, const char* buttons, const char* standard,
                     const char* answer) {
  formsWriteChanges();
  std::string line = "{\"box\":{\"title\":";
  line += title ? jsonOfBytes(title) : "null";
  line += ",\"text\":" + jsonOfBytes(upToNul(text));
  line += std::string(",\"icon\":\"") + nameOf(icon) + "\",\"buttons\":\"" + buttons;
  line += std::string("\",\"default\":\"") + standard + "\",\"answer\":\"" + answer + "\"}}";
  transcriptWrite(line);
}

void boxShow(FormHandle, const char* title, std::string_view text, BoxIcon icon) {
  writeBox(title, text, icon, "ok", "ok", "ok");
  if (listener) listener({title, upToNul(text), icon, false, BoxChoice::yes});
}

BoxChoice boxAsk(FormHandle, const char* title, std::string_view text, BoxIcon icon, BoxChoice standard) {
  BoxChoice answer = standard;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  writeBox(title, text, icon, "yesno", nameOf(standard), nameOf(answer));
  if (listener) listener({title, upToNul(text), icon, true, answer});
  return answer;
}

void boxQueueAnswer(BoxChoice answer) { answers.push_back(answer); }

void boxesListen(void (*told)(const BoxTold& box)) { listener = told; }

void boxesReset() {
  answers.clear();
  listener = nullptr;
}

}  // namespace quillon
