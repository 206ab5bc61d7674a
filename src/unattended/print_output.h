// Where a report of quillon-print goes: it is written beside its place first, and takes the place of what stands there only
// when it is complete. So a run that fails, or is stopped, leaves an older report as it was.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillon {

struct PrintOutput {
  std::filesystem::path place;    // the file that will hold the report
  std::filesystem::path written;  // where it is written until then
  bool isDevice = false;          // `place` is no file and cannot be replaced: the report is copied to it
  bool isStdout = false;          // so is standard output, whatever it leads to: what a file holds ahead of it stays
};

// A path of the system, from UTF-8 where the system has that; on others the bytes as they are.
std::filesystem::path systemPath(const std::string& path);

// Opened for its bytes, from the start or made anew; null where that fails.
std::FILE* systemFile(const std::filesystem::path& path, bool write);
int systemProcessId();

// Makes an empty file to write to. The problem, a sentence for the user; empty where there is none. Refused are a folder, a
// file that is read-only, and a folder that takes no file.
std::string printOutputBegin(PrintOutput& output, const std::string& path);
// Puts the report into its place. The problem; empty where there is none. What was written is gone afterwards either way.
std::string printOutputFinish(const PrintOutput& output);
// Takes away what was written; the place stays as it is.
void printOutputDrop(const PrintOutput& output);

// Turns the written report into a PDF of the same pages, fitted to A4. A report on which nothing shows becomes one empty page.
std::string printOutputToPdf(const PrintOutput& output, std::string_view title);

}  // namespace quillon
