// The host's objects, driven by the names of their properties and methods.
#pragma once

#include <array>
#include <concepts>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "frame/host/host_reference.h"
#include "frame/values/conversions.h"
#include "frame/values/invocation.h"
#include "frame/values/literal.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// A by-reference argument: the variable receives what the host's member stores.
class ByReference {
public:
    explicit ByReference(Variant& variable) : variable_(&variable) {}
    Variant argument() const;

private:
    Variant* variable_;
};

/// An argument, or a new value for a property, as the host gets it.
inline Variant hostArgument(const ByReference& variable) { return variable.argument(); }
Variant hostArgument(IDispatch* object);
template <class Interface>
Variant hostArgument(const ComPointer<Interface>& object) {
    return hostArgument(static_cast<IDispatch*>(object.get()));
}
inline Variant hostArgument(const Variant& value) { return value; }
inline Variant hostArgument(VariantView value) { return Variant(value); }
template <std::convertible_to<TextView> Characters>
Variant hostArgument(const Characters& text) {
    return Variant(TextView(text));
}
template <class Scalar>
requires(std::same_as<Scalar, bool> || std::same_as<Scalar, std::uint8_t> ||
         std::same_as<Scalar, std::int16_t> || std::same_as<Scalar, std::int32_t> ||
         std::same_as<Scalar, float> || std::same_as<Scalar, double> || std::same_as<Scalar, Currency> ||
         std::same_as<Scalar, Date>) Variant hostArgument(Scalar value) {
    return Variant(value);
}
template <class Enumeration>
requires std::is_enum_v<Enumeration> Variant hostArgument(Enumeration value) {
    return Variant(static_cast<std::int32_t>(value));
}

/// The object in a result. Errors: 91 for Nothing, 424 for what is not an object.
HostObject objectIn(VariantView value);

/// A host object and the identifiers of the names used on it. Each name is looked up once; after that a read
/// is exactly one call of the host. In a loop, keep the BoundObject.
///
/// Every failure is a RuntimeError: the host's own number if it gives one; otherwise 438 for an unknown name,
/// 13 for arguments that do not fit, 440 for everything else. Nothing gives 91.
class BoundObject {
public:
    explicit BoundObject(HostObject object) : object_(std::move(object)) {}
    /// The object in a result, as objectIn().
    explicit BoundObject(VariantView value) : object_(objectIn(value)) {}

    const HostObject& object() const { return object_; }

    /// Whether the object knows the name. No property is read. False for Nothing.
    bool knows(Literal name);

    /// Whether the property can be read. It is really read, and only as a property: a method does not count.
    bool hasProperty(Literal name);

    /// A property's value; an indexed property's with its indices. A method without a property of the same
    /// name is called instead, because hosts do not distinguish the two.
    template <class... Indices>
    Variant get(Literal name, const Indices&... indices) {
        return read(id(name), indices...);
    }

    /// A property's value as a C++ value, by convertedTo().
    template <class Value, class... Indices>
    Value getAs(Literal name, const Indices&... indices) {
        return convertedTo<Value>(get(name, indices...).view());
    }

    /// A property's value as a colour, by colourIn().
    std::int32_t getColour(Literal name) { return colourIn(get(name).view()); }

    /// An object that a property refers to. Errors: 91 for Nothing, 424 for what is not an object.
    template <class... Indices>
    HostObject getObject(Literal name, const Indices&... indices) {
        return objectIn(get(name, indices...).view());
    }

    /// Gives a property a value; the indices of an indexed property stand before it.
    template <class... IndicesAndValue>
    void put(Literal name, const IndicesAndValue&... indicesAndValue) {
        write(id(name), DISPATCH_PROPERTYPUT, indicesAndValue...);
    }

    /// Makes a property refer to an object, or to Nothing.
    template <class... IndicesAndObject>
    void putRef(Literal name, const IndicesAndObject&... indicesAndObject) {
        write(id(name), DISPATCH_PROPERTYPUTREF, indicesAndObject...);
    }

    /// Calls a method. Its result is Empty when it has none.
    template <class... Arguments>
    Variant call(Literal name, const Arguments&... arguments) {
        auto given = reversed(arguments...);
        return run(id(name), DISPATCH_METHOD, given);
    }

    /// The default property; of a collection, the item.
    template <class... Indices>
    Variant getDefault(const Indices&... indices) {
        return read(DISPID_VALUE, indices...);
    }
    template <class... IndicesAndValue>
    void putDefault(const IndicesAndValue&... indicesAndValue) {
        write(DISPID_VALUE, DISPATCH_PROPERTYPUT, indicesAndValue...);
    }

private:
    struct Name {
        Literal name;
        DISPID id;
    };

    // Makes the arguments in Invoke's order, the last first, directly where the host reads them: another copy
    // would show in a long loop.
    template <class... Arguments>
    static std::array<Variant, sizeof...(Arguments)> reversed(const Arguments&... arguments) {
        return [&]<std::size_t... i>(std::index_sequence<i...>) {
            [[maybe_unused]] const auto all = std::tie(arguments...);
            return std::array<Variant, sizeof...(i)>{hostArgument(std::get<sizeof...(i) - 1 - i>(all))...};
        }
        (std::index_sequence_for<Arguments...>());
    }
    template <class... Indices>
    Variant read(DISPID member, const Indices&... indices) {
        auto arguments = reversed(indices...);
        return run(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
    }
    template <class... IndicesAndValue>
    void write(DISPID member, WORD kind, const IndicesAndValue&... indicesAndValue) {
        static_assert(sizeof...(IndicesAndValue) > 0, "a property is given something");
        auto arguments = reversed(indicesAndValue...);
        run(member, kind, arguments);
    }

    Variant run(DISPID member, WORD kind, std::span<Variant> reversed);
    // In a loop the same literals are used again and again, so their addresses are compared first. Inline,
    // because a call more shows where an item costs a few nanoseconds.
    const Name* known(Literal name) const {
        for (const Name& used : names_)
            if (used.name.isSame(name)) return &used;
        return nullptr;
    }
    DISPID id(Literal name) {
        const Name* const used = known(name);
        return used ? used->id : newId(name);
    }
    DISPID newId(Literal name);
    HRESULT lookUp(Literal name, DISPID& found);

    HostObject object_;
    std::vector<Name> names_;
};

}  // namespace vorla
