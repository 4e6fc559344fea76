#pragma once

#include "ports/MediaPlayer.h"
#include "win32/system/ComPtr.h"

#include <atomic>
#include <ocidl.h>

namespace quillon {

/// Receives the events of the Windows Media Player control and remembers the latest. The control may keep
/// references to it for longer than its owner does.
class ControlEvents final : public IDispatch {
  public:
    virtual ~ControlEvents() = default; // called by Release only

    /// Subscribes to `control`; null if it has no such events.
    static ComPtr<ControlEvents> Attach(IUnknown* control);

    /// Unsubscribes. To be called before the control is released.
    void Detach();

    PlayState State() const { return state_; }

    /// Whether the control has reported an error and has not played since.
    bool HasFailed() const { return has_failed_; }

    /// Whether it has played since Forget, or since it was made.
    bool HasPlayed() const { return has_played_; }

    /// A new address is opened.
    void Forget() { has_failed_ = has_played_ = false; }

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
    bool has_played_ = false;
};

} // namespace quillon
