#include "typelib/contract_types.h"

#include <type_traits>

namespace vorla::typelib {
namespace {

template <class T>
constexpr TypeUse fieldType() {
    if constexpr (std::is_same_v<T, records::RecordText>)
        return {VT_BSTR};
    else if constexpr (std::is_same_v<T, records::RecordObject>)
        return {VT_DISPATCH};
    else
        return Crossing<T>::type;
}

// In C++, a record's boolean and 16-bit integer have the same type.
template <class T>
constexpr TypeUse fieldType(const char* spelling) {
    return TextView(L"RecordBoolean") == Text(spelling, spelling + std::char_traits<char>::length(spelling))
               ? TypeUse{VT_BOOL}
               : fieldType<T>();
}

}  // namespace

const std::vector<Enumeration>& enumerations() {
    static const std::vector<Enumeration> all{
#define ENUMERATION(name, number) {L"" #name, number, {
#define VALUE(name, value) {L"" #name, value},
#define SPELLED_VALUE(name, spelling, value) {L"" spelling, value},
#define SYSTEM_VALUE(name, value) {L"" #name, value},
#define END_ENUMERATION(name) \
    }                         \
    }                         \
    ,
#include "frame/contract/enumerations.def"
    };
    return all;
}

const std::vector<Record>& records() {
    using namespace vorla::records;
    static const std::vector<Record> all{
#define RECORD(name, number) [] {                     \
        using This = vorla::records::name; \
        return Record{L"" #name, number, sizeof(This), alignof(This), {
#define FIELD(type, name) Field{L"" #name, fieldType<decltype(This::name)>(#type), offsetof(This, name), 0},
#define ARRAY_FIELD(type, name, count) Field{L"" #name, fieldType<type>(#type), offsetof(This, name), count},
#define END_RECORD(name) \
    }                    \
    }                    \
    ;                    \
    }                    \
    (),
#include "frame/contract/records.def"
    };
    return all;
}

}  // namespace vorla::typelib
