#include "player/Reach.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

struct Range {
    std::array<std::uint8_t, 2> Front;
    unsigned Bits; // that count
};

constexpr Range Ranges4[] = {{{0, 0}, 8},      {{10, 0}, 8},    {{100, 64}, 10}, {{127, 0}, 8},
                             {{169, 254}, 16}, {{172, 16}, 12}, {{192, 168}, 16}};
constexpr Range Ranges6[] = {{{0xFC, 0}, 7}, {{0xFE, 0x80}, 10}};

bool IsIn(std::span<const std::uint8_t> address, const Range& range) {
    const unsigned differs =
        (static_cast<unsigned>(address[0] ^ range.Front[0]) << 8U) | (address[1] ^ range.Front[1]);
    return differs >> (16 - range.Bits) == 0;
}

bool IsInAny(std::span<const std::uint8_t> address, std::span<const Range> ranges) {
    return std::any_of(ranges.begin(), ranges.end(), [&](const Range& range) { return IsIn(address, range); });
}

bool AreZero(std::span<const std::uint8_t> bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](auto byte) { return byte == 0; });
}

} // namespace

/// The last four of sixteen bytes are an address of four where ::ffff: or nothing but zeros stand before them;
/// ::1 and :: look like the latter, and fall into 0.0.0.0/8.
bool IsPrivateAddress(std::span<const std::uint8_t> address) {
    if (address.size() == 4) return IsInAny(address, Ranges4);
    const bool mapped =
        AreZero(address.first(10)) && address[10] == address[11] && (address[10] == 0 || address[10] == 0xFF);
    return mapped ? IsInAny(address.last(4), Ranges4) : IsInAny(address, Ranges6);
}

} // namespace quillon
