#include "frame/com/publication.h"

#include "frame/contract/identifiers.h"
#include "frame/values/com_pointer.h"
#include "frame/values/module.h"

namespace vorla {

CLSID Publication::classId() const {
    return identifier(static_cast<std::uint16_t>(numbers::classes + number));
}

IID Publication::interfaceId() const {
    return identifier(static_cast<std::uint16_t>(numbers::interfaces + number));
}

const Member* Publication::find(TextView sought) const {
    if (byName.empty()) return nullptr;
    const auto mask = byName.size() - 1;
    for (auto place = nameHash(sought) & mask; byName[place] != 0; place = (place + 1) & mask) {
        const Member& member = members[byName[place] - 1u];
        if (sameName(member.name, sought)) return &member;
    }
    return nullptr;
}

HRESULT Library::describe(REFGUID type, ITypeInfo** description) const {
    ComPointer<ITypeLib> typeLibrary;
    const auto loaded = module::typeLibrary(load, typeLibrary.put());
    return FAILED(loaded) ? loaded : typeLibrary->GetTypeInfoOfGuid(type, description);
}

}  // namespace vorla
