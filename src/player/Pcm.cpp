#include "player/Pcm.h"

#include <algorithm>

namespace quillon {

std::chrono::microseconds Duration(const PcmFormat& format, std::size_t samples) {
    const std::uint64_t sample_frames = samples / format.channels;
    return std::chrono::microseconds(sample_frames * 1'000'000 / format.sample_rate);
}

void AppendAs16Bit(ByteView data, unsigned bits, Samples& samples) {
    const std::size_t step = bits / 8;
    for (std::size_t at = 0; at + step <= data.size(); at += step) {
        if (bits == 8) {
            samples.push_back(static_cast<std::int16_t>((data[at] - 128) * 256));
        } else { // the upper two bytes
            const unsigned low = data[at + step - 2];
            const unsigned high = data[at + step - 1];
            samples.push_back(static_cast<std::int16_t>(high << 8U | low));
        }
    }
}

void PcmQueue::Push(const PcmFormat& format, Samples samples) {
    if (samples.empty()) return;
    length_ += Duration(format, samples.size());
    blocks_.push_back({format, std::move(samples)});
}

Samples PcmQueue::Take(std::chrono::microseconds limit) {
    const PcmFormat format = NextFormat();
    // A size_t of 32-bit Windows would overflow at 100 ms.
    const std::uint64_t sample_frames =
        static_cast<std::uint64_t>(limit.count()) * format.sample_rate / 1'000'000;
    const auto wanted = static_cast<std::size_t>(std::max<std::uint64_t>(sample_frames, 1) * format.channels);
    Samples taken;
    while (!blocks_.empty() && NextFormat() == format && taken.size() < wanted) {
        Block& block = blocks_.front();
        const std::size_t count = std::min(wanted - taken.size(), block.samples.size() - block.taken);
        const auto from = block.samples.begin() + static_cast<std::ptrdiff_t>(block.taken);
        taken.insert(taken.end(), from, from + static_cast<std::ptrdiff_t>(count));
        length_ -= Duration(format, block.samples.size() - block.taken);
        block.taken += count;
        length_ += Duration(format, block.samples.size() - block.taken);
        if (block.taken == block.samples.size()) blocks_.pop_front();
    }
    return taken;
}

void PcmQueue::KeepLatest(std::chrono::microseconds limit) {
    while (length_ > limit) Take(length_ - limit);
}

} // namespace quillon
