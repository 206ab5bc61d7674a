// A text file for one test, made in the system's folder for temporary files and taken away at the end.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "text/input.h"

namespace quillon::test {

struct TextFile {
  std::filesystem::path path;

  explicit TextFile(const std::string& bytes) {
    const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
    static int made = 0;
    path = std::filesystem::temp_directory_path() /
           (std::string("quillon_") + info->test_suite_name() + "_" + info->name() + "_" + std::to_string(++made) + ".txt");
    std::ofstream(path, std::ios::binary) << bytes;
  }
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;
  ~TextFile() {
    inputCloseAll();
    std::filesystem::remove(path);
  }

  // Given back when the file goes.
  Input& open() const {
    Input* input = inputOpen(path.string(), InputKind::text);
    EXPECT_NE(input, nullptr);
    return *input;
  }
};

}  // namespace quillon::test
