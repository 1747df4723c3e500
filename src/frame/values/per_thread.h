// State of which each thread of the host has its own.
//
// A `thread_local` with a destructor cannot be used: the compiler's runtime then keeps the module loaded
// until every thread that touched it has ended, so hosts could never unload it.
//
// A state holds memory, numbers and texts, and nothing that calls out when it ends: no COM object, window,
// library, thread or foreign lock. It may end while Windows loads or unloads modules, which Windows does
// under a lock of its own: a call out could wait for ever or reach a module that is gone.
#pragma once

#include <memory>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla {

/// The common part of all kinds of state. A thread's states are freed when the thread ends, and all others
/// with the module.
class PerThreadStates {
public:
    PerThreadStates(const PerThreadStates&) = delete;
    PerThreadStates& operator=(const PerThreadStates&) = delete;

    /// Frees the calling thread's states. The module's entry point calls it when a thread ends.
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
    // Guards the list, which each thread enters on first use and leaves when it ends.
    CRITICAL_SECTION guard_;
    std::vector<void*> states_;
};

/// One `State` for each thread that asks for it, made on first use. Only for static objects, because they are
/// made and destroyed with the module, when no other thread runs in it.
template <class State>
class PerThread : PerThreadStates {
public:
    PerThread() noexcept : PerThreadStates([](void* state) { delete static_cast<State*>(state); }) {}

    /// The calling thread's state. Throws std::bad_alloc when Windows has no room for it.
    State& mine() {
        if (const auto state = PerThreadStates::mine()) return *static_cast<State*>(state);
        auto made = std::make_unique<State>();
        add(made.get());
        return *made.release();
    }
};

}  // namespace vorla
