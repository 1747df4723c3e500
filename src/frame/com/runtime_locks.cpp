// Gives back the handles of the locks that the compiler's runtime makes for itself.
//
// The runtime keeps them when the module goes, so that a host which loads and unloads the component again and
// again would lose them each time. The linker leads the runtime's calls here (--wrap).

#include "frame/values/winapi.h"
// The lock type is declared by Windows' headers.
#include <bits/gthr.h>

namespace {

// More than the runtime makes. Those beyond would be kept, as without this file.
void* handles[32];

// Whether there was a place that held the one and now holds the other.
bool replace(void* present, void* next) noexcept {
    for (void*& handle : handles)
        if (InterlockedCompareExchangePointer(&handle, next, present) == present) return true;
    return false;
}

HANDLE WINAPI createSemaphore(SECURITY_ATTRIBUTES*, LONG count, LONG most, LPCWSTR) noexcept {
    // This form of the function stands in no wrapped table.
    const HANDLE made = CreateSemaphoreA(nullptr, count, most, nullptr);
    if (made) replace(nullptr, made);
    return made;
}

// What is made first goes last: the runtime's own objects are gone by then.
struct Release {
    ~Release() {
        for (void*& handle : handles)
            if (void* const open = InterlockedExchangePointer(&handle, nullptr)) CloseHandle(open);
    }
};
[[gnu::init_priority(101)]] const Release release;

}  // namespace

extern "C" {

// The place where the runtime looks for the address of CreateSemaphoreW.
#ifdef _WIN64
extern decltype(&createSemaphore) const wrappedCreate asm("__wrap___imp_CreateSemaphoreW");
#else
extern decltype(&createSemaphore) const wrappedCreate asm("___wrap__imp__CreateSemaphoreW@16");
#endif
decltype(&createSemaphore) const wrappedCreate = &createSemaphore;

void __real___gthr_win32_mutex_destroy(__gthread_mutex_t* mutex);

void __wrap___gthr_win32_mutex_destroy(__gthread_mutex_t* mutex) {
    replace(mutex->sema, nullptr);
    __real___gthr_win32_mutex_destroy(mutex);
}
}
