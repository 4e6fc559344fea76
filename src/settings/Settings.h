#pragma once

#include "runtime/ErrorTrap.h"
#include "state/ProgramState.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

/// What the settings file holds, in its order.
struct SettingsValues {
    std::int16_t ReceptionRange = RangeState().ReceptionRange; ///< nautical miles, 0 is off
    std::string RadioName = "Com2Stby"; ///< "Com1", "Com1Stby", "Com2" or "Com2Stby"; empty: no line
    std::int16_t ChatterMinSeconds = ChatterState().ChatterMinSeconds;
    std::int16_t ChatterMaxSeconds = ChatterState().ChatterMaxSeconds;
    std::int32_t MuteKeyCode = MuteState().MuteKeyCode;

    bool operator==(const SettingsValues&) const = default;
};

/// Parses a settings file. A line that is missing, not a number, or out of its type's range leaves the default;
/// exactly three numbers after the range mean that the radio's line was left out.
SettingsValues ParseSettings(std::string_view bytes);

/// The lines of a settings file.
std::string SettingsText(const SettingsValues& values);

/// The range menu's caption: the range, or that it is disabled when it is 0.
std::string RangeCaption(std::int16_t reception_range);

inline constexpr const char* SettingsName = "Quillon.ini";

/// Title of the reports of a start that failed.
inline constexpr const char* LoadErrorsTitle = "ATC from load errors";

/// The settings file in the data folder.
class Settings {
  public:
    Settings(ProgramState& state, ErrorTrap& trap) : state_(state), trap_(trap) {}

    /// Reads the file, which is created with the defaults if it does not exist, and applies its values. If an
    /// existing file cannot be read, reports that, applies the defaults, and WriteIni will not touch the file.
    /// Raises the errors of ReplaceFile if the file cannot be created.
    void ReadIni();

    /// From now on WriteIni will not touch the file: the start failed, and the current values may not be the
    /// user's.
    void LeaveFileAlone() { read_ = false; }

    /// Writes the current values, but only if this run has read the file. A failure is reported and leaves the
    /// old file.
    void WriteIni();

  private:
    std::string Path() const { return state_.folders.DataPath + SettingsName; }
    void CreateIfMissing(const std::string& path);
    void Apply(const SettingsValues& values);
    void SelectRadio(const std::string& name);
    SettingsValues InForce() const;

    ProgramState& state_;
    ErrorTrap& trap_;
    bool read_ = false;
};

} // namespace quillon
