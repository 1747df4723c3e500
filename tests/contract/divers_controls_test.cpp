// VorlaDivers' helpers on single controls and fonts: forms with real windows, and scripted objects for what
// such forms lack. Criteria, containers and the pointer have files of their own.
#include "contract/divers_fixture.h"
#include "contract/signatures.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

using forms::Frame;
using forms::PictureBox;
using forms::TextBox;

using Texts = std::vector<std::wstring>;

// Without the identifiers, which published_order_test.cpp checks.
TEST_F(Divers, membersAreDescribed) {
    const Texts expected{
        L"I2 KeyMajusc(I2 KeyAscii)",
        L"I2 KeyNum(I2 KeyAscii, [BOOL WithDecimal=0])",
        L"I2 KeyFile(I2 KeyAscii, [&eKeyFileType TypeName=0])",
        L"BOOL Ctl_Argument(&object Premier, &object Second, [&BOOL obligatoire=0], [&BSTR Mes], "
        L"[&object Label1Associé], [&object Label2Associé])",
        L"void eSetFocus(&object Ctl)",
        L"BOOL ToucheEnfoncée(ToucheCtl Touche)",
        L"BOOL IsControlExist(&VARIANT Ctl)",
        L"I2 ContainerScaleMode(&BSTR ScaleMd)",
        L"I2 FindContainerScaleMode(&object Ctl)",
        L"void FrameChangeEnabled(object Frm, object ObjetContainer, BOOL blEnabled)",
        L"void FormEffaceCtl(object Frm)",
        L"void MousePlace(object Controle, [BOOL AuCentre=-1])",
        L"Rect CtlPosition(object Controle)",
        L"CursorPosition CursorPos([R4 x=-99], [R4 y=-99])",
        L"BOOL PropertyExist(object Ctl, BSTR Property, [I4 TypeProperty=2])",
        L"BOOL IsPropertyExist(object Ctl, BSTR Property, [I4 TypeProperty=2])",
        L"BOOL IsFormLoad(&VARIANT FrmNameOrHwnd, &VARIANT FormsCol)",
        L"I2 OptionButtonValue(object Opt, [&VARIANT TrueValue])",
        L"object FindObjectContainerScaleMode(object Ctl)",
        L"void CopyFont(&&Font Src, &&Font dest)"};
    const auto all = signatures(divers.get());
    auto line = all.begin();
    for (; line != all.end() && line->substr(9) != expected[0]; ++line) continue;
    for (const auto& signature : expected) {
        ASSERT_NE(all.end(), line) << narrow(signature);
        EXPECT_EQ(signature, line->substr(9));
        ++line;
    }
}

// --- Focus and existence ---

TEST_F(DiversForm, focusGoesToAControlThatCanTakeIt) {
    form.show();
    SetForegroundWindow(form.handle());
    auto& one = form.add<TextBox>({.name = L"txtOne", .at = {100, 100, 900, 300}});
    auto& other = form.add<TextBox>({.name = L"txtOther", .at = {100, 500, 900, 300}});
    run(L"eSetFocus", {object(&one)});
    EXPECT_EQ(one.handle(), GetFocus());
    run(L"eSetFocus", {object(&other)});
    EXPECT_EQ(other.handle(), GetFocus());
    one.put(L"Enabled", false);
    run(L"eSetFocus", {object(&one)});
    one.put(L"Enabled", true);
    one.put(L"Visible", false);
    run(L"eSetFocus", {object(&one)});
    EXPECT_EQ(other.handle(), GetFocus());
    EXPECT_EQ(0u, host.record().logged(L"call txtOne.SetFocus") - 1);
    run(L"eSetFocus", {nothing()});
    ScriptedObject plain, always;
    run(L"eSetFocus", {object(&plain)});
    always.property(L"Visible", short16(1)).property(L"Enabled", text(L"-1"));
    int focused = 0;
    always.method(L"SetFocus", [&](const ScriptedObject::Call&) {
        ++focused;
        return Variant();
    });
    run(L"eSetFocus", {object(&always)});
    EXPECT_EQ(1, focused);
}

TEST_F(DiversForm, controlsExistWhenTheirLeftCanBeRead) {
    auto& box = form.add<TextBox>({.name = L"txt"});
    ScriptedObject plain;
    Variant variable = object(&box);
    expectResult(call(L"IsControlExist", {object(&box)}), true);
    expectResult(call(L"IsControlExist", {byReference(variable)}), true);
    expectResult(call(L"IsControlExist", {object(&form)}), true);
    expectResult(call(L"IsControlExist", {object(&plain)}), false);
    for (const Variant& none : {nothing(), Variant(), nullValue(), text(L"txt"), short16(1), missing()})
        expectResult(call(L"IsControlExist", {none}), false, describe(none.raw()));
    const HostObject kept(&box);
    form.unload();
    expectResult(call(L"IsControlExist", {object(&box)}), false);
}

