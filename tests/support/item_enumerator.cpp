#include "support/item_enumerator.h"

namespace vorla::test {

HRESULT ItemEnumerator::QueryInterface(REFIID id, void** object) {
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IEnumVARIANT) return E_NOINTERFACE;
    *object = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
}

ULONG ItemEnumerator::Release() {
    const auto left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ItemEnumerator::Next(ULONG count, VARIANT* values, ULONG* fetched) {
    if (const auto* failure = record_.noteCall(line_)) return failure->code;
    ULONG given = 0;
    for (; given < count && position_ < items_.size(); ++given)
        values[given] = Variant(items_[position_++]).detach();
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
}

}  // namespace vorla::test
