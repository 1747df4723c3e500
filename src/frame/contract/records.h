// The public records as C++ structures, with the layout that the type library publishes.
// Their list, shared with the type library, is records.def.
//
// They have a namespace of their own because Windows' headers define several of the same names.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"

struct IDispatch;

namespace vorla::records {

/// Field types that have no C++ type of their own. A record's text is a BSTR that the record owns;
/// its booleans are 16-bit, True is -1.
using RecordText = wchar_t*;
using RecordBoolean = std::int16_t;
using RecordObject = IDispatch*;

#define RECORD(name, number) struct name {
#define FIELD(type, name) type name;
#define ARRAY_FIELD(type, name, count) type name[count];
#define END_RECORD(name) \
    }                    \
    ;
#include "frame/contract/records.def"

}  // namespace vorla::records
