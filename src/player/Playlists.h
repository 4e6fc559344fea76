#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

using Entries = std::vector<std::string>;

/// A playlist longer than this many bytes is none.
constexpr std::size_t LongestPlaylist = 262144;

// What a playlist of each format lists, in its order and as it stands there. Line ends may be of any kind, and
// what is no entry is passed over. UTF-8 text.

/// Lines that are no comment.
Entries M3uEntries(std::string_view text);

/// "File1=address"; ordered by the number, which need not start at 1.
Entries PlsEntries(std::string_view text);

/// <ref href="address"/> and <entryref href="address"/>.
Entries AsxEntries(std::string_view text);

/// <media src="address"/>.
Entries WplEntries(std::string_view text);

/// What a playlist lists; its format is told by its content, or else by its name. Bytes that are no UTF-8 count
/// as Latin-1.
Entries ReadPlaylist(std::string_view bytes, std::string_view name);

/// Where an entry leads to that stands in the playlist `from`, an address or a path: an address or a path.
/// Nothing when it cannot be played. A playlist from the network never leads to a file of this computer.
std::optional<std::string> ResolveEntry(std::string_view from, std::string_view entry);

} // namespace quillon
