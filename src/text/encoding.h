// The two encodings that meet in a form. Edits, boxes, lists and reports hold bytes of Windows-1252, as the workstation's files
// do; paths, file names and the titles of forms are UTF-8. A file's name that is shown in an edit, a box or a format goes
// through bytesFromUtf8 first.
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
// A character that Windows-1252 does not have becomes '?', which no output name may have. A text that is no UTF-8 is taken as
// Windows-1252 already.
std::string bytesFromUtf8(std::string_view text);
char byteFromUnicode(std::uint32_t character);

// For what wants sixteen bits a character. A text that is no UTF-8 is taken as Windows-1252.
std::u16string utf16FromUtf8(std::string_view text);

}  // namespace quillon
