// A whole run of one form from arbitrary bytes: the file, its name, the options, the answers and a planted fault, through the
// form to its end, and a second press after it.
//
// The file's bytes stand at the front of the input and the choices at its end, so that a sample with a few bytes behind it is a
// seed, and growing or cutting the file keeps the choices.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillon::fuzz {

struct FormUnderTest {
  const char* resource;
  int load, print, cancel;
  int outFile = 0, linesPerPage = 0;       // 0: the form has none
  int toFile = 0;                          // the radio "File"; 0: it prints to the printer alone, or to files alone
  std::span<const int> choices;            // radios and check boxes to press before Print
  std::span<const char* const> fileNames;  // names that mean different things to the form
  int kindList = 0;                        // a list of kinds, of which one is picked ahead of the load; 0: none
  std::span<const char* const> kinds = {};
  int convert = 0;  // a button that is pressed after Print; 0: none
};

// Always 0, as libFuzzer wants it. Whatever goes wrong ends the process: a sanitizer's word, a block or a stream that the
// run should have given back at the end of the program, or a run that does not end in an exit line.
int wholeRun(const FormUnderTest& form, const std::uint8_t* bytes, std::size_t size);

// The commands on the program, in a folder of the process's own, which becomes the current folder.
void runCommands(std::string_view commands);
// Makes a file in that folder.
void makeFile(const std::string& name, std::string_view bytes);

}  // namespace quillon::fuzz
