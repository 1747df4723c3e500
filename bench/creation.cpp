// An object from its class factory and back, and its description, against a class of the system's own.
#include "frame/com/catalogue.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

// How many references are left: none.
ULONG createAndRelease(IClassFactory* factory) { return create(factory).release()->Release(); }

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

    const auto object = create(ours.get()), other = create(peer.get());
    bench.compare(
        "GetTypeInfo of a VorlaChaine", 2.0, [&] { return describes(object.get()); }, "Scripting.Dictionary",
        [&] { return describes(other.get()); });
}

}  // namespace vorla::bench
