#include "frame/com/class_factory.h"

#include <atomic>
#include <new>

#include "frame/com/instance.h"
#include "frame/values/module.h"

namespace vorla {
namespace {

class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const Publication& publication) noexcept : publication_(publication) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        try {
            Instance* const made = publication_.create(publication_);
            const auto answer = Instance::queryInterface(made, id, object);
            Instance::release(made);
            return answer;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (...) {
            return E_UNEXPECTED;
        }
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
        if (lock)
            module::addReference();
        else
            module::release();
        return S_OK;
    }

private:
    ~ClassFactory() = default;

    const module::Reference module_;
    const Publication& publication_;
    std::atomic<ULONG> references_{1};
};

}  // namespace

HRESULT makeClassFactory(const Publication& publication, REFIID id, void** factory) noexcept {
    *factory = nullptr;
    const auto made = new (std::nothrow) ClassFactory(publication);
    if (!made) return E_OUTOFMEMORY;
    const auto answer = made->QueryInterface(id, factory);
    made->Release();
    return answer;
}

}  // namespace vorla
