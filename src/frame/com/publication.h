// A published class as dispatch, the vtable and the type library see it. The compiler makes it from the
// class's table (publish.h).
#pragma once

#include <cstdint>
#include <span>

#include "frame/com/crossing.h"
#include "frame/values/winapi.h"

namespace vorla {

class Instance;

/// The value of an optional parameter that is left out.
struct Default {
    enum class Kind : std::uint8_t { none, number, text };

    Kind kind = Kind::none;
    std::int32_t number = 0;
    const wchar_t* text = L"";
};

/// A type that no variant has.
constexpr VARTYPE noType = 0xFFFF;

struct Parameter {
    const wchar_t* name = nullptr;
    TypeUse type;
    // An argument of this type is passed to the slot as it is. noType if every argument must be examined.
    VARTYPE exactType = noType;
    bool optional = false;
    Default whenMissing;
};

/// The kinds of members. A reserved slot belongs to a private procedure: it has an identifier and a place in
/// the vtable, and hosts cannot see it.
enum class MemberKind : std::uint8_t {
    method = INVOKE_FUNC,
    get = INVOKE_PROPERTYGET,
    let = INVOKE_PROPERTYPUT,
    set = INVOKE_PROPERTYPUTREF,
    reserved = 0,
};

/// The slots of IDispatch, which come before a class's own.
constexpr std::size_t inheritedSlots = 7;

/// The most parameters that a member has.
constexpr std::size_t parameterLimit = 16;

/// Calls a slot. The arguments already have the slot's types: each is in the payload of its variant, and a
/// by-value variant is the variant itself. The last argument comes first, as hosts pass them. `result`
/// receives the slot's result. Slots of the same layout share one.
using Invoker = HRESULT (*)(const void* slot, Instance*, VARIANT* arguments, void* result);

struct Member {
    const wchar_t* name = nullptr;
    DISPID id = DISPID_UNKNOWN;
    MemberKind kind = MemberKind::reserved;
    std::uint16_t firstParameter = 0;
    std::uint16_t parameterCount = 0;
    TypeUse result;
    Invoker invoke = nullptr;
    const wchar_t* documentation = nullptr;  // for the type library; null for none

    bool answers(WORD flags) const { return (static_cast<WORD>(kind) & flags) != 0; }
    constexpr bool stores() const { return kind == MemberKind::let || kind == MemberKind::set; }
};

enum class Instancing : std::uint8_t {
    creatable,  // hosts create it by name
    global      // also an application object: its members can be called without an instance
};

struct Library;

/// A class as the catalogue lists it.
struct ClassEntry {
    const wchar_t* name;
    std::uint16_t number;  // its identifiers follow from it
    Instancing instancing;
    const Library& library;
    const wchar_t* documentation;  // null for none
};

/// The catalogue's entry for a class. Each published class has one.
template <class Class>
extern const ClassEntry classEntry;

/// Names a class without an object of it.
template <class Class>
struct Of {};

/// One published class. All of it is in tables that the compiler made.
struct Publication : ClassEntry {
    std::span<const Member> members;  // in declaration order, which is the vtable's
    std::span<const Parameter> parameters;
    std::span<const std::uint8_t> byName;        // open addressing by folded name; 0 is free, else index + 1
    std::span<const std::uint8_t> byIdentifier;  // the same by identifier
    const void* const* vtable;                   // IDispatch's own slots, then one for each member
    Instance* (*create)(const Publication&);
    void (*destroy)(Instance*);

    CLSID classId() const;
    IID interfaceId() const;

    const void* slotOf(const Member& member) const {
        return vtable[inheritedSlots + static_cast<std::size_t>(&member - members.data())];
    }

    std::span<const Parameter> parametersOf(const Member& member) const {
        return parameters.subspan(member.firstParameter, member.parameterCount);
    }

    /// The first member of this name, without regard to case; null when there is none.
    const Member* find(TextView name) const;

    /// The member with this identifier that can be called in this way; null when there is none.
    const Member* find(DISPID id, WORD flags) const;
};

/// The type library that describes a set of classes, and where a running object finds it.
struct Library {
    const wchar_t* name;
    GUID id;
    WORD majorVersion;
    WORD minorVersion;
    HRESULT (*load)(ITypeLib**);

    /// The description of one of the library's types. For objects of the module, which hold it: they keep the
    /// library loaded between calls.
    HRESULT describe(REFGUID type, ITypeInfo** description) const;
};

/// A character without its case, for the characters that published names consist of.
constexpr wchar_t folded(wchar_t character) {
    const bool upper = (character >= L'A' && character <= L'Z') ||
                       (character >= 0xC0 && character <= 0xDE && character != 0xD7);
    return upper ? static_cast<wchar_t>(character + 0x20) : character;
}

constexpr bool sameName(TextView one, TextView other) {
    if (one.size() != other.size()) return false;
    for (std::size_t i = 0; i < one.size(); ++i)
        if (one[i] != other[i] && folded(one[i]) != folded(other[i])) return false;
    return true;
}

// In each kind of member identifiers count from 0.
constexpr std::uint32_t identifierHash(DISPID id) {
    return (static_cast<std::uint32_t>(id) * 2654435769u) >> 16;
}

constexpr std::uint32_t nameHash(TextView name) {
    std::uint32_t hash = 2166136261u;
    for (const wchar_t character : name) hash = (hash ^ folded(character)) * 16777619u;
    return hash ^ (hash >> 15);
}

inline const Member* Publication::find(DISPID id, WORD flags) const {
    if (byIdentifier.empty()) return nullptr;
    const auto mask = byIdentifier.size() - 1;
    for (auto place = identifierHash(id) & mask; byIdentifier[place] != 0; place = (place + 1) & mask) {
        const Member& member = members[byIdentifier[place] - 1u];
        if (member.id == id && member.answers(flags)) return &member;
    }
    return nullptr;
}

}  // namespace vorla
