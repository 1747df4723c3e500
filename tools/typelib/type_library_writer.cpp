#include "typelib/type_library_writer.h"

#include <cstdio>
#include <map>
#include <memory>
#include <vector>

#include "frame/contract/identifiers.h"
#include "frame/values/bstr.h"
#include "frame/values/com_pointer.h"
#include "typelib/contract_types.h"
#include "typelib/type_library_check.h"
#include "typelib/type_library_file.h"

namespace vorla::typelib {
namespace {

constexpr SYSKIND thisSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

void check(HRESULT answer, const char* what) {
    if (SUCCEEDED(answer)) return;
    char text[200];
    std::snprintf(text, sizeof text, "%s: %08lX", what, static_cast<unsigned long>(answer));
    throw WriteError(text);
}

template <class Interface>
ComPointer<Interface> ask(IUnknown* object, REFIID id) {
    ComPointer<Interface> asked;
    check(object->QueryInterface(id, reinterpret_cast<void**>(asked.put())), "QueryInterface");
    return asked;
}

// The system's functions take names as pointers to non-const characters, but do not change them.
LPOLESTR name(const wchar_t* text) { return const_cast<LPOLESTR>(text); }

/// Builds one library in memory, type by type.
class Builder {
public:
    Builder(const Library& library, const std::wstring& file) : library_(library) {
        check(CreateTypeLib2(thisSystem, file.c_str(), made_.put()), "CreateTypeLib2");
        check(made_->SetName(name(library.name)), "SetName");
        check(made_->SetGuid(library.id), "SetGuid");
        check(made_->SetVersion(library.majorVersion, library.minorVersion), "SetVersion");
        check(made_->SetLcid(0), "SetLcid");
        check(LoadRegTypeLib(IID_StdOle, 2, 0, 0, standard_.put()), "the standard type library");
    }

    void add(const Enumeration& enumeration) {
        auto type = create(enumeration.name, TKIND_ENUM, identifier(enumeration.number));
        UINT index = 0;
        for (const EnumerationMember& member : enumeration.members) {
            VARIANT value;
            value.vt = VT_I4;
            value.lVal = member.value;
            VARDESC description{};
            description.memid = static_cast<MEMBERID>(0x40000000 + index);
            description.varkind = VAR_CONST;
            description.lpvarValue = &value;
            description.elemdescVar.tdesc.vt = VT_I4;
            addVariable(type.get(), index++, description, member.name);
        }
        check(type->LayOut(), "LayOut");
        describedTypes_[enumeration.number] = ask<ITypeInfo>(type.get(), IID_ITypeInfo);
    }

    void add(const Record& record) {
        auto type = create(record.name, TKIND_RECORD, identifier(record.number));
        check(type->SetAlignment(static_cast<WORD>(record.alignment)), "SetAlignment");
        UINT index = 0;
        for (const Field& field : record.fields) {
            VARDESC description{};
            description.memid = static_cast<MEMBERID>(0x40000000 + index);
            description.varkind = VAR_PERINSTANCE;
            description.oInst = static_cast<ULONG>(field.offset);
            description.elemdescVar.tdesc = describe(type.get(), field.type);
            ARRAYDESC array{};
            if (field.count != 0) {
                array.tdescElem = description.elemdescVar.tdesc;
                array.cDims = 1;
                array.rgbounds[0] = {static_cast<ULONG>(field.count), 0};
                description.elemdescVar.tdesc.vt = VT_CARRAY;
                description.elemdescVar.tdesc.lpadesc = &array;
            }
            addVariable(type.get(), index++, description, field.name);
        }
        check(type->LayOut(), "LayOut");
        describedTypes_[record.number] = ask<ITypeInfo>(type.get(), IID_ITypeInfo);
    }

