// Fonts and pictures: the automation runtime's own objects, for use with windows.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/com_pointer.h"
#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::forms {

/// The font that controls have unless told otherwise, a new object each time.
HostFont newFont(const wchar_t* name = L"MS Sans Serif", double points = 8.25);

/// The font's handle. It belongs to the object and is valid until the object changes.
HFONT handleOf(const HostFont& font);

/// Tells a listener about changes of a font, as long as this exists.
class FontWatch {
public:
    class Listener {
    public:
        virtual void fontChanged() = 0;

    protected:
        ~Listener() = default;
    };

    FontWatch(const HostFont& font, Listener& listener);
    FontWatch(const FontWatch&) = delete;
    FontWatch& operator=(const FontWatch&) = delete;
    ~FontWatch();

private:
    class Sink;

    ComPointer<IConnectionPoint> point_;
    ComPointer<Sink> sink_;
    DWORD cookie_ = 0;
};

/// A picture that owns the bitmap; without a bitmap an empty picture.
HostPicture newPicture(HBITMAP bitmap = nullptr);

/// Draws the picture in its own size at the top left.
void draw(const HostPicture& picture, HDC on);

}  // namespace vorla::forms
