// Closes the handles of the locks that the compiler's runtime makes for itself.
//
// The runtime never closes them, so a host that loads and unloads the component would lose them each time.
// The linker redirects the runtime's calls to this file (--wrap).

#include "frame/values/winapi.h"
// Declares the type of the locks, from Windows' headers.
#include <bits/gthr.h>

namespace {

// More than the runtime makes. Any further handles would stay open, as they would without this file.
void* handles[32];

// Replaces one entry, and returns whether there was one that held `present`.
bool replace(void* present, void* next) noexcept {
    for (void*& handle : handles)
        if (InterlockedCompareExchangePointer(&handle, next, present) == present) return true;
    return false;
}

HANDLE WINAPI createSemaphore(SECURITY_ATTRIBUTES*, LONG count, LONG most, LPCWSTR) noexcept {
    // CreateSemaphoreA is not redirected.
    const HANDLE made = CreateSemaphoreA(nullptr, count, most, nullptr);
    if (made) replace(nullptr, made);
    return made;
}

// Objects made first are destroyed last: the runtime's own objects are gone by then.
struct Release {
    ~Release() {
        for (void*& handle : handles)
            if (void* const open = InterlockedExchangePointer(&handle, nullptr)) CloseHandle(open);
    }
};
[[gnu::init_priority(101)]] const Release release;

}  // namespace

extern "C" {

// The pointer through which the runtime calls CreateSemaphoreW.
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
