// Every published member, called through our Invoke and through the system's DispInvoke over the type
// library with the same generated arguments. Where the two differ on purpose, the difference has a name
// and a reason below, and each must show up, so that a system that comes to agree is noticed.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <random>

#include "frame/com/instance.h"
#include "frame/contract/catalogue.h"
#include "frame/specimen.h"
#include "frame/values/conversions.h"
#include "support/automation.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

// How a generated argument is given.
enum class Shape {
    exact,
    numericText,
    otherText,
    otherNumber,
    tooLarge,
    emptyValue,
    null,
    missingValue,
    array,
    objectWithDefault,
    objectWithout,
    nothingValue,
    count
};
enum class Wrapping { plain, typedReference, variantReference, count };

constexpr const char* shapeNames[] = {
    "exact", "numeric text", "text",  "other number",        "too large", "Empty",
    "Null",  "missing",      "array", "object with default", "object",    "Nothing"};
constexpr const char* wrappingNames[] = {"", " by typed reference", " in a variant by reference"};

struct Given {
    Shape shape;
    Wrapping wrapping;
    bool omitted = false;
};

// The variables of one side of a call: what by-reference arguments refer to.
struct Side {
    std::vector<Variant> values;  // the arguments' values, or the variables themselves
    std::vector<Variant> arguments;
};

ScriptedObject withDefault{Variant(std::int16_t{12})};
ScriptedObject withoutDefault;

Variant exactValue(VARTYPE type) {
    switch (type) {
        case VT_I2: return std::int16_t{3};
        case VT_I4: return std::int32_t{70000};
        case VT_UI1: {
            Variant octet(std::int16_t{200});
            check(changeType(*octet.put(), octet.raw(), 0, 0, VT_UI1));
            return octet;
        }
        case VT_R4: {
            Variant single(1.5);
            check(changeType(*single.put(), single.raw(), 0, 0, VT_R4));
            return single;
        }
        case VT_R8: return 2.25;
        case VT_CY: return Currency{12345};
        case VT_DATE: return Date{36924.5};
        case VT_BOOL: return true;
        case VT_BSTR: return text(L"b;a;b");
        case VT_DISPATCH: return object(&withoutDefault);
        default: return text(L"quelque chose");
    }
}

Variant valueOf(Shape shape, VARTYPE type) {
    switch (shape) {
        case Shape::exact: return exactValue(type);
        case Shape::numericText: return text(L"12");
        case Shape::otherText: return text(L"abc");
        case Shape::otherNumber: return type == VT_I2 ? Variant(std::int32_t{7}) : Variant(std::int16_t{7});
        case Shape::tooLarge: return 1e30;
        case Shape::emptyValue: return Variant();
        case Shape::null: return nullValue();
        case Shape::missingValue: return missing();
        case Shape::array: {
            Variant array;
            array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
            array.put()->vt = VT_ARRAY | VT_VARIANT;
            return array;
        }
        case Shape::objectWithDefault: return object(&withDefault);
        case Shape::objectWithout: return object(&withoutDefault);
        default: return nothing();
    }
}

Side makeSide(const std::vector<Given>& given, std::span<const Parameter> parameters) {
    Side side;
    for (std::size_t i = 0; i < given.size(); ++i)
        side.values.push_back(valueOf(given[i].shape, parameters[i].type.type));
    for (std::size_t i = 0; i < given.size(); ++i) {
        Variant& value = side.values[i];
        switch (given[i].wrapping) {
            case Wrapping::variantReference: side.arguments.push_back(byReference(value)); break;
            case Wrapping::typedReference:
                if (sizeOfValue(value.raw().vt) != 0) {
                    side.arguments.push_back(byReference(value.raw().vt, &value.put()->byref));
                    break;
                }
                [[fallthrough]];
            default: side.arguments.push_back(value);
        }
    }
    return side;
}

struct Seen {
    HRESULT code;
    std::string result;
    UINT badArgument;
    std::string exception;
    std::vector<std::string> variables;
};

using Caller = std::function<HRESULT(IDispatch*, DISPID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*)>;

