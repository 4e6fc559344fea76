#pragma once

#include "state/Folders.h"
#include "state/Forms.h"
#include "state/PlaybackState.h"
#include "state/SoundSettings.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// What the program remembers from one run to the next besides its settings.
struct RememberedValues {
    int Volume = 100;      ///< of the player strip, 0 to 100
    std::string UserAgent; ///< sent to servers; empty: the program's own name
    WindowSize Window;
    std::array<int, 4> Columns{}; ///< widths of the list's columns, twips; 0 is the initial width
    Marks PreferenceMarks{};
    SoundSettings Sound{};
    bool Compact = false;
    std::optional<WindowPlace> Place{};
    std::optional<WindowPlace> CompactPlace{};

    bool operator==(const RememberedValues&) const = default;
};

/// Parses lines "key=value". Missing keys and invalid values leave the default, unknown keys are ignored, and
/// the last of several equal keys counts.
RememberedValues ParseRemembered(std::string_view bytes);

/// The lines for all keys.
std::string RememberedText(const RememberedValues& values);

inline constexpr const char* RememberedName = "Quillon.state";

/// The file beside the settings file. Failures are not worth a message and are ignored.
class RememberedState {
  public:
    RememberedState(frmATC& form, Marks& marks, SoundSettings& sound, std::string& user_agent,
                    const Folders& folders)
        : form_(form), marks_(marks), sound_(sound), user_agent_(user_agent), folders_(folders) {}

    /// Applies the file's values, or the defaults.
    void Read();

    /// What the file in that folder says of the mark, before anything else is known.
    static bool StartsMinimised(const std::string& data_folder);

    /// Writes the current values, unless this run has not read the file or an existing one could not be read.
    void Write();

  private:
    std::string Path() const { return folders_.DataPath + RememberedName; }

    frmATC& form_;
    Marks& marks_;
    SoundSettings& sound_;
    std::string& user_agent_;
    const Folders& folders_;
    bool may_write_ = false;
};

} // namespace quillon
