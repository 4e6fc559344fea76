#include "win32/net/ServerCertificate.h"

#include "win32/system/Handle.h"
#include "win32/system/LateFunction.h"

#include <schannel.h>
#include <wincrypt.h>

namespace quillon {

namespace {

/// A function of crypt32.dll, which is loaded by then: secure connections need it.
template <typename Function>
Function* Crypt(const char* name) {
    return LateFunction<Function>(L"crypt32.dll", name);
}

void FreeCertificate(PCCERT_CONTEXT certificate) {
    Crypt<decltype(CertFreeCertificateContext)>("CertFreeCertificateContext")(certificate);
}

void FreeChain(PCCERT_CHAIN_CONTEXT chain) {
    Crypt<decltype(CertFreeCertificateChain)>("CertFreeCertificateChain")(chain);
}

using Certificate = Handle<PCCERT_CONTEXT, FreeCertificate>;
using CertificateChain = Handle<PCCERT_CHAIN_CONTEXT, FreeChain>;

/// The certificate's chain, up to a root that Windows knows if there is one.
CertificateChain ChainOf(const Certificate& certificate) {
    char server_authentication[] = szOID_PKIX_KP_SERVER_AUTH;
    LPSTR usages[] = {server_authentication};
    CERT_CHAIN_PARA wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.RequestedUsage.dwType = USAGE_MATCH_TYPE_OR;
    wanted.RequestedUsage.Usage = {1, usages};
    PCCERT_CHAIN_CONTEXT chain = nullptr;
    Crypt<decltype(CertGetCertificateChain)>("CertGetCertificateChain")(
        nullptr, certificate.Get(), nullptr, certificate.Get()->hCertStore, &wanted, 0, nullptr, &chain);
    return CertificateChain(chain);
}

SilenceCause FaultOfChain(DWORD errors) {
    if (errors == CERT_TRUST_NO_ERROR) return SilenceCause::None;
    if ((errors & (CERT_TRUST_IS_PARTIAL_CHAIN | CERT_TRUST_IS_UNTRUSTED_ROOT)) != 0)
        return SilenceCause::UnknownIssuer;
    return (errors & CERT_TRUST_IS_NOT_TIME_VALID) != 0 ? SilenceCause::CertificateExpired
                                                        : SilenceCause::CertificateInvalid;
}

} // namespace

SilenceCause FaultOfServer(CtxtHandle& connection, const std::wstring& host) {
    PCCERT_CONTEXT shown = nullptr;
    if (SecurityFunctions()->QueryContextAttributesW(&connection, SECPKG_ATTR_REMOTE_CERT_CONTEXT, &shown) !=
        SEC_E_OK)
        return SilenceCause::CertificateInvalid;
    const Certificate certificate(shown);
    if (!certificate) return SilenceCause::CertificateInvalid;
    const CertificateChain chain = ChainOf(certificate);
    if (!chain) return SilenceCause::CertificateInvalid;
    // Wine's policy check below accepts a chain without a root.
    const SilenceCause fault = FaultOfChain(chain.Get()->TrustStatus.dwErrorStatus);
    if (fault != SilenceCause::None) return fault;
    std::wstring name = host;
    SSL_EXTRA_CERT_CHAIN_POLICY_PARA server{};
    server.cbSize = sizeof server;
    server.dwAuthType = AUTHTYPE_SERVER;
    server.pwszServerName = name.data();
    CERT_CHAIN_POLICY_PARA rules{};
    rules.cbSize = sizeof rules;
    rules.pvExtraPolicyPara = &server;
    CERT_CHAIN_POLICY_STATUS verdict{};
    verdict.cbSize = sizeof verdict;
    const auto verify = Crypt<decltype(CertVerifyCertificateChainPolicy)>("CertVerifyCertificateChainPolicy");
    if (verify(CERT_CHAIN_POLICY_SSL, chain.Get(), &rules, &verdict) == FALSE)
        return SilenceCause::CertificateInvalid;
    if (verdict.dwError == static_cast<DWORD>(CERT_E_CN_NO_MATCH)) return SilenceCause::CertificateOfAnother;
    return verdict.dwError == 0 ? SilenceCause::None : SilenceCause::CertificateInvalid;
}

} // namespace quillon
