#include "support/forms/multi_list_box.h"

#include "support/forms/form.h"

namespace vorla::forms {

MultiListBox::MultiListBox(Form& form, const Design& design)
    : List(form, design, L"ListBox",
           {L"LISTBOX",
            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT |
                LBS_MULTIPLESEL,
            WS_EX_CLIENTEDGE, systemColour(COLOR_WINDOW), systemColour(COLOR_WINDOWTEXT)},
           {LB_ADDSTRING, LB_RESETCONTENT, LB_GETCOUNT, LB_GETCARETINDEX, LB_SETCARETINDEX, LB_GETTEXTLEN,
            LB_GETTEXT, LB_DELETESTRING, LB_INSERTSTRING}) {}

const Members& MultiListBox::members() const {
    static const auto table = List::table()
                                  .readOnly(L"ListCount", &MultiListBox::count)
                                  .readOnly(L"SelCount", &MultiListBox::selectedCount)
                                  .property(L"List", &MultiListBox::line, &MultiListBox::setLine)
                                  .property(L"ItemData", &MultiListBox::itemData, &MultiListBox::setItemData)
                                  .property(L"Selected", &MultiListBox::selected, &MultiListBox::setSelected);
    return table;
}

void MultiListBox::fill(std::int32_t count, const std::function<Text(std::int32_t)>& lineAt) {
    send(WM_SETREDRAW, FALSE);
    for (std::int32_t i = 0; i < count; ++i)
        send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lineAt(i).c_str()));
    send(WM_SETREDRAW, TRUE);
}

WPARAM MultiListBox::checked(std::int32_t index) const {
    if (index < 0 || index >= count()) throw RuntimeError(invalidIndex);
    return static_cast<WPARAM>(index);
}

Text MultiListBox::line(std::int32_t index) const {
    const auto number = checked(index);
    Text result(static_cast<std::size_t>(send(LB_GETTEXTLEN, number)) + 1, L'\0');
    send(LB_GETTEXT, number, reinterpret_cast<LPARAM>(result.data()));
    result.pop_back();
    return result;
}

void MultiListBox::setLine(std::int32_t index, const Text& text) {
    send(LB_DELETESTRING, checked(index));
    send(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
}

std::int32_t MultiListBox::itemData(std::int32_t index) const {
    return static_cast<std::int32_t>(send(LB_GETITEMDATA, checked(index)));
}

void MultiListBox::setItemData(std::int32_t index, std::int32_t data) {
    send(LB_SETITEMDATA, checked(index), data);
}

bool MultiListBox::selected(std::int32_t index) const { return send(LB_GETSEL, checked(index)) > 0; }

void MultiListBox::setSelected(std::int32_t index, bool selected) {
    const auto number = checked(index);
    send(LB_SETSEL, selected, static_cast<LPARAM>(number));
}

}  // namespace vorla::forms
