#include "app/Parts.h"

namespace quillon {

namespace {

Ports WithClock(const Ports& ports, Clock& clock) {
    return {.link = ports.link,
            .memory = ports.memory,
            .clock = clock,
            .player = ports.player,
            .live = ports.live,
            .prompts = ports.prompts,
            .dialogs = ports.dialogs,
            .display = ports.display,
            .shell = ports.shell,
            .files = ports.files,
            .regional = ports.regional,
            .code_page = ports.code_page,
            .keyboard = ports.keyboard,
            .printer = ports.printer,
            .probe = ports.probe,
            .background = ports.background,
            .devices = ports.devices,
            .folders = ports.folders,
            .disk = ports.disk};
}

std::string Counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

Parts::Parts(ProgramState& program_state, const Ports& outside, std::string arguments)
    : state(program_state),
      command_line(std::move(arguments)),
      gate(outside.background, [this](const auto& handler) { RunTrapped(handler); }),
      clock(outside.clock, gate),
      ports(WithClock(outside, clock)) {}

void Parts::TellFirstSteps() {
    if (!starter.CreatedCatalogue() || !state.feed.FeedUrl.empty()) return; // a feed is already tuned
    notices.Show({NoticeKind::FirstSteps, state.cycle.optManual() ? "Click a feed to hear it"
                                                                  : "Tune a radio to a frequency of the list"});
}

void Parts::TellMissing(const LoadReport& report) {
    std::string about;
    if (report.LinesLeftOut > 0) about = Counted(report.LinesLeftOut, "faulty line") + " left out, ";
    if (report.WithoutChannel > 0)
        about += Counted(report.WithoutChannel, "feed") + " without a free channel, ";
    if (!about.empty()) notices.Show({NoticeKind::FeedsMissing, about + "see Check Feeds"});
}

void Parts::RunTrapped(const HandlerGate::Handler& handler) {
    if (state.Ended) return;
    trap.RunCommand("Unexpected error", Icon::Exclamation, handler);
    playing_row.Follow();
    event_notes.Follow();
    if (state.QuitRequested) shut_down.Run();
    if (!state.Ended) return;
    events.Add("Quillon ends");
    gate.Close();
}

} // namespace quillon
