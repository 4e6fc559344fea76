#pragma once

#include "app/CatalogueReload.h"
#include "geo/AirportPositions.h"
#include "ports/AnsiCodePage.h"
#include "ports/FeedProbe.h"
#include "ports/Prompts.h"
#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <array>
#include <memory>
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

/// Whether a text has the length of an airport's code.
bool IsIcao(const std::string& text);

/// A frequency with two decimals, if it has fewer: "118" is "118.00" and "118.1" is "118.10". Any other text is
/// returned as it is.
std::string CompletedFrequency(const std::string& frequency);

/// The dialog that adds feeds to the catalogue, one line each; it stays open for the next.
class AddFeed {
  public:
    AddFeed(ProgramState& state, AirportPositions& positions, Prompts& prompts, AnsiCodePage& page,
            FeedProbe& probe, CatalogueReload& reload, ErrorTrap& trap)
        : state_(state),
          positions_(positions),
          prompts_(prompts),
          page_(page),
          probe_(probe),
          reload_(reload),
          trap_(trap) {}

    /// Opens the dialog and stops the cycle; closing it in any way reloads the list and resumes the cycle.
    void mnuAddATC_Click();
    void cmdCancel_Click();

    /// The user chose one of the four kinds: presets the boxes for it.
    void ChooseKind(SourceKind kind);

    /// The box has another text now. Ends a test of an address that has changed.
    void SetText(AddBox box, const std::string& text);

    /// The user pressed a key in a box: returns its character, a replacement, or RefusedKey.
    int TypeKey(AddBox box, int key);

    void txtURL_GotFocus();

    void cmdBrowse_Click();

    /// Tries the address, beginning anew if it is being tried.
    void TestAddress();

    /// Must be called often while an address is tried.
    void Poll();

    /// Appends the entry to the catalogue, completely or not at all, tells what was added and clears the boxes
    /// for the next one. An entry that is rejected or cannot be written stays in them.
    void cmdAdd_Click();

  private:
    void CollectFrequencies();
    void VerifyData();
    bool Append(const std::string& line);
    void NoteAirport();
    void EndTest();
    void PrepareNext();
    std::string CataloguePath() const;
    std::string FolderOf(const std::string& path) const;

    ProgramState& state_;
    AirportPositions& positions_;
    Prompts& prompts_;
    AnsiCodePage& page_;
    FeedProbe& probe_;
    CatalogueReload& reload_;
    ErrorTrap& trap_;
    std::unique_ptr<FeedTry> try_; ///< of the address
    bool cycle_ran_ = false;
    std::array<int, 4> previous_keys_{};
};

} // namespace quillon
