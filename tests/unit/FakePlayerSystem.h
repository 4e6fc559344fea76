#pragma once

#include "PlayerBytes.h"
#include "player/Session.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillon {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

// A scripted server, a fake clock and a fake sound device.

/// What a server sends for a path, and what it does after that.
struct Script {
    std::string bytes;
    IoStatus then = IoStatus::WouldBlock; // Ok: live sound without end
    std::size_t piece = 1000;             // most bytes for one Read
    milliseconds between_bytes{0};
};

enum class Fault { Stuck, Refuses, Swallows };

/// The outside world, its clock, and what was heard.
struct World {
    std::map<std::string, Script> servers; // by path
    bool has_codec = true;
    int devices = 100;                      // how many more can be opened
    Fault fault = Fault::Stuck;             // of the devices,
    milliseconds fault_from{1h};            // from then on,
    milliseconds fault_until{1h};           // for those opened before
    std::function<bool(const World&)> over; ///< ends the session under test

    std::multimap<milliseconds, std::function<void(Session&)>> events;

    milliseconds now{0};
    std::string states; // the session's, at each change
    std::string ramps;  // of its pauses and resumptions
    std::string opened; // formats the device was opened with
    milliseconds heard{0};
    std::set<int> levels;                                    // samples heard
    std::vector<std::pair<milliseconds, std::string>> asked; // when, and for which path
    std::size_t sent = 0;                                    // bytes, by all servers
    std::size_t sent_in_step = 0;                            // since the session waited
    std::set<std::string> agents;                            // user agents that it was asked with
    std::shared_ptr<RetrySchedule> retries = std::make_shared<RetrySchedule>();
    std::shared_ptr<Session> session; // the one that runs
    std::function<bool()> audible = [] { return false; };
    std::shared_ptr<int> online = std::make_shared<int>(); // shared by the open connections
};

inline std::string Asked(const World& world) {
    std::string paths;
    for (const auto& [when, path] : world.asked) paths += path + " ";
    return paths;
}

class FakeConnection : public Connection {
  public:
    FakeConnection(World& world, bool is_private, Reach reach)
        : world_(world), is_private_(is_private), refuses_(is_private && reach == Reach::Public) {}

    IoResult Write(std::string_view bytes) override {
        if (refuses_) return {IoStatus::Refused};
        if (!std::exchange(accepted_, true)) return {IoStatus::Connecting};
        const std::string path(bytes.substr(4, bytes.find(" HTTP") - 4));
        left_ = world_.servers[path];
        world_.asked.emplace_back(world_.now, path);
        const std::size_t agent = bytes.find("User-Agent: ") + 12;
        world_.agents.emplace(bytes.substr(agent, bytes.find("\r\n", agent) - agent));
        return {IoStatus::Ok, bytes.size()};
    }
    IoResult Read(std::span<std::uint8_t> room) override {
        if (left_.between_bytes > 0ms) {
            if (world_.now < next_byte_) return {IoStatus::WouldBlock};
            next_byte_ = world_.now + left_.between_bytes;
            room = room.first(1);
        }
        if (left_.then == IoStatus::Ok && left_.bytes.empty()) {
            left_.bytes = Frames(1);
            return {IoStatus::WouldBlock};
        }
        if (left_.bytes.empty()) return {left_.then};
        const std::size_t count = std::min({room.size(), left_.bytes.size(), left_.piece});
        std::copy_n(left_.bytes.begin(), count, room.begin());
        left_.bytes.erase(0, count);
        world_.sent += count;
        world_.sent_in_step += count;
        return {IoStatus::Ok, count};
    }

    bool IsPrivate() const override { return is_private_; }
    SilenceReason Problem() const override {
        return {refuses_ ? SilenceCause::PrivateAddress : SilenceCause::None, ""};
    }

  private:
    World& world_;
    const bool is_private_;
    const bool refuses_;
    Script left_;
    milliseconds next_byte_{0};
    bool accepted_ = false;
    std::shared_ptr<int> online_ = world_.online;
};

/// Decodes every sample as 1000.
class FakeDecoder : public SoundDecoder {
  public:
    explicit FakeDecoder(const FrameFormat& format) : format_(format) {}

