// The parts of the compiler's runtime that the component replaces.
//
// Handles of locks. The runtime keeps those that it makes for itself when the module goes, so that a host
// which loads and unloads the component again and again would lose them each time. The linker leads the
// runtime's calls here (--wrap).
//
// Texts of failures that nobody reads. Before it ends the process, the runtime would write the name of an
// exception that nothing caught to a console that hosts have not, and exceptions of the standard library
// carry texts that the border drops. Both bring a quarter of the component's size with them: names taken
// apart, printf, another kind of strings. Functions that are defined here are not taken from the runtime's
// libraries.

#include <cstdlib>
#include <exception>
#include <new>

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

namespace {

// What the standard library throws when it is used wrongly; unforeseen, like any exception that has no
// number.
class LibraryFailure : public std::exception {
public:
    const char* what() const noexcept override { return "standard library"; }
};

}  // namespace

// Nothing may leave the component, so this is the end of the process either way.
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