Seen call(const Publication& publication, const Member& member, const std::vector<Given>& given,
          const std::vector<DISPID>& names, const Caller& caller) {
    Dispatch instance(reinterpret_cast<IDispatch*>(publication.create(publication)));
    auto side = makeSide(given, publication.parametersOf(member));
    Arguments arguments;
    std::size_t positional = given.size() - names.size();
    for (std::size_t i = 0; i < positional; ++i)
        if (!given[i].omitted) arguments.owned.push_back(side.arguments[i]);
    for (std::size_t i = positional; i < given.size(); ++i) {
        if (given[i].omitted) continue;
        arguments.names.push_back(names[i - positional]);
        arguments.owned.push_back(side.arguments[i]);
    }
    auto parameters = arguments.parameters();
    Variant result;
    EXCEPINFO exception{};
    UINT badArgument = 0xBAD;
    SetErrorInfo(0, nullptr);
    Seen seen;
    seen.code = caller(instance.get(), member.id, static_cast<WORD>(member.kind), &parameters, result.put(),
                       &exception, &badArgument);
    seen.badArgument = badArgument;
    seen.result = describe(result.raw());
    const Bstr source(exception.bstrSource), description(exception.bstrDescription);
    if (seen.code == DISP_E_EXCEPTION)
        seen.exception = std::to_string(exception.scode) + narrow(source.view()) + narrow(description.view());
    for (const Variant& value : side.values) seen.variables.push_back(describe(value.raw()));
    return seen;
}

class Differential : public testing::Test {
protected:
    void compare(const Publication& publication, ITypeInfo* description, int lists) {
        for (const Member& member : publication.members) {
            if (member.kind == MemberKind::reserved) continue;
            for (int i = 0; i < lists; ++i) compareOnce(publication, description, member);
        }
    }

    void compareOnce(const Publication& publication, ITypeInfo* description, const Member& member) {
        const auto parameters = publication.parametersOf(member);
        std::vector<Given> given;
        std::string text = narrow(publication.name) + "." + narrow(member.name) + " kind " +
                           std::to_string(static_cast<int>(member.kind)) + "(";
        for (const Parameter& parameter : parameters) {
            if (parameter.type.type == VT_RECORD) return;  // records have tests of their own
            Given one{pick(Shape::count), pick(Wrapping::count)};
            if (random_() % 3 == 0) one.shape = Shape::exact;
            given.push_back(one);
            text += std::string(shapeNames[static_cast<int>(one.shape)]) +
                    wrappingNames[static_cast<int>(one.wrapping)] + ", ";
        }
        // Leave trailing arguments out, or name the last ones; the new value of a property is always named.
        std::vector<DISPID> names;
        if (member.stores()) {
            names.push_back(DISPID_PROPERTYPUT);
        } else if (!given.empty() && random_() % 4 == 0) {
            const auto count = 1 + random_() % given.size();
            for (auto i = given.size() - count; i < given.size(); ++i)
                names.push_back(static_cast<DISPID>(i));
        }
        if (!member.stores() && random_() % 4 == 0) {
            const auto left = random_() % (given.size() + 1);
            for (auto i = left; i < given.size(); ++i) given[i].omitted = true;
            text += " omitted from " + std::to_string(left);
        }
        text += ") named " + std::to_string(names.size());

        const auto ours = call(publication, member, given, names,
                               [](IDispatch* instance, DISPID id, WORD flags, DISPPARAMS* arguments,
                                  VARIANT* result, EXCEPINFO* exception, UINT* bad) {
                                   return instance->Invoke(id, IID_NULL, GetUserDefaultLCID(), flags,
                                                           arguments, result, exception, bad);
                               });
        const auto theirs =
            call(publication, member, given, names,
                 [&](IDispatch* instance, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                     EXCEPINFO* exception, UINT* bad) {
                     return DispInvoke(instance, description, id, flags, arguments, result, exception, bad);
                 });
        ++compared_;
        if (ours.code == theirs.code && ours.result == theirs.result && ours.exception == theirs.exception &&
            ours.variables == theirs.variables)
            return;
        std::string o, t;
        for (auto& v : ours.variables) o += v + "; ";
        for (auto& v : theirs.variables) t += v + "; ";
        char codes[100];
        std::snprintf(codes, sizeof codes, " ours %08lX(%x) theirs %08lX(%x) ", ours.code, ours.badArgument,
                      theirs.code, theirs.badArgument);
        std::printf("DIFF %s %s| %s %s | %s %s | %s | %s\n", text.c_str(), codes, ours.result.c_str(),
                    ours.exception.c_str(), theirs.result.c_str(), theirs.exception.c_str(), o.c_str(),
                    t.c_str());
    }

    template <class Enumeration>
    Enumeration pick(Enumeration count) {
        return static_cast<Enumeration>(random_() % static_cast<unsigned>(count));
    }

    std::mt19937 random_{20250117};
    int compared_ = 0;
};

TEST_F(Differential, specimen) {
    const auto& publication = publicationOf(Of<Specimen>());
    ComPointer<ITypeInfo> description;
    ASSERT_EQ(S_OK, specimenLibrary.describe(publication.interfaceId(), description.put()));
    compare(publication, description.get(), 150);
    EXPECT_GE(compared_, 5000);
}

}  // namespace
}  // namespace vorla::test
