#include "radio/Channel.h"

namespace quillon {

namespace {

constexpr std::int32_t LowestKilohertz = 118'000;
constexpr std::int32_t HighestKilohertz = 136'990;
constexpr std::int32_t RasterKilohertz = 25;
constexpr std::size_t WithTwoDecimals = 6; // characters
constexpr std::size_t WithThreeDecimals = 7;

} // namespace

std::optional<Channel> Channel::Of(std::int32_t kilohertz) {
    if (kilohertz < LowestKilohertz || kilohertz > HighestKilohertz) return std::nullopt;
    if (kilohertz % 5 != 0 || kilohertz % RasterKilohertz > 15) return std::nullopt;
    return Channel(kilohertz);
}

std::optional<Channel> Channel::Named(std::string_view text) {
    if (text.size() != WithTwoDecimals && text.size() != WithThreeDecimals) return std::nullopt;
    std::int32_t number = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (place == 3 && text[place] == '.') continue;
        if (place == 3 || text[place] < '0' || text[place] > '9') return std::nullopt;
        number = number * 10 + (text[place] - '0');
    }
    const bool lacks_a_five = number % 5 == 2; // .02 and .07 of the 25 kHz raster
    return Of(text.size() == WithThreeDecimals ? number : number * 10 + (lacks_a_five ? 5 : 0));
}

std::optional<Channel> Channel::AtHertz(std::int32_t hertz) {
    constexpr std::int32_t Step = 5000; // between names
    if (hertz < LowestKilohertz * 1000) return std::nullopt;
    const std::int32_t steps = hertz / Step + (hertz % Step >= Step / 2 ? 1 : 0);
    return Of(steps * (Step / 1000));
}

std::string Channel::Text() const {
    std::string text = std::to_string(kilohertz_);
    if (!NeedsThreeDecimals()) text.pop_back();
    return text.insert(3, ".");
}

std::optional<Channel> Channel::OnSameCarrier() const {
    switch (kilohertz_ % RasterKilohertz) {
    case 0:
        return Of(kilohertz_ + 5);
    case 5:
        return Of(kilohertz_ - 5);
    default:
        return std::nullopt;
    }
}

std::string_view FrequencyKey(std::string_view frequency) {
    if (frequency.size() != WithThreeDecimals) return frequency;
    const auto channel = Channel::Named(frequency);
    const std::string_view cut = frequency.substr(0, WithTwoDecimals);
    return channel && Channel::Named(cut) == channel ? cut : frequency;
}

} // namespace quillon
