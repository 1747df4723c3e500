#include "support/forms/control.h"

#include <cmath>

#include "support/forms/form.h"

namespace vorla::forms {

Control::Control(Form& form, const Design& design, const wchar_t* typeName, const Look& look)
    : Window(design.typeName ? design.typeName : typeName, design.name, form.callRecord(), look),
      form_(&form),
      container_(design.in ? design.in : &form),
      index_(design.index) {
    const auto& at = design.at;
    for (const auto axis : {Axis::x, Axis::y}) {
        const auto unit = container_->unit(axis), origin = container_->origin(axis);
        position_.on(axis) = ((axis == Axis::x ? at.left : at.top) - origin) * unit;
        size_.on(axis) = (axis == Axis::x ? at.width : at.height) * unit;
    }
    createWindow(container_->handle(), pixels(), design.text);
}

Members Control::table() {
    return Window::table()
        .readOnly(L"Index", &Control::readIndex)
        .readOnly(L"Container", &Control::readContainer)
        .readOnly(L"Parent", &Control::parent)
        .field(L"ToolTipText", &Control::toolTip_)
        .property(L"Left", &Control::left, &Control::setLeft)
        .property(L"Top", &Control::top, &Control::setTop)
        .property(L"Width", &Control::width, &Control::setWidth)
        .property(L"Height", &Control::height, &Control::setHeight)
        .method(L"Move", &Control::move);
}

std::wstring Control::path() const {
    return index_ ? name() + L"(" + std::to_wstring(*index_) + L")" : name();
}

std::int16_t Control::readIndex() const {
    if (!index_) throw RuntimeError(notAnArray);
    return *index_;
}

HostObject Control::readContainer() const {
    living();
    return HostObject(container_);
}

HostObject Control::parent() const {
    living();
    return HostObject(form_);
}

float Control::position(Axis axis) const {
    living();
    return static_cast<float>(position_.on(axis) / container_->unit(axis) + container_->origin(axis));
}

void Control::setPosition(Axis axis, float value) {
    living();
    position_.on(axis) = (value - container_->origin(axis)) * container_->unit(axis);
    place();
}

float Control::length(Axis axis) const {
    living();
    return static_cast<float>(size_.on(axis) / container_->unit(axis));
}

void Control::setLength(Axis axis, float value) {
    if (value < 0) throw RuntimeError(invalidPropertyValue);
    living();
    size_.on(axis) = value * container_->unit(axis);
    place();
}

void Control::setSize(double widthTwips, double heightTwips) {
    size_ = {widthTwips, heightTwips};
    place();
}

Variant Control::move(const HostCall& call) {
    if (call.count() < 1 || call.count() > 4) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    void (Control::*const parts[])(float) = {&Control::setLeft, &Control::setTop, &Control::setWidth,
                                             &Control::setHeight};
    for (std::size_t i = 0; i < call.count(); ++i)
        if (!call.argument(i).isMissing()) (this->*parts[i])(fromHost<float>(call.argument(i)));
    return {};
}

// Windows have whole pixels, whatever place the control was given.
RECT Control::pixels() const {
    const auto on = [](double twips, Axis axis) {
        return static_cast<LONG>(std::lround(twips / twipsPerPixel(axis)));
    };
    const auto left = on(position_.x, Axis::x), top = on(position_.y, Axis::y);
    return {left, top, left + on(size_.x, Axis::x), top + windowHeight(on(size_.y, Axis::y))};
}

void Control::place() {
    const auto at = pixels();
    SetWindowPos(handle(), nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    refresh();
}

void Control::unload() { forgetWindow(); }

void Control::forgetWindow() {
    Window::forgetWindow();
    form_ = nullptr;
    container_ = nullptr;
}

}  // namespace vorla::forms
