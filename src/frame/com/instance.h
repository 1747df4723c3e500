// An automation object: the C++ object of a published class behind its dual interface.
#pragma once

#include <atomic>
#include <utility>

#include "frame/com/publication.h"
#include "frame/values/module.h"
#include "frame/values/winapi.h"

namespace vorla {

/// The dual interface's own layout: the vtable pointer comes first, and its first seven slots are the
/// static functions below. Answers IUnknown, IDispatch, the dual interface, ISupportErrorInfo and
/// IProvideClassInfo. An object keeps the module loaded for as long as it lives.
class Instance {
public:
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    const Publication& publication() const { return publication_; }

    /// Turns the current exception into the code and the error information that the host reads.
    HRESULT reportFailure() noexcept;

    /// Answers a call that has a null pointer in place of its result or of a by-reference variable.
    static HRESULT reportNullPointer() noexcept;

    static HRESULT STDMETHODCALLTYPE queryInterface(Instance*, REFIID, void**) noexcept;
    static ULONG STDMETHODCALLTYPE addReference(Instance*) noexcept;
    static ULONG STDMETHODCALLTYPE release(Instance*) noexcept;
    static HRESULT STDMETHODCALLTYPE getTypeInfoCount(Instance*, UINT*) noexcept;
    static HRESULT STDMETHODCALLTYPE getTypeInfo(Instance*, UINT, LCID, ITypeInfo**) noexcept;
    static HRESULT STDMETHODCALLTYPE getIdsOfNames(Instance*, REFIID, LPOLESTR*, UINT, LCID,
                                                   DISPID*) noexcept;
    static HRESULT STDMETHODCALLTYPE invoke(Instance*, DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                            EXCEPINFO*, UINT*) noexcept;

    /// The slot of a private procedure.
    static HRESULT STDMETHODCALLTYPE reserved(Instance*) noexcept;

protected:
    explicit Instance(const Publication& publication) noexcept;
    ~Instance() = default;

private:
    // A second interface of the same object.
    template <class Interface>
    class Facet : public Interface {
    public:
        explicit Facet(Instance* owner) noexcept : owner_(owner) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
            return queryInterface(owner_, id, object);
        }
        ULONG STDMETHODCALLTYPE AddRef() noexcept override { return addReference(owner_); }
        ULONG STDMETHODCALLTYPE Release() noexcept override { return release(owner_); }

    protected:
        Instance* const owner_;
    };

    struct ErrorSupport final : Facet<ISupportErrorInfo> {
        using Facet::Facet;
        HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override;
    };

    struct ClassDescription final : Facet<IProvideClassInfo> {
        using Facet::Facet;
        HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** description) noexcept override;
    };

    const void* const* const vtable_;
    std::atomic<ULONG> references_{1};
    const module::Reference module_;
    const Publication& publication_;
    ErrorSupport errorSupport_;
    ClassDescription classDescription_;
};

template <class Class>
class InstanceOf final : public Instance {
public:
    explicit InstanceOf(const Publication& publication) : Instance(publication) {}

    Class object;

    static Instance* create(const Publication& publication) { return new InstanceOf(publication); }
    static void destroy(Instance* instance) { delete static_cast<InstanceOf*>(instance); }
};

}  // namespace vorla
