// A day's flight under random input: whatever user, pilot and player do, the cycles keep their rules.
#include "Flight.h"
#include "simlink/RadioReadout.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <set>

using namespace quillon;

namespace {

using namespace std::chrono_literals;
using Deed = std::function<void()>;

std::uint32_t Seed() {
    const char* given = std::getenv("QUILLON_DAY_SEED");
    return given ? static_cast<std::uint32_t>(std::stoul(given)) : std::random_device{}();
}

const std::map<std::string, std::string> Suffixes{
    {"Stopped", " -S"},    {"Paused", " -P"},         {"Playing", " -OK"}, {"Buffering", " -B"},
    {"Connecting", " -C"}, {"No Connection", " -NC"}, {"Muted", " -Mute"}, {"ATC Playing", " -OK"},
};

class Day : public Flight {
  protected:
    Day() {
        MakeFolder("Quillon\\ATC\\Kestrune - YPPH_A");
        for (const char* name : {"1.wav", "2.wav", "3.wav"})
            Write(std::string("Quillon\\ATC\\Kestrune - YPPH_A\\") + name, "");
        prompts.meanwhile = [this] { program->TimerTick(1 + Below(5)); };
    }

    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    std::size_t AnyRow() { return random() % state().form.lvwDB.Items().size(); }
    void Retune() {
        const std::string any(Below(5) == 0 ? "121.50" : state().form.lvwDB.Items()[AnyRow()].Freq);
        simulator.Tune(FindCommRadio(state().radio.SelectedComm)->Offset, any);
    }
    void Press(int key, const Deed& meanwhile) { keyboard.down = key, meanwhile(), keyboard.down = 0; }
    Deed Click(int command) {
        return [this, command] { program->Run(command); };
    }
    void DoAnything() {
        const auto& [name, deed] = deeds[random() % deeds.size()];
        deed();
        last_deed = name;
    }
    Deed Answer(int command, std::vector<std::string> answers) {
        return [this, command, answers] {
            prompts.answer = answers[random() % answers.size()];
            program->Run(command);
        };
    }

    std::string BrokenRule() const;
    std::string BrokenTick(int timer) const;
    void TearDown() override {
        if (!HasFailure()) return;
        std::cerr << "QUILLON_DAY_SEED=" << seed << ", second " << second << ", after " << last_deed << "\n";
    }

