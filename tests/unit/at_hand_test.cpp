// The window beside a full-screen program: compact, hidden, muted by button, on a screen that exists, read out.
#include "Flight.h"
#include "app/Announcer.h"
#include "app/WindowView.h"

namespace quillon {
namespace {

TEST(WindowPlace, IsOnAScreenThatExists) {
    const ScreenArea screens[] = {{0, 0, 1000, 800}, {-1200, 100, 1200, 900}};
    const std::tuple<const char*, ScreenArea, WindowPlace> rows[] = {
        {"inside the first", {10, 20, 400, 100}, {10, 20}},
        {"inside the second", {-700, 200, 400, 100}, {-700, 200}},
        {"over an edge", {900, 750, 400, 100}, {600, 700}},
        {"between two, mostly on the second", {-300, 200, 400, 100}, {-400, 200}},
        {"nowhere", {5000, -5000, 400, 100}, {600, 0}},
        {"larger than the screen", {-50, 30, 1100, 100}, {0, 30}},
    };
    for (const auto& [what, window, seen] : rows) EXPECT_EQ(OnScreen(window, screens), seen) << what;
}

using AtHand = Flight;

TEST_F(AtHand, TheIconTellsWhatIsGoingOn) {
    using enum NotificationIcon::Picture;
    Start();
    EXPECT_FALSE(IconFor(state()).Visible);
    program->Run(Command::HideWhenMinimisedMark);
    EXPECT_TRUE(IconFor(state()).Visible);
    EXPECT_EQ(IconFor(state()).Shown, Silent);
    TuneTo("118.70");
    Tick();
    EXPECT_EQ(IconFor(state()), (NotificationIcon{true, Playing, "Quillon -OK\nCYYZ - Toronto Tower"}));
    program->Run(Command::StripMute);
    EXPECT_EQ(IconFor(state()).Shown, Muted);
    program->Run(Command::StripMute);
    program->Run(Command::StayOpenMark);
    simulator.running = false;
    Tick();
    EXPECT_EQ(IconFor(state()).Shown, NoLink);
    program->Run(Command::optManual);
    EXPECT_NE(IconFor(state()).Shown, NoLink) << "no simulator is needed";
}

TEST_F(AtHand, ChangesAreReadOutOnceAndNumbersNever) {
    Announcer announcer;
    Start();
    announcer.Follow(state());
    const auto told = [&] {
        Tick();
        return announcer.Follow(state());
    };
    TuneTo("118.70");
    EXPECT_EQ(told(), "Playing. In range. CYYZ - Toronto Tower");
    program->Run(Command::StripMute);
    EXPECT_EQ(told(), "Muted");
    program->Run(Command::StripMute);
    EXPECT_EQ(told(), "No longer muted. Playing");
    simulator.FlyTo(41, -79.6);
    EXPECT_EQ(told(), "Out of range");
    EXPECT_EQ(told() + told(), "Paused");
    EXPECT_EQ(state().form.Caption, "Quillon -OR");
    EXPECT_GT(player.fades, 0);
    simulator.FlyTo(40.5, -79.6);
    EXPECT_EQ(told(), "") << state().form.Label2.Caption;
}

TEST_F(AtHand, MinimisingHidesOnlyWhereAnIconIsLeft) {
    Start();
    program->MinimiseWindow(true);
    EXPECT_FALSE(state().form.Hidden) << "without the mark";
    program->Run(Command::HideWhenMinimisedMark);
    program->MinimiseWindow(false);
    EXPECT_FALSE(state().form.Hidden) << "without a notification area";
    program->MinimiseWindow(true);
    EXPECT_TRUE(state().form.Hidden);
    const ViewRequest before = state().form.ShowRequest;
    prompts.meanwhile = [&] { program->Run(Command::ShowWindow); };
    RunAnswering(Command::mnuRange, "99999"); // an error, and so a box
    EXPECT_FALSE(state().form.Hidden) << "even while a handler runs";
    EXPECT_NE(state().form.ShowRequest, before);
}

TEST_F(AtHand, TheIconsMenuObeysWhatARunningHandlerAllows) {
    Start();
    std::string allowed;
    const auto look = [&] {
        allowed.clear();
        for (const Command& entry : IconMenu()) allowed += program->CanRun(entry.Number) ? '1' : '0';
    };
    look();
    EXPECT_EQ(allowed, "101111101");
    prompts.meanwhile = look;
    RunAnswering(Command::mnuRange, "99999");
    EXPECT_EQ(allowed, "100000001");
}

TEST_F(AtHand, NothingIsMarkedUntilTheUserDoesAndThenItIsKept) {
    Start();
    for (const Menu& menu : MenuBar())
        for (const Command& entry : menu.Entries) {
            if (!entry.Checked || entry.Number == Command::StripMute) continue;
            EXPECT_FALSE(entry.Checked(state())) << entry.Text;
            Write("Quillon\\Quillon.state", "");
            program->Run(entry.Number);
            EXPECT_TRUE(entry.Checked(state())) << entry.Text;
            EXPECT_NE(Read("Quillon\\Quillon.state").find("=yes"), std::string::npos) << entry.Text;
        }
}

TEST_F(AtHand, TheMuteButtonNeedsNoSimulatorAndDoesNotWait) {
    Start();
    TuneTo("118.70");
    Tick();
    background.held = true;
    Tick();
    program->Run(Command::StripMute);
    EXPECT_TRUE(state().mute.Muted) << "while the simulator is asked";
    EXPECT_EQ(panel(1) + state().form.Caption, "MutedQuillon -Mute");
    background.Finish();
    background.held = false;
    const auto before = clock.passed;
    program->Run(Command::StripMute);
    EXPECT_FALSE(state().mute.Muted);
    EXPECT_EQ(clock.passed, before);
    program->Run(Command::PlayOrStop);
    EXPECT_TRUE(state().mute.Muted);
    program->Run(Command::VolumeDown);
    EXPECT_EQ(player.volume, 95);
}

TEST_F(AtHand, TheCompactViewGivesWayToWhatNeedsTheList) {
    Start();
    for (const int command : {Command::mnuSearch, Command::SearchAgain, Command::mnuSelComm,
                              Command::mnuRecordedChatter, Command::CompactView}) {
        program->Run(Command::mnuRecordedChatter);
        program->Run(Command::CompactView);
        EXPECT_TRUE(state().form.Compact);
        EXPECT_FALSE(state().form.frmRandomChatterVisible || state().mute.FrameOpen);
        program->MoveWindow({-5, 7});
        program->Run(command);
        EXPECT_FALSE(state().form.Compact) << command;
    }
    EXPECT_EQ(state().form.CompactPlace, (WindowPlace{-5, 7}));
    EXPECT_EQ(state().form.Place, std::nullopt);
}

} // namespace
} // namespace quillon
