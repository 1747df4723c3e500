#include "support/forms/window.h"

namespace vorla::forms {

COLORREF translated(std::int32_t colour) {
    COLORREF result = 0;
    // An invalid colour is refused when it is set.
    if (FAILED(OleTranslateColor(static_cast<OLE_COLOR>(colour), nullptr, &result)))
        throw RuntimeError(invalidPropertyValue);
    return result;
}

Window* Window::of(HWND window) {
    // The edit field of a combo box is a system window inside one of the host's.
    for (; window; window = GetAncestor(window, GA_PARENT)) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process != GetCurrentProcessId()) return nullptr;
        if (const auto kept = GetPropW(window, L"Object")) return static_cast<Window*>(kept);
    }
    return nullptr;
}

Window::Window(std::wstring typeName, Text name, test::CallRecord& record, const Look& look)
    : Object(std::move(typeName), record),
      name_(std::move(name)),
      look_(look),
      backColor_(look.backColor),
      foreColor_(look.foreColor),
      brush_(CreateSolidBrush(translated(look.backColor))),
      font_(newFont()),
      watch_(new FontWatch(font_, *this)),
      picture_(newPicture()) {}

Window::~Window() = default;

const wchar_t* Window::ownClass() {
    static const wchar_t* const name = [] {
        WNDCLASSW description{};
        // Its device context never changes, so that a program may keep it.
        description.style = CS_OWNDC | CS_HREDRAW | CS_VREDRAW;
        description.lpfnWndProc = &procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = L"FormsHostWindow";
        RegisterClassW(&description);
        return description.lpszClassName;
    }();
    return name;
}

void Window::createWindow(HWND parent, const RECT& pixels, const Text& text) {
    window_ =
        CreateWindowExW(look_.extendedStyle, look_.windowClass ? look_.windowClass : ownClass(), text.c_str(),
                        look_.style, pixels.left, pixels.top, pixels.right - pixels.left,
                        pixels.bottom - pixels.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!window_) throw RuntimeError(ErrorNumber::outOfMemory);
    SetPropW(window_, L"Object", static_cast<Window*>(this));
    fontChanged();
}

void Window::forgetWindow() {
    window_ = nullptr;
    watch_.reset();
}

HWND Window::living() const {
    if (!window_) throw RuntimeError(objectUnloaded);
    return window_;
}

Members Window::table() {
    return Members()
        .readOnly(L"Name", &Window::name)
        .readOnly(L"hWnd", &Window::hWnd)
        .field(L"Tag", &Window::tag_)
        .property(L"BackColor", &Window::backColor, &Window::setBackColor)
        .property(L"ForeColor", &Window::foreColor, &Window::setForeColor)
        .property(L"Font", &Window::font, &Window::setFont)
        .property(L"Enabled", &Window::enabled, &Window::setEnabled)
        .property(L"Visible", &Window::visible, &Window::setVisible)
        .method(L"SetFocus", &Window::setFocus)
        .method(L"Refresh", &Window::refreshCalled)
        .method(L"ZOrder", &Window::zOrder);
}

Members Window::withScale(Members members) {
    return members.property(L"ScaleMode", &Window::scaleMode, &Window::setScaleMode)
        .property(L"ScaleLeft", &Window::scaleLeft, &Window::setScaleLeft)
        .property(L"ScaleTop", &Window::scaleTop, &Window::setScaleTop)
        .property(L"ScaleWidth", &Window::scaleWidth, &Window::setScaleWidth)
        .property(L"ScaleHeight", &Window::scaleHeight, &Window::setScaleHeight)
        .method(L"ScaleX", &Window::scaleX)
        .method(L"ScaleY", &Window::scaleY)
        .method(L"Line", &Window::line)
        .field(L"AutoRedraw", &Window::autoRedraw_)
        .field(L"DrawStyle", &Window::drawStyle_)
        .field(L"DrawMode", &Window::drawMode_)
        .field(L"DrawWidth", &Window::drawWidth_)
        .readOnly(L"hDC", &Window::hDC)
        .property(L"Picture", &Window::picture, &Window::setPicture);
}

std::int32_t Window::hWnd() const {
    // Handles have 32 significant bits, in 64-bit programs too.
    return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(living()));
}

std::int32_t Window::hDC() const {
    const HDC context = GetDC(living());
    SelectObject(context, GetStockObject(DC_PEN));
    SelectObject(context, GetStockObject(HOLLOW_BRUSH));
    SetDCPenColor(context, foreground());
    return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(context));
}

