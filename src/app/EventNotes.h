#pragma once

#include "settings/EventLog.h"
#include "state/ProgramState.h"

#include <array>
#include <string>

namespace quillon {

/// Notes in the event log what has changed: link, mode, radio, feed, player and station.
class EventNotes {
  public:
    EventNotes(const ProgramState& state, EventLog& log) : state_(state), log_(log) {}

    /// A command is about to be run; one without a text in a menu shows itself by what it changes.
    void NoteCommand(std::string_view menu_text);

    /// To be called after each handler.
    void Follow();

  private:
    const ProgramState& state_;
    EventLog& log_;
    std::array<std::string, 6> noted_;
};

} // namespace quillon
