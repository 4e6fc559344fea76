#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The system's ANSI code page, for files that are not UTF-8.
class AnsiCodePage {
  public:
    virtual ~AnsiCodePage() = default;

    /// To UTF-8; invalid bytes become a replacement character.
    virtual std::string Decode(std::string_view bytes) = 0;

    /// From UTF-8; empty if the page lacks one of the characters.
    virtual std::optional<std::string> Encode(std::string_view text) = 0;
};

} // namespace quillon
