// What servers wrap around the audio, and when they are asked again.
#include "player/ChunkedBody.h"
#include "player/IcyDemuxer.h"
#include "player/RetrySchedule.h"

#include <gtest/gtest.h>
#include <set>

using namespace quillon;
using namespace std::chrono_literals;

namespace {

/// What the filter keeps of the bytes when they come in pieces of `step`.
template <typename Filter>
std::string Stripped(Filter& filter, std::string bytes, std::size_t step) {
    std::string kept;
    for (std::size_t at = 0; at < bytes.size(); at += step) {
        const std::size_t count = std::min(step, bytes.size() - at);
        const std::span piece(reinterpret_cast<std::uint8_t*>(bytes.data()) + at, count);
        kept.append(bytes, at, filter.Strip(piece));
    }
    return kept;
}

TEST(ChunkedBody, IsUnwrapped) {
    struct Row {
        std::string bytes;
        const char* body;
        char then; // E: ended, M: malformed, -: unfinished
    };
    const Row rows[] = {
        {"3\r\nabc\r\n\r\nxyz", "abc", 'M'},
        {"3\r\nabc\r\n0A\r\n0123456789\r\n0\r\nTrailer: x\r\n\r\n", "abc0123456789", 'E'},
        {"3;name=\"v;\"\r\nabc\r\n2 \nde\n", "abcde", '-'},
        {"4\r\nab", "ab", '-'},
        {"\r\n", "", 'M'},
        {"x\r\nabc", "", 'M'},
        {"-1\r\nabc", "", 'M'},
        {"3\r\nabcd\r\n", "abc", 'M'},
        {"1FFFFFFFF\r\n", "", 'M'},
        {"3;" + std::string(5000, 'x'), "", 'M'},
    };
    for (const Row& row : rows) {
        for (const std::size_t step : {1U, 2U, 5U, 10000U}) {
            ChunkedBody body;
            EXPECT_EQ(Stripped(body, row.bytes, step), row.body) << row.bytes;
            EXPECT_EQ(body.HasEnded() ? 'E' : body.IsMalformed() ? 'M' : '-', row.then) << row.bytes;
        }
    }
}

std::string Metadata(std::string text) {
    text.resize((text.size() + 15) / 16 * 16);
    return static_cast<char>(text.size() / 16) + text;
}

TEST(IcyDemuxer, StripsMetadata) {
    const std::string longest = "StreamTitle='" + std::string(255 * 16 - 15, 'x') + "';";
    const std::string bytes = "abcde" + Metadata("StreamTitle='Tower';StreamUrl='';") + "fghij" + Metadata("") +
                              "klmno" + Metadata("StreamUrl='x';") + "pqrst";
    for (const std::size_t step : {1U, 3U, 16U, 10000U}) {
        IcyDemuxer demuxer(5);
        EXPECT_EQ(Stripped(demuxer, bytes, step), "abcdefghijklmnopqrst") << step;
        EXPECT_EQ(demuxer.Title(), "Tower");
        EXPECT_EQ(Stripped(demuxer, Metadata(longest) + "uv", step), "uv");
        EXPECT_EQ(demuxer.Title(), std::string(120, 'x'));
    }
}

TEST(IcyDemuxer, ReadsTitles) {
    const std::pair<std::string, const char*> rows[] = {
        {"StreamTitle='KJFK Tower';StreamUrl='http://h/';", "KJFK Tower"},
        {"StreamUrl='';StreamTitle=' It's \n O'Hare ';", "It's O'Hare"},
        {"StreamTitle='a\r\n\tb\x7F\x01\xC2\x85\xE2\x80\xA9\xE2\x80\xAE\xE2\x81\xA6\xC3\x96';", "a b \xC3\x96"},
        {"StreamTitle='\xE2\x80';", "\xC3\xA2"},
        {"StreamTitle='cut sho", "cut sho"},
        {"StreamTitle='no end'", "no end"},
        {"StreamTitle='Z\xFCrich';", "Z\xC3\xBCrich"},
        {"StreamTitle='Z\xC3\xBCrich';", "Z\xC3\xBCrich"},
        {"StreamTitle='';", ""},
        {"nothing", ""},
    };
    for (const auto& [text, title] : rows) EXPECT_EQ(TitleOf(text), title);
}

/// The waits after failures in a row, as "waits in whole steps of the schedule"; "x" when it gives up.
std::string Waits(RetrySchedule& retries, Outcome outcome, int count, std::chrono::milliseconds played = {}) {
    std::string text;
    for (; count > 0; --count) {
        const auto next = retries.NextTry("u", outcome, played, 1h);
        std::string shown = "x";
        for (const int round : {1, 2, 4, 8, 15, 30})
            if (next && *next - 1h >= round * 800ms && *next - 1h <= round * 1200ms)
                shown = std::to_string(round);
        text += shown + " ";
    }
    return text;
}

TEST(RetrySchedule, WaitsLongerEachTimeUntilThereWasSound) {
    std::set<std::chrono::milliseconds> first;
    for (int seed = 0; seed < 50; ++seed) {
        RetrySchedule retries;
        retries.Begin("u", seed * 1s);
        EXPECT_EQ(Waits(retries, Outcome::Dropped, 8), "1 2 4 8 15 30 30 30 ");
        EXPECT_EQ(Waits(retries, Outcome::Dropped, 1, 29s), "30 ");
        EXPECT_EQ(Waits(retries, Outcome::Dropped, 3, 30s), "1 1 1 ");
        retries.Begin("u", seed * 1s);
        first.insert(*retries.NextTry("u", Outcome::Dropped, 0s, 0s));
    }
    EXPECT_GT(first.size(), 25U) << "listeners come back one by one";
}

TEST(RetrySchedule, GivesUpWhatIsRefusedOrThreeTimesNoSound) {
    RetrySchedule retries;
    EXPECT_EQ(Waits(retries, Outcome::NotAudio, 3), "1 2 x ");
    EXPECT_EQ(retries.NotBefore("u"), 1h + 60s);
    retries.Begin("u", 1h + 59s);
    EXPECT_EQ(retries.NotBefore("u"), 1h + 60s) << "whoever plays it next";
    EXPECT_EQ(Waits(retries, Outcome::Refused, 1), "x ");
    retries.Begin("v", 2h);
    EXPECT_EQ(Waits(retries, Outcome::NotAudio, 2), "1 2 ");
    EXPECT_EQ(Waits(retries, Outcome::Dropped, 1), "4 ");
    EXPECT_EQ(Waits(retries, Outcome::NotAudio, 2), "8 15 ");
    EXPECT_EQ(Waits(retries, Outcome::NotAudio, 3, 31s), "1 1 1 ");
}

} // namespace
