#pragma once

#include "win32/system/LateFunction.h"

#include <windows.h>

#include <mmreg.h>
#include <mmsystem.h>
#include <msacm.h>

namespace quillon {

/// The wave devices' functions, by their names without "waveOut".
namespace wave {
inline constinit const LateCall<decltype(waveOutOpen)> Open(L"winmm.dll", "waveOutOpen", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutClose)> Close(L"winmm.dll", "waveOutClose", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutReset)> Reset(L"winmm.dll", "waveOutReset", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutPrepareHeader)>
    PrepareHeader(L"winmm.dll", "waveOutPrepareHeader", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutUnprepareHeader)>
    UnprepareHeader(L"winmm.dll", "waveOutUnprepareHeader", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutWrite)> Write(L"winmm.dll", "waveOutWrite", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutGetPosition)> GetPosition(L"winmm.dll", "waveOutGetPosition",
                                                                          MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutGetNumDevs)> GetNumDevs(L"winmm.dll", "waveOutGetNumDevs", 0U);
inline constinit const LateCall<decltype(waveOutGetDevCapsW)> GetDevCapsW(L"winmm.dll", "waveOutGetDevCapsW",
                                                                          MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(waveOutMessage)> Message(L"winmm.dll", "waveOutMessage",
                                                                  MMSYSERR_NODRIVER);
} // namespace wave

/// The codec manager's functions, by their names without "acmStream".
namespace codec {
inline constinit const LateCall<decltype(acmStreamOpen)> Open(L"msacm32.dll", "acmStreamOpen",
                                                              MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(acmStreamClose)> Close(L"msacm32.dll", "acmStreamClose",
                                                                MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(acmStreamSize)> Size(L"msacm32.dll", "acmStreamSize",
                                                              MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(acmStreamPrepareHeader)>
    PrepareHeader(L"msacm32.dll", "acmStreamPrepareHeader", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(acmStreamUnprepareHeader)>
    UnprepareHeader(L"msacm32.dll", "acmStreamUnprepareHeader", MMSYSERR_NODRIVER);
inline constinit const LateCall<decltype(acmStreamConvert)> Convert(L"msacm32.dll", "acmStreamConvert",
                                                                    MMSYSERR_NODRIVER);
} // namespace codec

} // namespace quillon
