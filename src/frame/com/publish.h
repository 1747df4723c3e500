// The words of a publication table, and the templates that make vtable, dispatch and type library from it.
//
// Beside the class stands its table:
//
//     PUBLISH(VorlaChaine,
//             METHOD(CBR, L"Chaine", L"Longueur"),
//             METHOD(NumLet, L"Chaine", optional(L"Longueur")),
//             METHOD(SplitStr, L"Chaine"),
//             RESERVED_SLOT)
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

// A row of the table: which procedure, under which name, as which kind of member, with which parameters.
#define VORLA_ROW(Procedure, name, kind, ...)                 \
    ::vorla::publishing::row<::vorla::publishing::Procedure>( \
        name, ::vorla::MemberKind::kind __VA_OPT__(, ) __VA_ARGS__)

/// A member function under its own name: METHOD(name, parameters...).
#define METHOD(name, ...) \
    VORLA_ROW(MemberFunction<&Published::name>, L"" #name, method __VA_OPT__(, ) __VA_ARGS__)

/// A member function under a name that is no identifier: METHOD_AS(function, L"name", parameters...).
#define METHOD_AS(function, name, ...) \
    VORLA_ROW(MemberFunction<&Published::function>, name, method __VA_OPT__(, ) __VA_ARGS__)

/// The accessors of a property, each made by a member function: PROPERTY_GET(name, function, indexes...).
/// The new value of LET and SET is the function's last parameter and has no name.
#define PROPERTY_GET(name, function, ...) \
    VORLA_ROW(MemberFunction<&Published::function>, L"" #name, get __VA_OPT__(, ) __VA_ARGS__)
#define PROPERTY_LET(name, function, ...) \
    VORLA_ROW(MemberFunction<&Published::function>, L"" #name, let __VA_OPT__(, ) __VA_ARGS__)
#define PROPERTY_SET(name, function, ...) \
    VORLA_ROW(MemberFunction<&Published::function>, L"" #name, set __VA_OPT__(, ) __VA_ARGS__)

/// A public data member, which hosts read and write as a property.
#define DATA_MEMBER(name)                                        \
    VORLA_ROW(ReadDataMember<&Published::name>, L"" #name, get), \
        VORLA_ROW(WriteDataMember<&Published::name>, L"" #name, let)

/// The place of a private procedure.
#define RESERVED_SLOT                                               \
    ::vorla::publishing::Row<::vorla::publishing::NoProcedure, 0> { \
        L"", ::vorla::MemberKind::reserved, {}                      \
    }

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

/// A procedure is what a slot runs on the C++ object: a member function,
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

/// the reading of a data member,
template <auto member, class Member = decltype(member)>
struct ReadDataMember;

template <auto member, class Class, class T>
struct ReadDataMember<member, T Class::*> {
    using Object = Class;
    using Result = T;
    using Parameters = TypeList<>;
    static T run(Class& object) { return object.*member; }
};

/// its writing,
template <auto member, class Member = decltype(member)>
struct WriteDataMember;

template <auto member, class Class, class T>
struct WriteDataMember<member, T Class::*> {
    using Object = Class;
    using Result = void;
    using Parameters = TypeList<T>;
    static void run(Class& object, T value) { object.*member = std::move(value); }
};

/// or nothing that a host may run.
struct NoProcedure {
    using Result = void;
    using Parameters = TypeList<>;
};

template <class Raw>
constexpr bool isNullReference(const Raw& raw) {
    // A by-reference argument must refer to a variable; an interface pointer may be Nothing.
    if constexpr (std::is_pointer_v<Raw>)
        return !raw;
    else
        return false;
}

template <class P>
constexpr bool hasNoVariable(const typename Crossing<P>::Raw& raw) {
    return std::is_reference_v<P> && isNullReference(raw);
}

/// An argument as dispatch hands it over.
template <class Raw>
Raw rawArgument(const VARIANT& argument) {
    if constexpr (std::is_same_v<Raw, VARIANT>) {
        return argument;
    } else {
        Raw raw;
        std::memcpy(&raw, &argument.byref, sizeof raw);
        return raw;
    }
}

/// The static function in the vtable, with the binary layout of a COM method, and its door from dispatch.
template <class Procedure, class Parameters = typename Procedure::Parameters,
          class Result = typename Procedure::Result>
struct Slot;

template <class Procedure, class... P, class Result>
struct Slot<Procedure, TypeList<P...>, Result> {
    using Object = InstanceOf<typename Procedure::Object>;

    static HRESULT STDMETHODCALLTYPE call(Instance* self, typename Crossing<P>::Raw... raw,
                                          typename Crossing<Result>::Raw* result) noexcept {
        if (!result || (hasNoVariable<P>(raw) || ...)) return Instance::reportNullPointer();
        const auto answer = self->run([&] {
            std::tuple<typename Crossing<P>::Argument...> arguments(raw...);
            std::apply(
                [&](auto&... argument) {
                    auto value = Procedure::run(static_cast<Object*>(self)->object, argument.value()...);
                    (argument.commit(), ...);
                    *result = Crossing<Result>::give(std::move(value));
                },
                arguments);
        });
        // Cleared only now: a host may use one variable as argument and result.
        if (FAILED(answer)) *result = {};
        return answer;
    }

    static HRESULT invoke(Instance* self, [[maybe_unused]] VARIANT* arguments, void* result) {
        return [&]<std::size_t... i>(std::index_sequence<i...>) {
            return call(self, rawArgument<typename Crossing<P>::Raw>(arguments[sizeof...(P) - 1 - i])...,
                        static_cast<typename Crossing<Result>::Raw*>(result));
        }
        (std::index_sequence_for<P...>());
    }
};

template <class Procedure, class... P>
struct Slot<Procedure, TypeList<P...>, void> {
    using Object = InstanceOf<typename Procedure::Object>;

    static HRESULT STDMETHODCALLTYPE call(Instance* self, typename Crossing<P>::Raw... raw) noexcept {
        if ((hasNoVariable<P>(raw) || ...)) return Instance::reportNullPointer();
        return self->run([&] {
            std::tuple<typename Crossing<P>::Argument...> arguments(raw...);
            std::apply(
                [&](auto&... argument) {
                    Procedure::run(static_cast<Object*>(self)->object, argument.value()...);
                    (argument.commit(), ...);
                },
                arguments);
        });
    }

    static HRESULT invoke(Instance* self, [[maybe_unused]] VARIANT* arguments, void*) {
        return [&]<std::size_t... i>(std::index_sequence<i...>) {
            return call(self, rawArgument<typename Crossing<P>::Raw>(arguments[sizeof...(P) - 1 - i])...);
        }
        (std::index_sequence_for<P...>());
    }
};

template <>
struct Slot<NoProcedure, TypeList<>, void> {
    static HRESULT STDMETHODCALLTYPE call(Instance* self) noexcept { return Instance::reserved(self); }
    static constexpr Invoker invoke = nullptr;
};

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

/// One row of a publication, with as many named parameters as were written.
template <class Procedure_, std::size_t named>
struct Row {
    using Procedure = Procedure_;
    static constexpr std::size_t parameterCount = countOf(typename Procedure::Parameters());

    const wchar_t* name;
    MemberKind kind;
    std::array<ParameterRow, named> parameters;
};

template <class Procedure, class... Parameters>
constexpr auto row(const wchar_t* name, MemberKind kind, Parameters... parameters) {
    using Made = Row<Procedure, sizeof...(Parameters)>;
    const bool stores = kind == MemberKind::let || kind == MemberKind::set;
    // A failed test in a constant expression stops the compilation here.
    if (Made::parameterCount != sizeof...(Parameters) + (stores ? 1 : 0)) throw "one name per parameter";
    if (Made::parameterCount > parameterLimit) throw "raise parameterLimit";
    return Made{name, kind, {ParameterRow(parameters)...}};
}

template <class Procedure>
constexpr bool isDataMember = false;
template <auto member>
constexpr bool isDataMember<ReadDataMember<member>> = true;
template <auto member>
constexpr bool isDataMember<WriteDataMember<member>> = true;

}  // namespace publishing

/// A class's tables, complete. Only `published` is for use.
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
        Member& member = members_[filled_];
        member.name = row.name;
        member.kind = row.kind;
        member.firstParameter = static_cast<std::uint16_t>(filledParameters_);
        member.parameterCount = static_cast<std::uint16_t>(Row::parameterCount);
        member.result = publishing::resultType<typename Procedure::Result>();
        member.invoke = publishing::Slot<Procedure>::invoke;
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
