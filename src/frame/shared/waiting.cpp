#include "frame/shared/waiting.h"

#include "frame/host/globals.h"
#include "frame/values/winapi.h"

namespace vorla {

void Attente(std::int32_t Millisecondes) {
    // The system's waits end late by up to a tick of its clock, so the last moments are polled.
    constexpr std::int32_t polled = 32;
    constexpr DWORD nap = 10;
    const auto start = GetTickCount();
    DoEvents();
    while (!isWaitOver(start, GetTickCount(), Millisecondes)) {
        if (Millisecondes > polled && !isWaitOver(start, GetTickCount(), Millisecondes - polled))
            MsgWaitForMultipleObjects(0, nullptr, FALSE, nap, QS_ALLINPUT);
        DoEvents();
    }
}

}  // namespace vorla
