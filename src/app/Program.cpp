#include "app/Program.h"

#include "app/CatalogueReload.h"
#include "app/FeedListCommands.h"
#include "app/FsuipcStatus.h"
#include "app/HelpCommands.h"
#include "app/Maintenance.h"
#include "app/PlayerStrip.h"
#include "app/Preferences.h"
#include "app/PrintCommand.h"
#include "app/ShutDown.h"
#include "app/StartUp.h"
#include "playback/AutomaticTuning.h"
#include "playback/ManualMonitoring.h"
#include "playback/MuteKey.h"
#include "playback/RecordedChatter.h"
#include "playback/SelectionModes.h"
#include "simlink/SimConnection.h"

namespace quillon {

namespace {

/// Lets handlers in while a handler of the program's own waits, and only then.
class GatedClock : public Clock {
  public:
    GatedClock(Clock& clock, bool& in_handler) : clock_(clock), in_handler_(in_handler) {}

    TimePoint Now() override { return clock_.Now(); }
    void Sleep(std::chrono::milliseconds time) override { clock_.Sleep(time); }
    bool ServeEvents(std::chrono::milliseconds time) override {
        in_handler_ = false;
        const bool goes_on = clock_.ServeEvents(time);
        in_handler_ = true;
        return goes_on;
    }

  private:
    Clock& clock_;
    bool& in_handler_;
};

Ports WithClock(const Ports& ports, Clock& clock) {
    return {ports.link,     ports.memory,    clock,          ports.player,  ports.live,
            ports.prompts,  ports.dialogs,   ports.display,  ports.shell,   ports.files,
            ports.regional, ports.code_page, ports.keyboard, ports.printer, ports.probe};
}

} // namespace

struct Program::Logic {
    Logic(ProgramState& state, const Ports& outside, bool& in_handler, const std::string& command_line)
        : clock(outside.clock, in_handler),
          ports(WithClock(outside, clock)),
          trap(state.StartupStep, state.MessageText,
               [&prompts = outside.prompts](const std::string& title, const std::string& text, Icon icon) {
                   prompts.Message(title, text, icon);
               }),
          link(ports.link, ports.memory, clock),
          readout(link, state.radio.FsuipcResult),
          connection(state.radio, link),
          texts(state, state.form),
          regional(ports.regional),
          settings(state, trap),
          remembered(state.form, state.UserAgent, state.folders),
          airports(state.Airports, ports.code_page, trap),
          loader(state, ports.prompts, ports.code_page, trap),
          range(state.Airports, trap),
          shut_down(state, settings, remembered, regional, link, ports.player),
          reload(state.cycle, loader),
          starter(state, ports.prompts, ports.shell),
          start_up(state, ports, trap, texts,
                   {regional, settings, remembered, airports, loader, starter, reload}, command_line),
          display(state, texts, ports.player, ports.live, ports.shell),
          sim(state, texts, link, readout, range, ports.player, [this] { shut_down.Run(); }),
          tuning(state, state.form.lvwDB, texts, sim, display, ports.player, trap),
          chatter(state, state.LastSearchText, texts, sim, ports.player, clock, trap),
          modes(state, state.form.lvwDB, texts, ports.player),
          manual(state, texts, display, ports.player, trap),
          radio_tuning(state.radio, link),
          list(state, texts, ports.player, ports.prompts, ports.keyboard, ports.shell, radio_tuning, trap),
          preferences(state, ports.prompts, ports.dialogs, ports.shell, trap),
          maintenance(state, ports.prompts, ports.shell, ports.files, clock, reload, trap),
          add_feed(state, ports.prompts, ports.code_page, reload, trap),
          feed_check(state.checkFeeds, state.form.lvwDB, state.folders, state.UserAgent, ports.probe,
                     ports.code_page, clock, trap),
          help(state.folders, ports.prompts, ports.dialogs, ports.shell),
          print(state.form, state.LastSearchText, ports.prompts, ports.printer, clock, trap),
          status(state.fsuipcStatus, state.radio, link, readout),
          mute(state, texts, ports.player),
          mute_key(state, mute, ports.keyboard, ports.display, clock),
          strip(state, ports.player, ports.live, mute) {}