    bool Decode(ByteView frame, Samples& samples) override {
        samples.insert(samples.end(), format_.frame_samples * format_.channels, std::int16_t{1000});
        return !frame.empty();
    }
    PcmFormat Format() const override { return {format_.sample_rate, format_.channels}; }

  private:
    FrameFormat format_;
};

class FakeOutput : public SoundOutput {
  public:
    FakeOutput(World& world, PcmFormat format) : world_(world), format_(format), opened_(world.now) {
        world_.audible = [this] { return !paused_ && !IsIdle(); };
    }
    ~FakeOutput() override {
        world_.heard -= Left();
        world_.audible = [] { return false; };
    }

    bool HasRoom() override { return Left() < 160ms; }
    bool IsIdle() override { return Left() == 0ms; }
    bool Write(const Samples& samples) override {
        if (IsFaulty(Fault::Refuses)) return false;
        if (IsFaulty(Fault::Swallows)) return true;
        const auto length = std::chrono::duration_cast<milliseconds>(Duration(format_, samples.size()));
        end_ = Now() + Left() + length;
        world_.heard += length;
        for (const int sample : samples) world_.levels.insert(sample * volume_ / 100);
        return true;
    }
    void SetVolume(int volume) override { volume_ = volume; }
    void SetPaused(bool paused, milliseconds ramp) override {
        if (paused == paused_) return;
        world_.ramps += std::to_string(ramp.count()) + " ";
        const milliseconds left = Left();
        paused_ = paused;
        if (paused) paused_left_ = left;
        end_ = world_.now + left;
    }

  private:
    bool IsFaulty(Fault fault) const {
        return fault == world_.fault && world_.now >= world_.fault_from && opened_ < world_.fault_until;
    }
    milliseconds Now() const {
        return IsFaulty(Fault::Stuck) ? std::max(world_.fault_from, opened_) : world_.now;
    }
    milliseconds Left() const { return paused_ ? paused_left_ : std::max(end_ - Now(), milliseconds(0)); }

    World& world_;
    PcmFormat format_;
    milliseconds opened_;
    milliseconds end_{0};
    milliseconds paused_left_{0};
    bool paused_ = false;
    int volume_ = 100;
};

class FakeSystem : public PlayerSystem {
  public:
    explicit FakeSystem(World& world) : world_(world) {}

    /// "h" is a public server, "lan" a private one.
    std::unique_ptr<Connection> Connect(const StreamAddress& address, Reach reach) override {
        if (address.host != "h" && address.host != "lan") return nullptr;
        return std::make_unique<FakeConnection>(world_, address.host == "lan", reach);
    }
    std::unique_ptr<SoundDecoder> OpenFrameDecoder(const FrameFormat& format) override {
        return world_.has_codec ? std::make_unique<FakeDecoder>(format) : nullptr;
    }
    std::unique_ptr<SoundDecoder> OpenWaveDecoder(const WaveFormat&) override { return nullptr; }
    std::unique_ptr<SoundOutput> OpenOutput(const PcmFormat& format) override {
        if (world_.devices-- <= 0) return nullptr;
        world_.opened += std::to_string(format.sample_rate) + "/" + std::to_string(format.channels) + " ";
        return std::make_unique<FakeOutput>(world_, format);
    }
    int OutputChoice() override { return 0; }
    milliseconds Now() override { return world_.now; }
    void Wait(milliseconds at_most) override {
        if (!world_.session) world_.now += at_most;
        if (!world_.session) return;
        EXPECT_TRUE(at_most > 0ms || world_.sent_in_step > 0) << "it spins";
        EXPECT_LE(std::exchange(world_.sent_in_step, 0), 65536U) << "bytes in one step";
        EXPECT_TRUE(!world_.session->IsWaiting() || world_.online.use_count() == 1) << "keeps a connection";
        const std::string state = std::to_string(world_.session->State()) + " ";
        if (!world_.states.ends_with(" " + state) && world_.states != state) world_.states += state;
        world_.now += 10ms;
        while (!world_.events.empty() && world_.events.begin()->first <= world_.now)
            world_.events.extract(world_.events.begin()).mapped()(*world_.session);
        if (world_.over && world_.over(world_)) world_.session->Cancel();
    }
    void Wake() override {}

  private:
    World& world_;
};

inline const std::string Ok = "HTTP/1.0 200 OK\r\n\r\n";

} // namespace quillon
