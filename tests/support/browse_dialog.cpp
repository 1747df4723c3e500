#include "support/browse_dialog.h"

#include <commctrl.h>

#include "frame/values/unique_handle.h"

namespace vorla::test {
namespace {

BOOL CALLBACK findTree(HWND control, LPARAM parameter) {
    wchar_t name[40] = L"";
    GetClassNameW(control, name, 40);
    if (std::wstring(name) != WC_TREEVIEWW) return TRUE;
    *reinterpret_cast<HWND*>(parameter) = control;
    return FALSE;
}

HTREEITEM next(HWND tree, WPARAM which, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

std::wstring nameOf(HWND tree, HTREEITEM item) {
    wchar_t text[MAX_PATH] = L"";
    TVITEMW asked{};
    asked.mask = TVIF_TEXT;
    asked.hItem = item;
    asked.pszText = text;
    asked.cchTextMax = MAX_PATH;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
    return asked.pszText;
}

template <class Use>
void forEachBelow(HWND tree, Use&& use) {
    const auto selected = next(tree, TVGN_CARET, nullptr);
    SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(selected));
    for (auto item = next(tree, TVGN_CHILD, selected); item; item = next(tree, TVGN_NEXT, item)) use(item);
}

}  // namespace

BrowseDialog::BrowseDialog(HWND dialog) : tree_(nullptr) {
    EnumChildWindows(dialog, &findTree, reinterpret_cast<LPARAM>(&tree_));
}

std::wstring BrowseDialog::selected() const {
    const auto item = next(tree_, TVGN_CARET, nullptr);
    return item ? nameOf(tree_, item) : std::wstring();
}

std::vector<std::wstring> BrowseDialog::below() const {
    std::vector<std::wstring> names;
    forEachBelow(tree_, [&](HTREEITEM item) { names.push_back(nameOf(tree_, item)); });
    return names;
}

bool BrowseDialog::select(const std::wstring& name) const {
    HTREEITEM found = nullptr;
    forEachBelow(tree_, [&](HTREEITEM item) {
        if (nameOf(tree_, item) == name) found = item;
    });
    return found && SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(found));
}

void readTheWayTo(const std::wstring& path) {
    for (auto end = path.find(L'\\'); end != std::wstring::npos; end = path.find(L'\\', end + 1)) {
        WIN32_FIND_DATAW found;
        const FileSearch search(FindFirstFileW((path.substr(0, end) + L"\\*").c_str(), &found));
        while (search && FindNextFileW(search.get(), &found)) {
        }
    }
}

}  // namespace vorla::test
