// The common part of forms and controls: a window, its colours, font and text, and the measures of its
// inside.
#pragma once

#include <memory>
#include <string>

#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "support/forms/object.h"
#include "support/forms/scale.h"
#include "support/forms/standard_objects.h"

namespace vorla::forms {

/// System colours as hosts write them: the top bit and the number.
inline constexpr std::int32_t systemColour(int number) {
    return static_cast<std::int32_t>(0x80000000u | static_cast<unsigned>(number));
}

/// A host's colour as the one to paint with. Error 380 for an invalid one.
COLORREF translated(std::int32_t colour);

/// The window is destroyed when its form is unloaded. If the object is still referenced, members that need
/// the window then raise error 364.
class Window : public Object, private FontWatch::Listener {
public:
    /// Null when the form is unloaded.
    HWND handle() const { return window_; }
    const Text& name() const { return name_; }

    /// Twips in one unit of the inside, and the coordinate at the edge.
    double unit(Axis axis) const;
    double origin(Axis axis) const;

    std::int32_t hWnd() const;
    Text text() const;
    void setText(const Text& text);
    std::int32_t backColor() const { return backColor_; }
    void setBackColor(std::int32_t colour);
    std::int32_t foreColor() const { return foreColor_; }
    void setForeColor(std::int32_t colour);
    HostFont font() const { return font_; }
    void setFont(const HostFont& font);
    bool enabled() const;
    void setEnabled(bool enabled);
    bool visible() const;
    virtual void setVisible(bool visible);

    /// Paints everything that is waiting to be painted.
    void refresh();

    /// The window as an object; null for a window that is not the host's.
    static Window* of(HWND window);

protected:
    /// The attributes of one kind of window.
    struct Look {
        const wchar_t* windowClass;  // null for a window that paints itself
        DWORD style, extendedStyle;
        std::int32_t backColor, foreColor;
    };

    Window(std::wstring typeName, Text name, test::CallRecord& record, const Look& look);
    ~Window();

    /// The derived class calls this when it is complete.
    void createWindow(HWND parent, const RECT& pixels, const Text& text);
    /// Called when the window is destroyed.
    virtual void forgetWindow();

    static Members table();
    static Members withScale(Members members);
    virtual bool hasScale() const { return false; }

    virtual void paint(HDC on);
    virtual void textOrFontChanged() {}
    /// Answers the messages of a window that paints itself.
    virtual LRESULT answerMessage(UINT message, WPARAM first, LPARAM second);

    /// The window, or error 364.
    HWND living() const;
    HBRUSH background() const { return brush_.get(); }
    COLORREF foreground() const;
    Variant setFocus(const HostCall& call);
    Variant refreshCalled(const HostCall& call);
    Variant zOrder(const HostCall& call);

    HostPicture picture() const { return picture_; }
    void setPicture(const HostPicture& picture);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    static const wchar_t* ownClass();

    void fontChanged() override;

    Extent inside() const;
    /// A context that draws outlines in the foreground colour and fills nothing.
    std::int32_t hDC() const;
    std::int16_t scaleMode() const { return scale_.mode(); }
    void setScaleMode(std::int16_t mode) { scale_.setMode(mode, inside()); }
    float scaleLeft() const { return static_cast<float>(scale_.origin(Axis::x)); }
    void setScaleLeft(float value) { scale_.setOrigin(Axis::x, value, inside()); }
    float scaleTop() const { return static_cast<float>(scale_.origin(Axis::y)); }
    void setScaleTop(float value) { scale_.setOrigin(Axis::y, value, inside()); }
    float scaleWidth() const { return static_cast<float>(scale_.size(Axis::x, inside())); }
    void setScaleWidth(float value) { scale_.setSize(Axis::x, value, inside()); }
    float scaleHeight() const { return static_cast<float>(scale_.size(Axis::y, inside())); }
    void setScaleHeight(float value) { scale_.setSize(Axis::y, value, inside()); }
    Variant scaleX(const HostCall& call) { return convert(call, Axis::x); }
    Variant scaleY(const HostCall& call) { return convert(call, Axis::y); }
    Variant convert(const HostCall& call, Axis axis);
    Variant line(const HostCall& call);
    LONG toPixels(float coordinate, Axis axis) const;

    const Text name_;
    const Look look_;
    HWND window_ = nullptr;
    std::int32_t backColor_, foreColor_;
    Brush brush_;
    HostFont font_;
    std::unique_ptr<FontWatch> watch_;
    HostPicture picture_;
    Text tag_;
    Scale scale_;
    // Kept for programs that read them back; what is drawn is not drawn again when the window is painted.
    bool autoRedraw_ = false;
    std::int16_t drawStyle_ = 0, drawMode_ = 13, drawWidth_ = 1;
};

}  // namespace vorla::forms
