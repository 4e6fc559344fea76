#include "Commands.h"
#include "win32/sound/WindowsMediaPlayer.h"

namespace practice {

namespace {

void ServeMessages() {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

/// Each state that the player enters until the time is up.
std::string StatesOf(quillon::MediaPlayer& player, unsigned limit_ms) {
    std::string states;
    quillon::PlayState last = quillon::Undefined;
    for (const ULONGLONG end = GetTickCount64() + limit_ms; GetTickCount64() < end; ServeMessages()) {
        const quillon::PlayState state = player.State();
        if (state != last) states += " " + std::to_string(state);
        last = state;
    }
    return states;
}

/// How much of the Windows Media Player control works and, with an address, which states it goes through.
std::string TryControl(const Words& words) {
    const quillon::ComApartment apartment;
    quillon::WindowsMediaPlayer player;
    std::string extent = player.Answers() ? "whole" : player.Exists() ? "partial" : "missing";
    if (words.empty()) return extent;
    player.SetVolume(80);
    player.SetUrl(words[0]);
    const std::string states = StatesOf(player, words.size() > 1 ? NumberArgument(words[1]) : 5000);
    player.Play();
    player.Pause();
    player.Stop();
    return extent + states + " " + std::to_string(player.State());
}

} // namespace

const std::vector<Command> PlayerCommands = {{"control", 0, 2, TryControl}};

} // namespace practice
