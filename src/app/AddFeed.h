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

/// What precedes a city's name; on its own it means that no city has been typed.
inline constexpr const char* RadioCity = "Radio - ";
inline constexpr const char* WaveCity = "Wav - ";

/// Why an entry of the add-feed dialog is rejected, and where the user can correct it.
struct EntryFault {
    std::string Title;
    std::string Text;
    frmAddATC::Focus Where;
};

/// The first rule that the entry breaks; empty if it is valid. The city is checked only if there is no
/// frequency, and never for a playlist.
std::optional<EntryFault> FindFault(const frmAddATC& form);

/// The dialog that adds feeds to the catalogue, one line each; it stays open for the next.
class AddFeed {
  public:
    AddFeed(ProgramState& state, Prompts& prompts, AnsiCodePage& page, CatalogueReload& reload, ErrorTrap& trap)
        : state_(state), prompts_(prompts), page_(page), reload_(reload), trap_(trap) {}

    /// Opens the dialog and stops the cycle; closing it in any way reloads the list and resumes the cycle.
    void mnuAddATC_Click();
    void cmdCancel_Click();

    /// The user chose one of the four kinds: presets the boxes for it.
    void ChooseKind(SourceKind kind);

    void SetText(AddBox box, const std::string& text) { state_.add_feed[box] = text; }

    /// The user pressed a key in a box: returns its character, a replacement, or RefusedKey.
    int TypeKey(AddBox box, int key);

    void txtURL_GotFocus();

    void cmdBrowse_Click();

    /// Appends the entry to the catalogue, completely or not at all, and clears the boxes for the next one. An
    /// entry that is rejected or cannot be written stays in them.
    void cmdAdd_Click();

  private:
    void CollectFrequencies();
    void VerifyData();
    bool Append(const std::string& line);
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
