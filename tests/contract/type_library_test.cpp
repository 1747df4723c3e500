// The type library in the DLL, compared with figures written down by hand.
#include <shlobj.h>

#include "contract/component.h"
#include "frame/contract/records.h"

namespace vorla::test {
namespace {

class TypeLibrary : public testing::Test {
protected:
    TypeLibrary() { EXPECT_EQ(S_OK, LoadTypeLibEx(L".\\Vorla6.dll", REGKIND_NONE, library.put())); }

    struct Attributes {
        GUID id;
        TYPEKIND kind;
        UINT flags;
        UINT functions;
        UINT variables;
        ULONG size;
        ComPointer<ITypeInfo> info;
    };

    static Attributes attributesOf(ComPointer<ITypeInfo> info) {
        TYPEATTR* raw;
        EXPECT_EQ(S_OK, info->GetTypeAttr(&raw));
        Attributes attributes{
            raw->guid, raw->typekind, raw->wTypeFlags, raw->cFuncs, raw->cVars, raw->cbSizeInstance, {}};
        info->ReleaseTypeAttr(raw);
        attributes.info = std::move(info);
        return attributes;
    }

    Attributes find(const wchar_t* name) const {
        Bstr asked{TextView(name)};
        ITypeInfo* found = nullptr;
        MEMBERID member;
        USHORT count = 1;
        EXPECT_EQ(S_OK, library->FindName(asked.get(), 0, &found, &member, &count)) << narrow(name);
        EXPECT_EQ(1, count) << narrow(name);
        return attributesOf(ComPointer<ITypeInfo>::adopt(found));
    }

    static std::wstring nameOf(ITypeInfo* info, MEMBERID member) {
        Bstr name;
        EXPECT_EQ(S_OK, info->GetDocumentation(member, name.put(), nullptr, nullptr, nullptr));
        return std::wstring(name.view());
    }

    std::vector<std::pair<std::wstring, LONG>> membersOf(const wchar_t* enumeration) const {
        const auto type = find(enumeration);
        EXPECT_EQ(TKIND_ENUM, type.kind);
        std::vector<std::pair<std::wstring, LONG>> members;
        for (UINT i = 0; i < type.variables; ++i) {
            VARDESC* variable;
            EXPECT_EQ(S_OK, type.info->GetVarDesc(i, &variable));
            EXPECT_EQ(VAR_CONST, variable->varkind);
            EXPECT_EQ(VT_I4, variable->lpvarValue->vt);
            members.emplace_back(nameOf(type.info.get(), variable->memid), variable->lpvarValue->lVal);
            type.info->ReleaseVarDesc(variable);
        }
        return members;
    }

