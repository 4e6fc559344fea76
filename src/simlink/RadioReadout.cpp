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
    {0x034E, " Comm 1 "},
    {0x311A, " Comm 1 Standby "},
    {0x3118, " Comm 2 "},
    {0x311C, " Comm 2 Standby "},
};

} // namespace

const CommRadio* FindCommRadio(std::int16_t selected_comm) {
    return selected_comm >= 1 && selected_comm <= 4 ? &Radios[selected_comm - 1] : nullptr;
}

RadioReading DecodeFrequency(std::uint8_t high, std::uint8_t low) {
    std::string text = "1" + Hex(high) + "." + Hex(low);
    if (text.size() != 5) return {text, false};
    // The 25 kHz raster has .02, .05 and .07 but no .20, .50 or .70 that would lose its last zero in BCD.
    if (text[4] == '7' || text[4] == '5' || text[4] == '2') return {text.insert(4, "0"), true};
    return {text + "0", false};
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
    return DecodeFrequency(radio_[1], radio_[0]);
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
    reading.answered_ =
        queue(PauseIndicator, reading.pause_) && (!reading.has_radio_ || queue(radio_offset, reading.radio_)) &&
        queue(LatitudeHigh, reading.latitude_.high) && queue(LatitudeLow, reading.latitude_.low) &&
        queue(LongitudeHigh, reading.longitude_.high) && queue(LongitudeLow, reading.longitude_.low) &&
        link_.FsuipcProcess(result);
    return reading;
}

std::optional<RadioReading> RadioReadout::ReadRadio(std::uint32_t offset, std::uint32_t& result) {
    std::array<std::uint8_t, 4> RadioBytes{};
    if (!link_.FsuipcRead(offset, RadioBytes.size(), RadioBytes.data(), result)) return std::nullopt;
    if (!link_.FsuipcProcess(result)) return std::nullopt;
    return DecodeFrequency(RadioBytes[1], RadioBytes[0]);
}

} // namespace quillon
