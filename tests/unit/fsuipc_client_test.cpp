// The link to the simulator: its result codes, its queue, and a peer that is never trusted.
#include "FakeSimulator.h"
#include "Fakes.h"
#include "runtime/RuntimeError.h"
#include "simlink/BitwiseOps.h"
#include "simlink/FsuipcClient.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

using namespace quillon;
using namespace std::chrono_literals;

namespace {

void PutWord(std::uint8_t* at, std::uint32_t word) {
    std::memcpy(at, &word, sizeof word);
}

/// The system and the simulator behind it, with a knob for everything that can go wrong.
struct FakeMachine : FakeSimulator {
    std::string window_class = "UIPCMAIN";
    NativeHandle other_window = 0; ///< of class FS98MAIN, which must not be asked
    bool registers = true, adds_atom = true, creates = true, taken = false, maps = true;
    std::uint32_t reply = 1, last_error = 0;
    int failing_sends = 0;
    std::function<void(std::uint8_t* area)> afterwards; ///< spoils the reply

    std::uint8_t* const area = FakeSimulator::MapView(0);
    std::set<std::string> handles; ///< what is held at present
    std::string name;
    int sends = 0;

    NativeHandle FindPeerWindow(const std::string& wanted) override {
        if (wanted == window_class) return 7;
        return wanted == "FS98MAIN" ? other_window : 0;
    }
    std::uint32_t RegisterMessage(const std::string& text) override {
        return registers && text == "FSASMLIB:IPC" ? 0xC123 : 0;
    }
    Sent Send(NativeHandle window, std::uint32_t message, std::uint32_t wparam,
              std::uint32_t timeout_ms) override {
        EXPECT_EQ(std::tuple(window, message, wparam, timeout_ms), std::tuple(7U, 0xC123U, 0xC456U, 2000U));
        ++sends;
        if (failing_sends > 0 && failing_sends-- > 0) return {false, 0, last_error};
        const bool answers = FakeSimulator::Send(window, message, wparam, timeout_ms).Delivered;
        if (afterwards) afterwards(area);
        return {answers, reply, 0};
    }
    void Check(std::span<const std::uint8_t> room) override {
        EXPECT_EQ(std::count(room.begin(), room.end(), 0), std::ssize(room)) << "room for the reply";
    }
    std::uint32_t AddNameAtom(const std::string& text) override {
        name = text;
        return adds_atom && handles.insert("atom").second ? 0xC456 : 0;
    }
    void DeleteAtom(std::uint32_t) override { EXPECT_EQ(handles.erase("atom"), 1U); }
    Mapping CreateMapping(const std::string& text, std::size_t size) override {
        EXPECT_EQ(text, name);
        EXPECT_EQ(size, 32768U);
        if (!creates) return {0, false};
        return {9, !handles.insert("mapping").second || taken};
    }
    void CloseMapping(NativeHandle) override { EXPECT_EQ(handles.erase("mapping"), 1U); }
    std::uint8_t* MapView(NativeHandle) override {
        return maps && handles.insert("view").second ? area : nullptr;
    }
    void UnmapView(std::uint8_t*) override { EXPECT_EQ(handles.erase("view"), 1U); }
};

struct Link : testing::Test {
    Link() {
        clock.events = [] { return ADD_FAILURE(), false; };
    }

    FakeMachine machine;
    FakeClock clock;
    FsuipcClient client{machine, machine, clock};
    std::uint32_t result = 99;

