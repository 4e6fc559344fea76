#pragma once

#include "ports/Dialogs.h"
#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "state/Folders.h"

namespace quillon {

/// The "Help" menu: the help pages, the program's folders and the About box.
class HelpCommands {
  public:
    HelpCommands(const Folders& folders, Prompts& prompts, Dialogs& dialogs, Shell& shell)
        : folders_(folders), prompts_(prompts), dialogs_(dialogs), shell_(shell) {}

    /// Opens the help pages, which are in the folder "help" beside the program.
    void ShowHelp();

    void ShowFolders();
    void ShowAbout();

    /// Opens the event log in Notepad.
    void ShowEvents(const std::string& path);

  private:
    void Open(const std::string& address, const std::string& what);
    void Start(const std::string& program, const std::string& file, const std::string& what);
    void TellFailure(const std::string& address, const std::string& what);

    const Folders& folders_;
    Prompts& prompts_;
    Dialogs& dialogs_;
    Shell& shell_;
};

} // namespace quillon
