#include "support/forms/controls.h"

#include "support/forms/form.h"

namespace vorla::forms {
namespace {

constexpr DWORD child = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
constexpr std::int32_t face = systemColour(COLOR_BTNFACE), faceText = systemColour(COLOR_BTNTEXT),
                       field = systemColour(COLOR_WINDOW), fieldText = systemColour(COLOR_WINDOWTEXT);

// A control's window in the font that it was given, for measuring and drawing text.
class InFont {
public:
    InFont(HWND window, HDC on, const HostFont& font)
        : window_(window),
          on_(on ? on : GetDC(window)),
          owned_(!on),
          before_(SelectObject(on_, handleOf(font))) {}
    InFont(const InFont&) = delete;
    InFont& operator=(const InFont&) = delete;
    ~InFont() {
        SelectObject(on_, before_);
        if (owned_) ReleaseDC(window_, on_);
    }
    HDC get() const { return on_; }

private:
    const HWND window_;
    const HDC on_;
    const bool owned_;
    const HGDIOBJ before_;
};

}  // namespace

Label::Label(Form& form, const Design& design)
    : Control(form, design, L"Label", {L"STATIC", child | SS_LEFT, 0, face, faceText}) {}

const Members& Label::members() const {
    static const auto table = Control::table()
                                  .property(L"Caption", &Label::text, &Label::setText)
                                  .property(L"AutoSize", &Label::autoSize, &Label::setAutoSize)
                                  .byDefault(L"Caption");
    return table;
}

void Label::setAutoSize(bool autoSize) {
    autoSize_ = autoSize;
    textOrFontChanged();
}

void Label::textOrFontChanged() {
    if (!autoSize_) return;
    const auto shown = text();
    const InFont measured(living(), nullptr, font());
    RECT size{};
    DrawTextW(measured.get(), shown.c_str(), -1, &size, DT_CALCRECT);
    setSize(size.right * twipsPerPixel(Axis::x), size.bottom * twipsPerPixel(Axis::y));
}

TextBox::TextBox(Form& form, const Design& design)
    : Control(form, design, L"TextBox",
              {L"EDIT", child | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, field, fieldText}) {}

const Members& TextBox::members() const {
    static const auto table =
        Control::table().property(L"Text", &TextBox::text, &TextBox::setText).byDefault(L"Text");
    return table;
}

CommandButton::CommandButton(Form& form, const Design& design)
    : Control(form, design, L"CommandButton",
              {L"BUTTON", child | WS_TABSTOP | BS_PUSHBUTTON, 0, face, faceText}) {}

const Members& CommandButton::members() const {
    static const auto table =
        Control::table().property(L"Caption", &CommandButton::text, &CommandButton::setText);
    return table;
}

CheckBox::CheckBox(Form& form, const Design& design)
    : Control(form, design, L"CheckBox",
              {L"BUTTON", child | WS_TABSTOP | BS_AUTOCHECKBOX, 0, face, faceText}) {}

const Members& CheckBox::members() const {
    static const auto table = Control::table()
                                  .property(L"Caption", &CheckBox::text, &CheckBox::setText)
                                  .property(L"Value", &CheckBox::value, &CheckBox::setValue)
                                  .byDefault(L"Value");
    return table;
}

std::int16_t CheckBox::value() const {
    return static_cast<std::int16_t>(SendMessageW(living(), BM_GETCHECK, 0, 0));
}

void CheckBox::setValue(std::int16_t value) {
    if (value < BST_UNCHECKED || value > BST_INDETERMINATE) throw RuntimeError(invalidPropertyValue);
    SendMessageW(living(), BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

OptionButton::OptionButton(Form& form, const Design& design)
    : Control(form, design, L"OptionButton", {L"BUTTON", child | BS_AUTORADIOBUTTON, 0, face, faceText}) {}

const Members& OptionButton::members() const {
    static const auto table = Control::table()
                                  .property(L"Caption", &OptionButton::text, &OptionButton::setText)
                                  .property(L"Value", &OptionButton::value, &OptionButton::setValue)
                                  .byDefault(L"Value");
    return table;
}

bool OptionButton::value() const { return SendMessageW(living(), BM_GETCHECK, 0, 0) == BST_CHECKED; }

void OptionButton::setValue(bool value) {
    living();
    if (value) {
        for (const auto& other : form().controls()) {
            auto* const option = dynamic_cast<OptionButton*>(other.get());
            if (option && option != this && &option->container() == &container()) option->setValue(false);
        }
    }
    SendMessageW(living(), BM_SETCHECK, value ? BST_CHECKED : BST_UNCHECKED, 0);
}

Members List::table() {
    return Control::table()
        .readOnly(L"ListCount", &List::listCount)
        .property(L"ListIndex", &List::listIndex, &List::setListIndex)
        .property(L"List", &List::line, &List::setLine)
        .method(L"AddItem", &List::addItem)
        .method(L"Clear", &List::clear);
}

std::int16_t List::listCount() const { return static_cast<std::int16_t>(send(messages_.count)); }
std::int16_t List::listIndex() const { return static_cast<std::int16_t>(send(messages_.choice)); }

void List::setListIndex(std::int16_t index) {
    if (index < -1 || index >= listCount()) throw RuntimeError(invalidPropertyValue);
    send(messages_.choose, static_cast<WPARAM>(index));
}

Text List::line(std::int32_t index) const {
    if (index < 0 || index >= listCount()) throw RuntimeError(invalidIndex);
    const auto number = static_cast<WPARAM>(index);
    Text result(static_cast<std::size_t>(send(messages_.textLength, number)) + 1, L'\0');
    send(messages_.text, number, reinterpret_cast<LPARAM>(result.data()));
    result.pop_back();
    return result;
}

void List::setLine(std::int32_t index, const Text& text) {
    if (index < 0 || index > listCount()) throw RuntimeError(invalidIndex);
    if (index < listCount()) send(messages_.remove, static_cast<WPARAM>(index));
    send(messages_.insert, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
}

std::int16_t List::find(const Text& text) const {
    for (std::int16_t i = 0; i < listCount(); ++i)
        if (line(i) == text) return i;
    return -1;
}

Variant List::addItem(const HostCall& call) {
    if (call.count() < 1 || call.count() > 2) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    const auto text = fromHost<Text>(call.argument(0));
    if (call.count() == 1) {
        send(messages_.add, 0, reinterpret_cast<LPARAM>(text.c_str()));
    } else {
        const auto index = fromHost<std::int16_t>(call.argument(1));
        if (index < 0 || index > listCount()) throw RuntimeError(ErrorNumber::invalidProcedureCall);
        send(messages_.insert, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
    }
    return {};
}

Variant List::clear(const HostCall&) {
    send(messages_.clear);
    return {};
}

ListBox::ListBox(Form& form, const Design& design)
    : List(form, design, L"ListBox",
           {L"LISTBOX", child | WS_TABSTOP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE, field,
            fieldText},
           {LB_ADDSTRING, LB_RESETCONTENT, LB_GETCOUNT, LB_GETCURSEL, LB_SETCURSEL, LB_GETTEXTLEN, LB_GETTEXT,
            LB_DELETESTRING, LB_INSERTSTRING}) {}

const Members& ListBox::members() const {
    static const auto table =
        List::table().property(L"Text", &ListBox::chosenText, &ListBox::chooseText).byDefault(L"Text");
    return table;
}

Text ListBox::chosenText() const { return listIndex() < 0 ? Text() : line(listIndex()); }
void ListBox::chooseText(const Text& text) { setListIndex(find(text)); }

ComboBox::ComboBox(Form& form, const Design& design) : ComboBox(form, design, CBS_DROPDOWN) {}

ComboBox::ComboBox(Form& form, const Design& design, DWORD style)
    : List(form, design, L"ComboBox",
           {L"COMBOBOX", child | WS_TABSTOP | WS_VSCROLL | CBS_AUTOHSCROLL | style, 0, field, fieldText},
           {CB_ADDSTRING, CB_RESETCONTENT, CB_GETCOUNT, CB_GETCURSEL, CB_SETCURSEL, CB_GETLBTEXTLEN,
            CB_GETLBTEXT, CB_DELETESTRING, CB_INSERTSTRING}) {}

const Members& ComboBox::members() const {
    static const auto table =
        List::table().property(L"Text", &ComboBox::text, &ComboBox::setText).byDefault(L"Text");
    return table;
}

// The window of a combo box includes its open list.
int ComboBox::windowHeight(int pixels) const {
    constexpr int listHeight = 120;
    return pixels + listHeight;
}

DropDownList::DropDownList(Form& form, const Design& design) : ComboBox(form, design, CBS_DROPDOWNLIST) {}

const Members& DropDownList::members() const {
    static const auto table =
        List::table().property(L"Text", &DropDownList::text, &DropDownList::chooseText).byDefault(L"Text");
    return table;
}

void DropDownList::chooseText(const Text& text) {
    const auto index = find(text);
    if (index < 0) throw RuntimeError(readOnlyProperty);
    setListIndex(index);
}

Frame::Frame(Form& form, const Design& design)
    : Control(form, design, L"Frame",
              {nullptr, child | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, face, faceText}) {}

const Members& Frame::members() const {
    static const auto table = Control::table().property(L"Caption", &Frame::text, &Frame::setText);
    return table;
}

void Frame::paint(HDC on) {
    constexpr int indent = 8, gap = 2;
    const auto caption = text();
    const InFont drawn(handle(), on, font());
    RECT title{};
    DrawTextW(on, caption.c_str(), -1, &title, DT_CALCRECT | DT_SINGLELINE);
    RECT edge;
    GetClientRect(handle(), &edge);
    edge.top = title.bottom / 2;
    DrawEdge(on, &edge, EDGE_ETCHED, BF_RECT);
    if (caption.empty()) return;
    OffsetRect(&title, indent + gap, 0);
    const RECT interruption = {title.left - gap, title.top, title.right + gap, title.bottom};
    FillRect(on, &interruption, background());
    SetTextColor(on, foreground());
    SetBkMode(on, TRANSPARENT);
    DrawTextW(on, caption.c_str(), -1, &title, DT_SINGLELINE);
}

PictureBox::PictureBox(Form& form, const Design& design)
    : Control(form, design, L"PictureBox",
              {nullptr, child | WS_CLIPCHILDREN, WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT, face, faceText}) {}

const Members& PictureBox::members() const {
    static const auto table = Window::withScale(Control::table());
    return table;
}

}  // namespace vorla::forms
