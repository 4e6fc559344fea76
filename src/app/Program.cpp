#include "app/Program.h"

#include "app/Commands.h"
#include "app/Parts.h"

namespace quillon {

Program::Program(const Ports& ports, const std::string& command_line)
    : parts_(std::make_unique<Parts>(state_, ports, in_handler_, command_line)) {}

Program::~Program() = default;

/// For everything that is disabled while the program is busy.
template <typename Handler>
void Program::Handle(Handler handler) {
    if (!state_.Busy) HandleAlways(handler);
}

template <typename Handler>
void Program::HandleAlways(Handler handler) {
    if (in_handler_ || state_.Ended) return;
    in_handler_ = true;
    // Called by Windows, through which nothing may be thrown.
    parts_->trap.RunCommand("Unexpected error", Icon::Exclamation, handler);
    if (quit_requested_) parts_->shut_down.Run();
    in_handler_ = false;
}

void Program::ConnectToSimulator() {
    Handle([this] {
        parts_->start_up.Form_Load();
        if (state_.Ended || !Connect()) return;
        const std::string too_old = parts_->connection.CheckVersion();
        if (too_old.empty()) return;
        parts_->ports.prompts.Message("Quillon", too_old, Icon::Critical);
        parts_->shut_down.RunUnsaved();
    });
}

bool Program::Connect() {
    const bool connected = parts_->connection.Connect([this] {
        parts_->texts.ShowLink(LinkNews::Looking);
        Pause(parts_->clock, 2);
        return !state_.Ended && !state_.cycle.optManual();
    });
    parts_->texts.ShowLink(LinkNews::None);
    if (connected) parts_->texts.ShowTitle("Quillon");
    return connected;
}

void Program::Run(int command) {
    const Command* found = FindCommand(command);
    if (found == nullptr || !found->Enabled(state_)) return;
    if (command == Command::mnuQuit) quit_requested_ = in_handler_;
    HandleAlways([&] { found->Handler(*parts_); });
}

void Program::TimerTick(int id) {
    const int last = static_cast<int>(state_.cycle.Timers.size());
    if (id < 1 || id > last || !state_.cycle.Timer(id).Enabled) return; // any program may send WM_TIMER
    Handle([this, id] {
        if (id == 1) parts_->tuning.Timer1_Timer();
        if (id == 2) parts_->manual.Timer2_Timer();
        if (id == 3) parts_->chatter.Timer3_Timer();
        if (id == 4) parts_->chatter.Timer4_Timer();
        if (id == 5) parts_->mute_key.Timer5_Timer();
    });
}

void Program::SelectRow(std::optional<std::size_t> row) {
    Handle([&] { state_.form.lvwDB.Select(row); });
}

void Program::lvwDB_ColumnClick(Column column) {
    Handle([&] { parts_->list.lvwDB_ColumnClick(column); });
}

void Program::ResizeColumn(Column column, int width) {
    state_.form.lvwDB.ColumnHeaders.at(static_cast<std::size_t>(column)).WidthTwips = width;
}

void Program::cboMin_Click(std::size_t entry) {
    Handle([&] { parts_->preferences.cboMin_Click(entry); });
}

void Program::cboMax_Click(std::size_t entry) {
    Handle([&] { parts_->preferences.cboMax_Click(entry); });
}

void Program::SetVolume(int volume) {
    Handle([&] { parts_->strip.SetVolume(volume); });
}

void Program::AddFeedEvent(const std::function<void(AddFeed&)>& event) {
    if (state_.add_feed.Visible) HandleAlways([&] { event(parts_->add_feed); });
}

void Program::CheckFeedsEvent(const std::function<void(FeedCheck&)>& event) {
    if (state_.check_feeds.Visible) HandleAlways([&] { event(parts_->feed_check); });
}

void Program::EndSession() {
    in_handler_ = true;
    parts_->shut_down.Run();
}

} // namespace quillon
