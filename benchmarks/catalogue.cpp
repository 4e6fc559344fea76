// Loading a catalogue, beside sqlite3 importing the same file.
#include "Cockpit.h"
#include "catalogue/FeedLoader.h"
#include "ports/TextFile.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

using namespace quillon;

namespace {

std::size_t HeapInUse() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

std::string WriteCatalogue(const Folder& folder, std::size_t feeds) {
    const std::string path = folder.path + "\\live_atc_feeds.txt";
    WriteFile(path, WriteMode::Anew, CatalogueOf(feeds));
    return path;
}

void LoadList(benchmark::State& state) {
    const Folder folder;
    const auto feeds = static_cast<std::size_t>(state.range(0));
    WriteCatalogue(folder, feeds);
    FakePrompts prompts;
    FakeCodePage page;
    FakePlayer player;
    std::size_t bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        {
            const std::size_t before = HeapInUse();
            ProgramState program;
            program.folders.DataPath = folder.path + "\\";
            ErrorTrap trap(program.StartupStep, program.MessageText, prompts.AsReport());
            FeedLoader loader(
                program, prompts, page, player, trap, [] {}, [](const LoadReport&) {});
            state.ResumeTiming();
            loader.LoadList();
            state.PauseTiming();
            bytes = HeapInUse() - before;
            if (program.form.lvwDB.Items().size() != feeds) state.SkipWithError("feeds are missing");
        }
        state.ResumeTiming();
    }
    if (!prompts.messages.empty()) state.SkipWithError("boxes were shown");
    state.counters["bytes_per_feed"] = static_cast<double>(bytes) / static_cast<double>(feeds);
}

/// Prepared inserts in one transaction, into a table in memory without an index.
void Import(sqlite3* database, std::string_view text) {
    sqlite3_stmt* insert = nullptr;
    sqlite3_exec(database, "CREATE TABLE feeds(icao, city, url, freq); BEGIN", nullptr, nullptr, nullptr);
    sqlite3_prepare_v2(database, "INSERT INTO feeds VALUES(?, ?, ?, ?)", -1, &insert, nullptr);
    while (const auto line = TakeLine(text)) {
        std::string_view rest = *line;
        for (int field = 1; field <= 4; ++field) {
            const std::size_t end = rest.find('|');
            const std::string_view value = rest.substr(0, end);
            sqlite3_bind_text(insert, field, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
}

void Sqlite(benchmark::State& state) {
    const Folder folder;
    const std::string path = WriteCatalogue(folder, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        sqlite3* database = nullptr;
        sqlite3_open(":memory:", &database);
        state.ResumeTiming();
        Import(database, ReadFile(path));
        state.PauseTiming();
        if (sqlite3_total_changes(database) != state.range(0)) state.SkipWithError("rows are missing");
        sqlite3_close(database);
        state.ResumeTiming();
    }
}

#define SIZES ->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)
BENCHMARK(LoadList)->Name("catalogue/Quillon") SIZES;
BENCHMARK(Sqlite)->Name("catalogue/sqlite3") SIZES;

} // namespace
