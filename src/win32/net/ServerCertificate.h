#pragma once

#include "win32/net/SecurityFunctions.h"

#include <string>

namespace quillon {

/// Whether Windows trusts the certificate that the other side of a secured connection has shown, as one for
/// that host. Certificates that were called back are not asked for, which would take another connection. May
/// take long.
bool IsServerTrusted(CtxtHandle& connection, const std::wstring& host);

} // namespace quillon
