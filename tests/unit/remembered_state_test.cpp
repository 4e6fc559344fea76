// The file of what is remembered between runs: its values, and that its faults are never reported.
#include "TempFolder.h"
#include "settings/RememberedState.h"
#include "state/ProgramState.h"

using namespace quillon;

namespace {

TEST(RememberedState, DefaultsStandInForWhatMakesNoSense) {
    const std::pair<std::string, RememberedValues> rows[] = {
        {"volume=0\r\nuser-agent=me/1 (a=b)\r\n", {0, "me/1 (a=b)", {}, {}, {}}},
        {"\xEF\xBB\xBF volume = 7 \nother=1\nnothing\n=\n", {7, "", {}, {}, {}}},
        {"volume=5\nvolume=101\nvolume=-1\nvolume=1e1\nvolume=\nvolume=99999999999", {5, "", {}, {}, {}}},
        {"window=800 600\ncolumns=700 3500 800 2400", {100, "", {800, 600}, {700, 3500, 800, 2400}, {}}},
        {"window=800 -600\nwindow=9\ncolumns=700 3500 800\ncolumns=700  800 2400 99999", {100, "", {}, {}, {}}},
        {"player=control\nplayer=other\nsound-device={2}\nsound-device-name=B = 2",
         {100, "", {}, {}, {}, {ForcedPlayer::Control, "{2}", "B = 2"}}},
        {"stay-open=no\nstay-open=yes", {100, "", {}, {}, {true, {}}}},
        {"on-top=yes\nhide-when-minimised=yes\nstart-minimised=1",
         {100, "", {}, {}, {{}, {}, true, true, false}}},
        {"compact=yes\nplace=-1920 0\ncompact-place=7 -8\nplace=5\nplace=a 1\nplace=1 999999",
         {100, "", {}, {}, {}, {}, true, WindowPlace{-1920, 0}, WindowPlace{7, -8}}},
        {"skip-faulty-lines=yes", {100, "", {}, {}, {{}, {}, false, false, false, true}}},
        {"shared-frequencies=no", {100, "", {}, {}, {{}, false}}},
    };
    for (const auto& [text, values] : rows) {
        EXPECT_EQ(ParseRemembered(text), values) << text;
        EXPECT_EQ(ParseRemembered(RememberedText(values)), values) << text;
    }
}

using RememberedStateFile = TempFolder;

TEST_F(RememberedStateFile, IsNotReplacedWhenItCouldNotBeRead) {
    ProgramState state;
    state.folders.DataPath = folder + "\\";
    RememberedState remembered(state.form, state.marks, state.sound, state.UserAgent, state.folders);
    MakeFolder("Quillon.state");
    remembered.Read();
    std::filesystem::remove(PathOf(At("Quillon.state")));
    remembered.Write();
    EXPECT_FALSE(FileExists(At("Quillon.state")));
    remembered.Read(); // now it is missing, which is no failure
    MakeFolder("Quillon.state");
    remembered.Write();
}

} // namespace
