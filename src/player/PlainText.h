#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

/// Text from outside as UTF-8, without a byte-order mark: what is not well-formed is read as Latin-1.
std::string PlainText(std::string_view bytes);

/// The text as one line of at most so many characters: line ends, other control characters and those that
/// change the direction of writing count as blanks, blanks in a row as one, and none stand at the ends. UTF-8.
std::string OneLine(std::string_view text, std::ptrdiff_t longest);

/// The text with the entities of XML replaced; a "&" that starts none is itself.
std::string Unescaped(std::string_view text);

} // namespace quillon
