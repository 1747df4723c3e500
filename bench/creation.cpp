// Creating and releasing an object through its class factory, compared with a class of the system's.
#include "frame/com/catalogue.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

// Returns the number of references left, which is 0.
ULONG createAndRelease(IClassFactory* factory) { return create(factory).release()->Release(); }

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
}

}  // namespace vorla::bench
