// How a C++ parameter or result type of a member crosses the automation boundary, once per type.
//
// Crossing<T> has
//   Raw       the type of the slot's argument
//   type      what the type library and dispatch call it
//   Argument  holds a raw argument for the length of a call; value() is what the member takes,
//             commit() stores what a by-reference one has become, at the latest when the call ends
//   give      turns a result into its raw form, which the caller then owns
// Results and by-value arguments use Crossing<T>, by-reference arguments Crossing<T&>.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"
#include "frame/host/host_reference.h"
#include "frame/values/bstr.h"
#include "frame/values/scalars.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// The types that automation knows by a reference to their description.
enum class Described : std::uint8_t { no, enumeration, record, picture, font };

/// An automation type as publications name it. `number` identifies an enumeration or record.
struct TypeUse {
    VARTYPE type = VT_VOID;
    bool byReference = false;
    Described described = Described::no;
    std::uint16_t number = 0;

    constexpr TypeUse referenced() const { return {type, true, described, number}; }
};

/// The number under which a contract type is identified.
template <class ContractType>
inline constexpr std::uint16_t contractNumber = 0;

#define ENUMERATION(name, number) \
    template <>                   \
    inline constexpr std::uint16_t contractNumber<name> = number;
#define VALUE(name, value)
#define END_ENUMERATION(name)
#include "frame/contract/enumerations.def"

#define RECORD(name, number) \
    template <>              \
    inline constexpr std::uint16_t contractNumber<records::name> = number;
#define FIELD(type, name)
#define ARRAY_FIELD(type, name, count)
#define END_RECORD(name)
#include "frame/contract/records.def"

/// A type that has no crossing cannot be published; give it one here.
template <class T>
struct Crossing;

namespace crossing {

/// A by-value argument that the member takes as it comes.
template <class Taken, class Raw>
class ByValue {
public:
    explicit ByValue(Raw raw) : value_(raw) {}
    Taken value() const { return static_cast<Taken>(value_); }
    void commit() {}

private:
    Raw value_;
};

/// A by-reference argument whose C++ type is laid out as its raw type: the member works on the caller's
/// own variable.
template <class T, class Raw>
class InPlace {
public:
    static_assert(sizeof(T) == sizeof(Raw));
    explicit InPlace(Raw* raw) : variable_(reinterpret_cast<T*>(raw)) {}
    T& value() const { return *variable_; }
    void commit() {}

private:
    T* variable_;
};

/// A type that is the same on both sides.
template <class T, class RawType, VARTYPE vartype>
struct Same {
    using Raw = RawType;
    using Argument = ByValue<T, Raw>;
    using Reference = InPlace<T, Raw>;
    static constexpr TypeUse type{vartype};
    static Raw give(T value) { return value; }
};

}  // namespace crossing

/// By reference: whatever the type says of itself, behind a pointer.
template <class T>
struct Crossing<T&> {
    using Raw = typename Crossing<T>::Raw*;
    using Argument = typename Crossing<T>::Reference;
    static constexpr TypeUse type = Crossing<T>::type.referenced();
};

/// By reference, though the member only reads it.
template <class T>
struct Crossing<const T&> : Crossing<T&> {};

template <>
struct Crossing<std::int16_t> : crossing::Same<std::int16_t, SHORT, VT_I2> {};
template <>
struct Crossing<std::int32_t> : crossing::Same<std::int32_t, LONG, VT_I4> {};
template <>
struct Crossing<std::uint8_t> : crossing::Same<std::uint8_t, BYTE, VT_UI1> {};
template <>
struct Crossing<float> : crossing::Same<float, FLOAT, VT_R4> {};
template <>
struct Crossing<double> : crossing::Same<double, DOUBLE, VT_R8> {};

template <>
struct Crossing<bool> {
    using Raw = VARIANT_BOOL;
    using Argument = crossing::ByValue<bool, Raw>;
    static constexpr TypeUse type{VT_BOOL};
    static Raw give(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

    class Reference {
    public:
        explicit Reference(Raw* raw) : variable_(raw), value_(*raw != VARIANT_FALSE), before_(value_) {}
        ~Reference() { commit(); }
        bool& value() { return value_; }
        void commit() {
            if (std::exchange(before_, value_) != value_) *variable_ = give(value_);
        }

    private:
        Raw* variable_;
        bool value_;
        bool before_;
    };
};

template <>
struct Crossing<Currency> {
    using Raw = CY;
    struct Argument : crossing::ByValue<CY, CY> {
        using ByValue::ByValue;
        Currency value() const { return {ByValue::value().int64}; }
    };
    using Reference = crossing::InPlace<Currency, Raw>;
    static constexpr TypeUse type{VT_CY};
    static Raw give(Currency value) {
        CY raw;
        raw.int64 = value.scaled;
        return raw;
    }
};

template <>
struct Crossing<Date> {
    using Raw = DATE;
    struct Argument : crossing::ByValue<DATE, DATE> {
        using ByValue::ByValue;
        Date value() const { return {ByValue::value()}; }
    };
    using Reference = crossing::InPlace<Date, Raw>;
    static constexpr TypeUse type{VT_DATE};
    static Raw give(Date value) { return value.days; }
};

namespace crossing {

/// Results as strings, whatever shape the member gives them in: one allocation each.
struct StringResult {
    using Raw = BSTR;
    static constexpr TypeUse type{VT_BSTR};
    static Raw give(TextView value) { return Bstr(value).detach(); }
    static Raw give(const Joined& value) { return Bstr(value).detach(); }
    static Raw give(Bstr value) { return value.detach(); }
};

}  // namespace crossing

template <>
struct Crossing<Text> : crossing::StringResult {
    struct Argument : crossing::ByValue<BSTR, BSTR> {
        using ByValue::ByValue;
        Text value() const { return Text(viewOf(ByValue::value())); }
    };

