#include "frame/host/member_names.h"

#include <dispex.h>

#include "frame/values/bstr.h"
#include "frame/values/com_pointer.h"

namespace vorla {

HRESULT findMember(IDispatch* object, const wchar_t* name, LCID locale, DISPID& id) {
    auto asked = const_cast<LPOLESTR>(name);
    const auto answer = object->GetIDsOfNames(IID_NULL, &asked, 1, locale, &id);
    if (answer != E_NOTIMPL) return answer;
    // Wine's script host makes objects of a script's own classes that can be asked in this way only.
    const auto extended = queried<IDispatchEx>(object);
    if (!extended) return answer;
    return extended->GetDispID(Bstr(TextView(name)).get(), fdexNameCaseInsensitive, &id);
}

}  // namespace vorla
