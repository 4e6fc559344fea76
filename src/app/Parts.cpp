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
            .probe = ports.probe};
}

} // namespace

Parts::Parts(ProgramState& program_state, const Ports& outside, bool& in_handler, std::string arguments)
    : state(program_state),
      command_line(std::move(arguments)),
      clock(outside.clock, in_handler),
      ports(WithClock(outside, clock)) {}

} // namespace quillon