    bool Open() { return client.FsuipcReopen(result); }
};

TEST_F(Link, EveryFailureToOpenHasItsCodeAndKeepsOnlyAWholeArea) {
    const struct {
        std::uint32_t code;
        std::function<void(FakeMachine&)> fault;
        std::uint32_t requested = 0;
    } rows[] = {
        {0, [](FakeMachine&) {}},
        {0, [](FakeMachine&) {}, 8},
        {0, [](FakeMachine& m) { m.window_class = "FS98MAIN"; }},
        {0, [](FakeMachine& m) { m.other_window = 8; }},
        {0, [](FakeMachine& m) { m.Put(0x3304, 0x19980005); }},
        {2, [](FakeMachine& m) { m.window_class = "Other"; }},
        {3, [](FakeMachine& m) { m.registers = false; }},
        {4, [](FakeMachine& m) { m.adds_atom = false; }},
        {5, [](FakeMachine& m) { m.taken = true; }},
        {6, [](FakeMachine& m) { m.creates = false; }},
        {6, [](FakeMachine& m) { m.maps = false; }},
        {7, [](FakeMachine& m) { m.Put(0x3304, 0x19980004); }},
        {7, [](FakeMachine& m) { m.Put(0x3304, 0x80000000); }},
        {7, [](FakeMachine& m) { m.Put(0x3308, 0xFADD0008); }},
        {7, [](FakeMachine& m) { m.Put(0x3304, 0); }},
        {8, [](FakeMachine&) {}, 7},
        {11, [](FakeMachine& m) { m.failing_sends = 99; }},
        {12, [](FakeMachine& m) { m.failing_sends = 99, m.last_error = 1400; }},
        {13, [](FakeMachine& m) { m.reply = 0; }},
        {14, [](FakeMachine& m) { m.window_class = "FS98MAIN", m.Put(0x3308, 8); }},
    };
    for (const auto& row : rows) {
        FakeMachine faulty;
        FsuipcClient other(faulty, faulty, clock);
        row.fault(faulty);
        EXPECT_EQ(other.FsuipcOpen(row.requested, result), row.code == 0) << row.code;
        EXPECT_EQ(result, row.code);
        EXPECT_EQ(other.IsOpen(), row.code == 0);
        EXPECT_EQ(other.SimVersion(), row.code == 0 ? 8U : 0U) << row.code;
        EXPECT_EQ(faulty.handles.size(), row.code == 0 || row.code > LinkNoView ? 3U : 0U) << row.code;
        other.FsuipcClose();
        EXPECT_EQ(faulty.handles.size(), 0U) << row.code;
    }
}

TEST_F(Link, AStartingSimulatorIsAskedFiveTimes) {
    machine.Put(0x3308, 0);
    EXPECT_FALSE(Open());
    EXPECT_EQ(machine.sends, 5);
    EXPECT_EQ(clock.passed, 500ms);

    machine.sends = 0;
    machine.afterwards = [&](std::uint8_t*) { machine.Put(0x3308, 0xFADE0007); };
    EXPECT_TRUE(Open());
    EXPECT_EQ(machine.sends, 2);
}

TEST_F(Link, ASecondOpenLeavesTheFirstWorkingAndAResetClosesIt) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(machine.name, "FSASMLIB:IPC:0:1");
    EXPECT_EQ(client.FsuipcVersion(), 0x49990000);
    EXPECT_EQ(clock.passed, 100ms);
    EXPECT_FALSE(client.FsuipcOpen(0, result));
    EXPECT_EQ(result, LinkAlreadyOpen);
    std::uint32_t value = 0;
    EXPECT_TRUE(client.FsuipcRead(0x3304, 4, &value, result) && client.FsuipcProcess(result));
    EXPECT_EQ(value, 0x49990000U);
    for (int i = 0; i < 10000; ++i) ASSERT_TRUE(Open());
    EXPECT_EQ(machine.handles.size(), 3U);
    client.FsuipcReset();
    machine.taken = true; // a server may still hold the area
    EXPECT_TRUE(Open());
}

TEST_F(Link, CallsOnAClosedLinkOrAnEmptyQueueFailUnsent) {
    const auto expect_not_open = [&] {
        EXPECT_FALSE(client.FsuipcRead(0, 4, nullptr, result) || client.FsuipcWrite(0, 0, nullptr, result) ||
                     client.FsuipcProcess(result));
        EXPECT_EQ(result, LinkNotOpen);
    };
    expect_not_open();
    ASSERT_TRUE(Open());
    EXPECT_FALSE(client.FsuipcProcess(result));
    EXPECT_EQ(result, LinkNothingQueued);
    EXPECT_EQ(machine.sends, 1);
    client.FsuipcClose();
    expect_not_open();
}

TEST_F(Link, TheQueueHasRoomForExactly32512Bytes) {
    ASSERT_TRUE(Open());
    const std::vector<std::uint8_t> source(40000);
    std::vector<std::uint8_t> destination(40000);
    const auto read = [&](std::uint32_t size) {
        return client.FsuipcRead(0, size, destination.data(), result);
    };
    const auto write = [&](std::uint32_t size) { return client.FsuipcWrite(0, size, source.data(), result); };
    const auto refused = [&](bool queued) { return !queued && std::exchange(result, 0) == LinkQueueFull; };

    EXPECT_TRUE(refused(read(32493)) && refused(write(32497)));
    EXPECT_TRUE(refused(read(0xFFFFFFF0)) && refused(write(0xFFFFFFFF)));
    EXPECT_TRUE(read(32492));
    EXPECT_TRUE(refused(write(0)));
    EXPECT_TRUE(client.FsuipcProcess(result));
    EXPECT_TRUE(write(32496));
    EXPECT_TRUE(client.FsuipcProcess(result));
}

TEST_F(Link, ARoundReadsAndWritesInOrder) {
    ASSERT_TRUE(Open());
    std::uint32_t before = 0, after = 0, source = 0x2150, untouched = 5;
    machine.Put(0x34E, 0x1870);
    client.FsuipcRead(0x34E, 4, &before, result);
    client.FsuipcWrite(0x34E, 4, &source, result);
    source = 0;
    client.FsuipcRead(0x34E, 4, &after, result);
    client.FsuipcRead(0x34E, 4, nullptr, result);
    client.FsuipcRead(0x34E, 0, &untouched, result);
    EXPECT_TRUE(client.FsuipcProcess(result));
    EXPECT_EQ(std::tuple(before, after, untouched), std::tuple(0x1870U, 0x2150U, 5U));
}

