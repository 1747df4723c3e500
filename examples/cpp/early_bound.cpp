// A compiled host that calls through the dual interface's own slots, without dispatch.
//
// Most hosts let their compiler read Vorla6.tlb. This one shows what such a compiler makes of it: slots in
// the order of the type library, each returning a status code, with the function's result as the last
// argument.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

struct _VorlaChaine : IDispatch {
    virtual HRESULT __stdcall CBR(VARIANT Chaine, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall CBL(VARIANT Chaine, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall ExtraitChaine(BSTR Chaine, SHORT Rang, BSTR Separateur,
                                            VARIANT_BOOL DepuisLaFin, BSTR* result) = 0;
    virtual HRESULT __stdcall Transfrm(BSTR Chaine, BSTR Car1, BSTR Car2, SHORT Debut, SHORT Nombre,
                                       BSTR* result) = 0;
    virtual HRESULT __stdcall Occurrence(BSTR Chaine, BSTR Cherche, VARIANT_BOOL CaseSensitive, SHORT Start,
                                         FLOAT* result) = 0;
    virtual HRESULT __stdcall Zclé(BSTR Clé, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall NumLet(BSTR Chaine, SHORT Longueur, BSTR* result) = 0;
    virtual HRESULT __stdcall SplitStr(VARIANT Chaine, BSTR* result) = 0;
    virtual HRESULT __stdcall Parse(BSTR strArg, LONG* ParseSeparatorType, BSTR* CustomSeparator,
                                    BSTR* result) = 0;
};

namespace {

constexpr GUID interfaceId = {0x57AB0030, 0x7BA1, 0x412D, {0xBD, 0x16, 0x32, 0x9B, 0x0A, 0x86, 0xB1, 0xAB}};

struct FreeString {
    void operator()(BSTR text) const { SysFreeString(text); }
};
using String = std::unique_ptr<OLECHAR, FreeString>;

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};

String string(const wchar_t* text) { return String(SysAllocString(text)); }

void print(const char* what, BSTR text) {
    char utf8[200] = "";
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, nullptr, nullptr);
    std::printf("%s gives \"%s\"\n", what, utf8);
}

// Calls a slot whose result is text, and shows the text or the run-time error's number.
template <class Call>
void show(const char* what, Call&& call) {
    BSTR result = nullptr;
    const HRESULT status = call(&result);
    const String owned(result);
    if (SUCCEEDED(status))
        print(what, result);
    else
        std::printf("%s gives run-time error %d\n", what, static_cast<int>(status & 0xFFFF));
}

int run() {
    CLSID classId;
    _VorlaChaine* created = nullptr;
    if (FAILED(CLSIDFromProgID(L"Vorla6.VorlaChaine", &classId)) ||
        FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, interfaceId,
                                reinterpret_cast<void**>(&created)))) {
        std::fprintf(stderr, "Vorla6 is not registered\n");
        return 1;
    }
    const std::unique_ptr<_VorlaChaine, ReleaseObject> chaine(created);

    VARIANT price;
    V_VT(&price) = VT_CY;
    V_CY(&price).int64 = 125'000;  // 12.5
    const auto line = string(L"42;Lefèvre;Saint-Étienne"), separator = string(L";"), key = string(L" 42 "),
               lastKey = string(L"0ZZ");

    show("CBL(12.5, 8)", [&](BSTR* result) { return chaine->CBL(price, 8, result); });
    show("ExtraitChaine, last field", [&](BSTR* result) {
        return chaine->ExtraitChaine(line.get(), 1, separator.get(), VARIANT_TRUE, result);
    });
    show("Zclé(\" 42 \", 6)", [&](BSTR* result) { return chaine->Zclé(key.get(), 6, result); });
    show("NumLet(\"0ZZ\")", [&](BSTR* result) { return chaine->NumLet(lastKey.get(), 0, result); });
    show("CBR(12.5, -1)", [&](BSTR* result) { return chaine->CBR(price, -1, result); });
    return 0;
}

}  // namespace

int main() {
    if (FAILED(OleInitialize(nullptr))) return 1;
    const int status = run();
    OleUninitialize();
    return status;
}