    void add(const Publication& publication) {
        const auto interfaceName = std::wstring(L"_") + publication.name;
        auto dual = create(interfaceName.c_str(), TKIND_INTERFACE, publication.interfaceId());
        check(dual->SetTypeFlags(TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE |
                                 TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE),
              "SetTypeFlags");
        document(dual.get(), publication);
        check(dual->AddImplType(0, reference(dual.get(), standardType(IID_IDispatch).get())), "AddImplType");
        UINT index = 0;
        for (std::size_t slot = 0; slot < publication.members.size(); ++slot)
            if (publication.members[slot].kind != MemberKind::reserved)
                addMember(dual.get(), index++, publication, slot);
        check(dual->LayOut(), "LayOut");

        auto coclass = create(publication.name, TKIND_COCLASS, publication.classId());
        const UINT application = publication.instancing == Instancing::global ? UINT{TYPEFLAG_FAPPOBJECT} : 0;
        check(coclass->SetTypeFlags(TYPEFLAG_FCANCREATE | application), "SetTypeFlags");
        document(coclass.get(), publication);
        const auto description = ask<ITypeInfo>(dual.get(), IID_ITypeInfo);
        check(coclass->AddImplType(0, reference(coclass.get(), description.get())), "AddImplType");
        check(coclass->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT), "SetImplTypeFlags");
        check(coclass->LayOut(), "LayOut");
    }

    void save() { check(made_->SaveAllChanges(), "SaveAllChanges"); }

private:
    using Type = ComPointer<ICreateTypeInfo>;

    Type create(const wchar_t* typeName, TYPEKIND kind, REFGUID id) {
        Type type;
        check(made_->CreateTypeInfo(name(typeName), kind, type.put()), "CreateTypeInfo");
        check(type->SetGuid(id), "SetGuid");
        check(type->SetVersion(library_.majorVersion, library_.minorVersion), "SetVersion");
        return type;
    }

    static void document(ICreateTypeInfo* type, const Publication& publication) {
        if (publication.documentation)
            check(type->SetDocString(name(publication.documentation)), "SetDocString");
    }

    static void addVariable(ICreateTypeInfo* type, UINT index, VARDESC& description,
                            const wchar_t* variableName) {
        check(type->AddVarDesc(index, &description), "AddVarDesc");
        check(type->SetVarName(index, name(variableName)), "SetVarName");
    }

    ComPointer<ITypeInfo> standardType(REFGUID id) const {
        ComPointer<ITypeInfo> type;
        check(standard_->GetTypeInfoOfGuid(id, type.put()), "a standard type");
        return type;
    }

    static HREFTYPE reference(ICreateTypeInfo* from, ITypeInfo* to) {
        HREFTYPE made;
        check(from->AddRefTypeInfo(to, &made), "AddRefTypeInfo");
        return made;
    }

    // A type as written in a field or parameter. The caller adds pointers to it.
    TYPEDESC describe(ICreateTypeInfo* user, TypeUse use) {
        TYPEDESC description{};
        description.vt = VT_USERDEFINED;
        switch (use.described) {
            case Described::no: description.vt = use.type; break;
            case Described::enumeration:
            case Described::record:
                description.hreftype = reference(user, describedTypes_.at(use.number).get());
                break;
            // The standard library's dispatch interfaces for pictures and fonts.
            case Described::picture:
                description = pointerTo(user, standardType(IID_IPictureDisp).get());
                break;
            case Described::font: description = pointerTo(user, standardType(IID_IFontDisp).get()); break;
        }
        return description;
    }

    TYPEDESC pointerTo(ICreateTypeInfo* user, ITypeInfo* type) {
        TYPEDESC pointed{};
        pointed.vt = VT_USERDEFINED;
        pointed.hreftype = reference(user, type);
        return pointerTo(pointed);
    }

    // The descriptions that pointers refer to live as long as the builder; there are a few hundred.
    TYPEDESC pointerTo(TYPEDESC pointed) {
        pointed_.push_back(std::make_unique<TYPEDESC>(pointed));
        TYPEDESC pointer{};
        pointer.vt = VT_PTR;
        pointer.lptdesc = pointed_.back().get();
        return pointer;
    }

