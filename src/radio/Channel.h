#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// A COM channel of the airband, by its name in kHz: 118305 is "118.305". Every 25 kHz there are four names:
/// +.000 is the channel of the 25 kHz raster; +.005, +.010 and +.015 are those of 8.33 kHz. The first two share
/// a carrier.
class Channel {
  public:
    /// The channel that a text names, from "118.000" to "136.990". A text with two decimals names one, too:
    /// "118.30" is 118.300, "118.02" 118.025 and "118.07" 118.075. Nothing for any other text.
    static std::optional<Channel> Named(std::string_view text);

    /// The channel with that name in Hz, give or take what rounding leaves; nothing if there is none.
    static std::optional<Channel> AtHertz(std::int32_t hertz);

    std::int32_t Hertz() const { return kilohertz_ * 1000; }

    /// Whether the channel is one of 8.33 kHz, which two decimals cannot tell from its neighbours.
    bool NeedsThreeDecimals() const { return kilohertz_ % 25 != 0; }

    /// As radios show it: "118.30" and "118.02" on the 25 kHz raster, else "118.305".
    std::string Text() const;

    /// The other channel on the same carrier, if there is one.
    std::optional<Channel> OnSameCarrier() const;

    auto operator<=>(const Channel&) const = default;

  private:
    explicit Channel(std::int32_t kilohertz) : kilohertz_(kilohertz) {}
    static std::optional<Channel> Of(std::int32_t kilohertz);

    std::int32_t kilohertz_;
};

/// What a frequency is compared by: two texts that name one channel have one key, so that of "118.025" is
/// "118.02". The key of any other text is the text.
std::string_view FrequencyKey(std::string_view frequency);

} // namespace quillon
