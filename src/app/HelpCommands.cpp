#include "app/HelpCommands.h"

#include "runtime/RuntimeError.h"

namespace quillon {

void HelpCommands::ShowHelp() {
    Open(shell_.ProgramFolder() + "help\\index.html", "The help pages");
}

void HelpCommands::ShowFolders() {
    const std::string chosen = dialogs_.ProgramFolders(folders_);
    if (!chosen.empty()) Open(chosen, "The folder");
}

void HelpCommands::ShowAbout() {
    if (dialogs_.About()) Start("msinfo32.exe", "", "The system information");
}

void HelpCommands::ShowEvents(const std::string& path) {
    Start("notepad.exe", path, "The event log");
}

void HelpCommands::Start(const std::string& program, const std::string& file, const std::string& what) {
    try {
        shell_.Start(program, file);
    } catch (const RuntimeError&) {
        TellFailure(program, what);
    }
}

void HelpCommands::Open(const std::string& address, const std::string& what) {
    if (!shell_.OpenAddress(address)) TellFailure(address, what);
}

void HelpCommands::TellFailure(const std::string& address, const std::string& what) {
    prompts_.Message("Quillon", what + " could not be opened:\r" + address, Icon::Exclamation);
}

} // namespace quillon
