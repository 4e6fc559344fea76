// Printing the list: pages, columns and the command.
#include "ErrorOf.h"
#include "Flight.h"
#include "app/ListPages.h"

using namespace quillon;

namespace {

std::string TextsOf(const PrintedLine& line) {
    std::string all;
    for (const PrintedText& text : line.Texts) all += std::to_string(text.Column) + " " + text.Text + "|";
    return all;
}

TEST(ListPages, SheetsAndStatedTotals) {
    constexpr std::array<std::size_t, 3> Cases[] = {{0, 1, 0},  {31, 1, 0}, {32, 1, 1}, {55, 2, 1},
                                                    {56, 2, 1}, {63, 2, 2}, {93, 2, 3}, {100, 2, 3}};
    for (const auto& [rows, sheets, total] : Cases) {
        EXPECT_EQ(SheetsFor(rows), sheets) << rows;
        EXPECT_EQ(TotalPagesFor(rows), static_cast<std::int16_t>(total)) << rows;
    }
    EXPECT_EQ(ErrorOf([] { TotalPagesFor(62U * 32768); }), Overflow);
}

TEST(ListPages, LongTextsAreMarked) {
    const std::string city33 = "\xC3\x89vreux Fauville \xC5\x81\xC3\xB3.\xC5\xBA Approach - T";
    const std::string url40 = "HTTP://feeds.example/AAAAAAAAAAAAAAAAAAA", low19(19, 'a');
    EXPECT_EQ(TextsOf(PrintRow({"EGLL", city33, "119.72", url40})),
              "8 EGLL|18 " + city33 + "|60 119.72|70 http://feeds.example/" + low19 + "|");
    EXPECT_EQ(TextsOf(PrintRow({"EGLL", city33 + "x", "119.72", url40 + "\xC3\x89"})),
              "8 EGLL|18 " + city33 + "...|60 119.72|70 ...//feeds.example/" + low19 + "\xC3\xA9|");
}

TEST(ListPages, FootersTellPageAndTime) {
    using namespace std::chrono;
    frmATC form;
    const auto footer = [&form](sys_time<minutes> time) {
        PrintedPage page;
        PrintFooter(page, form, time);
        return TextsOf(page.back());
    };
    EXPECT_EQ(footer(sys_days(2026y / 1 / 9) + 5min), "55 Page: 01 of 0|90 January 09, 2026 - 12:05 AM|");
    EXPECT_EQ(footer(sys_days(2026y / 5 / 31) + 12h), "55 Page: 02 of 0|90 May 31, 2026 - 12:00 PM|");
    EXPECT_EQ(footer(sys_days(2026y / 12 / 1) + 1319min), "55 Page: 03 of 0|90 December 01, 2026 - 9:59 PM|");
}

class Printing : public Flight {
  protected:
    Printing() { // 107 feeds besides the three folders, and one search made
        std::string lines;
        for (int n = 201; n < 308; ++n) lines += std::to_string(n) + "|City|x|" + std::to_string(n) + ".00\r\n";
        Write("Quillon\\live_atc_feeds.txt", lines);
        Start();
        RunAnswering(Command::mnuCitySearch, "City");
    }
};

TEST_F(Printing, PrintsTheListAsItIsSorted) {
    for (const Column clicked : {Column::City, Column::City, Column::Freq}) // the second click turns the order
        program->lvwDB_ColumnClick(clicked);
    program->Run(Command::mnuPrint);
    ASSERT_EQ(printer.pages.size(), 3U); // 110 rows, so that the third has none
    EXPECT_EQ(TextsOf(printer.pages[0][6]), "8 307|18 City|60 307.00|70 x|");
    EXPECT_EQ(TextsOf(printer.pages[1][6]), "8 252|18 City|60 252.00|70 x|");
    EXPECT_EQ(printer.pages[2].size(), 8U);
    EXPECT_EQ(printer.pages[0].size(), 63U);
    EXPECT_TRUE(printer.finished);
    EXPECT_EQ(state().LastSearchText + state().StartupStep, "");
}

TEST_F(Printing, CancellingIsSilentAndEveryFailureIsReported) {
    for (bool* yes : {&prompts.yes, &printer.chosen}) {
        *yes = false;
        program->Run(Command::mnuPrint);
        EXPECT_EQ(printer.pages.size(), 0U);
        *yes = true;
    }
    printer.cancelled_at = 1;
    program->Run(Command::mnuPrint);
    EXPECT_EQ(printer.pages.size(), 1U);
    EXPECT_EQ(prompts.messages.size(), 0U);
    EXPECT_EQ(state().LastSearchText + state().StartupStep, "City");
    printer.cancelled_at = 0;
    for (const auto& [sheet, step] : {std::pair{1U, "Print data"}, {3U, "Print data"}, {4U, "Print footer"}}) {
        printer.fails_at = sheet; // the job's end counts as one more
        program->Run(Command::mnuPrint);
        EXPECT_EQ(prompts.messages.back().text, std::string(step) + "\rError 482 On fire");
    }
    EXPECT_EQ(prompts.messages.size(), 3U);
    EXPECT_FALSE(printer.finished);
}

} // namespace
