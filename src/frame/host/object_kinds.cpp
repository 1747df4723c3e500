#include "frame/host/object_kinds.h"

#include "frame/host/bound_object.h"
#include "frame/values/com_pointer.h"

namespace vorla {
namespace {

Text nameOf(ITypeInfo& type) {
    Bstr name;
    if (FAILED(type.GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr))) return {};
    return Text(name.view());
}

Text className(IDispatch& object) {
    const auto classInfo = queried<IProvideClassInfo>(&object);
    ComPointer<ITypeInfo> type;
    if (!classInfo || FAILED(classInfo->GetClassInfo(type.put())) || !type) return {};
    return nameOf(*type.get());
}

Text interfaceName(IDispatch& object) {
    ComPointer<ITypeInfo> type;
    if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, type.put())) || !type) return {};
    auto name = nameOf(*type.get());
    if (name.starts_with(L'_')) name.erase(0, 1);
    return name;
}

}  // namespace

Text typeName(const HostObject& object) {
    if (!object) return L"Nothing";
    auto name = className(*object.get());
    if (name.empty()) name = interfaceName(*object.get());
    return name.empty() ? L"Object" : name;
}

bool isHostForm(const HostObject& object) {
    BoundObject form(object);
    return form.knows(L"hWnd") && form.knows(L"Controls") && form.knows(L"WindowState") &&
           !form.knows(L"Container");
}

bool isCheckBox(TextView typeName) { return typeName == L"CheckBox"; }
bool isOptionButton(TextView typeName) { return typeName == L"OptionButton"; }
bool isTextBox(TextView typeName) { return typeName == L"TextBox"; }
bool isComboBox(TextView typeName) { return typeName == L"ComboBox"; }
bool isListBox(TextView typeName) { return typeName == L"ListBox"; }

bool isCheckBox(const HostObject& object) { return isCheckBox(typeName(object)); }
bool isOptionButton(const HostObject& object) { return isOptionButton(typeName(object)); }
bool isTextBox(const HostObject& object) { return isTextBox(typeName(object)); }
bool isComboBox(const HostObject& object) { return isComboBox(typeName(object)); }
bool isListBox(const HostObject& object) { return isListBox(typeName(object)); }

}  // namespace vorla
