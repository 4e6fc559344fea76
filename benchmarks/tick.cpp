// A quiet tick of the automatic cycle, beside the link's calls alone; and the airport that each tick looks up.
#include "Cockpit.h"
#include "geo/ReceptionRange.h"
#include "ports/TextFile.h"
#include "simlink/FsuipcClient.h"

#include <array>
#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

constexpr const char* Toronto = "CYYZ,N43*00.00,W079*00.00\r\n";

/// A list of airports with Toronto as its last.
std::string AirportsOf(std::size_t count) {
    std::string lines = "ICAO,latitude,longitude\r\n";
    for (std::size_t i = 1; i < count; ++i)
        lines += "K" + std::to_string(i) + ",N40*38.00,W073*46.00\r\n";
    return lines + Toronto;
}

void QuietTick(benchmark::State& state) {
    Cockpit cockpit(CatalogueOf(10'000), AirportsOf(6'000));
    for (auto _ : state) cockpit.program.Timer_Timer(1);
    if (cockpit.program.State().form.Label2.Caption != "1 NM") state.SkipWithError("not in range");
}
BENCHMARK(QuietTick)->Name("tick/Quillon")->Unit(benchmark::kMicrosecond);

/// Opens the link anew, which shakes hands, and reads what a tick reads.
void LinkCalls(benchmark::State& state) {
    FakeSimulator simulator;
    FakeClock clock;
    FsuipcClient link(simulator, simulator, clock);
    std::uint32_t result = 0;
    std::array<std::uint8_t, 4> bytes{};
    const auto read = [&](std::uint32_t offset, std::uint32_t size) {
        if (!link.FsuipcRead(offset, size, bytes.data(), result) || !link.FsuipcProcess(result))
            state.SkipWithError("the link failed");
    };
    for (auto _ : state) {
        link.FsuipcReopen(result);
        read(0x0264, 2);
        read(Cockpit::Radio, 4);
        for (const std::uint32_t offset : {0x0564U, 0x0560U, 0x056CU, 0x0568U}) read(offset, 4);
    }
}
BENCHMARK(LinkCalls)->Name("tick/link calls")->Unit(benchmark::kMicrosecond);

/// The distance to an airport in the last of 50,000 lines, or to one that the file does not have.
void CalcDistance(benchmark::State& state, const char* icao) {
    ProgramState program;
    FakePrompts prompts;
    ErrorTrap trap(program.StartupStep, program.MessageText, prompts.AsReport());
    std::vector<std::string> lines;
    const std::string text = AirportsOf(50'000);
    std::string_view rest = text;
    while (const auto line = TakeLine(rest)) lines.emplace_back(*line);
    program.Airports = std::move(lines);
    program.feed.FeedIcao = icao;
    ReceptionRange range(program, trap);
    for (auto _ : state) {
        program.radio.AircraftLatitudeText = "43.0123456";
        program.radio.AircraftLongitudeText = "-79.0123456";
        program.range.AirportSearchStart = 1;
        range.CalcDistance();
    }
}
BENCHMARK_CAPTURE(CalcDistance, found, "CYYZ")->Name("airport/found")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(CalcDistance, absent, "ZZZZ")->Name("airport/not found")->Unit(benchmark::kMicrosecond);

} // namespace
