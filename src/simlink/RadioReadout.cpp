#include "simlink/RadioReadout.h"

#include "runtime/Number.h"

#include <algorithm>
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

std::int32_t LittleEndian(const std::array<std::uint8_t, 4>& bytes) {
    const std::uint32_t value = bytes[0] | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U |
                                std::uint32_t{bytes[3]} << 24U;
    return static_cast<std::int32_t>(value);
}

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

template <std::size_t Size>
bool RadioReadout::Read(std::uint32_t offset, std::array<std::uint8_t, Size>& bytes) {
    return link_.FsuipcRead(offset, Size, bytes.data(), result_) && link_.FsuipcProcess(result_);
}

std::optional<RadioReading> RadioReadout::ReadRadio(std::uint32_t offset) {
    std::array<std::uint8_t, 4> RadioBytes{};
    if (offset == 0 || !Read(offset, RadioBytes)) return std::nullopt;
    return DecodeFrequency(RadioBytes[1], RadioBytes[0]);
}

std::optional<std::int16_t> RadioReadout::ReadPauseState() {
    std::array<std::uint8_t, 2> bytes{};
    if (!Read(PauseIndicator, bytes)) return std::nullopt;
    // The two bytes' decimal texts stand side by side: 1, 0 reads as 01.
    return CInt(Val(std::to_string(bytes[1]) + std::to_string(bytes[0])));
}

std::optional<double> RadioReadout::ReadFixedPoint(std::uint32_t high_offset, std::uint32_t low_offset,
                                                   double unit) {
    std::array<std::uint8_t, 4> high{};
    std::array<std::uint8_t, 4> low{};
    if (!Read(high_offset, high) || !Read(low_offset, low)) return std::nullopt;
    const double h = LittleEndian(high);
    // The low part counts ten times what it stands for; at worst that is 5 metres.
    const double f = LittleEndian(low) / 429496729.0;
    return (h <= 0 ? h - f : h + f) * unit;
}

PositionReading RadioReadout::ReadPosition() {
    return {ReadFixedPoint(LatitudeHigh, LatitudeLow, 90 / 10001750.0),
            ReadFixedPoint(LongitudeHigh, LongitudeLow, 360 / 4294967296.0)};
}

} // namespace quillon
