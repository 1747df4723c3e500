#include "typelib/type_library_check.h"

#include "frame/contract/identifiers.h"
#include "frame/values/bstr.h"
#include "frame/values/com_pointer.h"
#include "typelib/contract_types.h"
#include "typelib/type_library_writer.h"

namespace vorla::typelib {
namespace {

// One type of the library. It releases the descriptions that it has asked for.
class Type {
public:
    Type(ITypeLib* library, REFGUID id, const wchar_t* name) : name_(name) {
        require(SUCCEEDED(library->GetTypeInfoOfGuid(id, type_.put())), "is missing");
        takeVtable();
        require(SUCCEEDED(type_->GetTypeAttr(&attributes_)), "has no attributes");
        require(nameOf(MEMBERID_NIL) == name, "has another name");
    }
    Type(const Type&) = delete;
    Type& operator=(const Type&) = delete;
    ~Type() { type_->ReleaseTypeAttr(attributes_); }

    ITypeInfo* operator->() const { return type_.get(); }
    const TYPEATTR& attributes() const { return *attributes_; }

    std::wstring nameOf(MEMBERID member) const {
        Bstr name;
        type_->GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
        return std::wstring(name.view());
    }

    void require(bool condition, const std::string& what) const {
        if (condition) return;
        std::string message;
        for (const wchar_t character : name_) message += character < 128 ? static_cast<char>(character) : '?';
        throw WriteError(message + " " + what);
    }

private:
    // A dual interface is first described as dispatch sees it; the description of its vtable is reached from
    // there.
    void takeVtable() {
        constexpr UINT otherHalf = static_cast<UINT>(-1);
        HREFTYPE reference;
        ComPointer<ITypeInfo> vtable;
        if (SUCCEEDED(type_->GetRefTypeOfImplType(otherHalf, &reference)) &&
            SUCCEEDED(type_->GetRefTypeInfo(reference, vtable.put())))
            type_ = std::move(vtable);
    }

    std::wstring name_;
    ComPointer<ITypeInfo> type_;
    TYPEATTR* attributes_ = nullptr;
};

void checkEnumeration(ITypeLib* library, const Enumeration& enumeration) {
    const Type type(library, identifier(enumeration.number), enumeration.name);
    type.require(type.attributes().typekind == TKIND_ENUM, "is no enumeration");
    type.require(type.attributes().cVars == enumeration.members.size(), "has another number of members");
    for (UINT i = 0; i < enumeration.members.size(); ++i) {
        VARDESC* description;
        type.require(SUCCEEDED(type->GetVarDesc(i, &description)), "lacks a member");
        const auto name = type.nameOf(description->memid);
        const auto value = description->lpvarValue->lVal;
        type->ReleaseVarDesc(description);
        type.require(name == enumeration.members[i].name, "has a member of another name");
        type.require(value == enumeration.members[i].value, "has a member of another value");
    }
}

void checkRecord(ITypeLib* library, const Record& record) {
    const Type type(library, identifier(record.number), record.name);
    type.require(type.attributes().typekind == TKIND_RECORD, "is no record");
    type.require(type.attributes().cbSizeInstance == record.size, "has another size than its structure");
    type.require(type.attributes().cVars == record.fields.size(), "has another number of fields");
    for (UINT i = 0; i < record.fields.size(); ++i) {
        VARDESC* description;
        type.require(SUCCEEDED(type->GetVarDesc(i, &description)), "lacks a field");
        const auto name = type.nameOf(description->memid);
        const auto offset = description->oInst;
        type->ReleaseVarDesc(description);
        type.require(name == record.fields[i].name, "has a field of another name");
        type.require(offset == record.fields[i].offset, "has a field at another offset than its structure");
    }
}

void checkDefault(const Type& type, const Parameter& parameter, const PARAMDESC& description) {
    const bool declared = parameter.whenMissing.kind != Default::Kind::none;
    type.require(((description.wParamFlags & PARAMFLAG_FOPT) != 0) == parameter.optional,
                 "has a wrong optional flag");
    type.require(((description.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0) == declared,
                 "has a wrong default flag");
    if (!declared) return;
    const VARIANT& value = description.pparamdescex->varDefaultValue;
    if (parameter.whenMissing.kind == Default::Kind::text) {
        type.require(value.vt == VT_BSTR && viewOf(value.bstrVal) == parameter.whenMissing.text,
                     "has a wrong default text");
    } else if (parameter.type.type == VT_BOOL) {
        type.require(value.vt == VT_BOOL &&
                         value.boolVal == (parameter.whenMissing.number ? VARIANT_TRUE : VARIANT_FALSE),
                     "has a wrong default boolean");
    } else {
        VARIANT number = value;
        type.require(SUCCEEDED(VariantChangeType(&number, &number, 0, VT_I4)) &&
                         number.lVal == parameter.whenMissing.number,
                     "has a wrong default number");
    }
}

void checkMember(const Type& type, UINT index, const Publication& publication, std::size_t slot) {
    const Member& member = publication.members[slot];
    const auto parameters = publication.parametersOf(member);
    FUNCDESC* description;
    type.require(SUCCEEDED(type->GetFuncDesc(index, &description)), "lacks a member");
    struct Release {
        const Type& type;
        FUNCDESC* description;
        ~Release() { type->ReleaseFuncDesc(description); }
    } release{type, description};
    type.require(description->memid == member.id, "has a member of another identifier");
    type.require(description->invkind == static_cast<INVOKEKIND>(member.kind),
                 "has a member of another kind");
    type.require(static_cast<std::size_t>(description->oVft) == (7 + slot) * sizeof(void*),
                 "has a member in another slot");
    const auto results = member.result.type == VT_VOID ? 0u : 1u;
    type.require(static_cast<std::size_t>(description->cParams) == parameters.size() + results,
                 "has a member of other parameters");

    BSTR raw[parameterLimit + 2] = {};
    UINT count = 0;
    type->GetNames(member.id, raw, parameterLimit + 2, &count);
    std::vector<Bstr> names;
    for (UINT i = 0; i < count; ++i) names.push_back(Bstr::adopt(raw[i]));
    type.require(count != 0 && names[0].view() == member.name, "has a member of another name");
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        checkDefault(type, parameters[i], description->lprgelemdescParam[i].paramdesc);
        if (parameters[i].name && !member.stores())
            type.require(i + 1 < count && names[i + 1].view() == parameters[i].name,
                         "has a parameter of another name");
    }
}

void checkClass(ITypeLib* library, const Publication& publication) {
    const auto name = std::wstring(L"_") + publication.name;
    const Type type(library, publication.interfaceId(), name.c_str());
    UINT index = 0;
    for (std::size_t slot = 0; slot < publication.members.size(); ++slot)
        if (publication.members[slot].kind != MemberKind::reserved)
            checkMember(type, index++, publication, slot);
    const Type coclass(library, publication.classId(), publication.name);
    coclass.require(coclass.attributes().typekind == TKIND_COCLASS, "is no class");
}

}  // namespace

void check(std::span<const Publication* const> classes, const std::wstring& file) {
    ComPointer<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.put())))
        throw WriteError("the written type library cannot be loaded");
    for (const Enumeration& enumeration : enumerations()) checkEnumeration(library.get(), enumeration);
    for (const Record& record : records()) checkRecord(library.get(), record);
    for (const Publication* publication : classes) checkClass(library.get(), *publication);
}

}  // namespace vorla::typelib
