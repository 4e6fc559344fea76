#include "win32/sound/WinSoundDevices.h"

#include "win32/sound/SoundFunctions.h"
#include "win32/system/ComPtr.h"
#include "win32/system/Utf16.h"

#include <mmdeviceapi.h>
#include <propidl.h>

namespace quillon {

namespace {

// Of mmddk.h, which is part of the driver kit.
constexpr UINT QueryEndpointId = 0x800 + 17;
constexpr UINT QueryEndpointIdSize = 0x800 + 18;

/// PKEY_Device_FriendlyName, whose definition no library of MinGW has.
constexpr PROPERTYKEY FriendlyName{
    {0xA45C254E, 0xDF1C, 0x4EFD, {0x80, 0x20, 0x67, 0xD1, 0x46, 0xA8, 0x50, 0xE0}}, 14};

HWAVEOUT AsDevice(UINT number) {
    return reinterpret_cast<HWAVEOUT>(static_cast<UINT_PTR>(number));
}

/// The id of the endpoint behind a wave device; empty if it has none.
std::wstring EndpointOf(UINT number) {
    ULONG bytes = 0;
    if (wave::Message(AsDevice(number), QueryEndpointIdSize, reinterpret_cast<DWORD_PTR>(&bytes), 0) !=
            MMSYSERR_NOERROR ||
        bytes < sizeof(wchar_t))
        return {};
    std::wstring id(bytes / sizeof(wchar_t), L'\0');
    if (wave::Message(AsDevice(number), QueryEndpointId, reinterpret_cast<DWORD_PTR>(id.data()), bytes) !=
        MMSYSERR_NOERROR)
        return {};
    id.resize(wcslen(id.c_str()));
    return id;
}

/// A wave device itself knows only the first 31 characters of its name.
std::wstring ShortName(UINT number) {
    WAVEOUTCAPSW device{};
    return wave::GetDevCapsW(number, &device, sizeof device) == MMSYSERR_NOERROR ? device.szPname : L"";
}

std::wstring FullName(IMMDeviceEnumerator* endpoints, const std::wstring& id) {
    ComPtr<IMMDevice> device;
    ComPtr<IPropertyStore> properties;
    if (endpoints == nullptr || FAILED(endpoints->GetDevice(id.c_str(), device.Out())) ||
        FAILED(device->OpenPropertyStore(STGM_READ, properties.Out())))
        return {};
    PROPVARIANT value{};
    if (FAILED(properties->GetValue(FriendlyName, &value))) return {};
    std::wstring name = value.vt == VT_LPWSTR ? value.pwszVal : L"";
    PropVariantClear(&value);
    return name;
}

} // namespace

void ChosenDevice::Set(const std::string& id) {
    const std::lock_guard lock(mutex_);
    id_ = id;
    is_missing_ = false;
    ++revision_;
}

UINT ChosenDevice::Number() {
    std::string id;
    {
        const std::lock_guard lock(mutex_);
        id = id_;
    }
    for (UINT number = 0; !id.empty() && number < wave::GetNumDevs(); ++number) {
        if (Narrow(EndpointOf(number)) != id) continue;
        is_missing_ = false;
        return number;
    }
    is_missing_ = !id.empty();
    return WAVE_MAPPER;
}

std::vector<SoundDevice> WinSoundDevices::List() {
    ComPtr<IMMDeviceEnumerator> endpoints;
    CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IMMDeviceEnumerator),
                     reinterpret_cast<void**>(endpoints.Out()));
    std::vector<SoundDevice> devices;
    for (UINT number = 0; number < wave::GetNumDevs(); ++number) {
        const std::wstring id = EndpointOf(number);
        if (id.empty()) continue;
        const std::wstring name = FullName(endpoints.Get(), id);
        devices.push_back({Narrow(id), Narrow(name.empty() ? ShortName(number) : name)});
    }
    return devices;
}

} // namespace quillon