TEST_F(Link, SendsAreRetriedTenTimesAndTheLastOneCountsAsFailed) {
    const std::tuple<int, std::uint32_t, std::uint32_t, int> rows[] = {
        {0, 0, 0, 1},       {1, 1400, 0, 2},    {9, 5, 0, 10},  {10, 0, 11, 11},
        {10, 1400, 12, 11}, {11, 1400, 12, 11}, {11, 0, 11, 11}};
    ASSERT_TRUE(Open());
    for (const auto& [failing, last_error, code, sends] : rows) {
        machine.sends = 0;
        clock.passed = 0ms;
        machine.failing_sends = failing;
        machine.last_error = last_error;
        std::uint32_t value = 0;
        client.FsuipcRead(0x3304, 4, &value, result);
        EXPECT_EQ(client.FsuipcProcess(result), code == 0) << failing;
        EXPECT_EQ(result, code) << failing;
        EXPECT_EQ(machine.sends, sends);
        EXPECT_EQ(clock.passed, 100ms * (sends - 1));
        EXPECT_FALSE(client.FsuipcProcess(result));
        EXPECT_EQ(result, LinkNothingQueued) << "the queue is empty whatever happened";
    }
}

TEST_F(Link, AsksNothingMoreOnceCancelled) {
    std::uint32_t value = 0;
    ASSERT_TRUE(client.FsuipcReopen(result));
    machine.sends = 0;
    machine.running = false;
    machine.asked = [&] { client.Cancel(); };
    client.FsuipcRead(0x3304, 4, &value, result);
    EXPECT_FALSE(client.FsuipcProcess(result));
    EXPECT_EQ(machine.sends, 1);
    EXPECT_EQ(client.Unanswered().count(), 100);
}

/// Three records: a read of 8 bytes at 0, a write of 4 at 24, a read of 4 at 40, the terminator at 60.
TEST_F(Link, ADamagedReplyEndsTheWalkAtTheDamage) {
    const struct {
        const char* damage;
        std::size_t at;
        std::uint32_t word;
        bool ok;
        std::uint32_t first, second; ///< what the two reads brought, 5 if nothing
    } rows[] = {
        {"none", 60, 0, true, 1, 2},
        {"the identifier's high half does not count", 0, 0x10001, true, 1, 2},
        {"a zero ends the walk", 0, 0, true, 5, 5},
        {"a zero in the middle", 24, 0, true, 1, 5},
        {"unknown identifier", 0, 3, false, 5, 5},
        {"a read has become a write", 0, 2, false, 5, 5},
        {"a write has become a read", 24, 1, false, 1, 5},
        {"offset", 44, 0x999, false, 1, 5},
        {"written offset", 28, 0x999, false, 1, 5},
        {"longer than asked", 8, 12, false, 5, 5},
        {"shorter than asked", 8, 4, false, 5, 5},
        {"written size", 32, 0x7FFFFFFF, false, 1, 5},
        {"destination", 12, 0xDEADBEEF, false, 5, 5},
        {"a record that was not queued", 60, 1, false, 1, 2},
    };
    ASSERT_TRUE(Open());
    machine.Put(0x100, 1);
    machine.Put(0x200, 2);
    for (const auto& row : rows) {
        machine.afterwards = [&](std::uint8_t* area) { PutWord(area + row.at, row.word); };
        std::uint32_t first[2] = {5, 5}, second = 5;
        client.FsuipcRead(0x100, 8, first, result);
        client.FsuipcWrite(0x300, 4, &second, result);
        client.FsuipcRead(0x200, 4, &second, result);
        result = 99;
        EXPECT_EQ(client.FsuipcProcess(result), row.ok) << row.damage;
        EXPECT_EQ(result, row.ok ? 0U : 99U) << row.damage;
        EXPECT_EQ(std::tuple(first[0], second), std::tuple(row.first, row.second)) << row.damage;
    }
}

TEST(LinkTexts, ALaterSimulatorHasANameToo) {
    EXPECT_EQ(SimName(14), "Microsoft Flight Simulator 2024");
    EXPECT_EQ(SimName(15), "Simulator 15");
    EXPECT_EQ(ShownSimName(8, 0x49990000) + ShownSimName(12, 0x51250000), "FSXPrepar3D 64-bit");
}

TEST(BitwiseOps, ShiftsByMultiplyingAndDividing) {
    EXPECT_EQ(ShiftBits(0x34560000, 28, false), 3);
    EXPECT_EQ(ShiftBits(std::numeric_limits<std::int32_t>::min(), 28, false), -8);
    EXPECT_EQ(ShiftBits(-3, 2, true), -12);
    EXPECT_THROW(ShiftBits(2, 30, true), RuntimeError);
}

} // namespace
