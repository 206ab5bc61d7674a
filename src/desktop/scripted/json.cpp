#include "desktop/scripted/json.h"

#include <cstddef>

#include "text/encoding.h"

namespace quillon {

static unsigned unsignedAt(std::string_view text, std::size_t position) { return static_cast<unsigned char>(text[position]); }

void appendJson(std::string& out, std::string_view utf8) {
  static constexpr char digits[] = "0123456789abcdef";
  const auto escape = [&out](unsigned character) {
    out += "\\u00";
    out += digits[character >> 4];
    out += digits[character & 15];
  };
  out += '"';
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const unsigned byte = unsignedAt(utf8, i);
    if (byte == '"' || byte == '\\') {
      out += '\\';
      out += static_cast<char>(byte);
    } else if (byte == '\n') {
      out += "\\n";
    } else if (byte == '\r') {
      out += "\\r";
    } else if (byte == '\t') {
      out += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      escape(byte);
    } else if (byte == 0xC2 && i + 1 < utf8.size() && unsignedAt(utf8, i + 1) < 0xA0) {  // U+0080 to U+009F
      escape(unsignedAt(utf8, ++i));
    } else {
      out += static_cast<char>(byte);
    }
  }
  out += '"';
}

std::string jsonOfUtf8(std::string_view text) {
  std::string out;
  appendJson(out, utf8FromEither(text));
  return out;
}

std::string jsonOfBytes(std::string_view bytes) {
  std::string out;
  appendJson(out, utf8FromBytes(bytes));
  return out;
}

std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace quillon
