#include "app/HelpCommands.h"

namespace quillon {

void HelpCommands::ShowHelp() {
    Open(shell_.ProgramFolder() + "help\\index.html", "The help pages");
}

void HelpCommands::ShowFolders() {
    const std::string chosen = dialogs_.ProgramFolders(folders_);
    if (!chosen.empty()) Open(chosen, "The folder");
}

void HelpCommands::ShowAbout() {
    if (dialogs_.About()) Open("msinfo32.exe", "The system information");
}

void HelpCommands::Open(const std::string& address, const std::string& what) {
    if (!shell_.OpenAddress(address))
        prompts_.Message("Quillon", what + " could not be opened:\r" + address, Icon::Exclamation);
}

} // namespace quillon
