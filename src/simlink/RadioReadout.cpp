#include "simlink/RadioReadout.h"

#include "runtime/Number.h"

#include <algorithm>
#include <bit>
#include <cstdio>

namespace quillon {

namespace {

constexpr std::uint32_t PauseIndicator = 0x0264;
constexpr std::uint32_t LatitudeLow = 0x0560;
constexpr std::uint32_t LatitudeHigh = 0x0564;
constexpr std::uint32_t LongitudeLow = 0x0568;
constexpr std::uint32_t LongitudeHigh = 0x056C;

constexpr CommRadio Radios[] = {
    {0x034E, 0x05C4, " Comm 1 "},
    {0x311A, 0x05CC, " Comm 1 Standby "},
    {0x3118, 0x05C8, " Comm 2 "},
    {0x311C, 0x05D0, " Comm 2 Standby "},
};

} // namespace

const CommRadio* FindCommRadio(std::int16_t selected_comm) {
    return selected_comm >= 1 && selected_comm <= 4 ? &Radios[selected_comm - 1] : nullptr;
}

const CommRadio* FindCommRadioAt(std::uint32_t offset) {
    const auto* found = std::find_if(std::begin(Radios), std::end(Radios),
                                     [&](const CommRadio& radio) { return radio.Offset == offset; });
    return found == std::end(Radios) ? nullptr : found;
}

std::string DegreesText(double degrees) {
    char digits[64];
    const int length = std::snprintf(digits, sizeof digits, "%.12f", degrees);
    std::string text(digits,
                     static_cast<std::size_t>(std::clamp(length, 0, static_cast<int>(sizeof digits) - 1)));
    text.erase(std::max(text.find_last_not_of('0') + 1, text.find('.') + 2));
    return text == "-0.0" ? "0.0" : text;
}

std::optional<std::int16_t> SimReading::PauseState() const {
    if (!answered_) return std::nullopt;
    // The two bytes' decimal texts stand side by side: 1, 0 reads as 01.
    return CInt(Val(std::to_string(pause_[1]) + std::to_string(pause_[0])));
}

std::optional<RadioReading> SimReading::Radio() const {
    if (!answered_ || !has_radio_) return std::nullopt;
    return radio_.Value();
}

RadioReading SimReading::RadioBytes::Value() const {
    RadioReading reading = DecodeFrequency(word[1], word[0]);
    if (const auto channel = AgreedChannel(static_cast<std::uint16_t>(word[1] << 8 | word[0]), hertz)) {
        reading.frequency = channel->Text();
        reading.in_hertz = true;
    }
    return reading;
}

double SimReading::FixedPoint::Value() const {
    // The low part counts ten times what it stands for; at worst that is 5 metres.
    const double fraction = low / 429496729.0;
    return high <= 0 ? high - fraction : high + fraction;
}

PositionReading SimReading::Position() const {
    if (!answered_) return {};
    return {latitude_.Value() * (90 / 10001750.0), longitude_.Value() * (360 / 4294967296.0)};
}

SimReading RadioReadout::Read(std::uint32_t radio_offset, std::uint32_t& result) {
    const auto queue = [&](std::uint32_t offset, auto& destination) {
        static_assert(std::endian::native == std::endian::little);
        return link_.FsuipcRead(offset, sizeof destination, &destination, result);
    };
    SimReading reading;
    reading.has_radio_ = radio_offset != 0;
    reading.answered_ = queue(PauseIndicator, reading.pause_) &&
                        (!reading.has_radio_ || QueueRadio(radio_offset, reading.radio_, result)) &&
                        queue(LatitudeHigh, reading.latitude_.high) &&
                        queue(LatitudeLow, reading.latitude_.low) &&
                        queue(LongitudeHigh, reading.longitude_.high) &&
                        queue(LongitudeLow, reading.longitude_.low) && link_.FsuipcProcess(result);
    return reading;
}

std::optional<RadioReading> RadioReadout::ReadRadio(std::uint32_t offset, std::uint32_t& result) {
    SimReading::RadioBytes radio;
    if (!QueueRadio(offset, radio, result) || !link_.FsuipcProcess(result)) return std::nullopt;
    return radio.Value();
}

/// On older modules the bytes at the second offset mean something else.
bool RadioReadout::QueueRadio(std::uint32_t offset, SimReading::RadioBytes& radio, std::uint32_t& result) {
    constexpr std::int32_t FirstWithHertz = 0x40000000;
    const CommRadio* known = FindCommRadioAt(offset);
    const bool in_hertz = known && link_.FsuipcVersion() >= FirstWithHertz;
    return link_.FsuipcRead(offset, sizeof radio.word, &radio.word, result) &&
           (!in_hertz || link_.FsuipcRead(known->HertzOffset, sizeof radio.hertz, &radio.hertz, result));
}

} // namespace quillon
