// The command line of quillon-pages.
#include "pages/pages_command.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using Arguments = std::vector<std::string>;

std::string problem(const Arguments& arguments) {
  const PagesCommand command = pagesCommand(arguments);
  EXPECT_EQ(command.action, PagesAction::wrongCall);
  return command.problem;
}

TEST(PagesCommand, nothingShowsAnEmptyWindow) {
  const PagesCommand command = pagesCommand({});
  EXPECT_EQ(command.action, PagesAction::show);
  EXPECT_EQ(command.report, "");
}

TEST(PagesCommand, aReportIsShown) {
  const PagesCommand command = pagesCommand({"C:\\REPORTS\\TRADES.TXT"});
  EXPECT_EQ(command.action, PagesAction::show);
  EXPECT_EQ(command.report, "C:\\REPORTS\\TRADES.TXT");
}

TEST(PagesCommand, aReportIsPrintedHandedOverOrKept) {
  PagesCommand command = pagesCommand({"a.txt", "/print", "Office Laser"});
  EXPECT_EQ(command.action, PagesAction::print);
  EXPECT_EQ(command.report, "a.txt");
  EXPECT_EQ(command.printer, "Office Laser");
  command = pagesCommand({"/RAW", "LPT1", "a.txt"});
  EXPECT_EQ(command.action, PagesAction::raw);
  EXPECT_EQ(command.printer, "LPT1");
  EXPECT_EQ(command.report, "a.txt");
  command = pagesCommand({"a.txt", "--pdf", "out.pdf"});
  EXPECT_EQ(command.action, PagesAction::pdf);
  EXPECT_EQ(command.file, "out.pdf");
}

TEST(PagesCommand, aValueMayBeginLikeAnOption) { EXPECT_EQ(pagesCommand({"a", "/pdf", "/tmp/x.pdf"}).file, "/tmp/x.pdf"); }

TEST(PagesCommand, usualWishes) {
  const PagesCommand command = pagesCommand({"a", "/pdf", "b"});
  EXPECT_EQ(command.firstPage, 0u);
  EXPECT_EQ(command.lastPage, mostPages);
  EXPECT_EQ(command.copies, 1u);
  EXPECT_EQ(command.flowLines, 66u);
  EXPECT_EQ(command.wishes.orientation, Orientation::automatic);
  EXPECT_EQ(command.wishes.fontSize, 0);
  EXPECT_FALSE(command.sheetGiven);
  EXPECT_FALSE(command.marginsGiven);
}

TEST(PagesCommand, pagesFromTo) {
  const auto pages = [](const char* text) {
    const PagesCommand command = pagesCommand({"a", "/pdf", "b", "/pages", text});
    return command.action == PagesAction::pdf ? std::pair(command.firstPage, command.lastPage)
                                              : std::pair<std::size_t, std::size_t>();
  };
  EXPECT_EQ(pages("3"), (std::pair<std::size_t, std::size_t>(2, 2)));
  EXPECT_EQ(pages("3-7"), (std::pair<std::size_t, std::size_t>(2, 6)));
  EXPECT_EQ(pages("3-"), (std::pair<std::size_t, std::size_t>(2, mostPages - 1)));
  for (const char* wrong : {"0", "-3", "7-3", "a", "3-b", "", "3 - 7", "99999999999"}) {
    EXPECT_EQ(problem({"a", "/pdf", "b", "/pages", wrong}), std::string("\"/pages ") + wrong + "\" cannot be done.");
  }
}

TEST(PagesCommand, fontMarginPaperLinesCopies) {
  const PagesCommand command = pagesCommand({"a", "/print", "p", "/font", "8,5", "/margin", "12.7", "/paper", "letter",
                                             "/lines", "72", "/copies", "2", "/landscape"});
  EXPECT_EQ(command.action, PagesAction::print);
  EXPECT_DOUBLE_EQ(command.wishes.fontSize, 8.5);
  EXPECT_DOUBLE_EQ(command.wishes.margins.left, 36);
  EXPECT_DOUBLE_EQ(command.wishes.margins.bottom, 36);
  EXPECT_EQ(command.wishes.sheet.width, 612);
  EXPECT_TRUE(command.sheetGiven);
  EXPECT_TRUE(command.marginsGiven);
  EXPECT_EQ(command.flowLines, 72u);
  EXPECT_EQ(command.copies, 2u);
  EXPECT_EQ(command.wishes.orientation, Orientation::landscape);
}

TEST(PagesCommand, valuesOutOfRangeAreRefused) {
  const std::pair<const char*, const char*> wrong[] = {
      {"/font", "0"},   {"/font", "73"}, {"/font", "8.5.1"}, {"/font", "."},   {"/margin", "-1"},   {"/margin", "501"},
      {"/paper", "B5"}, {"/lines", "0"}, {"/lines", "201"},  {"/copies", "0"}, {"/copies", "1000"}, {"/copies", "two"}};
  for (const auto& [option, value] : wrong) {
    EXPECT_EQ(problem({"a", "/print", "p", option, value}), std::string("\"") + option + " " + value + "\" cannot be done.");
  }
}

TEST(PagesCommand, wrongCallsAreTold) {
  EXPECT_EQ(problem({"a", "b"}), "One report at a time: \"b\" is a second one.");
  EXPECT_EQ(problem({"a", "/prnt", "p"}), "There is no option \"/prnt\".");
  EXPECT_EQ(problem({"a", "/prnt"}), "There is no option \"/prnt\".");
  EXPECT_EQ(problem({"a", "/print"}), "\"/print\" needs a value behind it.");
  EXPECT_EQ(problem({"/pdf", "b"}), "The report is missing.");
  EXPECT_EQ(problem({"a", "/pdf", "b", "/print", "p"}), "\"/print p\" cannot be done.");
  EXPECT_EQ(problem({"a", "/pdf", ""}), "\"/pdf \" cannot be done.");
  EXPECT_EQ(problem({"a", "/pdf", "b", "/list-printers"}), "\"/list-printers\" does not go with what was asked before it.");
  EXPECT_EQ(problem({"a", "/portrait", "/landscape"}), "\"/landscape\" does not go with what was asked before it.");
}