    GatedClock clock;
    Ports ports;
    ErrorTrap trap;
    FsuipcClient link;
    RadioReadout readout;
    SimConnection connection;
    ScreenTexts texts;
    RegionalNumbers regional;
    Settings settings;
    RememberedState remembered;
    Airports airports;
    FeedLoader loader;
    ReceptionRange range;
    ShutDown shut_down;
    CatalogueReload reload;
    StarterData starter;
    StartUp start_up;
    PlayerDisplay display;
    SimWatch sim;
    AutomaticTuning tuning;
    RecordedChatter chatter;
    SelectionModes modes;
    ManualMonitoring manual;
    RadioTuning radio_tuning;
    FeedListCommands list;
    Preferences preferences;
    Maintenance maintenance;
    AddFeed add_feed;
    FeedCheck feed_check;
    HelpCommands help;
    PrintCommand print;
    FsuipcStatus status;
    Mute mute;
    MuteKey mute_key;
    PlayerStrip strip;
};

Program::Program(const Ports& ports, const std::string& command_line)
    : logic_(std::make_unique<Logic>(state_, ports, in_handler_, command_line)) {}

Program::~Program() = default;

/// What the user cannot do while something else has the whole program; leaving it is always possible.
template <typename Handler>
void Program::Handle(Handler handler) {
    if (!state_.Busy) HandleAlways(handler);
}

template <typename Handler>
void Program::HandleAlways(Handler handler) {
    if (in_handler_ || state_.Ended) return;
    in_handler_ = true;
    // Windows has called, and nothing may be thrown through Windows.
    logic_->trap.RunCommand("Unexpected error", Icon::Exclamation, handler);
    logic_->strip.OfferReload();
    if (quit_requested_) logic_->shut_down.Run();
    in_handler_ = false;
}

void Program::ConnectToSimulator() {
    Handle([this] {
        logic_->start_up.Form_Load();
        if (state_.Ended || !Connect()) return;
        const std::string too_old = logic_->connection.CheckVersion();
        if (too_old.empty()) return;
        logic_->ports.prompts.Message("Quillon", too_old, Icon::Critical);
        logic_->shut_down.RunUnsaved();
    });
}

bool Program::Connect() {
    const bool connected = logic_->connection.Connect([this] {
        logic_->texts.ShowLink(LinkNews::Looking);
        Pause(logic_->clock, 2);
        return !state_.Ended && !state_.cycle.optManual();
    });
    logic_->texts.ShowLink(LinkNews::None);
    if (connected) logic_->texts.ShowTitle("Quillon");
    return connected;
}

void Program::Timer_Timer(int id) {
    const int last = static_cast<int>(state_.cycle.Timers.size());
    if (id < 1 || id > last || !state_.cycle.Timer(id).Enabled)
        return; // any program may send a timer's message
    Handle([this, id] {
        if (id == 1) logic_->tuning.Timer1_Timer();
        if (id == 2) logic_->manual.Timer2_Timer();
        if (id == 3) logic_->chatter.Timer3_Timer();
        if (id == 4) logic_->chatter.Timer4_Timer();
        if (id == 5) logic_->mute_key.Timer5_Timer();
    });
}

void Program::optAuto_Click() {
    Handle([this] { logic_->modes.optAuto_Click(); });
}

void Program::optManual_Click() {
    Handle([this] { logic_->modes.optManual_Click(); });
}

void Program::picATCNet_Click() {
    Handle([this] { logic_->display.picATCNet_Click(); });
}

void Program::lvwDB_Select(std::optional<std::size_t> row) {
    Handle([this, row] { state_.form.lvwDB.Select(row); });
}

void Program::lvwDB_ItemClick() {
    Handle([this] { logic_->list.lvwDB_ItemClick(); });
}

void Program::lvwDB_DblClick() {
    Handle([this] { logic_->list.lvwDB_DblClick(); });
}

void Program::lvwDB_ColumnClick(Column column) {
    Handle([this, column] { logic_->list.lvwDB_ColumnClick(column); });
}

void Program::lvwDB_ColumnResize(Column column, int width) {
    state_.form.lvwDB.ColumnHeaders.at(static_cast<std::size_t>(column)).WidthTwips = width;
}

void Program::mnuPlayFeed_Click() {
    Handle([this] {
        if (!state_.cycle.optManual()) logic_->modes.optManual_Click();
        logic_->list.lvwDB_ItemClick();
    });
}

void Program::mnuTuneFeed_Click() {
    Handle([this] { logic_->list.mnuTuneFeed_Click(); });
}

void Program::mnuCopyAddress_Click() {
    Handle([this] { logic_->list.mnuCopyAddress_Click(); });
}

void Program::mnuSearch_Click() {
    Handle([this] { logic_->list.mnuSearch_Click(); });
}

void Program::mnuCitySearch_Click() {
    Handle([this] { logic_->list.mnuCitySearch_Click(); });
}

void Program::mnuSearchAgain_Click() {
    Handle([this] { logic_->list.mnuSearchAgain_Click(); });
}

void Program::mnuPrint_Click() {
    Handle([this] { logic_->print.mnuPrint_Click(); });
}

void Program::mnuSelComm_Click() {
    Handle([this] { logic_->preferences.mnuSelComm_Click(); });
}

void Program::cmdComClose_Click() {
    Handle([this] { logic_->preferences.cmdComClose_Click(); });
}

void Program::optCom_Click(std::int16_t number) {
    Handle([this, number] { logic_->preferences.optCom_Click(number); });
}

void Program::mnuRange_Click() {
    Handle([this] { logic_->preferences.mnuRange_Click(); });
}

void Program::mnuSetMute_Click() {
    Handle([this] { logic_->preferences.mnuSetMute_Click(); });
}

void Program::mnuRecordedChatter_Click() {
    Handle([this] { logic_->preferences.mnuRecordedChatter_Click(); });
}

void Program::cmdClose2_Click() {
    Handle([this] { logic_->preferences.cmdClose2_Click(); });
}

void Program::cboMin_Click(std::size_t entry) {
    Handle([this, entry] { logic_->preferences.cboMin_Click(entry); });
}

void Program::cboMax_Click(std::size_t entry) {
    Handle([this, entry] { logic_->preferences.cboMax_Click(entry); });
}

void Program::Form_Click() {
    Handle([this] { logic_->preferences.Form_Click(); });
}

void Program::mnuBackup_Click() {
    Handle([this] { logic_->maintenance.mnuBackup_Click(); });
}

void Program::mnuRestore_Click() {
    Handle([this] { logic_->maintenance.mnuRestore_Click(); });
}

void Program::mnuEditData_Click() {
    Handle([this] { logic_->maintenance.mnuEditData_Click(); });
}

void Program::mnuAddATC_Click() {
    Handle([this] { logic_->add_feed.mnuAddATC_Click(); });
}

void Program::AddFeedEvent(const std::function<void(AddFeed&)>& event) {
    if (state_.addFeed.Visible) HandleAlways([&] { event(logic_->add_feed); });
}

void Program::mnuCheckFeeds_Click() {
    Handle([this] { logic_->feed_check.mnuCheckFeeds_Click(); });
}

void Program::CheckFeedsEvent(const std::function<void(FeedCheck&)>& event) {
    if (state_.checkFeeds.Visible) HandleAlways([&] { event(logic_->feed_check); });
}

void Program::mnuContents_Click() {
    Handle([this] { logic_->help.mnuContents_Click(); });
}

void Program::mnuFolders_Click() {
    Handle([this] { logic_->help.mnuFolders_Click(); });
}

void Program::mnuAbout_Click() {
    Handle([this] { logic_->help.mnuAbout_Click(); });
}

void Program::mnuFSUPIC_Click() {
    Handle([this] { logic_->status.mnuFSUPIC_Click(); });
}

void Program::frmShow_FSUIPC_Command1_Click() {
    HandleAlways([this] { logic_->status.Command1_Click(); });
}

void Program::cmdPlay_Click() {
    Handle([this] { logic_->strip.cmdPlay_Click(); });
}

void Program::cmdPause_Click() {
    Handle([this] { logic_->strip.cmdPause_Click(); });
}

void Program::cmdStop_Click() {
    Handle([this] { logic_->strip.cmdStop_Click(); });
}

void Program::sldVolume_Change(int volume) {
    Handle([this, volume] { logic_->strip.sldVolume_Change(volume); });
}

void Program::mnuReload_Click() {
    Handle([this] { logic_->strip.mnuReload_Click(); });
}

void Program::mnuQuit_Click() {
    quit_requested_ = in_handler_;
    HandleAlways([this] { logic_->shut_down.Run(); });
}

void Program::EndSession() {
    in_handler_ = true;
    logic_->shut_down.Run();
}

} // namespace quillon
