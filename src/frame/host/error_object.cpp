#include "frame/host/error_object.h"

#include "frame/values/com_pointer.h"

namespace vorla {

bool storeError(REFIID interfaceId, const ErrorDescription& error) {
    ComPointer<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.put()))) return false;
    made->SetGUID(interfaceId);
    made->SetSource(Text(error.source).data());
    made->SetDescription(Text(error.description).data());
    if (!error.helpFile.empty()) made->SetHelpFile(Text(error.helpFile).data());
    made->SetHelpContext(error.helpContext);
    const auto information = made.query<IErrorInfo>();
    return information && SUCCEEDED(SetErrorInfo(0, information.get()));
}

}  // namespace vorla
