// Creating and releasing an object through its class factory, compared with a class of the system's; and
// asking it for its description.
#include "frame/com/catalogue.h"
#include "frame/contract/identifiers.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

// Returns the number of references left, which is 0.
ULONG createAndRelease(IClassFactory* factory) { return create(factory).detach()->Release(); }

bool describes(IDispatch* object) { return descriptionOf(object).get() != nullptr; }

}  // namespace

void measureCreation(Bench& bench, const Component& component) {
    const auto ours = component.factory(classEntry<VorlaChaine>.number);
    CLSID dictionary;
    demand(CLSIDFromProgID(L"Scripting.Dictionary", &dictionary));
    Factory peer;
    demand(CoGetClassObject(dictionary, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                            reinterpret_cast<void**>(peer.put())));
    bench.compare(
        "VorlaChaine made and released", 1.0, [&] { return createAndRelease(ours.get()); },
        "Scripting.Dictionary", [&] { return createAndRelease(peer.get()); });

    const auto object = create(ours.get());
    const auto description = descriptionOf(object.get());
    ComPointer<ITypeLib> library;
    UINT index;
    demand(description->GetContainingTypeLib(library.put(), &index));
    const auto id = identifier(static_cast<std::uint16_t>(numbers::interfaces));
    bench.compare(
        "GetTypeInfo of a VorlaChaine", 2.0, [&] { return describes(object.get()); },
        "GetTypeInfoOfGuid, library loaded",
        [&] {
            Description found;
            demand(library->GetTypeInfoOfGuid(id, found.put()));
            return found.get() != nullptr;
        });
}

}  // namespace vorla::bench
