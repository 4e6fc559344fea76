#include "app/Program.h"

#include "app/Commands.h"
#include "app/Parts.h"

namespace quillon {

Program::Program(const Ports& ports, const std::string& command_line)
    : parts_(std::make_unique<Parts>(state_, ports, command_line)) {}

Program::~Program() = default;

/// For everything that is disabled while the program is busy.
template <typename Handler>
void Program::Handle(Handler handler) {
    parts_->gate.Enter([this, handler] {
        if (!state_.Busy) handler();
    });
}

void Program::ConnectToSimulator() {
    Handle([this] {
        state_.radio.Connecting = true;
        parts_->start_up.Form_Load();
        if (state_.Ended || !Connect()) return;
        const std::string too_old = parts_->connection.CheckVersion();
        if (too_old.empty()) return;
        parts_->ports.prompts.Message("Quillon", too_old, Icon::Critical);
        parts_->shut_down.RunUnsaved();
    });
}

bool Program::Connect() {
    const auto wanted = [this] { return !state_.Ended && !state_.cycle.optManual(); };
    const bool connected = parts_->connection.Connect(wanted, [this] {
        parts_->texts.ShowLink(LinkNews::Looking);
        Pause(parts_->clock, 2);
    });
    parts_->texts.ShowLink(LinkNews::None);
    if (connected) parts_->texts.ShowTitle("Quillon");
    parts_->TellFirstSteps();
    return connected;
}

void Program::Run(int command) {
    const Command* found = FindCommand(command);
    if (found == nullptr) return;
    if (command == Command::mnuQuit) {
        state_.QuitRequested = parts_->gate.Running();
        parts_->gate.Interrupt([this] { parts_->shut_down.Run(); });
        return;
    }
    if (command == Command::ShowWindow) return ShowWindow();
    const auto handler = [this, found] {
        if (!found->Enabled(state_)) return;
        parts_->event_notes.NoteCommand(found->Text);
        found->Handler(*parts_);
    };
    if (command == Command::StripMute)
        parts_->gate.Interrupt(handler); // like the mute key, even while the simulator is asked
    else
        parts_->gate.Enter(handler);
}

bool Program::CanRun(int command) const {
    const Command* found = FindCommand(command);
    if (found == nullptr) return false;
    return command == Command::mnuQuit || command == Command::ShowWindow ||
           (!parts_->gate.Running() && found->Enabled(state_));
}

void Program::MoveWindow(WindowPlace place) {
    (state_.form.Compact ? state_.form.CompactPlace : state_.form.Place) = place;
}

void Program::MinimiseWindow(bool has_icon) {
    state_.form.Hidden = has_icon && state_.marks.HideWhenMinimised;
}

void Program::ShowWindow() {
    parts_->view.Show();
}

void Program::TimerTick(int id) {
    const int last = static_cast<int>(state_.cycle.Timers.size());
    if (id < 1 || id > last || !state_.cycle.Timer(id).Enabled) return; // any program may send WM_TIMER
    if (id == 5) {
        parts_->gate.Interrupt([this] { PollLinkAndMuteKey(); });
        return;
    }
    if (parts_->gate.Waiting()) return;
    Handle([this, id] {
        if (id == 1) parts_->tuning.Timer1_Timer();
        if (id == 2) parts_->manual.Timer2_Timer();
        if (id == 3) parts_->chatter.Timer3_Timer();
        if (id == 4) parts_->chatter.Timer4_Timer();
    });
}

/// Ten times a second, even while the simulator is asked.
void Program::PollLinkAndMuteKey() {
    constexpr std::chrono::seconds Patience{2};
    const bool asks = parts_->gate.Waiting() || !state_.cycle.optManual(); // or it has been given up
    parts_->texts.ShowWaiting(asks && parts_->link.Unanswered() >= Patience);
    parts_->notices.Expire();
    parts_->sound_menu.Watch();
    parts_->watch.Poll();
    if (!state_.Busy) parts_->mute_key.Timer5_Timer();
}

void Program::OpenMenu() {
    Handle([this] { parts_->sound_menu.Refresh(); });
}

void Program::SelectRow(std::optional<std::size_t> row) {
    Handle([this, row] { state_.form.lvwDB.Select(row); });
}

void Program::lvwDB_ColumnClick(Column column) {
    Handle([this, column] { parts_->list.lvwDB_ColumnClick(column); });
}

void Program::lvwDB_DblClick(std::size_t row) {
    constexpr int ControlKey = 17;
    // Asked at once: the key may be up again when the handler has its turn.
    const bool control = parts_->ports.keyboard.IsOrWasDown(ControlKey);
    Handle([this, row, control] {
        state_.form.lvwDB.Select(row); // a click with Ctrl may have just deselected it
        parts_->list.lvwDB_DblClick(control);
    });
}

void Program::ResizeColumn(Column column, int width) {
    state_.form.lvwDB.ColumnHeaders.at(static_cast<std::size_t>(column)).WidthTwips = width;
}

void Program::cboMin_Click(std::size_t entry) {
    Handle([this, entry] { parts_->preferences.cboMin_Click(entry); });
}

void Program::cboMax_Click(std::size_t entry) {
    Handle([this, entry] { parts_->preferences.cboMax_Click(entry); });
}

void Program::SetVolume(int volume) {
    Handle([this, volume] { parts_->strip.SetVolume(volume); });
}

void Program::AddFeedEvent(const std::function<void(AddFeed&)>& event) {
    if (state_.add_feed.Visible) parts_->gate.Interrupt([&] { event(parts_->add_feed); });
}

void Program::CheckFeedsEvent(const std::function<void(FeedCheck&)>& event) {
    if (state_.check_feeds.Visible) parts_->gate.Enter([this, event] { event(parts_->feed_check); });
}

void Program::PollOnTheAir() {
    parts_->gate.Interrupt([this] { parts_->on_the_air.Poll(); });
}

void Program::SelectOnTheAir(const std::optional<OnTheAirForm::Feed>& feed) {
    parts_->gate.Interrupt([&] { parts_->on_the_air.Select(feed); });
}

void Program::PickOnTheAir(const OnTheAirForm::Feed& feed) {
    Handle([this, feed] { parts_->on_the_air.Pick(feed); });
}

void Program::CloseOnTheAir() {
    parts_->gate.Interrupt([this] { parts_->on_the_air.Close(); });
}

void Program::EndSession() {
    parts_->gate.Close();
    parts_->shut_down.Run();
}

} // namespace quillon
