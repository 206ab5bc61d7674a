// Names of files as Windows finds them: without regard to case, with '/' or '\' between folders, without the dots and blanks
// that end a name. Paths are UTF-8.
#pragma once

#include <filesystem>
#include <string>

namespace quillon {

// The path under which the system knows the file. What does not exist stands there as it was spelled; empty where no file
// can bear the name.
std::filesystem::path pathOnDisk(const std::string& path);

bool pathIsFile(const std::string& path);  // it exists and is no folder

// From the current folder, the name spelled as given.
std::string pathInFull(const std::string& path);
std::string pathCurrentFolder();  // empty where it is gone

// "NUL", "CON" and "AUX", with or without an extension: names that take no report.
bool pathIsRefusedDevice(const std::string& path);
bool pathIsPrinter(const std::string& path);  // "prn" in any case

}  // namespace quillon
