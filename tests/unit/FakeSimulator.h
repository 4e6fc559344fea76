#pragma once

#include "ports/MessageLink.h"
#include "radio/Channel.h"

#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace quillon {

/// A well-behaved simulator: a memory of offsets behind the link's ports. Like some servers, it keeps every
/// area mapped that it was sent.
class FakeSimulator : public MessageLink, public SharedMemory {
  public:
    bool running = true;
    bool refuses = false;        ///< denies us access
    std::uint32_t process = 0;   ///< the client's
    int rounds = 0;              ///< answered so far
    std::function<void()> asked; ///< what happens while a question waits

    FakeSimulator() {
        Put(0x3304, 0x49990000);
        Put(0x3308, 0xFADE0008);
    }

    void Put(std::uint32_t offset, std::uint32_t word) { std::memcpy(&memory_[offset], &word, sizeof word); }

    std::uint32_t Word(std::uint32_t offset) const { return Word(&memory_[offset]); }

    /// A flight simulator of before 8.33 kHz. The words at the new offsets of frequencies stay, but mean
    /// nothing.
    void BecomeFs9() {
        Put(0x3304, 0x39990000);
        Put(0x3308, 0xFADE0007);
    }

    /// Tunes the radio at that offset to a channel as in "118.70" or "118.305": as BCD, without the last digit
    /// of the latter, and in Hz.
    void Tune(std::uint32_t offset, const std::string& frequency) {
        const auto bcd = std::stoul(frequency.substr(1, 2) + frequency.substr(4, 2), nullptr, 16);
        const auto word = static_cast<std::uint16_t>(bcd);
        std::memcpy(&memory_[offset], &word, sizeof word);
        const auto channel = Channel::Named(frequency);
        const std::int32_t hertz = channel ? channel->Hertz() : 0;
        const std::map<std::uint32_t, std::uint32_t> hertz_offsets{
            {0x034E, 0x05C4}, {0x311A, 0x05CC}, {0x3118, 0x05C8}, {0x311C, 0x05D0}};
        Put(hertz_offsets.at(offset), static_cast<std::uint32_t>(hertz));
    }

    /// To whole degrees, which the link's numbers hold without a fraction.
    void FlyTo(double latitude, double longitude) {
        Put(0x0560, 0);
        Put(0x0564, static_cast<std::uint32_t>(static_cast<std::int32_t>(latitude * 10001750.0 / 90)));
        Put(0x0568, 0);
        Put(0x056C, static_cast<std::uint32_t>(static_cast<std::int32_t>(longitude * 4294967296.0 / 360)));
    }

    NativeHandle FindPeerWindow(const std::string& name) override {
        return running && name == "UIPCMAIN" ? 7 : 0;
    }
    std::uint32_t RegisterMessage(const std::string&) override { return 0xC123; }
    std::uint32_t ProcessId() override { return process; }
    Sent Send(NativeHandle, std::uint32_t, std::uint32_t, std::uint32_t) override {
        if (asked) asked();
        if (!running || refuses) return {false, 0, refuses ? 5U : 1400U};
        ++rounds;
        for (std::uint8_t* at = area_.data(); Word(at) != 0;) {
            std::uint8_t* data = at + (Word(at) == 1 ? 16 : 12);
            const std::uint32_t size = Word(at + 8);
            if (Word(at) == 1) {
                Check({data, size});
                std::memcpy(data, &memory_[Word(at + 4)], size);
            } else {
                std::memcpy(&memory_[Word(at + 4)], data, size);
            }
            at = data + size;
        }
        return {true, 1, 0};
    }

    std::uint32_t AddNameAtom(const std::string&) override { return 0xC456; }
    void DeleteAtom(std::uint32_t) override {}
    Mapping CreateMapping(const std::string& name, std::size_t) override {
        return {9, !areas_.insert(name).second};
    }
    void CloseMapping(NativeHandle) override {}
    std::uint8_t* MapView(NativeHandle) override { return area_.data(); }
    void UnmapView(std::uint8_t*) override {}

  protected:
    /// To look at the room that a request leaves for the reply.
    virtual void Check(std::span<const std::uint8_t>) {}

  private:
    static std::uint32_t Word(const std::uint8_t* at) {
        std::uint32_t word = 0;
        std::memcpy(&word, at, sizeof word);
        return word;
    }

    std::set<std::string> areas_;
    std::array<std::uint8_t, 0x10000> memory_{};
    std::vector<std::uint8_t> area_ = std::vector<std::uint8_t>(0x8000);
};

} // namespace quillon