TEST_F(DiversForm, propertiesAreProbed) {
    auto& box = form.add<TextBox>({.name = L"txt"});
    ScriptedObject object_;
    int called = 0;
    object_.method(L"Refresh", [&](const ScriptedObject::Call& given) {
        if (given.kind() == DISPATCH_METHOD) ++called;
        return Variant();
    });
    for (const wchar_t* name : {L"PropertyExist", L"IsPropertyExist"}) {
        expectResult(call(name, {object(&box), text(L"Text")}), true);
        expectResult(call(name, {object(&box), text(L"TEXT"), short16(2)}), true);
        expectResult(call(name, {object(&box), text(L"Index")}), false);
        expectResult(call(name, {object(&box), text(L"ScaleMode")}), false);
        expectResult(call(name, {object(&form), text(L"ScaleMode")}), true);
        expectResult(call(name, {object(&box), text(L"")}), false);
        expectResult(call(name, {nothing(), text(L"Text")}), false);
        // The member is really called.
        called = 0;
        expectResult(call(name, {object(&object_), text(L"Refresh"), long32(1)}), true);
        EXPECT_EQ(1, called);
        // No kind of call has more than 16 bits.
        expectResult(call(name, {object(&box), text(L"Text"), long32(65538)}), false);
    }
}

TEST_F(DiversForm, formsAreLoadedUntilTheyAreUnloaded) {
    auto& other = host.load(L"frmAutre");
    const ComPointer<forms::Form> kept(&other);
    const auto forms = host.forms();
    const auto loaded = [&](const Variant& which) {
        return call(L"IsFormLoad", {which, object(forms.get())});
    };
    expectResult(loaded(text(L"frmMain")), true);
    expectResult(loaded(text(L"frmAutre")), true);
    expectResult(loaded(text(L"frmautre")), false);
    expectResult(loaded(text(L"")), false);
    const auto handle = other.getAs<std::int32_t>(L"hWnd");
    expectResult(loaded(long32(handle)), true);
    Variant variable = long32(handle);
    expectResult(loaded(byReference(variable)), true);
    // No other type is a handle or a name.
    for (const Variant& value : {Variant(static_cast<double>(handle)), short16(0), Variant(), nullValue()})
        expectResult(loaded(value), false, describe(value.raw()));
    other.unload();
    expectResult(loaded(text(L"frmAutre")), false);
    expectResult(loaded(long32(handle)), false);
    // Unguarded.
    expectError(call(L"IsFormLoad", {text(L"frmMain"), nothing()}), 91);
    expectError(call(L"IsFormLoad", {text(L"frmMain"), Variant()}), 424);
    expectError(call(L"IsFormLoad", {text(L"frmMain"), text(L"Forms")}), 424);
    host.record().fail(3, {DISP_E_EXCEPTION, 70});  // the name of the first form
    expectError(loaded(text(L"frmMain")), 70);
}

// --- Scale modes ---

TEST_F(Divers, scaleModesHaveNames) {
    const wchar_t* const names[] = {L"user",      L"twip", L"point",      L"pixel",
                                    L"character", L"inch", L"millimeter", L"centimeter"};
    for (int mode = 0; mode < 8; ++mode)
        expectResult(call(L"ContainerScaleMode", {text(names[mode])}), short16(mode), narrow(names[mode]));
    const struct {
        const wchar_t *given, *left;
        int mode;
    } rows[] = {{L"PIXEL", L"pixel", 3},
                {L"Centimeter", L"centimeter", 7},
                {L"ÉTÉ", L"été", 1},
                {L"", L"", 1},
                {L" Pixel", L" pixel", 1}};
    for (const auto& row : rows) {
        Variant variable = text(row.given);
        expectResult(call(L"ContainerScaleMode", {byReference(variable)}), short16(row.mode));
        EXPECT_EQ(describe(text(row.left).raw()), describe(variable.raw()));
    }
    // What cannot be made lower-case stays.
    Intercept<decltype(LCMapStringW)> mapping(module, "kernel32.dll", "LCMapStringW");
    mapping.failCall(1, 0);
    Variant variable = text(L"PIXEL");
    expectResult(call(L"ContainerScaleMode", {byReference(variable)}), short16(1));
    EXPECT_EQ(describe(text(L"PIXEL").raw()), describe(variable.raw()));
}