    // The caller's string is replaced only when the member has changed it: its other half, odd bytes
    // included, then survives, and an unchanged string costs no allocation.
    class Reference {
    public:
        explicit Reference(BSTR* raw) : variable_(raw), value_(viewOf(*raw)) {}
        ~Reference() {
            try {
                commit();
            } catch (...) {
                // No memory for the new text: the caller keeps the old one.
            }
        }
        Text& value() { return value_; }
        void commit() {
            // Once: the same variable may have been passed twice, and the last one to commit wins.
            if (!std::exchange(pending_, false) || value_ == viewOf(*variable_)) return;
            Bstr replacement{TextView(value_)};
            SysFreeString(*variable_);
            *variable_ = replacement.detach();
        }

    private:
        BSTR* variable_;
        Text value_;
        bool pending_ = true;
    };
};

/// For texts that are only read: no copy.
template <>
struct Crossing<TextView> : crossing::StringResult {
    struct Argument : crossing::ByValue<BSTR, BSTR> {
        using ByValue::ByValue;
        TextView value() const { return viewOf(ByValue::value()); }
    };
};

template <>
struct Crossing<Joined> : crossing::StringResult {};
template <>
struct Crossing<Bstr> : crossing::StringResult {};

/// For variants that are only read: no copy.
template <>
struct Crossing<VariantView> {
    using Raw = VARIANT;
    using Argument = crossing::ByValue<VariantView, VARIANT>;
    static constexpr TypeUse type{VT_VARIANT};
};

template <>
struct Crossing<Variant> {
    using Raw = VARIANT;
    struct Argument : crossing::ByValue<VARIANT, VARIANT> {
        using ByValue::ByValue;
        Variant value() const { return Variant(VariantView(ByValue::value())); }
    };
    using Reference = crossing::InPlace<Variant, Raw>;
    static constexpr TypeUse type{VT_VARIANT};
    static Raw give(Variant value) { return value.detach(); }
};

template <class Interface>
constexpr Described describedInterface = Described::no;
template <>
inline constexpr Described describedInterface<IPictureDisp> = Described::picture;
template <>
inline constexpr Described describedInterface<IFontDisp> = Described::font;

template <class Interface>
struct Crossing<ComPointer<Interface>> {
    using Raw = Interface*;
    using Argument = crossing::ByValue<ComPointer<Interface>, Raw>;
    using Reference = crossing::InPlace<ComPointer<Interface>, Raw>;
    static constexpr TypeUse type{VT_DISPATCH, false, describedInterface<Interface>};
    static Raw give(ComPointer<Interface> value) { return value.detach(); }
};

/// A type that the contract lists, with the number that identifies it.
template <class T>
concept PublishedEnumeration = std::is_enum_v<T> && contractNumber<T>
!= 0;
template <class T>
concept PublishedRecord = std::is_class_v<T> && contractNumber<T>
!= 0;

/// An enumeration of the contract. Hosts may pass any 32-bit value; the member decides what to do with
/// one that is no member of it.
template <PublishedEnumeration Enumeration>
struct Crossing<Enumeration> {
    using Raw = LONG;
    using Argument = crossing::ByValue<Enumeration, Raw>;
    using Reference = crossing::InPlace<Enumeration, Raw>;
    static constexpr TypeUse type{VT_I4, false, Described::enumeration, contractNumber<Enumeration>};
    static Raw give(Enumeration value) { return static_cast<Raw>(value); }
};

/// A record of the contract: a result, or by reference.
template <PublishedRecord Record>
struct Crossing<Record> {
    using Raw = Record;
    using Reference = crossing::InPlace<Record, Raw>;
    static constexpr TypeUse type{VT_RECORD, false, Described::record, contractNumber<Record>};
    static Raw give(const Record& value) { return value; }
};

}  // namespace vorla