    ComPointer<ITypeLib> library;
};

using Members = std::vector<std::pair<std::wstring, LONG>>;

TEST_F(TypeLibrary, namesTheLibrary) {
    Bstr name, documentation;
    EXPECT_EQ(S_OK, library->GetDocumentation(-1, name.put(), documentation.put(), nullptr, nullptr));
    EXPECT_EQ(L"Vorla6", name.view());
    EXPECT_EQ(L"", documentation.view());
    TLIBATTR* attributes;
    ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
    EXPECT_EQ(identifier(numbers::library), attributes->guid);
    EXPECT_EQ(6, attributes->wMajorVerNum);
    EXPECT_EQ(0, attributes->wMinorVerNum);
    EXPECT_EQ(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32, attributes->syskind);
    library->ReleaseTLibAttr(attributes);
    // 100 enumerations, 16 records, 12 interfaces and 12 classes.
    EXPECT_EQ(140u, library->GetTypeInfoCount());
}

TEST_F(TypeLibrary, lyingBesideTheDllIsTheSame) {
    ComPointer<ITypeLib> file;
    ASSERT_EQ(S_OK, LoadTypeLibEx(L"Vorla6.tlb", REGKIND_NONE, file.put()));
    EXPECT_EQ(140u, file->GetTypeInfoCount());
}

TEST_F(TypeLibrary, classesAndInterfaces) {
    for (std::uint16_t number = 0; number < classCount; ++number) {
        const auto coclass = find(classNames[number]);
        EXPECT_EQ(TKIND_COCLASS, coclass.kind);
        EXPECT_EQ(classId(number), coclass.id);
        const UINT application = number == numberOfEnum ? 0u : UINT{TYPEFLAG_FAPPOBJECT};
        EXPECT_EQ(TYPEFLAG_FCANCREATE | application, coclass.flags) << narrow(classNames[number]);
        INT kind = 0;
        EXPECT_EQ(S_OK, coclass.info->GetImplTypeFlags(0, &kind));
        EXPECT_EQ(IMPLTYPEFLAG_FDEFAULT, kind);

        const auto dual = find((std::wstring(L"_") + classNames[number]).c_str());
        EXPECT_EQ(TKIND_DISPATCH, dual.kind);
        EXPECT_EQ(interfaceId(number), dual.id);
        constexpr UINT expected = TYPEFLAG_FDUAL | TYPEFLAG_FHIDDEN | TYPEFLAG_FDISPATCHABLE;
        EXPECT_EQ(expected, dual.flags & expected) << narrow(classNames[number]);
    }
}

TEST_F(TypeLibrary, onlyPaintEffectsIsDocumented) {
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        Bstr name, documentation;
        EXPECT_EQ(S_OK, library->GetDocumentation(static_cast<INT>(i), name.put(), documentation.put(),
                                                  nullptr, nullptr));
        const bool isPaintEffects = name.view() == L"PaintEffects" || name.view() == L"_PaintEffects";
        EXPECT_EQ(
            isPaintEffects ? L"Provides methods for painting transparent and disabled looking images." : L"",
            documentation.view());
    }
}

TEST_F(TypeLibrary, membersOfVorlaChaine) {
    struct Row {
        const wchar_t* name;
        unsigned id;
        SHORT parameters;  // the result included
        SHORT optional;
    };
    constexpr Row rows[] = {{L"CBR", 0x60030000, 3, 0},           {L"CBL", 0x60030001, 3, 0},
                            {L"ExtraitChaine", 0x60030002, 5, 2}, {L"Transfrm", 0x60030003, 6, 2},
                            {L"Occurrence", 0x60030004, 5, 2},    {L"Zclé", 0x60030005, 3, 0},
                            {L"NumLet", 0x60030006, 3, 1},        {L"SplitStr", 0x60030007, 2, 0},
                            {L"Parse", 0x60030008, 4, 2}};
    ComPointer<ITypeInfo> dispatch, vtable;
    ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(interfaceId(0), dispatch.put()));
    HREFTYPE reference;
    ASSERT_EQ(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ASSERT_EQ(S_OK, dispatch->GetRefTypeInfo(reference, vtable.put()));
    TYPEATTR* attributes;
    ASSERT_EQ(S_OK, vtable->GetTypeAttr(&attributes));
    EXPECT_EQ(TKIND_INTERFACE, attributes->typekind);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FOLEAUTOMATION);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE);
    EXPECT_EQ(std::size(rows), attributes->cFuncs);
    vtable->ReleaseTypeAttr(attributes);
    UINT index = 0;
    for (const Row& row : rows) {
        FUNCDESC* function;
        ASSERT_EQ(S_OK, vtable->GetFuncDesc(index, &function));
        EXPECT_EQ(row.name, nameOf(vtable.get(), function->memid));
        EXPECT_EQ(row.id, static_cast<unsigned>(function->memid));
        EXPECT_EQ(row.parameters, function->cParams) << narrow(row.name);
        SHORT optional = 0;
        for (SHORT p = 0; p < function->cParams; ++p)
            optional = static_cast<SHORT>(
                optional + ((function->lprgelemdescParam[p].paramdesc.wParamFlags & PARAMFLAG_FOPT) ? 1 : 0));
        EXPECT_EQ(row.optional, optional) << narrow(row.name);
        EXPECT_EQ(static_cast<SHORT>((7 + index) * sizeof(void*)), function->oVft) << narrow(row.name);
        vtable->ReleaseFuncDesc(function);
        ++index;
    }
    // The default True of Occurrence's CaseSensitive.
    FUNCDESC* occurrence;
    ASSERT_EQ(S_OK, vtable->GetFuncDesc(4, &occurrence));
    const auto& sensitive = occurrence->lprgelemdescParam[2].paramdesc;
    EXPECT_EQ(VT_BOOL, sensitive.pparamdescex->varDefaultValue.vt);
    EXPECT_EQ(VARIANT_TRUE, sensitive.pparamdescex->varDefaultValue.boolVal);
    const auto& start = occurrence->lprgelemdescParam[3].paramdesc;
    EXPECT_EQ(1, start.pparamdescex->varDefaultValue.iVal);
    EXPECT_EQ(VT_R4, occurrence->lprgelemdescParam[4].tdesc.lptdesc->vt);
    vtable->ReleaseFuncDesc(occurrence);
}

