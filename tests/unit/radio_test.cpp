// Channels of 25 and 8.33 kHz: their names, and what radios say of them.
#include "radio/RadioWord.h"
#include "runtime/RuntimeError.h"

#include <array>
#include <gtest/gtest.h>
#include <tuple>

using namespace quillon;

namespace {

std::string TextOf(const std::optional<Channel>& channel) {
    return channel ? channel->Text() : "";
}

TEST(Channel, HasOneTextOneKeyAndSharesACarrierWithAtMostOneOther) {
    const std::array<const char*, 4> rows[] = {
        // text, shown, key, on the same carrier
        {"118.30", "118.30", "118.30", "118.305"},   {"118.300", "118.30", "118.30", "118.305"},
        {"118.305", "118.305", "118.305", "118.30"}, {"118.310", "118.310", "118.31", ""},
        {"118.31", "118.310", "118.31", ""},         {"118.02", "118.02", "118.02", "118.030"},
        {"118.025", "118.02", "118.02", "118.030"},  {"118.07", "118.07", "118.07", "118.080"},
        {"118.030", "118.030", "118.03", "118.02"},  {"136.990", "136.990", "136.99", ""},
        {"118.000", "118.00", "118.00", "118.005"},
    };
    for (const auto& [text, shown, key, other] : rows) {
        const auto channel = Channel::Named(text);
        ASSERT_EQ(TextOf(channel), shown) << text;
        EXPECT_EQ(FrequencyKey(text), key);
        EXPECT_EQ(TextOf(channel->OnSameCarrier()), other) << text;
    }
    for (const char* none : {"117.995", "137.000", "118,305", "118.30x", "118.0 ", "118.3", "118.3050"}) {
        EXPECT_FALSE(Channel::Named(none)) << none;
        EXPECT_EQ(FrequencyKey(none), none);
    }
    std::string endings;
    for (int last = 100; last < 200; ++last)
        if (Channel::Named("118.3" + std::to_string(last).substr(1))) endings += std::to_string(last) + " ";
    EXPECT_EQ(endings, "100 105 110 115 125 130 135 140 150 155 160 165 175 180 185 190 ");
}

TEST(AgreedChannel, TrustsHertzThatTheWordDoesNotContradict) {
    const std::tuple<std::uint16_t, std::int32_t, const char*> rows[] = {
        {0x1830, 118'305'000, "118.305"}, {0x1803, 118'030'000, "118.030"}, {0x1802, 118'025'000, "118.02"},
        {0x1830, 118'304'999, "118.305"}, {0x1831, 118'308'333, "118.310"}, {0x1831, 118'316'667, "118.315"},
        {0x1830, 118'310'000, "118.310"}, {0x1830, 118'310'001, ""},        {0x1830, 118'289'999, ""},
        {0x1830, 118'320'000, ""},        {0x1832, 118'320'000, ""},        {0x183A, 118'310'000, ""},
        {0x1800, 117'999'999, ""},        {0x1800, 118'000'000, "118.00"},  {0x3699, 136'990'000, "136.990"},
        {0x3699, 136'999'999, ""},        {0x3700, 137'000'000, ""},        {0, 0, ""},
        {0x1830, INT32_MIN, ""},          {0x1830, INT32_MAX, ""},
    };
    for (const auto& [word, hertz, text] : rows) EXPECT_EQ(TextOf(AgreedChannel(word, hertz)), text) << hertz;
}

TEST(DecodeFrequency, PutsALostZeroBackWhereTheRasterLostIt) {
    const std::tuple<std::uint8_t, std::uint8_t, const char*, bool> rows[] = {
        {0x18, 0x30, "118.30", false}, {0x18, 0x05, "118.05", true},  {0x18, 0x07, "118.07", true},
        {0x18, 0x02, "118.02", true},  {0x18, 0x00, "118.00", false}, {0x36, 0x97, "136.97", false},
        {0x18, 0x01, "118.10", false},
    };
    for (const auto& [high, low, text, inserted] : rows) {
        const RadioReading read = DecodeFrequency(high, low);
        EXPECT_EQ(read.frequency, text);
        EXPECT_EQ(read.zero_inserted, inserted) << text;
    }
}

TEST(BcdOfFrequency, WantsAFrequency) {
    EXPECT_EQ(BcdOfFrequency("118.30"), 0x1830U);
    EXPECT_EQ(BcdOfFrequency("118.305"), 0x1830U);
    EXPECT_EQ(BcdOfFrequency("199.99"), 0x9999U);
    for (const char* bad : {"", "1x8.30", "118.3x"}) EXPECT_THROW(BcdOfFrequency(bad), RuntimeError) << bad;
}

} // namespace
