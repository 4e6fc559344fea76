#pragma once

#include <optional>
#include <string>

namespace quillon {

/// The user's own number settings. They are system-wide: other programs see what is written here.
class RegionalSettings {
  public:
    enum class Separator { Decimal, Thousand };

    virtual ~RegionalSettings() = default;

    /// May be empty. Nothing if it cannot be read.
    virtual std::optional<std::string> Read(Separator separator) = 0;
    virtual void Write(Separator separator, const std::string& text) = 0;
};

} // namespace quillon