TEST_F(TypeLibrary, enumerations) {
    EXPECT_EQ((Members{{L"epsDoubleQuote", 0},
                       {L"epsSimpleQuote", 1},
                       {L"epsSlash", 2},
                       {L"epsBackSlash", 3},
                       {L"epsCustom", 4}}),
              membersOf(L"eParseSeparator"));
    EXPECT_EQ((Members{{L"efRépertoire", 1},
                       {L"eFNomFichier", 2},
                       {L"eFExtension", 3},
                       {L"eFNomFichierSansExtention", 4},
                       {L"eFRépertoireSansDisque", 5},
                       {L"efDisque", 6},
                       {L"efRacine", 7},
                       {L"efAll", 8}}),
              membersOf(L"eFileN"));
    EXPECT_EQ((Members{{L"Add", 0}, {L"Multiply", 1}, {L"Multiply\u00A0Only", 2}}),
              membersOf(L"eXpColorShift"));
    EXPECT_EQ((Members{{L"\u00A0Flat", 0}, {L"\u00A03D", 1}}), membersOf(L"eApp"));
    EXPECT_EQ((Members{{L"Chaine\u00A0Normale", 0},
                       {L"Chaine\u00A01ère\u00A0Lettre\u00A0Majuscule", 1},
                       {L"Chaine\u00A0Tout\u00A0Majuscule", 2},
                       {L"Numerique", 3},
                       {L"Montant", 4},
                       {L"Date\u00A0jjmmaaaa", 5},
                       {L"Heure", 6}}),
              membersOf(L"ewTypeChamp"));
    EXPECT_EQ((Members{{L"epadsNone", -5}, {L"epadsOpen", -1}, {L"epadsClose", 0}}), membersOf(L"ePadState"));
    EXPECT_EQ((Members{{L"HKEY_CLASSES_ROOT", -2147483647 - 1},
                       {L"HKEY_CURRENT_CONFIG", -2147483643},
                       {L"HKEY_CURRENT_USER", -2147483647},
                       {L"HKEY_DYN_DATA", -2147483642},
                       {L"HKEY_LOCAL_MACHINE", -2147483646},
                       {L"HKEY_USERS", -2147483645}}),
              membersOf(L"CleBDR"));
    EXPECT_EQ(14u, membersOf(L"BIF_Enum").size());
    EXPECT_EQ(35u, membersOf(L"SysColor").size());
    EXPECT_EQ(50u, membersOf(L"ToucheCtl").size());
    EXPECT_EQ(45u, membersOf(L"eSpecialFolderConstants").size());
    EXPECT_EQ(118u, membersOf(L"eInfoMonetaire").size());
    // Only these types' names are published, so that records and hosts can use them.
    for (const wchar_t* bare :
         {L"eBorderStyleExt", L"eDialBoxOption", L"ePaintStatus", L"eAction", L"eThemeColor"})
        EXPECT_EQ(0u, membersOf(bare).size()) << narrow(bare);
}

