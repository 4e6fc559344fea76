#pragma once

#include "player/SecureConnection.h"
#include "win32/net/SecurityFunctions.h"

#include <string>

namespace quillon {

/// What keeps Windows from trusting the certificate that the other side of a secured connection shows for that
/// host. Revocation is not checked: it would need another connection. May take several seconds.
SilenceCause FaultOfServer(CtxtHandle& connection, const std::wstring& host);

} // namespace quillon
