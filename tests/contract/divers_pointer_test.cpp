// VorlaDivers and the mouse pointer: real positions, and the records that carry them.
#include "contract/divers_fixture.h"
#include "support/import_patch.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

using forms::Frame;
using forms::TextBox;

POINT pointer() {
    POINT position{-1, -1};
    EXPECT_TRUE(GetCursorPos(&position));
    return position;
}

void expectPointer(LONG x, LONG y) {
    const auto position = pointer();
    EXPECT_EQ(x, position.x);
    EXPECT_EQ(y, position.y);
}

// A record late-bound: its name, and its fields through its description.
void expectRecord(const Outcome& outcome, const wchar_t* name,
                  std::initializer_list<std::pair<const wchar_t*, LONG>> fields) {
    ASSERT_EQ(S_OK, outcome.code);
    const auto& result = outcome.result.raw();
    ASSERT_EQ(VT_RECORD, result.vt);
    Bstr recordName;
    EXPECT_EQ(S_OK, result.pRecInfo->GetName(recordName.put()));
    EXPECT_EQ(name, recordName.view());
    ULONG size = 0;
    EXPECT_EQ(S_OK, result.pRecInfo->GetSize(&size));
    EXPECT_EQ(fields.size() * 4, size);
    BSTR names[8] = {};
    ULONG count = 8;
    EXPECT_EQ(S_OK, result.pRecInfo->GetFieldNames(&count, names));
    ASSERT_EQ(fields.size(), count);
    ULONG place = 0;
    for (const auto& [field, value] : fields) {
        const auto owned = Bstr::adopt(names[place]);
        EXPECT_EQ(field, owned.view());
        Variant found;
        EXPECT_EQ(S_OK, result.pRecInfo->GetField(result.pvRecord, field, found.put()));
        EXPECT_EQ(describe(long32(value).raw()), describe(found.raw())) << narrow(field);
        EXPECT_EQ(value, static_cast<const LONG*>(result.pvRecord)[place]) << narrow(field);
        ++place;
    }
}

class DiversPointer : public DiversForm {
protected:
    DiversPointer() { EXPECT_TRUE(SetCursorPos(3, 4)); }

    RECT rectangleOf(forms::Window& window) {
        RECT rectangle{};
        EXPECT_TRUE(GetWindowRect(window.handle(), &rectangle));
        return rectangle;
    }

    Frame& frame = form.add<Frame>({.name = L"fra", .at = {300, 300, 3000, 1500}});
    // 41 by 22 pixels at 96 dots per inch.
    TextBox& box = form.add<TextBox>({.name = L"txt", .at = {150, 225, 615, 330}, .in = &frame});
};

TEST_F(DiversPointer, goesToTheMiddleOfAControl) {
    const auto at = rectangleOf(box);
    ASSERT_EQ(41, at.right - at.left);
    ASSERT_EQ(22, at.bottom - at.top);
    run(L"MousePlace", {object(&box)});
    // Half a pixel goes to the even one.
    const LONG middle = at.left + 20;
    expectPointer(middle % 2 == 0 ? middle : middle + 1, at.top + 11);
    run(L"MousePlace", {object(&box), false});
    expectPointer(at.left, at.top);
    run(L"MousePlace", {object(&box), true});
    expectPointer(middle % 2 == 0 ? middle : middle + 1, at.top + 11);
    run(L"MousePlace", {object(&form), false});
    expectPointer(rectangleOf(form).left, rectangleOf(form).top);
}

TEST_F(DiversPointer, staysWhenTheControlHasNoRectangle) {
    ScriptedObject plain, bad;
    bad.property(L"hwnd", text(L"fenêtre"));
    for (const Variant& none : {nothing(), object(&plain), object(&bad)}) run(L"MousePlace", {none});
    ScriptedObject gone;
    gone.property(L"hwnd", long32(0x7FFFFFF0));
    run(L"MousePlace", {object(&gone)});
    Intercept<decltype(GetWindowRect)> rectangle(module, "user32.dll", "GetWindowRect");
    rectangle.failCall(1, FALSE);
    run(L"MousePlace", {object(&box)});
    expectPointer(3, 4);
    Intercept<decltype(SetCursorPos)> place(module, "user32.dll", "SetCursorPos");
    place.failCall(1, FALSE);
    run(L"MousePlace", {object(&box)});
    expectPointer(3, 4);
}

TEST_F(DiversPointer, halvesGoToTheEvenPixel) {
    Intercept<decltype(GetWindowRect)> rectangle(module, "user32.dll", "GetWindowRect");
    CallLog log;
    Intercept<decltype(SetCursorPos)> place(module, "user32.dll", "SetCursorPos", &log);
    place.answer([](int, int) { return TRUE; });
    const struct {
        RECT rectangle;
        const char* call;
    } rows[] = {{{0, 0, 1, 3}, "SetCursorPos(0, 2)"},
                {{1, 2, 4, 5}, "SetCursorPos(2, 4)"},
                {{-3, -5, 0, -2}, "SetCursorPos(-2, -4)"},
                {{-10, 7, 10, 7}, "SetCursorPos(0, 7)"}};
    for (const auto& row : rows) {
        rectangle.answer([&](HWND, LPRECT found) {
            *found = row.rectangle;
            return TRUE;
        });
        log.clear();
        run(L"MousePlace", {object(&box)});
        EXPECT_EQ(CallLog{row.call}, log);
    }
}

