// Late-bound calls, made from the publication's tables alone.
#pragma once

#include <span>

#include "frame/com/publication.h"
#include "frame/values/winapi.h"

namespace vorla::dispatch {

/// The identifier of a member, followed by those of its parameters (their positions). An unknown name gets
/// DISPID_UNKNOWN and the result is then DISP_E_UNKNOWNNAME; the others are filled in all the same.
HRESULT findNames(const Publication& publication, std::span<const LPOLESTR> names,
                  std::span<DISPID> ids) noexcept;

/// Calls a member with a host's arguments. `result` is Empty and becomes the member's result; it stays
/// Empty after a failure. The description of an error goes to `exception`, the index of an argument that does
/// not fit goes to `badArgument`; each of the two may be null.
///
/// The caller's arguments are never converted in place. What the member has changed of a by-reference
/// argument is written back, whatever type the caller's variable has; a variable that the member leaves alone
/// keeps its value and type.
HRESULT call(Instance* object, const Publication& publication, const Member& member, const DISPPARAMS& given,
             LCID locale, VARIANT& result, EXCEPINFO* exception, UINT* badArgument) noexcept;

/// Frees a result that the caller does not take, and a record's memory too.
void discard(VARIANT& result) noexcept;

}  // namespace vorla::dispatch
