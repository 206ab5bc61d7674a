// The transcript: what a user would see, one JSON object a line, in the order in which things happen.
#pragma once

#include <string_view>

namespace quillon {

using TranscriptSink = void (*)(std::string_view line);  // with its line feed

void transcriptOpen(TranscriptSink sink);
// The program is over: whatever is taken down from here on is not seen.
void transcriptMute(bool muted);
void transcriptWrite(std::string_view json);

}  // namespace quillon
