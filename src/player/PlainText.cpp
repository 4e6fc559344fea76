#include "player/PlainText.h"

#include "ports/TextFile.h"
#include "runtime/Text.h"
#include "runtime/Trim.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace quillon {

namespace {

constexpr std::size_t LongestEntity = 10;

bool IsBetween(std::string_view text, std::string_view first, std::string_view last) {
    return text.size() >= first.size() && text.substr(0, first.size()) >= first &&
           text.substr(0, last.size()) <= last;
}

/// Length in bytes of the first character if it counts as a blank, else 0.
std::size_t BlankLength(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte <= ' ' || byte == 0x7F) return 1;
    if (IsBetween(text, "\xC2\x80", "\xC2\xA0")) return 2;
    const bool changes_direction =
        IsBetween(text, "\xE2\x80\xA8", "\xE2\x80\xAE") || // U+2028: lines, directions
        IsBetween(text, "\xE2\x81\xA6", "\xE2\x81\xA9") || // U+2066: isolates
        IsBetween(text, "\xE2\x80\x8E", "\xE2\x80\x8F");   // U+200E: marks
    return changes_direction ? 3 : 0;
}

/// The character that an entity's name, the text between "&" and ";", stands for.
std::optional<unsigned long> EntityCode(std::string_view name) {
    static constexpr std::pair<std::string_view, char> Names[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, character] : Names)
        if (LCase(name) == known) return static_cast<unsigned char>(character);
    if (!name.starts_with('#')) return {};
    name.remove_prefix(1);
    const bool hexadecimal = name.starts_with('x') || name.starts_with('X');
    if (hexadecimal) name.remove_prefix(1);
    unsigned long code = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data(), end, code, hexadecimal ? 16 : 10);
    if (name.empty() || error != std::errc{} || stop != end) return {};
    return code;
}

/// Appends a character as UTF-8; no effect for an invalid code point.
void AppendCharacter(std::string& text, unsigned long code) {
    const auto add = [&](unsigned long bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return;
    if (code < 0x80) return add(code);
    if (code < 0x800) {
        add(0xC0U | code >> 6U);
    } else {
        if (code < 0x10000) {
            add(0xE0U | code >> 12U);
        } else {
            add(0xF0U | code >> 18U);
            add(0x80U | (code >> 12U & 0x3FU));
        }
        add(0x80U | (code >> 6U & 0x3FU));
    }
    add(0x80U | (code & 0x3FU));
}

} // namespace

std::string PlainText(std::string_view bytes) {
    bytes = SkipByteOrderMark(bytes);
    if (IsUtf8(bytes)) return std::string(bytes);
    std::string text;
    for (const char byte : bytes) AppendCharacter(text, static_cast<unsigned char>(byte));
    return text;
}

std::string OneLine(std::string_view text, std::ptrdiff_t longest) {
    std::string line;
    while (!text.empty()) {
        const std::size_t blank = BlankLength(text);
        if (blank == 0)
            line += text.front();
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
        text.remove_prefix(std::max<std::size_t>(blank, 1));
    }
    return std::string(Trimmed(Left(line, longest)));
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const std::size_t end = text.front() == '&' ? text.substr(0, LongestEntity).find(';') : text.npos;
        const auto code = end == text.npos ? std::nullopt : EntityCode(text.substr(1, end - 1));
        if (code)
            AppendCharacter(plain, *code);
        else
            plain += text.front();
        text.remove_prefix(code ? end + 1 : 1);
    }
    return plain;
}

} // namespace quillon
