#include "support/forms/standard_objects.h"

#include <cmath>

#include "frame/values/conversions.h"

namespace vorla::forms {

HostFont newFont(const wchar_t* name, double points) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<LPOLESTR>(name);
    description.cySize.int64 = std::llround(points * 10'000);
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPointer<IFontDisp> font;
    throwIfFailed(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.put())));
    return HostFont(font.get());
}

HFONT handleOf(const HostFont& font) {
    ComPointer<IFont> asked;
    HFONT handle = nullptr;
    throwIfFailed(font.get()->QueryInterface(IID_IFont, reinterpret_cast<void**>(asked.put())));
    throwIfFailed(asked->get_hFont(&handle));
    return handle;
}

class FontWatch::Sink final : public IPropertyNotifySink {
public:
    explicit Sink(Listener& listener) : listener_(listener) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IPropertyNotifySink) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const auto left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override {
        listener_.fontChanged();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

private:
    ~Sink() = default;

    Listener& listener_;
    ULONG references_ = 1;
};

FontWatch::FontWatch(const HostFont& font, Listener& listener)
    : sink_(ComPointer<Sink>::adopt(new Sink(listener))) {
    ComPointer<IConnectionPointContainer> container;
    throwIfFailed(
        font.get()->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container.put())));
    throwIfFailed(container->FindConnectionPoint(IID_IPropertyNotifySink, point_.put()));
    throwIfFailed(point_->Advise(sink_.get(), &cookie_));
}

FontWatch::~FontWatch() { point_->Unadvise(cookie_); }

HostPicture newPicture(HBITMAP bitmap) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = bitmap ? PICTYPE_BITMAP : PICTYPE_NONE;
    description.bmp.hbitmap = bitmap;
    ComPointer<IPictureDisp> picture;
    throwIfFailed(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                           reinterpret_cast<void**>(picture.put())));
    return HostPicture(picture.get());
}

void draw(const HostPicture& picture, HDC on) {
    ComPointer<IPicture> asked;
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (!picture ||
        FAILED(picture.get()->QueryInterface(IID_IPicture, reinterpret_cast<void**>(asked.put()))) ||
        FAILED(asked->get_Width(&width)) || FAILED(asked->get_Height(&height)) || width <= 0 || height <= 0)
        return;
    constexpr int himetricPerInch = 2540;
    const int pixelsWide = MulDiv(width, GetDeviceCaps(on, LOGPIXELSX), himetricPerInch);
    const int pixelsHigh = MulDiv(height, GetDeviceCaps(on, LOGPIXELSY), himetricPerInch);
    // Pictures count their lines from the bottom.
    asked->Render(on, 0, 0, pixelsWide, pixelsHigh, 0, height, width, -height, nullptr);
}

}  // namespace vorla::forms
