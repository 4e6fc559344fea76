// A quiet tick of the automatic cycle, beside the link's calls alone; and the airport that each tick looks up.
#include "Cockpit.h"
#include "geo/ReceptionRange.h"
#include "ports/TextFile.h"
#include "simlink/FsuipcClient.h"
#include "simlink/RadioReadout.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <sched.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>

using namespace quillon;

namespace {

constexpr const char* Toronto = "CYYZ,N43*00.00,W079*00.00\r\n";

/// A list of airports with Toronto as its last.
std::string AirportsOf(std::size_t count) {
    std::string lines = "ICAO,latitude,longitude\r\n";
    for (std::size_t i = 1; i < count; ++i) lines += "K" + std::to_string(i) + ",N40*38.00,W073*46.00\r\n";
    return lines + Toronto;
}

/// A simulator in a process of its own, as the real one is: both map the same memory, and each round goes there
/// and back. Both share one processor, as the time that an idle one takes to wake up scatters by more than a
/// tick costs.
class SimulatorProcess : public FakeSimulator {
  public:
    SimulatorProcess() : memory_(memfd_create("link", 0)) {
        if (ftruncate(memory_, Size) != 0 || socketpair(AF_UNIX, SOCK_STREAM, 0, ends_.data()) != 0)
            std::abort();
        cpu_set_t here;
        CPU_ZERO(&here);
        CPU_SET(static_cast<unsigned>(sched_getcpu()), &here);
        sched_getaffinity(0, sizeof anywhere_, &anywhere_);
        sched_setaffinity(0, sizeof here, &here);
        child_ = fork();
        if (child_ == 0) Serve();
        close(ends_[1]);
    }
    ~SimulatorProcess() override {
        close(ends_[0]);
        close(memory_);
        waitpid(child_, nullptr, 0);
        sched_setaffinity(0, sizeof anywhere_, &anywhere_);
    }
    std::uint8_t* MapView(NativeHandle) override {
        return static_cast<std::uint8_t*>(mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_SHARED, memory_, 0));
    }
    void UnmapView(std::uint8_t* view) override { munmap(view, Size); }
    Sent Send(NativeHandle, std::uint32_t, std::uint32_t, std::uint32_t) override {
        char signal = 0;
        return {write(ends_[0], &signal, 1) == 1 && read(ends_[0], &signal, 1) == 1, 1, 0};
    }

  private:
    [[noreturn]] void Serve() {
        close(ends_[0]);
        FlyTo(43.01, -79.01);
        Tune(FollowedRadio, "118.70");
        std::uint8_t* shared = MapView(0);
        std::uint8_t* area = FakeSimulator::MapView(0);
        for (char signal = 0; read(ends_[1], &signal, 1) == 1;) {
            std::memcpy(area, shared, Round);
            FakeSimulator::Send(0, 0, 0, 0);
            std::memcpy(shared, area, Round);
            if (write(ends_[1], &signal, 1) != 1) break;
        }
        _exit(0);
    }

    static constexpr std::size_t Size = 0x8000;
    static constexpr std::size_t Round = 512; // more than any takes
    int memory_;
    cpu_set_t anywhere_{};
    std::array<int, 2> ends_{};
    pid_t child_ = 0;
};

template <typename Simulator>
void QuietTick(benchmark::State& state) {
    Cockpit<Simulator> cockpit(CatalogueOf(10'000), AirportsOf(6'000));
    for (auto _ : state) cockpit.program.TimerTick(1);
    if (cockpit.program.State().form.Label2.Caption != "0 NM") state.SkipWithError("not in range");
}
BENCHMARK(QuietTick<SimulatorProcess>)->Name("tick/Quillon")->Unit(benchmark::kMicrosecond);
BENCHMARK(QuietTick<FakeSimulator>)->Name("free tick/Quillon")->Unit(benchmark::kMicrosecond);

/// Opens the link anew, which shakes hands, and reads what a tick reads.
template <typename Simulator>
void LinkCalls(benchmark::State& state) {
    Simulator simulator;
    FakeClock clock;
    FsuipcClient link(simulator, simulator, clock);
    std::uint32_t result = 0;
    RadioReadout readout(link);
    for (auto _ : state) {
        link.FsuipcReopen(result);
        if (!readout.Read(FollowedRadio, result).Radio()) state.SkipWithError("the link failed");
    }
}
BENCHMARK(LinkCalls<SimulatorProcess>)->Name("tick/link calls")->Unit(benchmark::kMicrosecond);
BENCHMARK(LinkCalls<FakeSimulator>)->Name("free tick/link calls")->Unit(benchmark::kMicrosecond);

/// The distance to an airport in the last of 50,000 lines, or to one that the file does not have.
void CalcDistance(benchmark::State& state, const char* icao) {
    std::string step, message;
    FakePrompts prompts;
    ErrorTrap trap(step, message, prompts.AsReport());
    std::vector<std::string> lines;
    const std::string text = AirportsOf(50'000);
    std::string_view rest = text;
    while (const auto line = TakeLine(rest)) lines.emplace_back(*line);
    const AirportList airports(std::move(lines));
    ReceptionRange range(airports, trap);
    for (auto _ : state) {
        std::string latitude = "43.0123456", longitude = "-79.0123456";
        std::int32_t search_start = 1;
        benchmark::DoNotOptimize(range.CalcDistance({icao, search_start}, {latitude, longitude}, 50));
    }
}
BENCHMARK_CAPTURE(CalcDistance, found, "CYYZ")->Name("airport/found")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(CalcDistance, absent, "ZZZZ")->Name("airport/not found")->Unit(benchmark::kMicrosecond);

} // namespace
