// How the C++ type of a parameter or result crosses the automation boundary, once for each type.
//
// Crossing<T> has
//   Raw       the type of the slot's argument
//   type      what the type library and dispatch call it
//   Argument  holds a raw argument during a call; value() is what the member takes, and commit() stores
//             the new value of a by-reference argument, at the latest when the call ends
//   View      Argument without the copy, for members that run no host code; not every type has one
//   take      makes a C++ value from a raw one, as a copy
//   give      turns a result into its raw form, which the caller then owns
// Values that own something are made and freed in crossing.cpp, once for all slots.
//
// Results and by-value arguments use Crossing<T>, by-reference arguments Crossing<T&> and, where the member
// only reads them, Crossing<const T&>.
//
// A member owns what it is given. Host code may run in the middle of it, in a property, an event or a pumped
// message, and may assign to the variable that was passed.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
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

/// The types that automation identifies by a reference to their description.
enum class Described : std::uint8_t { no, enumeration, record, picture, font };

/// An automation type as publications name it. `number` identifies an enumeration or record.
struct TypeUse {
    VARTYPE type = VT_VOID;
    bool byReference = false;
    Described described = Described::no;
    std::uint16_t number = 0;
    bool onlyRead = false;    // by reference, and never written
    bool eitherSign = false;  // late-bound, an unsigned number stands for the same bits

    constexpr TypeUse referenced(bool read = false) const {
        return {type, true, described, number, read, eitherSign};
    }
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

/// A by-value argument.
template <class T, class RawType>
class ByValue {
public:
    explicit ByValue(RawType raw) : raw_(raw) {}
    T value() const { return Crossing<T>::take(raw_); }
    void commit() {}

private:
    RawType raw_;
};

/// A by-reference argument that the member only reads.
template <class T>
class Read {
public:
    explicit Read(const typename Crossing<T>::Raw* raw) : value_(Crossing<T>::take(*raw)) {}
    const T& value() const { return value_; }
    void commit() {}

private:
    T value_;
};

/// A by-reference argument whose C++ type has the layout of its raw type. The member works on a copy, which
/// is written back only if the member changed it.
template <class T, class RawType>
class Written {
public:
    static_assert(sizeof(T) == sizeof(RawType) && std::is_trivially_copyable_v<T>);
    explicit Written(RawType* variable)
        : variable_(variable), value_(std::bit_cast<T>(*variable)), before_(value_) {}
    ~Written() { commit(); }
    T& value() { return value_; }
    void commit() {
        if (std::memcmp(&before_, &value_, sizeof value_) == 0) return;
        before_ = value_;
        *variable_ = std::bit_cast<RawType>(value_);
    }

private:
    RawType* variable_;
    T value_;
    T before_;
};

/// A type that is the same on both sides except for its name.
template <class T, class RawType>
struct Same {
    using Raw = RawType;
    using Argument = ByValue<T, Raw>;
    using Reference = Written<T, Raw>;
    static T take(Raw value) { return static_cast<T>(value); }
    static Raw give(T value) { return static_cast<Raw>(value); }
};

/// Stores a value in a caller's variable and leaves Empty in its place. A variable that refers to another of
/// some type keeps that type.
HRESULT store(VARIANT& variable, VARIANT& value, LCID locale) noexcept;

}  // namespace crossing

/// By reference: a pointer to the raw type.
template <class T>
struct Crossing<T&> {
    using Raw = typename Crossing<T>::Raw*;
    using Argument = typename Crossing<T>::Reference;
    static constexpr TypeUse type = Crossing<T>::type.referenced();
};

/// By reference, but the member only reads it.
template <class T>
struct Crossing<const T&> {
    using Raw = typename Crossing<T>::Raw*;
    using Argument = crossing::Read<T>;
    static constexpr TypeUse type = Crossing<T>::type.referenced(true);
};

