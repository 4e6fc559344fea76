// Sorting and searching 100,000 rows, beside the standard library on a vector of the same strings.
#include "Cockpit.h"
#include "runtime/Text.h"
#include "state/ListView.h"

#include <algorithm>
#include <benchmark/benchmark.h>

using namespace quillon;

namespace {

constexpr std::size_t Rows = 100'000;
constexpr const char* NoSuchCity = "No such city";

Cockpit<>& LoadedCockpit() {
    static Cockpit<> cockpit(CatalogueOf(Rows), "");
    return cockpit;
}

std::vector<std::string> Cities() {
    std::vector<std::string> cities;
    for (const FeedRecord& row : LoadedCockpit().program.State().form.lvwDB.Items())
        cities.emplace_back(row.City);
    return cities;
}

/// Times what is done to a fresh copy each time.
template <typename Data, typename Work>
void OnCopies(benchmark::State& state, const Data& data, Work work) {
    for (auto _ : state) {
        state.PauseTiming();
        auto copy = std::make_unique<Data>(data);
        state.ResumeTiming();
        work(*copy);
        state.PauseTiming();
        copy.reset();
        state.ResumeTiming();
    }
}

void Sort(benchmark::State& state) {
    ListView list = LoadedCockpit().program.State().form.lvwDB;
    OnCopies(state, list, [](ListView& copy) { copy.SortBy(Column::City, SortOrder::Ascending); });
}
BENCHMARK(Sort)->Name("sort/Quillon")->Unit(benchmark::kMillisecond);

/// The comparison ignores case by one lower-case copy of each string, as the list's does.
void StableSort(benchmark::State& state) {
    OnCopies(state, Cities(), [](std::vector<std::string>& copy) {
        for (std::string& city : copy) city = LCase(city);
        std::stable_sort(copy.begin(), copy.end());
    });
}
BENCHMARK(StableSort)->Name("sort/stable_sort")->Unit(benchmark::kMillisecond);

void Search(benchmark::State& state) {
    Cockpit<>& cockpit = LoadedCockpit();
    cockpit.prompts.answer = NoSuchCity;
    cockpit.prompts.messages.clear();
    for (auto _ : state) cockpit.program.Run(Command::mnuCitySearch);
    if (cockpit.prompts.messages.empty()) state.SkipWithError("the search did not run");
}
BENCHMARK(Search)->Name("search/Quillon")->Unit(benchmark::kMillisecond);

void FindIf(benchmark::State& state) {
    const std::vector<std::string> cities = Cities();
    for (auto _ : state) {
        const std::string wanted = LCase(NoSuchCity);
        benchmark::DoNotOptimize(std::find_if(cities.begin(), cities.end(), [&](const std::string& city) {
            return LCase(city).find(wanted) != std::string::npos;
        }));
    }
}
BENCHMARK(FindIf)->Name("search/find_if")->Unit(benchmark::kMillisecond);

} // namespace
