#include "frame/com/instance.h"

#include <algorithm>
#include <new>

#include "frame/com/dispatch.h"
#include "frame/com/error_texts.h"
#include "frame/host/error_object.h"
#include "frame/values/reported_error.h"

namespace vorla {
namespace {

// Clears the error information, so that a failure without a description does not show that of an older one.
HRESULT withoutDescription(HRESULT failure) noexcept {
    SetErrorInfo(0, nullptr);
    return failure;
}

// Stores the description for the host and returns the code. What has no description gets our own name and the
// text of its number.
HRESULT describe(const Publication& publication, ErrorNumber number, HRESULT code,
                 const ErrorReport& report) noexcept {
    try {
        const auto ownName = Text(publication.library.name) + L"." + publication.name;
        const auto source = report.source.view(), description = report.description.view();
        if (storeError(publication.interfaceId(), {source.empty() ? TextView(ownName) : source,
                                                   description.empty() ? errorText(number) : description,
                                                   report.helpFile.view(), report.helpContext}))
            return code;
    } catch (const std::bad_alloc&) {
        // The host gets the code alone.
    }
    return withoutDescription(code);
}

}  // namespace

Instance::Instance(const Publication& publication) noexcept
    : vtable_(publication.vtable), publication_(publication), errorSupport_(this), classDescription_(this) {}

HRESULT Instance::reportNullPointer() noexcept { return withoutDescription(E_POINTER); }

HRESULT Instance::reportFailure() noexcept {
    try {
        throw;
    } catch (const ReportedError& error) {
        return describe(publication_, error.number(), error.code(), error.report());
    } catch (const RuntimeError& error) {
        return describe(publication_, error.number(), codeOf(error.number()), {});
    } catch (const std::bad_alloc&) {
        return withoutDescription(E_OUTOFMEMORY);
    } catch (...) {
        return withoutDescription(E_UNEXPECTED);
    }
}

HRESULT STDMETHODCALLTYPE Instance::queryInterface(Instance* self, REFIID id, void** object) noexcept {
    if (!object) return E_POINTER;
    if (id == IID_IUnknown || id == IID_IDispatch || id == self->publication_.interfaceId())
        *object = self;
    else if (id == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(&self->errorSupport_);
    else if (id == IID_IProvideClassInfo)
        *object = static_cast<IProvideClassInfo*>(&self->classDescription_);
    else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    addReference(self);
    return S_OK;
}

ULONG STDMETHODCALLTYPE Instance::addReference(Instance* self) noexcept { return ++self->references_; }

ULONG STDMETHODCALLTYPE Instance::release(Instance* self) noexcept {
    const ULONG left = --self->references_;
    if (left == 0) self->publication_.destroy(self);
    return left;
}

HRESULT STDMETHODCALLTYPE Instance::getTypeInfoCount(Instance*, UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Instance::getTypeInfo(Instance* self, UINT index, LCID,
                                                ITypeInfo** description) noexcept {
    if (!description) return E_POINTER;
    *description = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return self->publication_.library.describe(self->publication_.interfaceId(), description);
}

HRESULT STDMETHODCALLTYPE Instance::getIdsOfNames(Instance* self, REFIID reserved, LPOLESTR* names,
                                                  UINT count, LCID, DISPID* ids) noexcept {
    if (!ids) return E_POINTER;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names) return E_POINTER;
    return dispatch::findNames(self->publication_, {names, count}, {ids, count});
}

HRESULT STDMETHODCALLTYPE Instance::invoke(Instance* self, DISPID id, REFIID reserved, LCID locale,
                                           WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                           EXCEPINFO* exception, UINT* badArgument) noexcept {
    const auto refuse = [result](HRESULT failure) {
        if (result) VariantInit(result);
        return failure;
    };
    if (reserved != IID_NULL) return refuse(DISP_E_UNKNOWNINTERFACE);
    if (!arguments) return refuse(E_POINTER);
    const Publication& publication = self->publication_;
    const Member* const member = publication.find(id, flags);
    if (!member) return refuse(DISP_E_MEMBERNOTFOUND);

    // The result is stored last, because a host may use one variable as argument and result.
    VARIANT outcome{};
    const auto answer =
        dispatch::call(self, publication, *member, *arguments, locale, outcome, exception, badArgument);
    if (result)
        *result = outcome;
    else
        dispatch::discard(outcome);
    return answer;
}

HRESULT STDMETHODCALLTYPE Instance::reserved(Instance*) noexcept { return withoutDescription(E_NOTIMPL); }

HRESULT STDMETHODCALLTYPE Instance::ErrorSupport::InterfaceSupportsErrorInfo(REFIID id) noexcept {
    return id == IID_IDispatch || id == owner_->publication_.interfaceId() ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE Instance::ClassDescription::GetClassInfo(ITypeInfo** description) noexcept {
    if (!description) return E_POINTER;
    *description = nullptr;
    return owner_->publication_.library.describe(owner_->publication_.classId(), description);
}

}  // namespace vorla
