#pragma once

#include "state/ListView.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace quillon {

/// Servers of shared folders, in lower case.
using FileServers = std::set<std::string, std::less<>>;

/// The server of a path like "\\server\share\file", in lower case; empty for a path of another kind.
std::string ServerOfPath(std::string_view path);

/// The servers that lines of the catalogue name.
FileServers FileServersOf(const ListView& list);

} // namespace quillon