Text Window::text() const {
    Text result(static_cast<std::size_t>(GetWindowTextLengthW(living())) + 1, L'\0');
    result.resize(
        static_cast<std::size_t>(GetWindowTextW(window_, result.data(), static_cast<int>(result.size()))));
    return result;
}

void Window::setText(const Text& text) {
    SetWindowTextW(living(), text.c_str());
    textOrFontChanged();
    refresh();
}

void Window::setBackColor(std::int32_t colour) {
    Brush brush(CreateSolidBrush(translated(colour)));
    brush_ = std::move(brush);
    backColor_ = colour;
    refresh();
}

void Window::setForeColor(std::int32_t colour) {
    translated(colour);
    foreColor_ = colour;
    // What a program has drawn inside keeps its colour.
    if (!hasScale()) refresh();
}

COLORREF Window::foreground() const { return translated(foreColor_); }

void Window::setFont(const HostFont& font) {
    if (!font) throw RuntimeError(ErrorNumber::objectNotSet);
    watch_.reset(new FontWatch(font, *this));
    font_ = font;
    fontChanged();
}

void Window::fontChanged() {
    if (!window_) return;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(handleOf(font_)), TRUE);
    textOrFontChanged();
    refresh();
}

void Window::setPicture(const HostPicture& picture) {
    picture_ = picture;
    refresh();
}

bool Window::enabled() const { return IsWindowEnabled(living()) != FALSE; }
void Window::setEnabled(bool enabled) { EnableWindow(living(), enabled); }

// A control on a form that is not shown yet is visible all the same.
bool Window::visible() const { return (GetWindowLongW(living(), GWL_STYLE) & WS_VISIBLE) != 0; }
void Window::setVisible(bool visible) { ShowWindow(living(), visible ? SW_SHOWNA : SW_HIDE); }

void Window::refresh() {
    if (window_)
        RedrawWindow(window_, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

Variant Window::setFocus(const HostCall&) {
    if (!IsWindowVisible(living()) || !IsWindowEnabled(window_))
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    SetFocus(window_);
    return {};
}

Variant Window::refreshCalled(const HostCall&) {
    living();
    refresh();
    return {};
}

Variant Window::zOrder(const HostCall& call) {
    const bool toBack = call.count() > 0 && fromHost<std::int32_t>(call.argument(0)) != 0;
    SetWindowPos(living(), toBack ? HWND_BOTTOM : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return {};
}

Extent Window::inside() const {
    RECT pixels;
    GetClientRect(living(), &pixels);
    return {pixels.right * twipsPerPixel(Axis::x), pixels.bottom * twipsPerPixel(Axis::y)};
}

double Window::unit(Axis axis) const { return hasScale() ? scale_.unit(axis, inside()) : 1; }
double Window::origin(Axis axis) const { return hasScale() ? scale_.origin(axis) : 0; }

// Arguments: the length, the mode it is given in, the mode it is wanted in.
Variant Window::convert(const HostCall& call, Axis axis) {
    Members::expectArguments(call, 3);
    return toHost(static_cast<float>(
        scale_.convert(fromHost<float>(call.argument(0)), fromHost<std::int16_t>(call.argument(1)),
                       fromHost<std::int16_t>(call.argument(2)), axis, inside())));
}

void Window::paint(HDC on) { draw(picture_, on); }

LRESULT Window::answerMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_ERASEBKGND: {
            RECT all;
            GetClientRect(window_, &all);
            FillRect(reinterpret_cast<HDC>(first), &all, background());
            return TRUE;
        }
        case WM_PAINT: {
            PAINTSTRUCT painting;
            paint(BeginPaint(window_, &painting));
            EndPaint(window_, &painting);
            return 0;
        }
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSTATIC: {
            const auto* const asking = of(reinterpret_cast<HWND>(second));
            if (!asking || asking == this) break;
            const auto on = reinterpret_cast<HDC>(first);
            SetTextColor(on, asking->foreground());
            SetBkColor(on, translated(asking->backColor_));
            return reinterpret_cast<LRESULT>(asking->background());
        }
        default: break;
    }
    return DefWindowProcW(window_, message, first, second);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const object = static_cast<Window*>(GetPropW(window, L"Object"));
    if (!object) return DefWindowProcW(window, message, first, second);
    // Answering may unload the form and release its last reference.
    const HostObject alive(object);
    try {
        return object->answerMessage(message, first, second);
    } catch (const RuntimeError&) {
        // The system cannot pass an exception on.
        return DefWindowProcW(window, message, first, second);
    }
}

}  // namespace vorla::forms
