#pragma once

#include "ports/MediaPlayer.h"
#include "win32/system/ComPtr.h"

#include <atomic>
#include <ocidl.h>

#ifdef __GNUC__
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // COM's interfaces have none; Release destroys
#endif

namespace quillon {

/// Listens to the events of the Windows Media Player control and keeps what they said last. The control holds
/// references to it, possibly longer than its owner.
class ControlEvents final : public IDispatch {
  public:
    virtual ~ControlEvents() = default; // by Release only

    /// Listens to `control`; nullptr when it has no such events.
    static ComPtr<ControlEvents> Attach(IUnknown* control);

    /// Called by the owner before it lets the control go.
    void Detach();

    PlayState State() const { return state_; }

    /// Whether the control could not play what it was given, and has played nothing since.
    bool HasFailed() const { return has_failed_; }
    void ForgetFailure() { has_failed_ = false; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) override;

  private:
    std::atomic<ULONG> references_ = 1;
    ComPtr<IConnectionPoint> source_;
    DWORD cookie_ = 0;
    PlayState state_ = Undefined;
    bool has_failed_ = false;
};

} // namespace quillon