TEST(PagesCommand, whatWouldHaveNoEffectIsRefused) {
  const std::string pages = "/pages, /portrait, /landscape, /font, /margin and /paper go with /print and /pdf alone.";
  const Arguments options[] = {{"/pages", "1-"}, {"/pages", "2"},   {"/portrait"},   {"/landscape"},
                               {"/font", "8"},   {"/margin", "10"}, {"/paper", "A4"}};
  const Arguments calls[] = {{"a"}, {"a", "/raw", "p"}, {"/list-printers"}, {"a", "/pdf", "b"}, {"a", "/print", "p"}};
  for (const Arguments& option : options) {
    for (const Arguments& call : calls) {
      Arguments arguments = option;
      arguments.insert(arguments.end(), call.begin(), call.end());
      const PagesCommand command = pagesCommand(arguments);
      const bool taken = call.size() == 3 && call[1] != "/raw";
      EXPECT_EQ(command.problem, taken ? "" : pages) << option[0] << ' ' << call.back();
      EXPECT_EQ(command.action == PagesAction::wrongCall, !taken);
    }
  }
  EXPECT_EQ(problem({"a", "/pdf", "b", "/copies", "2"}), "/copies goes with /print alone.");
  EXPECT_EQ(problem({"a", "/raw", "p", "/lines", "60"}), "/lines does not go with /raw.");
  EXPECT_EQ(pagesCommand({"a", "/lines", "60"}).flowLines, 60u);
  EXPECT_EQ(pagesCommand({"a", "/pdf", "b", "/lines", "60"}).flowLines, 60u);
}

TEST(PagesCommand, theEndsOfEachRangeAreTaken) {
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/font", "1"}).wishes.fontSize, 1);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/font", "72,0"}).wishes.fontSize, 72);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/margin", "0"}).wishes.margins.top, 0);
  EXPECT_DOUBLE_EQ(pagesCommand({"a", "/print", "p", "/margin", "500"}).wishes.margins.right, 500 * 72 / 25.4);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/lines", "1"}).flowLines, 1u);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/lines", "200"}).flowLines, 200u);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/copies", "999"}).copies, 999u);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/copies", "000000002"}).copies, 2u);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/font", "0000000000.9"}).action, PagesAction::wrongCall);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/font", "00000000009"}).wishes.fontSize, 9);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/font", "0000000000009"}).action, PagesAction::wrongCall);  // of no length
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/pages", "4194304"}).lastPage, mostPages - 1);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/pages", "4194305"}).action, PagesAction::wrongCall);
  EXPECT_EQ(pagesCommand({"a", "/print", "p", "/pages", "7-7"}).lastPage, 6u);
}

TEST(PagesCommand, aSingleSignIsAName) {
  EXPECT_EQ(pagesCommand({"-"}).report, "-");
  EXPECT_EQ(problem({"--"}), "There is no option \"--\".");
}

TEST(PagesCommand, printersAreListed) { EXPECT_EQ(pagesCommand({"/List-Printers"}).action, PagesAction::listPrinters); }

TEST(PagesCommand, theWholeHelp) {
  EXPECT_EQ(pagesHelp(),
            "Shows, prints and keeps reports.\n"
            "\n"
            "quillon-pages [REPORT or FOLDER]             shows it\n"
            "quillon-pages REPORT /print PRINTER          prints it, fitted to the sheet\n"
            "quillon-pages REPORT /raw PRINTER            hands its bytes to the printer as they are\n"
            "quillon-pages REPORT /pdf FILE               keeps it as PDF\n"
            "quillon-pages /list-printers                 lists the printers\n"
            "\n"
            "With /print and /pdf alone:\n"
            "  /pages 3 or 3-7 or 3-                      these pages only\n"
            "  /portrait, /landscape                      the sheet lies so (otherwise as fits better)\n"
            "  /font POINTS                               letters of this size (otherwise as large as fits)\n"
            "  /margin MILLIMETRES                        at all four edges (otherwise 10)\n"
            "  /paper A4, A3, Letter or Legal             the sheet (otherwise the printer's own; A4 for a PDF)\n"
            "With /print alone: /copies N\n"
            "With all but /raw:\n"
            "  /lines N                                   lines a page where a report has no form feeds (otherwise 66)\n"
            "\n"
            "The status is 0 when all is done, 2 for a wrong call, 3 when the report cannot be read, 4 when it has no such\n"
            "page, 5 when the margins leave no room, 6 for an unknown printer, 7 when the printer failed, 8 when the PDF\n"
            "cannot be written, 1 for anything else.\n");
}

TEST(PagesCommand, helpIsGivenWhateverStandsBesideIt) {
  for (const char* help : {"/?", "-?", "-h", "--help", "/HELP"})
    EXPECT_EQ(pagesCommand({"a", help, "/x"}).action, PagesAction::help);
  for (const char* option : {"/print", "/raw", "/pdf", "/list-printers", "/pages", "/portrait", "/landscape", "/font",
                             "/margin", "/paper", "/lines", "/copies"}) {
    EXPECT_NE(pagesHelp().find(option), std::string_view::npos) << option;
  }
}

}  // namespace
}  // namespace quillon
