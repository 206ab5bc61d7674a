// Texts as transcripts have them: JSON, in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// Appends the text in quotes, with what JSON wants escaped.
void appendJson(std::string& out, std::string_view utf8);
std::string jsonOfUtf8(std::string_view text);    // taken by utf8FromEither
std::string jsonOfBytes(std::string_view bytes);  // bytes of Windows-1252

// A control's or a box's text ends at its first NUL, as it does on Windows.
std::string_view upToNul(std::string_view text);

}  // namespace quillon
