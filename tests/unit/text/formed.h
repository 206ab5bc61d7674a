// What print and the C library's snprintf make of one format and its values.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

#include "text/print.h"

namespace quillon {

template <FormatText Format, class... Args>
std::string printed(Args... args) {
  std::string text;
  Output* output = outputToMemory(&text);
  print<Format>(*output, args...);
  EXPECT_TRUE(outputClose(output));
  return text;
}

template <class... Args>
std::string byLibrary(const char* format, Args... args) {
  char text[2048];
  const int size = std::snprintf(text, sizeof text, format, args...);
  return {text, static_cast<std::size_t>(size)};
}

// The same format to both.
#define EXPECT_AS_LIBRARY(format, ...) EXPECT_EQ(printed<format>(__VA_ARGS__), byLibrary(format, __VA_ARGS__))

}  // namespace quillon
