// The words of a publication table, and the templates that make vtable, dispatch and type library from it.
//
// Each class has a table; each row starts with the number of its slot:
//
//     // clang-format off
//     PUBLISH(VorlaChaine,
//             VIEWING_METHOD(0, CBR, L"Chaine", L"Longueur"),
//             VIEWING_METHOD(1, NumLet, L"Chaine", optional(L"Longueur")),
//             METHOD(2, LoadMsgLng, L"strMsgId"),
//             RESERVED_SLOT(3))
//     // clang-format on
//
// A row ends in `.documented(L"...")` where the type library carries a text for the member.
//
// The order of the rows is the binary interface: slots and identifiers follow from it, and hosts have them
// compiled in. A new row goes to the end. A row whose number is not its place does not compile.
//
// Member identifiers: methods and reserved slots take 0x60030000 plus their ordinal among them; the
// accessors of a property share 0x68030000 plus a number counted down to 0 at the last declared property;
// public fields take 0x40030000 plus their ordinal.
#pragma once

#include <array>
#include <bit>
#include <cstring>
#include <tuple>

#include "frame/com/instance.h"
#include "frame/com/publication.h"

/// Defines the publication of a class of the catalogue.
#define PUBLISH(Class, ...)                                                                  \
    const ::vorla::Publication& publicationOf(::vorla::Of<Class>) {                          \
        using Published = Class;                                                             \
        static constexpr auto table = ::vorla::publish<Published>(__VA_ARGS__);              \
        static constexpr auto publication = table.published(::vorla::classEntry<Published>); \
        return publication;                                                                  \
    }

// A row of the table: its place, its procedure, the published name, the kind of member, and the parameters.
#define VORLA_ROW(slot, Procedure, name, kind, ...)           \
    ::vorla::publishing::row<::vorla::publishing::Procedure>( \
        slot, name, ::vorla::MemberKind::kind __VA_OPT__(, ) __VA_ARGS__)

