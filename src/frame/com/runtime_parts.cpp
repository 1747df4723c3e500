// The parts of the compiler's runtime that the component replaces.
//
// Handles of locks. The runtime does not close its own when the module is unloaded, so a host that loads and
// unloads the component repeatedly would lose them each time. The linker leads the runtime's calls here
// (--wrap).
//
// Texts of failures. The runtime writes the name of an uncaught exception to a console before it ends the
// process, and a host has no console; the standard library's exceptions carry texts that no host sees.
// Together they were a quarter of the component's size: the demangler, printf, a second kind of strings. The
// linker takes a function that is defined here in place of the runtime's.

#include <cstdlib>
#include <exception>
#include <new>

#include "frame/values/winapi.h"
// The lock type is declared by Windows' headers.
#include <bits/gthr.h>

namespace {

// More than the runtime makes. Any further handles would stay open, as they would without this file.
void* handles[32];

// Puts `next` where `present` was. Returns whether there was such a place.
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

// Made first and so destroyed last, after the runtime's own objects.
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

namespace {

// The standard library throws these when it is used wrongly. They are unforeseen, like any exception without
// a number.
class LibraryFailure : public std::exception {
public:
    const char* what() const noexcept override { return "standard library"; }
};

}  // namespace

// No exception leaves the component, so the process ends here in any case.
void __gnu_cxx::__verbose_terminate_handler() { std::abort(); }

namespace std {

void __throw_bad_alloc() { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_array_new_length(); }
void __throw_bad_function_call() { throw LibraryFailure(); }
void __throw_length_error(const char*) { throw LibraryFailure(); }
void __throw_logic_error(const char*) { throw LibraryFailure(); }
void __throw_out_of_range(const char*) { throw LibraryFailure(); }
void __throw_out_of_range_fmt(const char*, ...) { throw LibraryFailure(); }

}  // namespace std
