#include "win32/sound/ControlEvents.h"

#include <wmp.h>
#include <wmpids.h>

namespace quillon {

ComPtr<ControlEvents> ControlEvents::Attach(IUnknown* control) {
    ComPtr<IConnectionPointContainer> sources;
    ComPtr<IConnectionPoint> source;
    ComPtr<ControlEvents> events(new ControlEvents);
    if (FAILED(control->QueryInterface(__uuidof(IConnectionPointContainer),
                                       reinterpret_cast<void**>(sources.Out()))) ||
        FAILED(sources->FindConnectionPoint(__uuidof(_WMPOCXEvents), source.Out())) ||
        FAILED(source->Advise(events.Get(), &events->cookie_)))
        return {};
    events->source_ = std::move(source);
    return events;
}

void ControlEvents::Detach() {
    const ComPtr<IConnectionPoint> source = std::move(source_);
    if (source) source->Unadvise(cookie_);
}

HRESULT ControlEvents::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    const bool knows = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(_WMPOCXEvents);
    *object = knows ? this : nullptr;
    if (!knows) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ControlEvents::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ControlEvents::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

/// The state's type depends on the control's version.
HRESULT ControlEvents::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                              UINT*) {
    if (event == DISPID_WMPCOREEVENT_ERROR || event == DISPID_WMPCOREEVENT_MEDIAERROR) has_failed_ = true;
    if (event != DISPID_WMPCOREEVENT_PLAYSTATECHANGE) return S_OK;
    VARIANT state{};
    if (arguments == nullptr || arguments->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    if (FAILED(VariantChangeType(&state, &arguments->rgvarg[0], 0, VT_I4))) return DISP_E_TYPEMISMATCH;
    state_ = static_cast<PlayState>(state.lVal);
    if (state_ != Playing) return S_OK;
    has_failed_ = false;
    has_played_ = true;
    return S_OK;
}

} // namespace quillon