TEST_F(DiversForm, containersHaveScaleModes) {
    form.put(L"ScaleMode", std::int16_t{3});
    auto& frame = form.add<Frame>({.name = L"fra"});
    auto& picture = form.add<PictureBox>({.name = L"pic"});
    picture.put(L"ScaleMode", std::int16_t{6});
    auto& onForm = form.add<TextBox>({.name = L"txt1"});
    auto& inFrame = form.add<TextBox>({.name = L"txt2", .in = &frame});
    auto& inPicture = form.add<TextBox>({.name = L"txt3", .in = &picture});
    expectResult(call(L"FindContainerScaleMode", {object(&onForm)}), short16(3));
    expectResult(call(L"FindContainerScaleMode", {object(&inFrame)}), short16(1));
    expectResult(call(L"FindContainerScaleMode", {object(&inPicture)}), short16(6));
    expectResult(call(L"FindContainerScaleMode", {object(&form)}), short16(0));
    expectResult(call(L"FindContainerScaleMode", {nothing()}), short16(0));
    expectResult(call(L"FindObjectContainerScaleMode", {object(&onForm)}), object(&form));
    expectResult(call(L"FindObjectContainerScaleMode", {object(&inFrame)}), nothing());
    expectResult(call(L"FindObjectContainerScaleMode", {object(&inPicture)}), object(&picture));
    expectResult(call(L"FindObjectContainerScaleMode", {object(&form)}), nothing());
    expectResult(call(L"FindObjectContainerScaleMode", {nothing()}), nothing());
}

// --- Fonts ---

Variant fontValue(const HostFont& font, DISPID property) {
    DISPPARAMS none{};
    Variant value;
    EXPECT_EQ(S_OK, font->Invoke(property, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.put(), nullptr,
                                 nullptr));
    return value;
}

TEST_F(Divers, fontsAreCopied) {
    const auto source = forms::newFont(L"Marlett", 12), target = forms::newFont();
    const auto put = [&](DISPID property, Variant value) {
        DISPID stored = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{value.put(), &stored, 1, 1};
        EXPECT_EQ(S_OK, source->Invoke(property, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                                       nullptr, nullptr));
    };
    for (const DISPID style : {DISPID_FONT_ITALIC, DISPID_FONT_UNDER, DISPID_FONT_STRIKE, DISPID_FONT_BOLD})
        put(style, true);
    put(DISPID_FONT_CHARSET, short16(SYMBOL_CHARSET));
    const auto expectCopied = [&] {
        // The number 1 is not a property.
        for (const DISPID property : {0, 2, 3, 4, 5, 6, 7, 8})
            EXPECT_EQ(describe(fontValue(source, property).raw()),
                      describe(fontValue(target, property).raw()))
                << property;
        EXPECT_EQ(describe(text(L"Marlett").raw()), describe(fontValue(target, DISPID_FONT_NAME).raw()));
        EXPECT_EQ(describe(short16(FW_BOLD).raw()), describe(fontValue(target, DISPID_FONT_WEIGHT).raw()));
        EXPECT_EQ(describe(Variant(true).raw()), describe(fontValue(target, DISPID_FONT_UNDER).raw()));
    };
    run(L"CopyFont", {object(source.get()), object(target.get())});
    expectCopied();
    // Nothing on either side, and a font onto itself.
    run(L"CopyFont", {nothing(), object(target.get())});
    run(L"CopyFont", {object(source.get()), nothing()});
    run(L"CopyFont", {object(source.get()), object(source.get())});
    expectCopied();
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"CopyFont", {object(divers.get()), object(target.get())}).code);
}

// A font of the test's own: it notes the identifiers that are used, and fails one of them.
class NotedFont : public IFontDisp {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IDispatch || id == IID_IFontDisp;
        *object = known ? this : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        ++lookups;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (id == failing) return E_FAIL;
        used.push_back(id);
        if (kind == DISPATCH_PROPERTYGET) {
            result->vt = VT_I4;
            result->lVal = 100 + id;
        } else {
            EXPECT_EQ(DISPATCH_PROPERTYPUT, kind);
            EXPECT_EQ(1u, parameters->cNamedArgs);
            EXPECT_EQ(DISPID_PROPERTYPUT, parameters->rgdispidNamedArgs[0]);
            EXPECT_EQ(100 + id, parameters->rgvarg[0].lVal);
        }
        return S_OK;
    }

    std::vector<DISPID> used;
    DISPID failing = -1;
    int lookups = 0;
    ULONG references = 0;
};

TEST_F(Divers, fontsAreCopiedByTheIdentifiersOfTheStandardFont) {
    const std::vector<DISPID> order{3, 8, 4, 0, 2, 6, 5, 7};
    // Each property failing in turn, in the source and in the target: only that one is left out.
    for (DISPID failing = -1; failing <= 8; ++failing)
        for (const bool inSource : {true, false}) {
            NotedFont source, target;
            (inSource ? source : target).failing = failing;
            run(L"CopyFont", {object(&source), object(&target)});
            auto rest = order;
            std::erase(rest, failing);
            EXPECT_EQ(inSource ? rest : order, source.used) << failing;
            EXPECT_EQ(rest, target.used) << failing;
            EXPECT_EQ(0, source.lookups + target.lookups);
            EXPECT_EQ(0u, source.references + target.references);
        }
}

}  // namespace
}  // namespace vorla::test
