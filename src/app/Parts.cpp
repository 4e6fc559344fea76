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

} // namespace

Parts::Parts(ProgramState& program_state, const Ports& outside, std::string arguments)
    : state(program_state),
      command_line(std::move(arguments)),
      gate(outside.background, [this](const auto& handler) { RunTrapped(handler); }),
      clock(outside.clock, gate),
      ports(WithClock(outside, clock)) {}

void Parts::RunTrapped(const HandlerGate::Handler& handler) {
    if (state.Ended) return;
    trap.RunCommand("Unexpected error", Icon::Exclamation, handler);
    playing_row.Follow();
    if (state.QuitRequested) shut_down.Run();
    if (state.Ended) gate.Close();
}

} // namespace quillon
