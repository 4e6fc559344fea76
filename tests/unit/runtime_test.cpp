// Numbers and texts follow the classic runtime's rules, whatever the user's locale.
#include "ErrorOf.h"
#include "TempFolder.h"
#include "runtime/ErrorTrap.h"
#include "runtime/Files.h"
#include "runtime/Number.h"
#include "runtime/Text.h"

#include <gtest/gtest.h>

using namespace quillon;

namespace {

TEST(Val, TakesTheLeadingNumber) {
    const std::pair<const char*, double> rows[] = {
        {"118.70", 118.7}, {"  -5", -5},       {"12 34", 1234}, {"3.456a", 3.456}, {"abc", 0},    {"", 0},
        {"1e3", 1000},     {"1d2", 100},       {"1e", 1},       {".5", 0.5},       {"+7", 7},     {"-", 0},
        {"1,5", 1},        {"&H1830", 0x1830}, {"&HFFFF", -1},  {"inf", 0},        {"1e-999", 0}, {"nan", 0},
    };
    for (const auto& [text, value] : rows) EXPECT_EQ(Val(text), value) << text;
    EXPECT_EQ(ErrorOf([] { Val("1e999"); }), 6);
}

TEST(IsNumeric, WantsNothingButANumber) {
    for (const char* text : {"5", " 50 ", "-1.5", "1e3"}) EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", " ", "Com1", "5x", "1 2", "."}) EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(Format, FollowsThePattern) {
    const std::tuple<double, const char*, const char*> rows[] = {
        {118.02, "###.00", "118.02"},
        {136.95, "###.00", "136.95"},
        {0.5, "###.00", ".50"},
        {3.75, "00.0", "03.8"},
        {59.994, "00.0", "60.0"},
        {7, "00", "07"},
        {0, "#,###,###", ""},
        {0.4, "#,###,###", ""},
        {0.5, "#,###,###", "1"},
        {1234, "#,###,###", "1,234"},
        {12345678, "#,###,###", "12,345,678"},
        {-2.5, "0", "-3"},
        {123, "#,###,###", "123"},
        {-0.2, "0", "0"},
    };
    for (const auto& [number, pattern, text] : rows) EXPECT_EQ(Format(number, pattern), text) << number;
}

TEST(Rounding, HalvesGoToEvenAndOverflowIsAnError) {
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(-0.6), -1);
    EXPECT_EQ(CLng(2147483647.4), 2147483647);
    EXPECT_EQ(ErrorOf([] { CInt(32767.5); }), 6);
    EXPECT_EQ(ErrorOf([] { CLng(2147483647.5); }), 6);
    EXPECT_EQ(Int(-1.5), -2);
    EXPECT_EQ(Fix(-1.5), -1);
    EXPECT_EQ(Str(5), " 5");
    EXPECT_EQ(Str(-5), "-5");
    EXPECT_EQ(Hex(0x2C0A), "2C0A");
}

TEST(Text, CountsCharactersNotBytes) {
    const std::string text = "M\xC3\xBCnchen|\xE6\x9D\xB1|x";
    EXPECT_EQ(Len(text), 11U);
    EXPECT_EQ(InStr(text, "|"), 8);
    EXPECT_EQ(InStr(9, text, "|"), 10);
    EXPECT_EQ(InStr(text, "?"), 0);
    EXPECT_EQ(Mid(text, 9, 1), "\xE6\x9D\xB1");
    EXPECT_EQ(Mid(text, 11), "x");
    EXPECT_EQ(Mid(text, 12), "");
    EXPECT_EQ(Left(text, 2), "M\xC3\xBC");
    EXPECT_EQ(Right(text, 3), "\xE6\x9D\xB1|x");
    EXPECT_EQ(ErrorOf([&] { Mid(text, 2, -1); }), 5);
    EXPECT_EQ(ErrorOf([&] { Mid(text, 0, 1); }), 5);
}

TEST(Text, LowerCaseKnowsMoreThanAscii) {
    EXPECT_EQ(LCase("AZ\xC3\x9C\xC3\x97\xC4\xB0\xCE\xA9\xD0\x96\xC5\xBD"),
              "az\xC3\xBC\xC3\x97\xC4\xB0\xCF\x89\xD0\xB6\xC5\xBE");
}

TEST(Text, KnowsUtf8FromOtherBytes) {
    for (const char* good : {"", "abc", "\xC3\xBC", "\xF0\x9F\x8E\xA7"}) EXPECT_TRUE(IsUtf8(good)) << good;
    for (const char* bad : {"\xFC", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\x80"})
        EXPECT_FALSE(IsUtf8(bad)) << bad;
}

TEST(ErrorTrap, ReportsTheStepOnceUntilTheProcedureHasSucceeded) {
    std::string step = "Opening x";
    std::string message;
    int reports = 0;
    ErrorTrap trap(step, message, [&](const std::string& title, const std::string& text, Icon icon) {
        ++reports;
        EXPECT_EQ(title, "Timer1 errors");
        EXPECT_EQ(text, "Opening x\rError 6 Overflow");
        EXPECT_EQ(icon, Icon::Information);
    });
    const auto run = [&](bool fails) {
        return trap.Run("Timer1 errors", Icon::Information, [&] {
            if (fails) Raise(Overflow);
        });
    };
    EXPECT_FALSE(run(true));
    EXPECT_FALSE(run(true));
    EXPECT_EQ(reports, 1);
    EXPECT_TRUE(run(false));
    EXPECT_FALSE(run(true));
    EXPECT_EQ(reports, 2);
}

TEST(ErrorTrap, CatchesWhateverIsThrown) {
    std::string step = "s";
    std::string message;
    ErrorTrap trap(step, message, [](const auto&...) {});
    const std::pair<void (*)(), const char*> rows[] = {
        {[] { throw std::bad_alloc(); }, "s\rError 7 Out of memory"},
        {[] { std::vector<int>().reserve(SIZE_MAX); }, "s\rError 7 Out of memory"},
        {[] { throw std::runtime_error("x"); }, "s\rError 51 Internal error"},
        {[] { throw 1; }, "s\rError 51 Internal error"},
    };
    for (const auto& [procedure, text] : rows) {
        EXPECT_FALSE(trap.Run("t", Icon::Critical, procedure));
        EXPECT_EQ(message, text);
    }
}

using Files = TempFolder;

TEST_F(Files, FailuresSayWhatIsWrong) {
    EXPECT_EQ(ErrorOf([&] { Read("none"); }), 53);
    EXPECT_EQ(ErrorOf([&] { Read("none\\x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { ReadFile(folder); }), 75);
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(folder, "x"); }), 75);
    EXPECT_EQ(ErrorOf([&] { DeleteFileAt(At("none")); }), 53);

    const std::string file = At("\xC3\xBC.txt");
    ReplaceFile(file, "one");
    ReplaceFile(file, "two");
    AppendFile(file, "three");
    EXPECT_EQ(ReadFile(file), "twothree");
    EXPECT_EQ(StampOf(file)->Length, 8U);
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FileExists(folder));
    EXPECT_FALSE(FileExists(file + ".new"));
}

} // namespace
