#include "player/PlainText.h"

#include "runtime/Text.h"

#include <charconv>
#include <optional>
#include <utility>

namespace quillon {

namespace {

constexpr std::size_t LongestEntity = 10;

/// The character that stands between "&" and ";".
std::optional<unsigned long> EntityCode(std::string_view name) {
    static constexpr std::pair<std::string_view, char> names[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, character] : names)
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

} // namespace

std::string PlainText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (IsUtf8(bytes)) return std::string(bytes);
    std::string text;
    for (const char byte : bytes) AppendCharacter(text, static_cast<unsigned char>(byte));
    return text;
}

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