TEST_F(TypeLibrary, misspellingsAreKept) {
    for (const wchar_t* name : {L"eborExecpt", L"ePlcSrollWindowPos", L"RectSise", L"eShangleOrientation"})
        find(name);
    EXPECT_EQ(L"emtSlidind", membersOf(L"eMovingType")[2].first);
    EXPECT_EQ(L"eceRighToLeft", membersOf(L"eCuttingEdge")[2].first);
    EXPECT_EQ(L"eThResHight", membersOf(L"eThumbResolution")[1].first);
}

LONG wholeNumber(HKEY key) { return static_cast<LONG>(reinterpret_cast<LONG_PTR>(key)); }
template <class Number>
LONG wholeNumber(Number number) {
    return static_cast<LONG>(number);
}

// Enumerators that Windows' headers define are published with the same values.
TEST_F(TypeLibrary, systemValuesAreTheSystems) {
#define ENUMERATION(name, number)
#define VALUE(name, value)
// Old hosts rely on the one flag that is a sign-extended 16-bit integer.
#define SYSTEM_VALUE(name, value) \
    EXPECT_EQ((TextView(L"" #name) == L"BIF_SHAREABLE" ? 0x8000 : (value)), wholeNumber(name)) << #name;
#define END_ENUMERATION(name)
#include "frame/contract/enumerations.def"
}

TEST_F(TypeLibrary, recordsHaveTheSizeOfTheirStructures) {
    struct Row {
        const wchar_t* name;
        ULONG size32, size64;
        UINT fields;
    };
    constexpr Row rows[] = {{L"OFSTRUCT", 136, 136, 6},   {L"FILETIME", 8, 8, 2},
                            {L"STARTUPINFO", 68, 88, 18}, {L"PROCESS_INFORMATION", 16, 16, 4},
                            {L"POINTAPI", 8, 8, 2},       {L"TRIVERTEX", 16, 16, 6},
                            {L"GRADIENT_RECT", 8, 8, 2},  {L"Rect", 16, 16, 4},
                            {L"RectSise", 16, 16, 4},     {L"CursorPosition", 8, 8, 2},
                            {L"tSonStruct", 28, 32, 9},   {L"tBarre", 36, 40, 3},
                            {L"tAction", 12, 16, 3},      {L"tColor", 44, 48, 11},
                            {L"tTheme", 52, 56, 3},       {L"tCtlResizer", 12, 16, 5}};
    for (const Row& row : rows) {
        const auto record = find(row.name);
        EXPECT_EQ(TKIND_RECORD, record.kind) << narrow(row.name);
        EXPECT_EQ(sizeof(void*) == 8 ? row.size64 : row.size32, record.size) << narrow(row.name);
        EXPECT_EQ(row.fields, record.variables) << narrow(row.name);
        ComPointer<IRecordInfo> info;
        EXPECT_EQ(S_OK, GetRecordInfoFromTypeInfo(record.info.get(), info.put())) << narrow(row.name);
    }
}

TEST_F(TypeLibrary, recordsHoldWhatHostsPutInThem) {
    const auto record = find(L"tSonStruct");
    ComPointer<IRecordInfo> info;
    ASSERT_EQ(S_OK, GetRecordInfoFromTypeInfo(record.info.get(), info.put()));
    void* const made = info->RecordCreate();
    auto& sound = *static_cast<records::tSonStruct*>(made);
    sound.Nom = SysAllocString(L"thème");
    sound.VolComment = 7;
    VARIANT field;
    void* data = nullptr;
    EXPECT_EQ(S_OK, info->GetFieldNoCopy(made, L"Nom", &field, &data));
    EXPECT_EQ(VT_BSTR | VT_BYREF, field.vt);
    EXPECT_EQ(L"thème", viewOf(*field.pbstrVal));
    EXPECT_EQ(S_OK, info->GetFieldNoCopy(made, L"VolComment", &field, &data));
    EXPECT_EQ(7, *field.pbVal);
    EXPECT_EQ(S_OK, info->RecordDestroy(made));
}

}  // namespace
}  // namespace vorla::test
