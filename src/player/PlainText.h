#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

/// Foreign text as UTF-8 without a byte-order mark. Text that is not well-formed UTF-8 is read as Latin-1.
std::string PlainText(std::string_view bytes);

/// The text as one line of at most `longest` characters. Runs of blanks, line ends, control characters and
/// characters that change the writing direction become one blank each; those at the ends are removed. UTF-8.
std::string OneLine(std::string_view text, std::ptrdiff_t longest);

/// Replaces XML entities. An "&" that does not start one is kept.
std::string Unescaped(std::string_view text);

} // namespace quillon
