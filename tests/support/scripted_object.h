// A host object for tests: answers Invoke for whatever identifier it is asked and records what it saw.
#pragma once

#include <windows.h>

#include <vector>

#include "frame/values/variant.h"

namespace vorla::test {

/// Lives on the test's stack: references are counted but never delete it. `references()` must be back to
/// 0 when the test ends.
class ScriptedObject : public IDispatch {
public:
    /// The value of the default property; without one the object has none.
    ScriptedObject() = default;
    explicit ScriptedObject(Variant defaultValue)
        : defaultValue_(std::move(defaultValue)), hasDefault_(true) {}
    virtual ~ScriptedObject() = default;

    long references() const { return references_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references_); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        if (id != DISPID_VALUE || !hasDefault_) return DISP_E_MEMBERNOTFOUND;
        if (result) {
            Variant copy(defaultValue_);
            *result = copy.detach();
        }
        return S_OK;
    }

private:
    Variant defaultValue_;
    bool hasDefault_ = false;
    long references_ = 0;
};

}  // namespace vorla::test
