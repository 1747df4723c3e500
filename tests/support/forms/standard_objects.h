// Fonts and pictures: the automation runtime's own objects, and what windows make of them.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/com_pointer.h"
#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::forms {

/// The font that controls have unless told otherwise, a new object each time.
HostFont newFont(const wchar_t* name = L"MS Sans Serif", double points = 8.25);

/// The font as the system selects it. It belongs to the object, and only until the object changes.
HFONT handleOf(const HostFont& font);

/// Tells a listener that a font was changed, for as long as this lives.
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

/// A picture that takes the bitmap over; one of no kind without a bitmap.
HostPicture newPicture(HBITMAP bitmap = nullptr);

/// Draws the picture in its own size at the left and top edge.
void draw(const HostPicture& picture, HDC on);

}  // namespace vorla::forms
