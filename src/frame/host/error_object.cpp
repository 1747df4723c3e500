#include "frame/host/error_object.h"

#include "frame/values/com_pointer.h"

namespace vorla {

bool storeError(REFIID interfaceId, TextView source, TextView description, DWORD number) {
    ComPointer<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.put()))) return false;
    made->SetGUID(interfaceId);
    made->SetSource(Text(source).data());
    made->SetDescription(Text(description).data());
    made->SetHelpContext(number);
    const auto information = made.query<IErrorInfo>();
    return information && SUCCEEDED(SetErrorInfo(0, information.get()));
}

}  // namespace vorla