/// A member function under its own name: METHOD(slot, name, parameters...).
#define METHOD(slot, name, ...) \
    VORLA_ROW(slot, MemberFunction<&Published::name>, L"" #name, method __VA_OPT__(, ) __VA_ARGS__)

/// The same for a function that runs no host code while it needs its arguments. It reads them in the caller's
/// memory, without a copy.
#define VIEWING_METHOD(slot, name, ...) \
    VORLA_ROW(slot, ViewingFunction<&Published::name>, L"" #name, method __VA_OPT__(, ) __VA_ARGS__)

/// A member function under a name that is not a C++ identifier: METHOD_AS(slot, function, L"name",
/// parameters...).
#define METHOD_AS(slot, function, name, ...) \
    VORLA_ROW(slot, MemberFunction<&Published::function>, name, method __VA_OPT__(, ) __VA_ARGS__)

/// The accessors of a property, each a member function: PROPERTY_GET(slot, name, function, indexes...). The
/// new value of LET and SET is the function's last parameter and has no name.
#define PROPERTY_GET(slot, name, function, ...) \
    VORLA_ROW(slot, MemberFunction<&Published::function>, L"" #name, get __VA_OPT__(, ) __VA_ARGS__)
#define PROPERTY_LET(slot, name, function, ...) \
    VORLA_ROW(slot, MemberFunction<&Published::function>, L"" #name, let __VA_OPT__(, ) __VA_ARGS__)
#define PROPERTY_SET(slot, name, function, ...) \
    VORLA_ROW(slot, MemberFunction<&Published::function>, L"" #name, set __VA_OPT__(, ) __VA_ARGS__)

/// A public data member, which hosts read and write as a property. It takes two slots.
#define DATA_MEMBER(slot, name)                                        \
    VORLA_ROW(slot, ReadDataMember<&Published::name>, L"" #name, get), \
        VORLA_ROW((slot) + 1, WriteDataMember<&Published::name>, L"" #name, let)

/// The place of a private procedure.
#define RESERVED_SLOT(slot) VORLA_ROW(slot, NoProcedure, L"", reserved)

namespace vorla {

/// A parameter of a row: its name alone, or optional(name) or optional(name, default).
struct ParameterRow {
    constexpr ParameterRow(const wchar_t* name_) : name(name_) {}

    const wchar_t* name;
    bool optional = false;
    Default whenMissing;
};

/// Without a declared default: the type's zero value, or a variant that says it is missing.
constexpr ParameterRow optional(const wchar_t* name) {
    ParameterRow row(name);
    row.optional = true;
    return row;
}

/// A default that is a number: a boolean and an enumeration's member are numbers too.
template <class T>
concept WholeNumber = std::is_integral_v<T> || std::is_enum_v<T>;

template <WholeNumber Number>
constexpr ParameterRow optional(const wchar_t* name, Number value) {
    auto row = optional(name);
    row.whenMissing = {Default::Kind::number, static_cast<std::int32_t>(value), L""};
    return row;
}

constexpr ParameterRow optional(const wchar_t* name, const wchar_t* value) {
    auto row = optional(name);
    row.whenMissing = {Default::Kind::text, 0, value};
    return row;
}

namespace publishing {

template <class... Types>
struct TypeList {};

template <class Procedure>
auto& objectOf(Instance* self) {
    return static_cast<InstanceOf<typename Procedure::Object>*>(self)->object;
}

/// A procedure is what a slot runs on the C++ object. This one is a member function.
template <auto function, class Function = decltype(function)>
struct MemberFunction;

template <auto function, class Class, class R, class... P>
struct MemberFunction<function, R (Class::*)(P...)> {
    using Object = Class;
    using Result = R;
    using Parameters = TypeList<P...>;
    template <class... A>
    static R run(Class& object, A&&... arguments) {
        return (object.*function)(std::forward<A>(arguments)...);
    }
};

template <auto function, class Class, class R, class... P>
struct MemberFunction<function, R (Class::*)(P...) const> : MemberFunction<function, R (Class::*)(P...)> {};

/// A member function that needs no copies of its arguments.
template <auto function>
struct ViewingFunction : MemberFunction<function> {};

/// Reads a data member.
template <auto member, class Member = decltype(member)>
struct ReadDataMember;

template <auto member, class Class, class T>
struct ReadDataMember<member, T Class::*> {
    using Object = Class;
    using Result = T;
    using Parameters = TypeList<>;
    static T run(Class& object) { return object.*member; }
};

/// Writes a data member.
template <auto member, class Member = decltype(member)>
struct WriteDataMember;

template <auto member, class Class, class T>
struct WriteDataMember<member, T Class::*> {
    using Object = Class;
    using Result = void;
    using Parameters = TypeList<T>;
    static void run(Class& object, T value) { object.*member = std::move(value); }
};

/// Stands for a private procedure, which a host cannot run.
struct NoProcedure {
    using Result = void;
    using Parameters = TypeList<>;
};

template <class Procedure>
constexpr bool views = false;
template <auto function>
constexpr bool views<ViewingFunction<function>> = true;

// How an argument is held during a call.
template <class P, bool view>
struct Holder {
    using Type = typename Crossing<P>::Argument;
};
template <class P>
requires requires { typename Crossing<P>::View; }
struct Holder<P, true> {
    using Type = typename Crossing<P>::View;
};

/// A by-reference argument must refer to a variable; an interface pointer may be Nothing.
template <class P>
constexpr bool hasNoVariable(const typename Crossing<P>::Raw& raw) {
    if constexpr (std::is_reference_v<P>)
        return !raw;
    else
        return false;
}

/// The static function in the vtable, with the binary layout of a COM method.
template <class Procedure, class Parameters = typename Procedure::Parameters,
          class Result = typename Procedure::Result>
struct Slot;

template <class Procedure, class... P, class Result>
struct Slot<Procedure, TypeList<P...>, Result> {
    static HRESULT STDMETHODCALLTYPE call(Instance* self, typename Crossing<P>::Raw... raw,
                                          typename Crossing<Result>::Raw* result) noexcept {
        HRESULT failure;
        if (!result || (hasNoVariable<P>(raw) || ...)) {
            failure = Instance::reportNullPointer();
            if (!result) return failure;
        } else {
            try {
                std::tuple<typename Holder<P, views<Procedure>>::Type...> arguments(raw...);
                std::apply(
                    [&](auto&... argument) {
                        auto value = Procedure::run(objectOf<Procedure>(self), argument.value()...);
                        (argument.commit(), ...);
                        *result = Crossing<Result>::give(std::move(value));
                    },
                    arguments);
                return S_OK;
            } catch (...) {
                failure = self->reportFailure();
            }
        }
        // Cleared only now, because a host may use one variable as argument and result.
        *result = {};
        return failure;
    }
};

template <class Procedure, class... P>
struct Slot<Procedure, TypeList<P...>, void> {
    static HRESULT STDMETHODCALLTYPE call(Instance* self, typename Crossing<P>::Raw... raw) noexcept {
        if ((hasNoVariable<P>(raw) || ...)) return Instance::reportNullPointer();
        try {
            std::tuple<typename Holder<P, views<Procedure>>::Type...> arguments(raw...);
            std::apply(
                [&](auto&... argument) {
                    Procedure::run(objectOf<Procedure>(self), argument.value()...);
                    (argument.commit(), ...);
                },
                arguments);
            return S_OK;
        } catch (...) {
            return self->reportFailure();
        }
    }
};

template <>
struct Slot<NoProcedure, TypeList<>, void> {
    static HRESULT STDMETHODCALLTYPE call(Instance* self) noexcept { return Instance::reserved(self); }
};

/// Raw types that are passed in the same way. All slots with the same layout share one invoker.
template <class Raw>
using Passed = std::conditional_t<std::is_pointer_v<Raw>, void*, Raw>;

template <class Raw>
Raw passed(const VARIANT& argument) {
    if constexpr (std::is_same_v<Raw, VARIANT>) {
        return argument;
    } else {
        Raw raw;
        std::memcpy(&raw, &argument.byref, sizeof raw);
        return raw;
    }
}

/// The way from dispatch to a slot; see Invoker.
template <bool hasResult, class... Raw>
HRESULT throughDoor(const void* slot, Instance* self, [[maybe_unused]] VARIANT* arguments,
                    [[maybe_unused]] void* result) {
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
        const auto function = const_cast<void*>(slot);
        if constexpr (hasResult) {
            using Function = HRESULT(STDMETHODCALLTYPE*)(Instance*, Raw..., void*);
            return reinterpret_cast<Function>(function)(
                self, passed<Raw>(arguments[sizeof...(Raw) - 1 - i])..., result);
        } else {
            using Function = HRESULT(STDMETHODCALLTYPE*)(Instance*, Raw...);
            return reinterpret_cast<Function>(function)(self,
                                                        passed<Raw>(arguments[sizeof...(Raw) - 1 - i])...);
        }
    }
    (std::index_sequence_for<Raw...>());
}

template <class Result, class... P>
constexpr Invoker doorTo(TypeList<P...>) {
    return &throughDoor<!std::is_void_v<Result>, Passed<typename Crossing<P>::Raw>...>;
}

template <class Result>
constexpr TypeUse resultType() {
    if constexpr (std::is_void_v<Result>)
        return {};
    else
        return Crossing<Result>::type;
}

template <class... P>
constexpr std::array<TypeUse, sizeof...(P)> parameterTypes(TypeList<P...>) {
    return {Crossing<P>::type...};
}

template <class... P>
constexpr std::size_t countOf(TypeList<P...>) {
    return sizeof...(P);
}

/// One row of a publication with its named parameters.
template <class Procedure_, std::size_t named>
struct Row {
    using Procedure = Procedure_;
    static constexpr std::size_t parameterCount = countOf(typename Procedure::Parameters());

    std::size_t slot;
    const wchar_t* name;
    MemberKind kind;
    std::array<ParameterRow, named> parameters;
    const wchar_t* documentation = nullptr;

    /// The same row with a text for the type library.
    constexpr Row documented(const wchar_t* text) const {
        Row row = *this;
        row.documentation = text;
        return row;
    }
};

template <class Procedure, class... Parameters>
constexpr auto row(std::size_t slot, const wchar_t* name, MemberKind kind, Parameters... parameters) {
    using Made = Row<Procedure, sizeof...(Parameters)>;
    const bool stores = kind == MemberKind::let || kind == MemberKind::set;
    // A failed test in a constant expression stops the compilation here.
    if (Made::parameterCount != sizeof...(Parameters) + (stores ? 1 : 0)) throw "one name per parameter";
    if (Made::parameterCount > parameterLimit) throw "raise parameterLimit";
    return Made{slot, name, kind, {ParameterRow(parameters)...}};
}

template <class Procedure>
constexpr bool isDataMember = false;
template <auto member>
constexpr bool isDataMember<ReadDataMember<member>> = true;
template <auto member>
constexpr bool isDataMember<WriteDataMember<member>> = true;

}  // namespace publishing

/// The complete tables of a class. Only `published` is meant for use.
template <class Class, class... Rows>
class PublicationTable {
public:
    constexpr explicit PublicationTable(const Rows&... rows) {
        (add(rows), ...);
        numberProperties();
        indexNames();
        indexIdentifiers();
    }

    /// `this` must have static storage.
    constexpr Publication published(const ClassEntry& entry) const {
        return {entry,
                members_,
                parameters_,
                byName_,
                byIdentifier_,
                vtable,
                &InstanceOf<Class>::create,
                &InstanceOf<Class>::destroy};
    }

private:
    static constexpr std::size_t count = sizeof...(Rows);
    static constexpr std::size_t parameterCount = (std::size_t{0} + ... + Rows::parameterCount);

    static constexpr DISPID methods = 0x60030000;
    static constexpr DISPID properties = 0x68030000;
    static constexpr DISPID fields = 0x40030000;

    template <class Row>
    constexpr void add(const Row& row) {
        using Procedure = typename Row::Procedure;
        if (row.slot != filled_) throw "a row's number is its place: the order of the rows is the interface";
        Member& member = members_[filled_];
        member.name = row.name;
        member.kind = row.kind;
        member.documentation = row.documentation;
        member.firstParameter = static_cast<std::uint16_t>(filledParameters_);
        member.parameterCount = static_cast<std::uint16_t>(Row::parameterCount);
        member.result = publishing::resultType<typename Procedure::Result>();
        if (row.kind != MemberKind::reserved)
            member.invoke = publishing::doorTo<typename Procedure::Result>(typename Procedure::Parameters());
        addParameters(row);
        if (row.kind == MemberKind::method || row.kind == MemberKind::reserved)
            member.id = methods + static_cast<DISPID>(methodCount_++);
        else
            member.id = idOfProperty(member.name, publishing::isDataMember<Procedure>);
        ++filled_;
    }

    template <class Row>
    constexpr void addParameters(const Row& row) {
        const auto types = publishing::parameterTypes(typename Row::Procedure::Parameters());
        bool optionalBefore = false;
        for (std::size_t i = 0; i < types.size(); ++i) {
            Parameter& parameter = parameters_[filledParameters_++];
            parameter.type = types[i];
            parameter.exactType = exactType(types[i]);
            if (i >= row.parameters.size()) continue;  // the new value of a property
            parameter.name = row.parameters[i].name;
            parameter.optional = row.parameters[i].optional;
            parameter.whenMissing = row.parameters[i].whenMissing;
            if (optionalBefore && !parameter.optional) throw "a required parameter follows an optional one";
            optionalBefore = parameter.optional;
        }
    }

    static constexpr VARTYPE exactType(TypeUse use) {
        const bool plain = use.described == Described::no || use.described == Described::enumeration;
        if (!plain) return noType;
        return static_cast<VARTYPE>(use.byReference ? use.type | VT_BYREF : use.type);
    }

    // The accessors of one property share an identifier. Properties are first counted upward.
    constexpr DISPID idOfProperty(TextView name, bool isDataMember) {
        for (std::size_t i = 0; i < filled_; ++i)
            if (members_[i].kind != MemberKind::method && sameName(members_[i].name, name))
                return members_[i].id;
        return isDataMember ? fields + static_cast<DISPID>(fieldCount_++)
                            : properties + static_cast<DISPID>(propertyCount_++);
    }

    constexpr void numberProperties() {
        for (Member& member : members_)
            if (member.id >= properties)
                member.id = properties + static_cast<DISPID>(propertyCount_) - 1 - (member.id - properties);
    }

    constexpr void indexNames() {
        for (std::size_t i = 0; i < count; ++i) {
            if (members_[i].kind == MemberKind::reserved) continue;
            const TextView name = members_[i].name;
            auto place = nameHash(name) & (byName_.size() - 1);
            bool known = false;
            while (byName_[place] != 0 && !known) {
                const Member& other = members_[byName_[place] - 1u];
                known = sameName(other.name, name);
                if (known && other.id != members_[i].id) throw "two members have the same name";
                place = (place + 1) & (byName_.size() - 1);
            }
            if (!known) byName_[place] = static_cast<std::uint8_t>(i + 1);
        }
    }

    // The accessors of a property keep their order.
    constexpr void indexIdentifiers() {
        for (std::size_t i = 0; i < count; ++i) {
            if (members_[i].kind == MemberKind::reserved) continue;
            auto place = identifierHash(members_[i].id) & (byIdentifier_.size() - 1);
            while (byIdentifier_[place] != 0) place = (place + 1) & (byIdentifier_.size() - 1);
            byIdentifier_[place] = static_cast<std::uint8_t>(i + 1);
        }
    }

    static inline const void* const vtable[] = {
        reinterpret_cast<const void*>(&Instance::queryInterface),
        reinterpret_cast<const void*>(&Instance::addReference),
        reinterpret_cast<const void*>(&Instance::release),
        reinterpret_cast<const void*>(&Instance::getTypeInfoCount),
        reinterpret_cast<const void*>(&Instance::getTypeInfo),
        reinterpret_cast<const void*>(&Instance::getIdsOfNames),
        reinterpret_cast<const void*>(&Instance::invoke),
        reinterpret_cast<const void*>(&publishing::Slot<typename Rows::Procedure>::call)...};

    static_assert(count < 255, "indexes of members are bytes");

    std::array<Member, count> members_{};
    std::array<Parameter, parameterCount> parameters_{};
    std::array<std::uint8_t, std::bit_ceil(2 * count + 1)> byName_{};
    std::array<std::uint8_t, std::bit_ceil(2 * count + 1)> byIdentifier_{};
    std::size_t filled_ = 0;
    std::size_t filledParameters_ = 0;
    std::size_t methodCount_ = 0;
    std::size_t propertyCount_ = 0;
    std::size_t fieldCount_ = 0;
};

template <class Class, class... Rows>
constexpr auto publish(const Rows&... rows) {
    return PublicationTable<Class, Rows...>(rows...);
}

}  // namespace vorla