    const std::uint32_t seed = Seed();
    std::mt19937 random{seed};
    int second = 0;
    const char* last_deed = "the start";
    const std::vector<std::pair<const char*, Deed>> deeds{
        {"retuning", [this] { Retune(); }},
        {"retuning", [this] { Retune(); }},
        {"a pause or its end", [this] { simulator.Put(PauseFlag, Below(3) == 0); }},
        {"a simulator or none", [this] { simulator.running = Below(4) != 0; }},
        {"a slow one", [this] { simulator.asked = Below(3) != 0 ? Deed() : [this] { clock.Sleep(3s); }; }},
        {"a flight to Toronto", [this] { simulator.FlyTo(43.01, -79.01); }},
        {"a flight anywhere", [this] { simulator.FlyTo(Below(180) - 90, Below(360) - 180); }},
        {"the clock was set", [this] { clock.now += std::chrono::hours(Below(3) - 1); }},
        {"the mute key", [this] { Press(state().mute.MuteKeyCode, [this] { program->TimerTick(5); }); }},
        {"another mute key", [this] { dialogs.set_key = Below(40), program->Run(Command::mnuSetMute); }},
        {"optAuto", Click(Command::optAuto)},
        {"optManual", Click(Command::optManual)},
        {"a pick", [this] { program->SelectRow(AnyRow()), program->Run(Command::lvwDB_ItemClick); }},
        {"Ctrl+double-click", [this] { Press(17, [this] { program->lvwDB_DblClick(AnyRow()); }); }},
        {"sorting", [this] { program->lvwDB_ColumnClick(static_cast<Column>(Below(4))); }},
        {"a search", Answer(Command::mnuSearch, {"", "cyyz", "EGLL", "x"})},
        {"a search for a city", Answer(Command::mnuCitySearch, {"", "tower", "radio", "x"})},
        {"another search", Click(Command::SearchAgain)},
        {"a range", Answer(Command::mnuRange, {"", "0", "5", "50", "-1", "abc", "99999"})},
        {"another radio", [this] { program->Run(Command::optCom1 + Below(4)); }},
        {"a frame opened", Click(Command::mnuSelComm)},
        {"a frame closed", Click(Command::cmdComClose)},
        {"a gap", [this] { program->cboMin_Click(random() % 20), program->cboMax_Click(random() % 20); }},
        {"the status dialog", Click(Command::mnuFSUPIC)},
        {"the list's menu", Click(Command::PlayFeed)},
        {"a backup", Click(Command::mnuBackup)},
        {"Notepad", Click(Command::mnuEditData)},
        {"the add-feed dialog",
         [this] {
             program->Run(Command::mnuAddATC);
             program->AddFeedEvent([](AddFeed& dialog) { dialog.cmdCancel_Click(); });
         }},
        {"On the air",
         [this] {
             program->Run(Command::OnTheAir);
             program->PollOnTheAir();
             const auto rows = state().on_the_air.Rows;
             if (!rows.empty() && Below(2) == 0) program->PickOnTheAir(rows[random() % rows.size()].What);
         }},
        {"play", Click(Command::StripPlay)},
        {"pause", Click(Command::StripPause)},
        {"stop", Click(Command::StripStop)},
    };
};

/// Names the first rule that does not hold; empty when all do.
std::string Day::BrokenRule() const {
    const ProgramState& now = state();
    const int in_charge = now.cycle.ActiveTimerId;
    int running = 0;
    for (int id = 1; id <= 4; ++id) running += now.cycle.Timer(id).Enabled ? 1 : 0;
    if (running > 1) return "two cycle timers run";
    if (running == 0 && !now.mute.Muted) return "no cycle timer runs";
    if (running == 1 && !now.cycle.Timer(in_charge).Enabled) return "the timer that runs is not in charge";
    if (now.cycle.optManual() != (in_charge % 2 == 0)) return "the timer in charge is the other mode's";
    const bool looks_muted = panel(1) == "Muted" && now.form.Caption == now.cycle.CaptionBase + " -Mute";
    if (running == 0 && (player.state == Playing || !looks_muted)) return "it is not as it is when muted";
    std::vector<std::string> recordings = now.chatter.List3;
    recordings.insert(recordings.end(), now.chatter.List4.begin(), now.chatter.List4.end());
    std::sort(recordings.begin(), recordings.end());
    const std::string& path = now.chatter.File1Path;
    std::vector<std::string> there;
    if (path.ends_with("CYYZ_T")) there = {path + "\\a.wav", path + "\\b.WAV"};
    if (path.ends_with("YPPH_A")) there = {path + "\\1.wav", path + "\\2.wav", path + "\\3.wav"};
    if (now.chatter.Folder == ChatterFolder::BeingListed) there.clear();
    if (recordings != there) return "a recording is lost or there twice";
    if (now.chatter.ChatterElapsed < 0) return "less than nothing of the gap has passed";
    for (const auto& message : prompts.messages)
        if (message.title != "*NOT FOUND*" && message.title != "Set Range Error" && message.title != "Success")
            return message.text;
    return "";
}

/// The same for what a tick of that timer leaves.
std::string Day::BrokenTick(int timer) const {
    const std::string& base = state().cycle.CaptionBase;
    const std::string text = panel(1);
    const auto known = Suffixes.find(text);
    const std::string suffix = known != Suffixes.end()       ? known->second
                               : text.starts_with("ATC in ") ? " -" + text.substr(7, text.size() - 11)
                                                             : " unknown text";
    std::set<std::string> captions{base + suffix, base + " -Radio"};
    if (text == "Paused") captions.insert(base + " -OR");
    // What was shown before stays while a recording plays; the caption also when a folder is empty.
    if (timer > 2) captions.insert({"Quillon" + suffix, base, "Quillon - Manual"});
    const bool empty = timer == 4 && state().chatter.List3.empty() && state().chatter.List4.empty();
    if (!empty && !captions.contains(state().form.Caption))
        return "\"" + text + "\" under \"" + state().form.Caption + "\"";
    if (text == "Muted" && !state().mute.Muted) return "it still looks muted";
    if (state().radio.NoConnection && !state().cycle.optManual()) {
        if (panel(3) != "Looking for the simulator ...") return "it does not say that it looks";
        if (!player.url.empty() || state().form.Caption.ends_with(" -OK")) return "a lost radio is followed";
    }
    const bool paused = timer % 2 == 1 && simulator.Word(PauseFlag) == 1;
    return paused && player.state == Playing ? "a paused flight is heard" : "";
}

TEST_F(Day, KeepsItsRulesInEverySecond) {
    Write("Quillon\\Quillon.state", "stay-open=yes\n");
    Start();
    std::map<int, int> ticks;
    for (second = 0; second < 24 * 60 * 60; ++second) {
        if (Below(8) == 0 && !state().mute.Muted && !player.url.empty())
            player.state = static_cast<PlayState>(Below(12));
        if (Below(4) == 0) DoAnything();
        ASSERT_EQ(BrokenRule(), "");
        prompts.messages.clear();
        int timer = 1;
        while (timer <= 4 && !state().cycle.Timer(timer).Enabled) ++timer;
        ++ticks[timer];
        clock.now += std::chrono::seconds(1);
        if (timer == 5) continue; // muted
        background.held = Below(10) == 0;
        program->TimerTick(timer);
        int behind = 0; // that wait for the tick
        for (; background.Busy() && Below(3) != 0; ++behind) DoAnything();
        background.held = false;
        background.Finish();
        program->AddFeedEvent([](AddFeed& dialog) { dialog.cmdCancel_Click(); }); // if it has come up by now
        program->TimerTick(5);
        if (state().mute.Muted) continue; // on the way
        ASSERT_EQ(BrokenRule() + (behind == 0 ? BrokenTick(timer) : ""), "");
    }
    for (int timer = 1; timer <= 5; ++timer) EXPECT_GT(ticks[timer], 1000) << timer;
}

} // namespace
