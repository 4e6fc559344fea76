#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The system's ANSI code page, in which files without UTF-8 are written.
class AnsiCodePage {
  public:
    virtual ~AnsiCodePage() = default;

    /// To UTF-8; bytes that stand for nothing become a replacement character.
    virtual std::string Decode(std::string_view bytes) = 0;

    /// From UTF-8; nothing when the page lacks one of the characters.
    virtual std::optional<std::string> Encode(std::string_view text) = 0;
};

} // namespace quillon
