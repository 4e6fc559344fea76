#pragma once

#include "ports/AnsiCodePage.h"
#include "ports/Background.h"
#include "ports/Clock.h"
#include "ports/Dialogs.h"
#include "ports/Display.h"
#include "ports/FeedProbe.h"
#include "ports/FolderLister.h"
#include "ports/Keyboard.h"
#include "ports/LiveFeed.h"
#include "ports/MediaPlayer.h"
#include "ports/MessageLink.h"
#include "ports/Printer.h"
#include "ports/Prompts.h"
#include "ports/RegionalSettings.h"
#include "ports/Shell.h"
#include "ports/SoundDevices.h"
#include "ports/UserFiles.h"

namespace quillon {

/// Everything outside the program that it uses.
struct Ports {
    MessageLink& link;
    SharedMemory& memory;
    Clock& clock;
    MediaPlayer& player;
    LiveFeed& live; ///< of the same player
    Prompts& prompts;
    Dialogs& dialogs;
    Display& display;
    Shell& shell;
    UserFiles& files;
    RegionalSettings& regional;
    AnsiCodePage& code_page;
    Keyboard& keyboard;
    Printer& printer;
    FeedProbe& probe;
    Background& background; ///< for questions to the simulator
    SoundDevices& devices;
    FolderLister& folders;
    Background& disk; ///< for looks at files
};

} // namespace quillon
