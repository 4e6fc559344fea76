#pragma once

#include "player/SecureConnection.h"
#include "win32/net/SecurityFunctions.h"

namespace quillon {

/// TLS by Windows' security package. Untrusted if Windows does not trust the server's certificate for the host.
class SchannelLayer : public SecurityLayer {
  public:
    /// `host` is a name, or a literal address without brackets.
    explicit SchannelLayer(const std::string& host);
    ~SchannelLayer() override;

    SchannelLayer(const SchannelLayer&) = delete;
    SchannelLayer& operator=(const SchannelLayer&) = delete;

    SilenceCause Fault() const override { return fault_; }
    Progress ShakeHands(std::vector<std::uint8_t>& received, std::string& unsent) override;
    Progress Decrypt(std::vector<std::uint8_t>& received, std::vector<std::uint8_t>& data) override;
    std::size_t Encrypt(std::string_view bytes, std::string& unsent) override;

  private:
    bool AcquireCredentials();
    bool Acquire(void* wanted);
    Progress CheckServer();

    const SecurityFunctionTableW* const functions_ = SecurityFunctions();
    std::wstring host_;
    CredHandle credentials_;
    CtxtHandle context_;
    SilenceCause fault_ = SilenceCause::None;
    SecPkgContext_StreamSizes sizes_{};
};

} // namespace quillon
