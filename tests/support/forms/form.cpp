#include "support/forms/form.h"

#include <cmath>

#include "support/forms/host.h"

namespace vorla::forms {
namespace {

struct BorderLook {
    DWORD style, extendedStyle;
};

BorderLook lookOf(const FormDesign& design) {
    const DWORD title = design.controlBox ? WS_CAPTION | WS_SYSMENU : WS_CAPTION,
                boxes = design.controlBox ? WS_MINIMIZEBOX | WS_MAXIMIZEBOX : 0;
    switch (design.border) {
        case Border::none: return {WS_POPUP, 0};
        case Border::fixed: return {title | (boxes & WS_MINIMIZEBOX), 0};
        case Border::sizable: return {title | WS_THICKFRAME | boxes, 0};
        case Border::dialog: return {title, WS_EX_DLGMODALFRAME};
        case Border::fixedTool: return {title, WS_EX_TOOLWINDOW};
        case Border::sizableTool: return {title | WS_THICKFRAME, WS_EX_TOOLWINDOW};
    }
    throw RuntimeError(invalidPropertyValue);
}

LONG pixels(double twips, Axis axis) { return static_cast<LONG>(std::lround(twips / twipsPerPixel(axis))); }

}  // namespace

Form::Form(Host& host, const wchar_t* name, const FormDesign& design)
    : Window(name, name, host.record(),
             {nullptr, lookOf(design).style | WS_CLIPCHILDREN,
              lookOf(design).extendedStyle | WS_EX_CONTROLPARENT, systemColour(COLOR_BTNFACE),
              systemColour(COLOR_BTNTEXT)}),
      host_(&host),
      border_(design.border) {
    RECT frame = {0, 0, pixels(design.insideWidth, Axis::x), pixels(design.insideHeight, Axis::y)};
    AdjustWindowRectEx(&frame, lookOf(design).style, FALSE, lookOf(design).extendedStyle);
    OffsetRect(&frame, pixels(design.left, Axis::x) - frame.left, pixels(design.top, Axis::y) - frame.top);
    createWindow(nullptr, frame, design.caption);
}

const Members& Form::members() const {
    static const auto table = Window::withScale(Window::table())
                                  .property(L"Caption", &Form::text, &Form::setText)
                                  .readOnly(L"Controls", &Form::controlsCollection)
                                  .readOnly(L"Count", &Form::count)
                                  .readOnly(L"BorderStyle", &Form::borderStyle)
                                  .property(L"WindowState", &Form::windowState, &Form::setWindowState)
                                  .property(L"Left", &Form::left, &Form::setLeft)
                                  .property(L"Top", &Form::top, &Form::setTop)
                                  .property(L"Width", &Form::width, &Form::setWidth)
                                  .property(L"Height", &Form::height, &Form::setHeight)
                                  .method(L"Move", &Form::move)
                                  .method(L"Show", &Form::showCalled)
                                  .method(L"Hide", &Form::hideCalled)
                                  .byDefault(L"Controls");
    return table;
}

std::vector<HostObject> Form::controlObjects() const {
    std::vector<HostObject> result;
    for (const auto& control : controls_) result.emplace_back(control.get());
    return result;
}

std::vector<Variant> Form::items() const {
    std::vector<Variant> result;
    for (const auto& control : controls_) result.push_back(toHost(static_cast<IDispatch*>(control.get())));
    return result;
}

std::vector<HostObject> Form::elementsOf(TextView name) const {
    std::vector<HostObject> result;
    for (const auto& control : controls_)
        if (control->name() == name) result.emplace_back(control.get());
    return result;
}

// A control by its number or its name. The name of a control array stands for the array.
HostObject Form::find(VariantView key) {
    if (key.type() != VT_BSTR) return Collection::at(controlObjects(), key);
    const Text name(viewOf(key.raw().bstrVal));
    const auto elements = elementsOf(name);
    if (elements.empty()) throw RuntimeError(controlNotFound);
    if (!static_cast<Control*>(elements[0].get())->index()) return elements[0];
    const ComPointer<Form> self(this);
    auto array = ComPointer<Collection>::adopt(new Collection(
        L"ControlArray", name, record(), [self, name] { return self.get()->elementsOf(name); },
        [self, name](VariantView index) {
            const auto wanted = fromHost<std::int16_t>(index);
            for (const auto& element : self.get()->elementsOf(name))
                if (static_cast<Control*>(element.get())->index() == wanted) return element;
            throw RuntimeError(noSuchElement);
        }));
    return HostObject(array.get());
}

HostObject Form::controlsCollection() const {
    const ComPointer<Form> self(const_cast<Form*>(this));
    auto collection = ComPointer<Collection>::adopt(new Collection(
        L"Controls", name() + L".Controls", record(), [self] { return self.get()->controlObjects(); },
        [self](VariantView key) { return self.get()->find(key); }));
    return HostObject(collection.get());
}

void Form::setVisible(bool visible) {
    ShowWindow(living(), visible ? SW_SHOW : SW_HIDE);
    if (visible) refresh();
}

Variant Form::showCalled(const HostCall&) {
    setVisible(true);
    return {};
}

Variant Form::hideCalled(const HostCall&) {
    setVisible(false);
    return {};
}

void Form::unload() {
    if (!handle()) return;
    const HostObject alive(this);
    DestroyWindow(handle());
    for (const auto& control : controls_) control->unload();
    controls_.clear();
    forgetWindow();
    host_->forget(*this);
    host_ = nullptr;
}

LRESULT Form::answerMessage(UINT message, WPARAM first, LPARAM second) {
    if (message != WM_CLOSE) return Window::answerMessage(message, first, second);
    unload();
    return 0;
}

std::int16_t Form::windowState() const {
    return static_cast<std::int16_t>(IsIconic(living()) ? 1 : IsZoomed(handle()) ? 2 : 0);
}

void Form::setWindowState(std::int16_t state) {
    constexpr int commands[] = {SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED};
    if (state < 0 || state > 2) throw RuntimeError(invalidPropertyValue);
    ShowWindow(living(), commands[state]);
}

// A form's place is that of its window, which the user and other members can move at any time.
float Form::edge(LONG RECT::*side, Axis axis) const {
    RECT frame;
    GetWindowRect(living(), &frame);
    return static_cast<float>(frame.*side * twipsPerPixel(axis));
}

void Form::setPlace(const Part& part) {
    RECT frame;
    GetWindowRect(living(), &frame);
    auto width = frame.right - frame.left, height = frame.bottom - frame.top;
    if (part.left) frame.left = pixels(*part.left, Axis::x);
    if (part.top) frame.top = pixels(*part.top, Axis::y);
    if (part.width) width = pixels(*part.width, Axis::x);
    if (part.height) height = pixels(*part.height, Axis::y);
    SetWindowPos(handle(), nullptr, frame.left, frame.top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

Variant Form::move(const HostCall& call) {
    if (call.count() < 1 || call.count() > 4) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    float values[4];
    const float* given[4] = {};
    for (std::size_t i = 0; i < call.count(); ++i) {
        if (call.argument(i).isMissing()) continue;
        values[i] = fromHost<float>(call.argument(i));
        given[i] = &values[i];
    }
    setPlace({given[0], given[1], given[2], given[3]});
    return {};
}

}  // namespace vorla::forms