TEST_F(DiversPointer, controlsHaveRectangles) {
    const auto at = rectangleOf(box);
    expectRecord(call(L"CtlPosition", {object(&box)}), L"Rect",
                 {{L"Left", at.left}, {L"Top", at.top}, {L"Right", at.right}, {L"Bottom", at.bottom}});
    records::Rect early{1, 2, 3, 4};
    const auto member = slot<IDispatch*, records::Rect*>(L"CtlPosition");
    EXPECT_EQ(S_OK, member(divers.get(), &box, &early));
    EXPECT_EQ(at.left, early.Left);
    EXPECT_EQ(at.top, early.Top);
    EXPECT_EQ(at.right, early.Right);
    EXPECT_EQ(at.bottom, early.Bottom);
}

TEST_F(DiversPointer, failuresGiveZeros) {
    ScriptedObject plain, gone;
    gone.property(L"hwnd", long32(0x7FFFFFF0));
    const auto member = slot<IDispatch*, records::Rect*>(L"CtlPosition");
    for (IDispatch* none : {static_cast<IDispatch*>(nullptr), static_cast<IDispatch*>(&plain),
                            static_cast<IDispatch*>(&gone)}) {
        expectRecord(call(L"CtlPosition", {object(none)}), L"Rect",
                     {{L"Left", 0}, {L"Top", 0}, {L"Right", 0}, {L"Bottom", 0}});
        records::Rect early{1, 2, 3, 4};
        EXPECT_EQ(S_OK, member(divers.get(), none, &early));
        EXPECT_EQ(0, early.Left | early.Top | early.Right | early.Bottom);
    }
    EXPECT_EQ(E_POINTER, member(divers.get(), &box, nullptr));
}

TEST_F(DiversPointer, positionIsReadAndMoved) {
    const auto read = [this] { return call(L"CursorPos"); };
    expectRecord(read(), L"CursorPosition", {{L"Cursor_X", 3}, {L"Cursor_Y", 4}});
    expectRecord(call(L"CursorPos", {short16(10), short16(20)}), L"CursorPosition",
                 {{L"Cursor_X", 0}, {L"Cursor_Y", 0}});
    expectPointer(10, 20);
    expectRecord(read(), L"CursorPosition", {{L"Cursor_X", 10}, {L"Cursor_Y", 20}});
    expectRecord(call(L"CursorPos", {short16(-99), -99.0}), L"CursorPosition",
                 {{L"Cursor_X", 10}, {L"Cursor_Y", 20}});
    // Early-bound.
    records::CursorPosition early{1, 2};
    const auto member = slot<float, float, records::CursorPosition*>(L"CursorPos");
    EXPECT_EQ(S_OK, member(divers.get(), 30.5f, 31.5f, &early));
    EXPECT_EQ(0, early.Cursor_X | early.Cursor_Y);
    expectPointer(30, 32);
    EXPECT_EQ(S_OK, member(divers.get(), -99, -99, &early));
    EXPECT_EQ(30, early.Cursor_X);
    EXPECT_EQ(32, early.Cursor_Y);
}

TEST_F(DiversPointer, oneCoordinateAloneMovesIt) {
    CallLog log;
    Intercept<decltype(SetCursorPos)> place(module, "user32.dll", "SetCursorPos", &log);
    place.answer([](int, int) { return TRUE; });
    const CallLog expected{"SetCursorPos(5, -99)", "SetCursorPos(-99, 5)", "SetCursorPos(-98, -100)",
                           "SetCursorPos(2, 4)"};
    EXPECT_EQ(S_OK, call(L"CursorPos", {short16(5)}).code);
    EXPECT_EQ(S_OK, call(L"CursorPos", {missing(), short16(5)}).code);
    EXPECT_EQ(S_OK, call(L"CursorPos", {single(-98.5f), single(-99.5f)}).code);
    EXPECT_EQ(S_OK, call(L"CursorPos", {single(2.5f), single(3.5f)}).code);
    EXPECT_EQ(expected, log);
    expectError(call(L"CursorPos", {single(3e9f), short16(1)}), 6);
    expectError(call(L"CursorPos", {short16(1), single(-3e9f)}), 6);
    EXPECT_EQ(expected, log);
}

TEST_F(DiversPointer, aSystemWithoutAPointerGivesZeros) {
    Intercept<decltype(GetCursorPos)> position(module, "user32.dll", "GetCursorPos");
    position.failCall(1, FALSE);
    expectRecord(call(L"CursorPos"), L"CursorPosition", {{L"Cursor_X", 0}, {L"Cursor_Y", 0}});
    Intercept<decltype(SetCursorPos)> place(module, "user32.dll", "SetCursorPos");
    place.failCall(1, FALSE);
    expectRecord(call(L"CursorPos", {short16(1), short16(2)}), L"CursorPosition",
                 {{L"Cursor_X", 0}, {L"Cursor_Y", 0}});
    expectPointer(3, 4);
}

TEST_F(DiversPointer, recordsAreFreed) {
    const auto position = idOf(divers.get(), L"CtlPosition"), cursor = idOf(divers.get(), L"CursorPos");
    VARIANT control = object(&box).detach();
    DISPPARAMS one{&control, nullptr, 1, 0}, none{};
    expectNothingLeft([&] {
        for (const auto& [id, parameters] : {std::pair{position, &one}, {cursor, &none}}) {
            VARIANT result;
            VariantInit(&result);
            EXPECT_EQ(S_OK, divers->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, parameters, &result, nullptr,
                                           nullptr));
            VariantClear(&result);
        }
        host.record().clear();
    });
    VariantClear(&control);
}

}  // namespace
}  // namespace vorla::test
