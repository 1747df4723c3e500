// Late-bound calls, from the publication's tables alone.
#pragma once

#include <windows.h>

#include <span>

#include "frame/com/publication.h"

namespace vorla::dispatch {

/// Identifiers of a member and, behind it, of its parameters (their positions). An unknown name gets
/// DISPID_UNKNOWN and makes the answer DISP_E_UNKNOWNNAME; the others are filled in all the same.
HRESULT findNames(const Publication& publication, std::span<const LPOLESTR> names,
                  std::span<DISPID> ids) noexcept;

/// One call of one member. The caller's arguments are never converted in place: each goes into a cell of
/// the type that the member's slot takes, and what a by-reference cell has become is written back.
class Call {
public:
    Call(Instance* object, const Publication& publication, const Member& member, const DISPPARAMS& given,
         LCID locale) noexcept
        : object_(object),
          publication_(publication),
          member_(member),
          parameters_(publication.parametersOf(member)),
          given_(given),
          locale_(locale) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call();

    /// `result` is Empty and becomes the member's result; it stays Empty after a failure. What an
    /// exception says goes to `exception`, the index of an argument that does not fit to `badArgument`;
    /// each of the two may be null.
    HRESULT run(VARIANT& result, EXCEPINFO* exception, UINT* badArgument) noexcept;

private:
    // An argument on its way to the slot and back.
    struct Cell {
        VARIANT passed;    // its payload is what the slot gets
        VARIANT own;       // a copy or converted value that `passed` shows or refers to
        VARIANT* source;   // the caller's argument; null when left out
        VARIANT* writeTo;  // the caller's variable that gets `own` back; null for none
    };

    HRESULT assignSources() noexcept;
    HRESULT fill(Cell& cell, const Parameter& parameter) noexcept;
    HRESULT fillRecord(Cell& cell, const Parameter& parameter, VARIANT& source) noexcept;
    HRESULT convert(Cell& cell, const Parameter& parameter, const VARIANT& source) noexcept;
    HRESULT callSlot(VARIANT& result) noexcept;
    HRESULT callForRecord(VARIANT* arguments, VARIANT& result) noexcept;
    HRESULT writeBack() noexcept;
    UINT indexOf(const Cell& cell) const { return static_cast<UINT>(cell.source - given_.rgvarg); }

    Instance* const object_;
    const Publication& publication_;
    const Member& member_;
    const std::span<const Parameter> parameters_;
    const DISPPARAMS& given_;
    const LCID locale_;
    UINT badArgument_ = 0;
    std::size_t filled_ = 0;  // cells that may own something
    Cell cells_[parameterLimit];
};

}  // namespace vorla::dispatch
