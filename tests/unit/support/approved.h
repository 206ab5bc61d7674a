// Approved reports: a whole report is compared, byte by byte, with a text file under tests/reports that a person has read.
//
// The approved file holds LF lines and the form feed as it is; the report's CR LF is checked here and taken off first. On a
// difference the report is written to the build's received/ folder, to be read and moved by hand, and the first differing
// lines are shown.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace quillon::test {

inline std::string readWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// The same text with LF lines; a bare LF in the report is a failure.
inline std::string withoutCarriageReturns(const std::string& report) {
  std::string text;
  text.reserve(report.size());
  for (std::size_t i = 0; i < report.size(); ++i) {
    if (report[i] == '\r' && i + 1 < report.size() && report[i + 1] == '\n') continue;
    if (report[i] == '\n' && (i == 0 || report[i - 1] != '\r')) ADD_FAILURE() << "a line feed without its carriage return at byte " << i;
    text += report[i];
  }
  return text;
}

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t end = text.find('\n', start);
    if (end == std::string::npos) {
      lines.push_back(text.substr(start));
      break;
    }
    lines.push_back(text.substr(start, end - start + 1));
    start = end + 1;
  }
  return lines;
}

// `name` is the approved file under tests/reports, such as "trades/one_buy.txt".
inline void expectApproved(const std::string& name, const std::string& report) {
  const std::string received = withoutCarriageReturns(report);
  const std::filesystem::path approvedPath = std::filesystem::path(QUILLON_REPORTS_FOLDER) / name;
  const std::string approved = readWhole(approvedPath);
  if (std::filesystem::exists(approvedPath) && received == approved) return;

  const std::filesystem::path receivedPath = std::filesystem::path(QUILLON_RECEIVED_FOLDER) / name;
  std::filesystem::create_directories(receivedPath.parent_path());
  std::ofstream(receivedPath, std::ios::binary) << received;

  std::ostringstream difference;
  const std::vector<std::string> want = linesOf(approved), got = linesOf(received);
  int shown = 0;
  for (std::size_t i = 0; i < std::max(want.size(), got.size()) && shown < 10; ++i) {
    const std::string wanted = i < want.size() ? want[i] : "(no line)\n", found = i < got.size() ? got[i] : "(no line)\n";
    if (wanted == found) continue;
    difference << "line " << i + 1 << "\n- " << wanted << "+ " << found;
    ++shown;
  }
  ADD_FAILURE() << "the report differs from tests/reports/" << name << ", received " << receivedPath.string() << "\n" << difference.str();
}

}  // namespace quillon::test
