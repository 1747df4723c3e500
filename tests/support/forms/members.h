// The members of a class of host objects, as a table: a name, and the functions that read, write or call it.
#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/host_reference.h"
#include "frame/values/conversions.h"
#include "frame/values/winapi.h"
#include "support/host_call.h"

namespace vorla::forms {

class Object;
using test::HostCall;

/// A property's C++ value as the caller sees it: a float is a single, everything else as Variant converts it.
template <class Value>
Variant toHost(const Value& value) {
    return Variant(value);
}
inline Variant toHost(const Text& value) { return Variant(TextView(value)); }
Variant toHost(IDispatch* value);
template <class Interface>
Variant toHost(const ComPointer<Interface>& value) {
    return toHost(static_cast<IDispatch*>(value.get()));
}

/// An interface of an object that the caller passes, or Nothing. Errors: 424 for a value that is not an
/// object, 13 for an object of another kind.
void* interfaceIn(VariantView value, REFIID id);

template <class Value>
struct FromHost;
template <class Interface>
struct FromHost<ComPointer<Interface>> {
    static ComPointer<Interface> of(VariantView value) {
        return ComPointer<Interface>::adopt(static_cast<Interface*>(interfaceIn(value, __uuidof(Interface))));
    }
};

/// A value from the caller as the property's C++ type. Errors as in conversions: 13, 94, 6.
template <class Value>
Value fromHost(VariantView value) {
    if constexpr (requires { convertedTo<Value>(value); }) {
        return convertedTo<Value>(value);
    } else {
        return FromHost<Value>::of(value);
    }
}

/// The uses of one name. A property's indices come before its value.
struct Member {
    using Body = std::function<Variant(Object&, const HostCall&)>;

    std::wstring name;
    Body get, put, call;
};

/// Built once for each class; a derived class begins with a copy of its base's.
///
///     Members(Control::table()).property(L"Caption", &Label::caption,
///     &Label::setCaption).byDefault(L"Caption")
class Members {
public:
    template <class Class, class Value>
    Members& readOnly(const wchar_t* name, Value (Class::*get)() const) {
        add(name).get = [get](Object& object, const HostCall& call) {
            expectArguments(call, 0);
            return toHost((static_cast<Class&>(object).*get)());
        };
        return *this;
    }

    template <class Reading, class Value, class Class, class Given>
    Members& property(const wchar_t* name, Value (Reading::*get)() const, void (Class::*put)(Given)) {
        readOnly(name, get);
        last().put = [put](Object& object, const HostCall& call) {
            expectArguments(call, 1);
            (static_cast<Class&>(object).*put)(fromHost<std::remove_cvref_t<Given>>(call.argument(0)));
            return Variant();
        };
        return *this;
    }

    /// A property with one index.
    template <class Class, class Value, class Given>
    Members& property(const wchar_t* name, Value (Class::*get)(std::int32_t) const,
                      void (Class::*put)(std::int32_t, Given)) {
        auto& member = add(name);
        member.get = [get](Object& object, const HostCall& call) {
            expectArguments(call, 1);
            return toHost((static_cast<Class&>(object).*get)(fromHost<std::int32_t>(call.argument(0))));
        };
        member.put = [put](Object& object, const HostCall& call) {
            expectArguments(call, 2);
            (static_cast<Class&>(object).*put)(fromHost<std::int32_t>(call.argument(0)),
                                               fromHost<std::remove_cvref_t<Given>>(call.argument(1)));
            return Variant();
        };
        return *this;
    }

    /// A property that is only kept.
    template <class Class, class Value>
    Members& field(const wchar_t* name, Value Class::*kept) {
        auto& member = add(name);
        member.get = [kept](Object& object, const HostCall& call) {
            expectArguments(call, 0);
            return toHost(static_cast<Class&>(object).*kept);
        };
        member.put = [kept](Object& object, const HostCall& call) {
            expectArguments(call, 1);
            static_cast<Class&>(object).*kept = fromHost<Value>(call.argument(0));
            return Variant();
        };
        return *this;
    }

    template <class Class>
    Members& method(const wchar_t* name, Variant (Class::*body)(const HostCall&)) {
        add(name).call = [body](Object& object, const HostCall& call) {
            return (static_cast<Class&>(object).*body)(call);
        };
        return *this;
    }

    /// Makes this name's member the default one too.
    Members& byDefault(const wchar_t* name);

    /// The member's place in the table, by its name without regard to case; -1 when there is none.
    std::ptrdiff_t find(std::wstring_view name) const;
    std::ptrdiff_t defaultMember() const { return default_; }
    std::size_t count() const { return members_.size(); }
    const Member& at(std::size_t place) const { return members_[place]; }

    /// Error 450 for another number of arguments.
    static void expectArguments(const HostCall& call, std::size_t count);

private:
    /// A name of the base gets its new meaning.
    Member& add(const wchar_t* name);
    Member& last() { return members_[last_]; }

    std::vector<Member> members_;
    std::size_t last_ = 0;
    std::ptrdiff_t default_ = -1;
};

}  // namespace vorla::forms