template <>
struct Crossing<std::int16_t> : crossing::Same<std::int16_t, SHORT> {
    static constexpr TypeUse type{VT_I2};
};
template <>
struct Crossing<std::int32_t> : crossing::Same<std::int32_t, LONG> {
    static constexpr TypeUse type{VT_I4};
};
template <>
struct Crossing<Bits32> {
    using Raw = LONG;
    using Argument = crossing::ByValue<Bits32, Raw>;
    using Reference = crossing::Written<Bits32, Raw>;
    static constexpr TypeUse type{VT_I4, false, Described::no, 0, false, true};
    static Bits32 take(Raw value) { return {static_cast<std::int32_t>(value)}; }
    static Raw give(Bits32 value) { return value.bits; }
};
template <>
struct Crossing<std::uint8_t> : crossing::Same<std::uint8_t, BYTE> {
    static constexpr TypeUse type{VT_UI1};
};
template <>
struct Crossing<float> : crossing::Same<float, FLOAT> {
    static constexpr TypeUse type{VT_R4};
};
template <>
struct Crossing<double> : crossing::Same<double, DOUBLE> {
    static constexpr TypeUse type{VT_R8};
};

template <>
struct Crossing<bool> {
    using Raw = VARIANT_BOOL;
    using Argument = crossing::ByValue<bool, Raw>;
    static constexpr TypeUse type{VT_BOOL};
    static bool take(Raw value) { return value != VARIANT_FALSE; }
    static Raw give(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

    class Reference {
    public:
        explicit Reference(Raw* variable) : variable_(variable), value_(take(*variable)), before_(value_) {}
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
    using Argument = crossing::ByValue<Currency, Raw>;
    using Reference = crossing::Written<Currency, Raw>;
    static constexpr TypeUse type{VT_CY};
    static Currency take(Raw value) { return {value.int64}; }
    static Raw give(Currency value) {
        CY raw;
        raw.int64 = value.scaled;
        return raw;
    }
};

template <>
struct Crossing<Date> {
    using Raw = DATE;
    using Argument = crossing::ByValue<Date, Raw>;
    using Reference = crossing::Written<Date, Raw>;
    static constexpr TypeUse type{VT_DATE};
    static Date take(Raw value) { return {value}; }
    static Raw give(Date value) { return value.days; }
};

namespace crossing {

/// A result that becomes a string with one allocation, in whichever of these types the member returns it.
struct StringResult {
    using Raw = BSTR;
    static constexpr TypeUse type{VT_BSTR};
    static Raw give(TextView value);
    static Raw give(const Joined& value);
    static Raw give(Bstr value) { return value.detach(); }
};

}  // namespace crossing

template <>
struct Crossing<Text> : crossing::StringResult {
    using Argument = crossing::ByValue<Text, BSTR>;
    static Text take(BSTR text);

    // The caller's string is replaced only when the member has changed it, so an odd last byte survives.
    class Reference {
    public:
        explicit Reference(BSTR* variable);
        ~Reference();
        Text& value() { return value_; }
        void commit();

    private:
        BSTR* variable_;
        Text value_;
        Text before_;
    };
};

/// For texts that are only read.
template <>
struct Crossing<TextView> : crossing::StringResult {
    using View = crossing::ByValue<TextView, BSTR>;
    static TextView take(BSTR text) { return viewOf(text); }

    class Argument {
    public:
        explicit Argument(BSTR raw);
        ~Argument();
        TextView value() const { return text_; }
        void commit() {}

    private:
        const Text text_;
    };
};

template <>
struct Crossing<Joined> : crossing::StringResult {};
template <>
struct Crossing<Bstr> : crossing::StringResult {};

template <>
struct Crossing<Variant> {
    using Raw = VARIANT;
    using Argument = crossing::ByValue<Variant, VARIANT>;
    static constexpr TypeUse type{VT_VARIANT};
    static Variant take(const VARIANT& value);
    static Raw give(Variant value) { return value.detach(); }

    class Reference {
    public:
        explicit Reference(VARIANT* variable);
        ~Reference();
        Variant& value() { return value_; }
        void commit();

    private:
        bool isChanged() const;

        VARIANT* variable_;
        Variant value_;
        Variant before_;
        const void* block_;  // what `value_` had at first, such as an array
    };
};

template <>
struct Crossing<const Variant&> {
    using Raw = VARIANT*;
    using Argument = crossing::Read<Variant>;
    static constexpr TypeUse type = Crossing<Variant>::type.referenced(true);

    // The caller's own variable.
    class View {
    public:
        explicit View(const VARIANT* raw) : variable_(reinterpret_cast<const Variant*>(raw)) {}
        const Variant& value() const { return *variable_; }
        void commit() {}

    private:
        const Variant* variable_;
    };
};

/// For variants that are only read.
template <>
struct Crossing<VariantView> {
    using Raw = VARIANT;
    using View = crossing::ByValue<VariantView, VARIANT>;
    static constexpr TypeUse type{VT_VARIANT};
    static VariantView take(const VARIANT& value) { return value; }

    class Argument {
    public:
        explicit Argument(const VARIANT& raw);
        ~Argument();
        VariantView value() const { return value_.view(); }
        void commit() {}

    private:
        const Variant value_;
    };
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
    static constexpr TypeUse type{VT_DISPATCH, false, describedInterface<Interface>};
    static ComPointer<Interface> take(Interface* object) { return object; }
    static Raw give(ComPointer<Interface> value) { return value.detach(); }

    class Reference {
    public:
        explicit Reference(Interface** variable) : variable_(variable), value_(*variable), before_(value_) {}
        ~Reference() { commit(); }
        ComPointer<Interface>& value() { return value_; }
        void commit() {
            if (before_.get() == value_.get()) return;
            before_ = value_;
            // Releasing the last reference runs host code, so the variable holds the new object by then.
            auto stored = value_;
            if (Interface* const old = std::exchange(*variable_, stored.detach())) old->Release();
        }

    private:
        Interface** variable_;
        ComPointer<Interface> value_;
        ComPointer<Interface> before_;
    };
};

/// A type in the lists of the contract, with the number that identifies it.
template <class T>
concept PublishedEnumeration = std::is_enum_v<T> && contractNumber<T>
!= 0;
template <class T>
concept PublishedRecord = std::is_class_v<T> && contractNumber<T>
!= 0;

/// An enumeration of the contract. Hosts may pass any 32-bit value; the member decides what to do with a
/// value that is not in the list.
template <PublishedEnumeration Enumeration>
struct Crossing<Enumeration> : crossing::Same<Enumeration, LONG> {
    static constexpr TypeUse type{VT_I4, false, Described::enumeration, contractNumber<Enumeration>};
};

namespace records {

/// Whether a field, or a whole record, owns no other memory and so can be copied byte by byte.
template <class Field>
inline constexpr bool ownsNothing = !std::is_pointer_v<Field>;

// clang-format off
#define RECORD(name, number) template <> inline constexpr bool ownsNothing<name> = true
#define FIELD(type, name) && ownsNothing<type>
#define ARRAY_FIELD(type, name, count) && ownsNothing<type>
#define END_RECORD(name) ;
// clang-format on
#include "frame/contract/records.def"

}  // namespace records

/// A record of the contract: a result, or by reference.
template <PublishedRecord Record>
struct Crossing<Record> {
    using Raw = Record;
    struct Reference : crossing::Written<Record, Raw> {
        using crossing::Written<Record, Raw>::Written;
        static_assert(records::ownsNothing<Record>, "copy it by its IRecordInfo, here and in dispatch");
    };
    static constexpr TypeUse type{VT_RECORD, false, Described::record, contractNumber<Record>};
    static Record take(const Record& value) { return value; }
    static Raw give(const Record& value) { return value; }
};

}  // namespace vorla
