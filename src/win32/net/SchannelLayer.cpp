#include "win32/net/SchannelLayer.h"

#include "win32/net/ServerCertificate.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <array>
#include <subauth.h>

#define SCHANNEL_USE_BLACKLISTS // for SCH_CREDENTIALS
#include <schannel.h>

namespace quillon {

namespace {

constexpr DWORD Wanted = ISC_REQ_SEQUENCE_DETECT | ISC_REQ_REPLAY_DETECT | ISC_REQ_CONFIDENTIALITY |
                         ISC_REQ_STREAM | ISC_REQ_ALLOCATE_MEMORY | ISC_REQ_USE_SUPPLIED_CREDS |
                         ISC_REQ_MANUAL_CRED_VALIDATION;

SecBuffer Buffer(unsigned long type, void* bytes = nullptr, std::size_t count = 0) {
    return {static_cast<unsigned long>(count), type, bytes};
}

template <std::size_t N>
SecBufferDesc Description(std::array<SecBuffer, N>& buffers) {
    return {SECBUFFER_VERSION, static_cast<unsigned long>(N), buffers.data()};
}

/// Number of bytes at the end of the input that were not used.
template <std::size_t N>
std::size_t Unused(const std::array<SecBuffer, N>& buffers) {
    for (const SecBuffer& buffer : buffers)
        if (buffer.BufferType == SECBUFFER_EXTRA) return buffer.cbBuffer;
    return 0;
}

void KeepLast(std::vector<std::uint8_t>& bytes, std::size_t count) {
    bytes.erase(bytes.begin(), bytes.end() - static_cast<std::ptrdiff_t>(std::min(count, bytes.size())));
}

} // namespace

SchannelLayer::SchannelLayer(const std::string& host) : host_(Wide(host)) {
    SecInvalidateHandle(&credentials_);
    SecInvalidateHandle(&context_);
}

SchannelLayer::~SchannelLayer() {
    if (SecIsValidHandle(&context_)) functions_->DeleteSecurityContext(&context_);
    if (SecIsValidHandle(&credentials_)) functions_->FreeCredentialsHandle(&credentials_);
}

/// Only the newer structure offers TLS 1.3; systems before Windows 10 1809 do not know it.
bool SchannelLayer::AcquireCredentials() {
    constexpr DWORD Flags = SCH_CRED_MANUAL_CRED_VALIDATION | SCH_CRED_NO_DEFAULT_CREDS | SCH_USE_STRONG_CRYPTO;
    SCH_CREDENTIALS wanted{};
    wanted.dwVersion = SCH_CREDENTIALS_VERSION;
    wanted.dwFlags = Flags;
    SCHANNEL_CRED older{};
    older.dwVersion = SCHANNEL_CRED_VERSION;
    older.dwFlags = Flags;
    return functions_ != nullptr && (Acquire(&wanted) || Acquire(&older));
}

bool SchannelLayer::Acquire(void* wanted) {
    wchar_t package[] = UNISP_NAME_W;
    return functions_->AcquireCredentialsHandleW(nullptr, package, SECPKG_CRED_OUTBOUND, nullptr, wanted,
                                                 nullptr, nullptr, &credentials_, nullptr) == SEC_E_OK;
}

SecurityLayer::Progress SchannelLayer::ShakeHands(std::vector<std::uint8_t>& received, std::string& unsent) {
    if (!SecIsValidHandle(&credentials_) && !AcquireCredentials()) return Progress::Failed;
    const bool is_first = !SecIsValidHandle(&context_);
    std::array input{Buffer(SECBUFFER_TOKEN, received.data(), received.size()), Buffer(SECBUFFER_EMPTY)};
    std::array output{Buffer(SECBUFFER_TOKEN)};
    SecBufferDesc in = Description(input);
    SecBufferDesc out = Description(output);
    DWORD given = 0;
    const SECURITY_STATUS status = functions_->InitializeSecurityContextW(
        &credentials_, is_first ? nullptr : &context_, host_.data(), Wanted, 0, 0, is_first ? nullptr : &in, 0,
        &context_, &out, &given, nullptr);
    if (output[0].pvBuffer != nullptr) {
        unsent.append(static_cast<const char*>(output[0].pvBuffer), output[0].cbBuffer);
        functions_->FreeContextBuffer(output[0].pvBuffer);
    }
    if (status == SEC_E_INCOMPLETE_MESSAGE) return Progress::Incomplete;
    KeepLast(received, Unused(input));
    if (status == SEC_E_OK) return CheckServer();
    return status == SEC_I_CONTINUE_NEEDED ? Progress::Step : Progress::Failed;
}

SecurityLayer::Progress SchannelLayer::CheckServer() {
    fault_ = FaultOfServer(context_, host_);
    if (fault_ != SilenceCause::None) return Progress::Untrusted;
    const bool knows_sizes =
        functions_->QueryContextAttributesW(&context_, SECPKG_ATTR_STREAM_SIZES, &sizes_) == SEC_E_OK;
    return knows_sizes ? Progress::Done : Progress::Failed;
}

SecurityLayer::Progress SchannelLayer::Decrypt(std::vector<std::uint8_t>& received,
                                               std::vector<std::uint8_t>& data) {
    std::array buffers{Buffer(SECBUFFER_DATA, received.data(), received.size()), Buffer(SECBUFFER_EMPTY),
                       Buffer(SECBUFFER_EMPTY), Buffer(SECBUFFER_EMPTY)};
    SecBufferDesc message = Description(buffers);
    const SECURITY_STATUS status = functions_->DecryptMessage(&context_, &message, 0, nullptr);
    if (status == SEC_E_INCOMPLETE_MESSAGE) return Progress::Incomplete;
    if (status != SEC_E_OK && status != SEC_I_CONTEXT_EXPIRED && status != SEC_I_RENEGOTIATE)
        return Progress::Failed;
    for (const SecBuffer& buffer : buffers) {
        const auto* const bytes = static_cast<const std::uint8_t*>(buffer.pvBuffer);
        if (buffer.BufferType == SECBUFFER_DATA && bytes != nullptr)
            data.insert(data.end(), bytes, bytes + buffer.cbBuffer);
    }
    KeepLast(received, Unused(buffers));
    if (status == SEC_I_RENEGOTIATE) return Progress::Handshake;
    return status == SEC_I_CONTEXT_EXPIRED ? Progress::Closed : Progress::Done;
}

std::size_t SchannelLayer::Encrypt(std::string_view bytes, std::string& unsent) {
    bytes = bytes.substr(0, sizes_.cbMaximumMessage);
    std::string message(sizes_.cbHeader, '\0');
    message.append(bytes).append(sizes_.cbTrailer, '\0');
    char* const header = message.data();
    char* const data = header + sizes_.cbHeader;
    std::array buffers{
        Buffer(SECBUFFER_STREAM_HEADER, header, sizes_.cbHeader), Buffer(SECBUFFER_DATA, data, bytes.size()),
        Buffer(SECBUFFER_STREAM_TRAILER, data + bytes.size(), sizes_.cbTrailer), Buffer(SECBUFFER_EMPTY)};
    SecBufferDesc description = Description(buffers);
    if (functions_->EncryptMessage(&context_, 0, &description, 0) != SEC_E_OK) return 0;
    unsent.append(header, buffers[0].cbBuffer + buffers[1].cbBuffer + buffers[2].cbBuffer);
    return bytes.size();
}

} // namespace quillon
