// The common part of all controls: the form, the container, and a place in the container's scale.
#pragma once

#include <optional>

#include "support/forms/window.h"

namespace vorla::forms {

class Form;

/// A place, in the units of the container.
struct Place {
    float left = 0, top = 0, width = 0, height = 0;
};

/// How a control is designed.
struct Design {
    Text name;
    Text text = {};  // its caption, or the text typed into it
    Place at = {};
    std::optional<std::int16_t> index = {};  // of an element of a control array
    Window* in = nullptr;                    // its container; the form without one
    const wchar_t* typeName = nullptr;       // to look like a control of another maker
};

class Control : public Window {
public:
    Form& form() const { return *form_; }
    Window& container() const { return *container_; }
    std::optional<std::int16_t> index() const { return index_; }
    std::wstring path() const override;

    /// Called when the form is unloaded. The object lives on while it is referenced.
    void unload();

protected:
    Control(Form& form, const Design& design, const wchar_t* typeName, const Look& look);

    static Members table();

    /// Moves and sizes the window. The control's properties keep the values that they were given.
    void setSize(double widthTwips, double heightTwips);
    /// The height of the window for a control of this height.
    virtual int windowHeight(int pixels) const { return pixels; }

private:
    std::int16_t readIndex() const;
    HostObject readContainer() const;
    HostObject parent() const;
    float left() const { return position(Axis::x); }
    void setLeft(float value) { setPosition(Axis::x, value); }
    float top() const { return position(Axis::y); }
    void setTop(float value) { setPosition(Axis::y, value); }
    float width() const { return length(Axis::x); }
    void setWidth(float value) { setLength(Axis::x, value); }
    float height() const { return length(Axis::y); }
    void setHeight(float value) { setLength(Axis::y, value); }
    Variant move(const HostCall& call);

    float position(Axis axis) const;
    void setPosition(Axis axis, float value);
    float length(Axis axis) const;
    void setLength(Axis axis, float value);
    RECT pixels() const;
    void place();
    void forgetWindow() override;

    Form* form_;         // null when unloaded
    Window* container_;  // lives as long as the form
    const std::optional<std::int16_t> index_;
    Text toolTip_;
    // In twips, from the inner edge of the container.
    Extent position_, size_;
};

}  // namespace vorla::forms
