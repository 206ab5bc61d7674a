#include "desktop/scripted/transcript.h"

#include <string>

namespace quillon {

static struct {
  TranscriptSink sink;
  bool muted;
} state;

void transcriptOpen(TranscriptSink sink) {
  state.sink = sink;
  state.muted = false;
}

void transcriptMute(bool muted) { state.muted = muted; }

void transcriptWrite(std::string_view json) {
  if (state.muted || !state.sink) return;
  std::string line(json);
  line += '\n';
  state.sink(line);
}

}  // namespace quillon
