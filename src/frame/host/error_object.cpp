#include "frame/host/error_object.h"

#include "frame/values/unique_handle.h"

namespace vorla {

bool storeError(REFIID interfaceId, TextView source, TextView description, DWORD number) {
    ComPointer<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.put()))) return false;
    made->SetGUID(interfaceId);
    made->SetSource(Text(source).data());
    made->SetDescription(Text(description).data());
    made->SetHelpContext(number);
    ComPointer<IErrorInfo> information;
    if (FAILED(made->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(information.put()))))
        return false;
    return SUCCEEDED(SetErrorInfo(0, information.get()));
}

}  // namespace vorla
