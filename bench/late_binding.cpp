// Our dispatch compared with ITypeInfo::Invoke on the same object, which a server uses when it leaves
// dispatch to the system, and with an Invoke that knows its one member beforehand.
#include <algorithm>

#include "frame/com/catalogue.h"
#include "frame/com/instance.h"
#include "frame/contract/identifiers.h"
#include "frame/specimen.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

constexpr const char* peerName = "ITypeInfo::Invoke";

// What an Invoke costs at least: a switch written for one class by hand, with the checks that every Invoke
// owes its caller and nothing of what makes ours general.
class ByHand final : public IDispatch {
public:
    explicit ByHand(DISPID id) : id_(id) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (!parameters || parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
        if (id != id_ || !(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
        if (parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        if (parameters->rgvarg[0].vt != VT_I4) return DISP_E_TYPEMISMATCH;
        LONG number;
        if (const auto code = given(parameters->rgvarg[0].lVal, &number); FAILED(code)) return code;
        if (result) {
            result->vt = VT_I4;
            result->lVal = number;
        }
        return S_OK;
    }

private:
    // The slot behind it, called and not inlined, as ours is.
    [[gnu::noipa]] static HRESULT given(LONG number, LONG* result) {
        *result = number;
        return S_OK;
    }

    DISPID id_;
};

VARIANT numberOf(IDispatch* object, DISPID id, Arguments& arguments) {
    VARIANT result{};
    invokeByObject(object, id, arguments, result);
    return result;
}

// One run for both peers, so that all three meet the same machine.
void compareNumberGivenBack(Bench& bench, IDispatch* object) {
    const std::string row = "Invoke, a number given back";
    Arguments arguments{std::int32_t{70000}};
    const auto description = descriptionOf(object);
    const auto id = idByObject(object, L"Long");
    ByHand byHand(id);
    const auto ours = [&] { return numberOf(object, id, arguments); };
    const auto hands = [&] { return numberOf(&byHand, id, arguments); };
    const auto systems = [&] {
        VARIANT result{};
        invokeByTypeInfo(description.get(), object, id, arguments, result);
        return result;
    };
    if (!same(ours(), hands()) || !same(ours(), systems())) throw WrongResult(row);
    const auto times = medians(bench.effort, {batchOf(ours), batchOf(hands), batchOf(systems)});
    bench.report.add({row, times[0], "an Invoke written by hand", times[1], 1.5});
    bench.report.add({row, times[0], peerName, times[2], 1.0 / 10});
}

// The result is returned as it is, because it owns nothing and freeing it should not be measured.
void compareNumber(Bench& bench, const std::string& name, IDispatch* object, const wchar_t* member,
                   Arguments arguments) {
    const auto description = descriptionOf(object);
    const auto id = idByObject(object, member);
    bench.compare(
        name, 1.0 / 25, [&] { return numberOf(object, id, arguments); }, peerName,
        [&] {
            VARIANT result{};
            invokeByTypeInfo(description.get(), object, id, arguments, result);
            return result;
        });
}

void compareText(Bench& bench, const std::string& name, double target, IDispatch* object,
                 const wchar_t* member, Arguments arguments) {
    const auto description = descriptionOf(object);
    const auto id = idByObject(object, member);
    bench.compare(
        name, target,
        [&] {
            Variant result;
            invokeByObject(object, id, arguments, *result.put());
            return result;
        },
        peerName,
        [&] {
            Variant result;
            invokeByTypeInfo(description.get(), object, id, arguments, *result.put());
            return result;
        });
}

// Compares the slowest of our names with the fastest of the type library's.
void compareNames(Bench& bench, IDispatch* object) {
    const std::string row = "GetIDsOfNames, slowest member of VorlaChaine";
    const auto description = descriptionOf(object);
    std::vector<Batch> subjects;
    for (const Member& member : publicationOf(Of<VorlaChaine>()).members) {
        if (member.kind == MemberKind::reserved) continue;
        const auto ours = [object, name = member.name] { return idByObject(object, name); };
        const auto peers = [&description, name = member.name] {
            return idByTypeInfo(description.get(), name);
        };
        if (!same(ours(), peers())) throw WrongResult(row);
        subjects.push_back(batchOf(ours));
        subjects.push_back(batchOf(peers));
    }
    const auto times = medians(bench.effort, subjects);
    double slowest = times[0], fastest = times[1];
    for (std::size_t i = 0; i < times.size(); i += 2) {
        slowest = std::max(slowest, times[i]);
        fastest = std::min(fastest, times[i + 1]);
    }
    bench.report.add({row, slowest, "ITypeInfo::GetIDsOfNames, fastest", fastest, 1.0 / 5});
}

void compareWholeCall(Bench& bench, IDispatch* object) {
    const auto description = descriptionOf(object);
    Arguments arguments{TextView(L"a;b;c"), std::int16_t{2}, TextView(L";")};
    bench.compare(
        "GetIDsOfNames and Invoke, ExtraitChaine", 1.0 / 5,
        [&] {
            Variant result;
            invokeByObject(object, idByObject(object, L"ExtraitChaine"), arguments, *result.put());
            return result;
        },
        "the same with ITypeInfo",
        [&] {
            Variant result;
            invokeByTypeInfo(description.get(), object, idByTypeInfo(description.get(), L"ExtraitChaine"),
                             arguments, *result.put());
            return result;
        });
}

// The system cannot return records, so the peer makes one from a description that it has at hand.
void compareRecord(Bench& bench, IDispatch* object) {
    const auto description = descriptionOf(object);
    ComPointer<ITypeLib> library;
    UINT index;
    demand(description->GetContainingTypeLib(library.put(), &index));
    Arguments arguments{std::int32_t{10}};
    const auto id = idByObject(object, L"Cadre");
    const auto freed = [](IRecordInfo* record, void* made) {
        const auto left = static_cast<records::Rect*>(made)->Left;
        record->RecordDestroy(made);
        record->Release();
        return left;
    };
    bench.compare(
        "Invoke, a record as result", 2.0,
        [&] {
            VARIANT result{};
            invokeByObject(object, id, arguments, result);
            return freed(result.pRecInfo, result.pvRecord);
        },
        "its record made by hand",
        [&] {
            Description type;
            IRecordInfo* record;
            demand(library->GetTypeInfoOfGuid(identifier(contractNumber<records::Rect>), type.put()));
            demand(GetRecordInfoFromTypeInfo(type.get(), &record));
            void* const made = record->RecordCreate();
            static_cast<records::Rect*>(made)->Left = 10;
            return freed(record, made);
        });
}

}  // namespace

void measureLateBinding(Bench& bench, const Component& component) {
    const auto& publication = publicationOf(Of<test::Specimen>());
    const auto specimen = Dispatch::adopt(reinterpret_cast<IDispatch*>(publication.create(publication)));
    compareNumberGivenBack(bench, specimen.get());
    compareRecord(bench, specimen.get());

    const auto text = create(component.factory(classEntry<VorlaChaine>.number).get());
    compareNumber(bench, "Invoke, Occurrence of a short text", text.get(), L"Occurrence",
                  {TextView(L"abcabc"), TextView(L"b")});
    compareText(bench, "Invoke, ExtraitChaine, last argument left out", 1.0 / 4, text.get(), L"ExtraitChaine",
                {TextView(L"a;b;c"), std::int16_t{2}, TextView(L";")});
    compareText(bench, "Invoke, ExtraitChaine, all arguments", 1.0 / 4, text.get(), L"ExtraitChaine",
                {TextView(L"a;b;c"), std::int16_t{2}, TextView(L";"), false});
    compareNames(bench, text.get());
    compareWholeCall(bench, text.get());
}

}  // namespace vorla::bench
