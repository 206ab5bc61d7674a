#include "texts.h"

#include <cstdio>

#include "system.h"

namespace driving {

std::wstring widen(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string narrow(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), bytes, nullptr, nullptr);
  return text;
}

std::string json(std::wstring_view wide) {
  std::string out = "\"";
  for (const char c : narrow(wide)) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < ' ') {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      out += escape;
    } else {
      out += c;
    }
  }
  return out + '"';
}

std::string truth(bool value) { return value ? "true" : "false"; }

void write(const std::string& line) {
  std::fputs(line.c_str(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

void refuse(const std::wstring& reason) { write("{\"refused\":" + json(reason) + "}"); }

// One more "key":value.
void add(std::string& pieces, const std::string& key, const std::string& value) {
  if (!pieces.empty()) pieces += ',';
  pieces += '"' + key + "\":" + value;
}

std::string listOf(const std::vector<std::wstring>& items) {
  std::string out;
  for (const std::wstring& item : items) out += (out.empty() ? "" : ",") + json(item);
  return '[' + out + ']';
}

}  // namespace driving
