// Every test program works in a folder of its own, which goes when it ends: tests run side by side, and what one writes must
// not be what another reads.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

struct OwnFolder {
  std::filesystem::path folder;

  OwnFolder() {
    // Thousands of small files: memory serves better than a disk, where there is some.
    const char* base = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    std::string name = std::string(base) + "/quillon-test-XXXXXX";
    if (!mkdtemp(name.data())) {
      std::perror("a folder for the tests");
      std::exit(1);
    }
    folder = name;
    std::filesystem::current_path(folder);
    setenv("TMPDIR", name.c_str(), 1);
    setenv("TEST_TMPDIR", name.c_str(), 1);
  }
  ~OwnFolder() {
    std::error_code ignored;
    std::filesystem::current_path("/", ignored);
    std::filesystem::remove_all(folder, ignored);
  }
} ownFolder;

}  // namespace
