#include "frame/values/per_thread.h"

#include <algorithm>
#include <new>

namespace vorla {
namespace {

class Locked {
public:
    explicit Locked(CRITICAL_SECTION& guard) : guard_(guard) { EnterCriticalSection(&guard_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { LeaveCriticalSection(&guard_); }

private:
    CRITICAL_SECTION& guard_;
};

}  // namespace

PerThreadStates::PerThreadStates(Destroy destroy) noexcept
    : next_(first_), destroy_(destroy), index_(TlsAlloc()) {
    InitializeCriticalSection(&guard_);
    first_ = this;
}

// Runs when the module is unloaded, when no thread runs in it any more. The guard is not entered: when the
// whole process ends, a thread may have been stopped while it held the guard.
PerThreadStates::~PerThreadStates() {
    auto link = &first_;
    while (*link != this) link = &(*link)->next_;
    *link = next_;
    for (void* const state : states_) destroy_(state);
    if (index_ != TLS_OUT_OF_INDEXES) TlsFree(index_);
    DeleteCriticalSection(&guard_);
}

void PerThreadStates::add(void* state) {
    const Locked locked(guard_);
    states_.reserve(states_.size() + 1);
    if (!TlsSetValue(index_, state)) throw std::bad_alloc();
    states_.push_back(state);
}

void PerThreadStates::removeMine() noexcept {
    void* const state = mine();
    if (!state) return;
    TlsSetValue(index_, nullptr);
    {
        const Locked locked(guard_);
        states_.erase(std::find(states_.begin(), states_.end(), state));
    }
    destroy_(state);
}

void PerThreadStates::threadEnds() noexcept {
    for (auto states = first_; states; states = states->next_) states->removeMine();
}

}  // namespace vorla
