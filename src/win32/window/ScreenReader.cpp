#include "win32/window/ScreenReader.h"

#include "win32/system/ComPtr.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"

#include <atomic>
#include <commctrl.h>
#include <initguid.h>
#include <oleacc.h>
#include <utility>

namespace quillon {

namespace {

DEFINE_GUID(LiveSettingProperty, 0xc12bcd8e, 0x2a8e, 0x4950, 0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb);

ComPtr<IAccPropServices> Services() {
    ComPtr<IAccPropServices> services;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     reinterpret_cast<void**>(services.Out()));
    return services;
}

/// Windows numbers the parts of a control from 1.
constexpr DWORD FirstPart = 1;

class PartNames final : public IAccPropServer {
  public:
    explicit PartNames(std::function<std::string(std::size_t)> name) : name_(std::move(name)) {}
    virtual ~PartNames() = default; // called by Release only

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool known =
            IsEqualIID(wanted, IID_IUnknown) != FALSE || IsEqualIID(wanted, IID_IAccPropServer) != FALSE;
        *object = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetPropValue(const BYTE* identity, DWORD length, MSAAPROPID, VARIANT* value,
                                           BOOL* has_value) override try {
        VariantInit(value);
        *has_value = FALSE;
        HWND control = nullptr;
        DWORD object = 0;
        DWORD part = 0;
        const auto services = Services();
        if (!services ||
            FAILED(services->DecomposeHwndIdentityString(identity, length, &control, &object, &part)) ||
            part < FirstPart)
            return S_OK;
        const std::string name = name_(part - FirstPart);
        if (name.empty()) return S_OK;
        value->vt = VT_BSTR;
        value->bstrVal = SysAllocString(Wide(name).c_str());
        *has_value = TRUE;
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }

  private:
    std::function<std::string(std::size_t)> name_;
    std::atomic<ULONG> references_{1};
};

} // namespace

ScreenReader::ScreenReader(HWND parent)
    : announcement_(AddControl(parent, WC_STATICW, L"", SS_NOPREFIX, IdAnnouncement)) {
    MoveControl(announcement_, 0, 0, 1, 1); // screen readers skip controls without a size
    constexpr long AfterTheRest = 1;
    VARIANT setting{};
    setting.vt = VT_I4;
    setting.lVal = AfterTheRest;
    if (const auto services = Services())
        services->SetHwndProp(announcement_, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                              LiveSettingProperty, setting);
}

void ScreenReader::Say(const std::string& text) const {
    SetWindowTextW(announcement_, Wide(text).c_str());
    NotifyWinEvent(EVENT_OBJECT_LIVEREGIONCHANGED, announcement_, OBJID_CLIENT, CHILDID_SELF);
}

void ScreenReader::NamePart(HWND control, std::size_t part, const std::string& name) {
    if (const auto services = Services())
        services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT),
                                 FirstPart + static_cast<DWORD>(part), PROPID_ACC_NAME, Wide(name).c_str());
}

void ScreenReader::NameParts(HWND control, std::function<std::string(std::size_t)> name) {
    const ComPtr<IAccPropServer> names(new PartNames(std::move(name)));
    if (const auto services = Services())
        services->SetHwndPropServer(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &PROPID_ACC_NAME,
                                    1, names.Get(), ANNO_CONTAINER);
}

} // namespace quillon
