#pragma once

#include "app/CatalogueReload.h"
#include "ports/AnsiCodePage.h"
#include "ports/Prompts.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <array>
#include <optional>
#include <string>

namespace quillon {

/// What stands in front of a city's name: alone, no city has been typed.
inline constexpr const char* RadioCity = "Radio - ";
inline constexpr const char* WaveCity = "Wav - ";

/// Why an entry of the add-feed dialog is rejected, and where the user can mend it.
struct EntryFault {
    std::string Title;
    std::string Text;
    frmAddATC::Focus Where;
};

/// The first rule that the entry breaks; nothing for a good one. The city counts only without a frequency, and
/// a playlist needs none.
std::optional<EntryFault> FindFault(const frmAddATC& form);

/// The dialog that adds feeds to the catalogue, one line each; it stays open for the next.
class AddFeed {
  public:
    AddFeed(ProgramState& state, Prompts& prompts, AnsiCodePage& page, CatalogueReload& reload, ErrorTrap& trap)
        : state_(state), prompts_(prompts), page_(page), reload_(reload), trap_(trap) {}

    /// Opens the dialog and stops the cycle; closing it in any way reloads the list and lets the cycle go on.
    void mnuAddATC_Click();
    void cmdCancel_Click();

    /// One of the four kinds was chosen: presets the boxes for it.
    void optKind_Click(SourceKind kind);

    void Text_Change(AddBox box, const std::string& text) { state_.addFeed[box] = text; }

    /// A key was pressed in a box: returns its character, another in its place, or RefusedKey.
    int Text_KeyPress(AddBox box, int key);

    void txtURL_GotFocus();

    void cmdBrowse_Click();

    /// Appends the entry to the catalogue, whole or not at all, and clears the boxes for the next. A rejected
    /// entry stays in the boxes.
    void cmdAdd_Click();

  private:
    void CollectFrequencies();
    void VerifyData();
    void Append(const std::string& line);
    void PrepareNext();
    std::string CataloguePath() const;

    ProgramState& state_;
    Prompts& prompts_;
    AnsiCodePage& page_;
    CatalogueReload& reload_;
    ErrorTrap& trap_;
    bool cycle_ran_ = false;
    std::array<int, 4> previous_keys_{};
};

} // namespace quillon