    static VARIANT defaultValue(const Parameter& parameter, Bstr& text) {
        VARIANT value;
        VariantInit(&value);
        if (parameter.whenMissing.kind == Default::Kind::text) {
            text = Bstr(TextView(parameter.whenMissing.text));
            value.vt = VT_BSTR;
            value.bstrVal = text.get();
            return value;
        }
        value.vt = VT_I4;
        value.lVal = parameter.whenMissing.number;
        const auto type = parameter.type.type;
        if (type == VT_BOOL) {
            value.vt = VT_BOOL;
            value.boolVal = value.lVal ? VARIANT_TRUE : VARIANT_FALSE;
        } else if (type != VT_VARIANT && type != VT_I4) {
            check(VariantChangeType(&value, &value, 0, type), "a default value");
        }
        return value;
    }

    void addMember(ICreateTypeInfo* dual, UINT index, const Publication& publication, std::size_t slot) {
        constexpr std::size_t dispatchSlots = 7;
        const Member& member = publication.members[slot];
        const auto parameters = publication.parametersOf(member);
        const bool hasResult = member.result.type != VT_VOID;

        std::vector<ELEMDESC> elements(parameters.size() + (hasResult ? 1 : 0));
        std::vector<PARAMDESCEX> defaults(parameters.size());
        std::vector<Bstr> texts(parameters.size());
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            const Parameter& parameter = parameters[i];
            ELEMDESC& element = elements[i];
            element = {};
            element.tdesc = describe(dual, parameter.type);
            auto& flags = element.paramdesc.wParamFlags;
            flags = PARAMFLAG_FIN;
            if (parameter.type.byReference) {
                element.tdesc = pointerTo(element.tdesc);
                flags |= PARAMFLAG_FOUT;
            }
            if (parameter.optional) flags |= PARAMFLAG_FOPT;
            if (parameter.whenMissing.kind == Default::Kind::none) continue;
            flags |= PARAMFLAG_FHASDEFAULT;
            defaults[i] = {sizeof(PARAMDESCEX), defaultValue(parameter, texts[i])};
            element.paramdesc.pparamdescex = &defaults[i];
        }
        if (hasResult) {
            elements.back() = {};
            elements.back().tdesc = pointerTo(describe(dual, member.result));
            elements.back().paramdesc.wParamFlags = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
        }

        FUNCDESC function{};
        function.memid = member.id;
        function.funckind = FUNC_PUREVIRTUAL;
        function.invkind = static_cast<INVOKEKIND>(member.kind);
        function.callconv = CC_STDCALL;
        function.cParams = static_cast<SHORT>(elements.size());
        function.lprgelemdescParam = elements.data();
        function.elemdescFunc.tdesc.vt = VT_HRESULT;
        function.oVft = static_cast<SHORT>((dispatchSlots + slot) * sizeof(void*));
        check(dual->AddFuncDesc(index, &function), "AddFuncDesc");

        std::vector<LPOLESTR> names{name(member.name)};
        for (const Parameter& parameter : parameters)
            if (parameter.name) names.push_back(name(parameter.name));
        check(dual->SetFuncAndParamNames(index, names.data(), static_cast<UINT>(names.size())),
              "SetFuncAndParamNames");
        if (member.documentation)
            check(dual->SetFuncDocString(index, name(member.documentation)), "SetFuncDocString");
    }

    const Library& library_;
    ComPointer<ICreateTypeLib2> made_;
    ComPointer<ITypeLib> standard_;
    std::map<std::uint16_t, ComPointer<ITypeInfo>> describedTypes_;
    std::vector<std::unique_ptr<TYPEDESC>> pointed_;
};

}  // namespace

void write(const Library& library, std::span<const Publication* const> classes, const std::wstring& file) {
    DeleteFileW(file.c_str());
    {
        Builder builder(library, file);
        for (const Enumeration& enumeration : enumerations()) builder.add(enumeration);
        for (const Record& record : records()) builder.add(record);
        for (const Publication* publication : classes) builder.add(*publication);
        builder.save();
    }

    TypeLibraryFile made(file);
    std::size_t type = enumerations().size();
    for (const Record& record : records())
        made.setRecordSize(type++, static_cast<std::uint32_t>(record.size));
    for ([[maybe_unused]] const Publication* publication : classes) {
        made.mendTrueDefaults(type);
        type += 2;  // the interface and its class
    }
    made.save();
    check(classes, file);
}

}  // namespace vorla::typelib
