// State that each thread of the host has for itself.
//
// A `thread_local` with a destructor would not do: the compiler's runtime keeps the module loaded until every
// thread that touched it has ended, so that hosts could never unload it.
//
// A state holds memory, numbers and texts, and nothing that calls out when it ends: no COM object, window,
// library, thread or lock of somebody else. It may end while Windows loads and unloads modules, which it does
// under a lock of its own, so that such a call could wait for ever or reach a module that is gone.
#pragma once

#include <memory>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla {

/// The part that is the same for every kind of state. Everything of a thread goes when the thread ends, and
/// the rest with the module.
class PerThreadStates {
public:
    PerThreadStates(const PerThreadStates&) = delete;
    PerThreadStates& operator=(const PerThreadStates&) = delete;

    /// Ends what the calling thread has. For the module's entry point, when a thread ends.
    static void threadEnds() noexcept;

protected:
    using Destroy = void (*)(void*);

    explicit PerThreadStates(Destroy destroy) noexcept;
    ~PerThreadStates();

    void* mine() const noexcept { return TlsGetValue(index_); }
    void add(void* state);

private:
    void removeMine() noexcept;

    static inline PerThreadStates* first_ = nullptr;

    PerThreadStates* next_;
    const Destroy destroy_;
    const DWORD index_;
    // Guards the list, which a thread touches when it begins and when it ends.
    CRITICAL_SECTION guard_;
    std::vector<void*> states_;
};

/// One `State` for each thread that asks for it, made when it first does. For static objects: they are made
/// and go with the module, when no other thread is in it.
template <class State>
class PerThread : PerThreadStates {
public:
    PerThread() noexcept : PerThreadStates([](void* state) { delete static_cast<State*>(state); }) {}

    /// The calling thread's own. Throws std::bad_alloc when Windows has no place for it.
    State& mine() {
        if (const auto state = PerThreadStates::mine()) return *static_cast<State*>(state);
        auto made = std::make_unique<State>();
        add(made.get());
        return *made.release();
    }
};

}  // namespace vorla
