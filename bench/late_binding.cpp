// Our dispatch against ITypeInfo::Invoke on the same object, which is what a server gets that leaves
// dispatch to the system.
#include <algorithm>

#include "frame/com/catalogue.h"
#include "frame/com/instance.h"
#include "frame/contract/identifiers.h"
#include "frame/specimen.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

constexpr const char* peerName = "ITypeInfo::Invoke";

// A result that owns nothing is returned as it is, so that freeing it is no part of the measured time.
void compareNumber(Bench& bench, const std::string& name, IDispatch* object, const wchar_t* member,
                   Arguments arguments) {
    const auto description = descriptionOf(object);
    const auto id = idByObject(object, member);
    bench.compare(
        name, 1.0 / 25,
        [&] {
            VARIANT result{};
            invokeByObject(object, id, arguments, result);
            return result;
        },
        peerName,
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

// The slowest of our names against the fastest of the type library's.
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
    const Dispatch specimen(reinterpret_cast<IDispatch*>(publication.create(publication)));
    compareNumber(bench, "Invoke, a number given back", specimen.get(), L"Long", {std::int32_t{70000}});
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
