#pragma once

#include "win32/net/SecurityFunctions.h"

#include <string>

namespace quillon {

/// Whether Windows trusts the certificate shown by the other side of a secured connection for that host.
/// Revocation is not checked: it would need another connection. May take several seconds.
bool IsServerTrusted(CtxtHandle& connection, const std::wstring& host);

} // namespace quillon
