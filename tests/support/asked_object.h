// A host object whose default property runs code of the test before it answers.
#pragma once

#include <functional>
#include <utility>

#include "support/scripted_object.h"

namespace vorla::test {

class AskedObject final : public ScriptedObject {
public:
    AskedObject(Variant answer, std::function<void()> code)
        : ScriptedObject(std::move(answer)), code_(std::move(code)) {}

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override {
        code_();
        return ScriptedObject::Invoke(id, reserved, locale, kind, parameters, result, exception, badArgument);
    }

    ULONG STDMETHODCALLTYPE Release() override {
        const auto left = ScriptedObject::Release();
        if (left == 0) isGone_ = true;
        return left;
    }

    /// Whether nobody has held it, if only for a moment: a real object would be destroyed.
    bool isGone() const { return isGone_; }

private:
    std::function<void()> code_;
    bool isGone_ = false;
};

}  // namespace vorla::test
