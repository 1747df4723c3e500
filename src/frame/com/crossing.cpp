#include "frame/com/crossing.h"

#include "frame/values/conversions.h"

namespace vorla {
namespace {

// The variable keeps its type.
HRESULT storeTyped(const VARIANT& variable, VARIANT& value, LCID locale) noexcept {
    const auto type = static_cast<VARTYPE>(variable.vt & ~VT_BYREF);
    const auto size = sizeOfValue(type);
    if (size == 0) return DISP_E_TYPEMISMATCH;
    const auto converted = changeType(value, value, locale, 0, type);
    if (FAILED(converted)) return converted;
    VARIANT before;
    VariantInit(&before);
    std::memcpy(&before.byref, variable.byref, size);
    before.vt = type;
    std::memcpy(variable.byref, &value.byref, size);
    value.vt = VT_EMPTY;
    VariantClear(&before);
    return S_OK;
}

bool sameBytes(BSTR one, BSTR other) {
    const auto length = SysStringByteLen(one);
    return length == SysStringByteLen(other) && std::memcmp(one, other, length) == 0;
}

}  // namespace

HRESULT crossing::store(VARIANT& variable, VARIANT& value, LCID locale) noexcept {
    if (variable.vt == (VT_BYREF | VT_VARIANT)) return store(*variable.pvarVal, value, locale);
    if (variable.vt & VT_BYREF) return storeTyped(variable, value, locale);
    VARIANT before = std::exchange(variable, value);
    value.vt = VT_EMPTY;
    VariantClear(&before);
    return S_OK;
}

BSTR crossing::StringResult::give(TextView value) { return Bstr(value).detach(); }
BSTR crossing::StringResult::give(const Joined& value) { return Bstr(value).detach(); }

Crossing<TextView>::Argument::Argument(BSTR raw) : text_(viewOf(raw)) {}
Crossing<TextView>::Argument::~Argument() = default;

Text Crossing<Text>::take(BSTR text) { return Text(viewOf(text)); }

Crossing<VariantView>::Argument::Argument(const VARIANT& raw) : value_(VariantView(raw)) {}
Crossing<VariantView>::Argument::~Argument() = default;

Variant Crossing<Variant>::take(const VARIANT& value) { return Variant(VariantView(value)); }

Crossing<Text>::Reference::Reference(BSTR* variable)
    : variable_(variable), value_(viewOf(*variable)), before_(value_) {}

Crossing<Text>::Reference::~Reference() {
    try {
        commit();
    } catch (...) {
        // There is no memory for the new text, so the caller keeps the old one.
    }
}

void Crossing<Text>::Reference::commit() {
    if (value_ == before_) return;
    Bstr replacement{TextView(value_)};
    // Stored once. If the same variable was passed twice, the last argument to commit wins.
    before_ = value_;
    const auto old = Bstr::adopt(std::exchange(*variable_, replacement.detach()));
}

Crossing<Variant>::Reference::Reference(VARIANT* variable)
    : variable_(variable), value_(VariantView(*variable)), before_(value_), block_(value_.raw().byref) {}

Crossing<Variant>::Reference::~Reference() {
    try {
        commit();
    } catch (...) {
        // The caller's variable cannot hold the value, or there is no memory: it keeps what it has.
    }
}

bool Crossing<Variant>::Reference::isChanged() const {
    const VARIANT& now = value_.raw();
    const VARIANT& then = before_.raw();
    if (now.vt != then.vt) return true;
    if (now.vt == VT_BSTR) return !sameBytes(now.bstrVal, then.bstrVal);
    if (now.vt == VT_DECIMAL) return std::memcmp(&now, &then, sizeof now) != 0;
    // Each of the two copies of an array or a record has a block of its own.
    if ((now.vt & VT_ARRAY) || now.vt == VT_RECORD) return now.byref != block_;
    return std::memcmp(&now.byref, &then.byref, sizeOfValue(now.vt)) != 0;
}

void Crossing<Variant>::Reference::commit() {
    if (!isChanged()) return;
    before_ = value_;
    block_ = value_.raw().byref;
    Variant stored(value_);
    throwIfFailed(crossing::store(*variable_, *stored.put(), LOCALE_USER_DEFAULT));
}

}  // namespace vorla
