// Texts as they cross the scripted desktop: forms hold bytes of Windows-1252, commands and transcripts are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

bool isUtf8(std::string_view text);

// Every byte has a character: the five that Windows-1252 leaves open become the control characters of the same number.
std::string utf8FromBytes(std::string_view bytes);
// The text itself where it is UTF-8; otherwise its bytes are taken as Windows-1252.
std::string utf8FromEither(std::string_view text);
// A character that Windows-1252 does not have becomes '?'. A text that is no UTF-8 is taken as Windows-1252 already.
std::string bytesFromUtf8(std::string_view text);
char byteFromUnicode(std::uint32_t character);

// Appends the text in quotes, with what JSON wants escaped.
void appendJson(std::string& out, std::string_view utf8);
std::string jsonOfUtf8(std::string_view text);    // taken by utf8FromEither
std::string jsonOfBytes(std::string_view bytes);  // bytes of Windows-1252

// A control's or a box's text ends at its first NUL, as it does on Windows.
std::string_view upToNul(std::string_view text);

}  // namespace quillon
