#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Text from outside as UTF-8, without a byte-order mark: what is not well-formed is read as Latin-1.
std::string PlainText(std::string_view bytes);

/// Adds a character to the text; nothing for a number that is none of a character.
void AppendCharacter(std::string& text, unsigned long code);

/// The text with the entities of XML replaced; a "&" that starts none is itself.
std::string Unescaped(std::string_view text);

} // namespace quillon
