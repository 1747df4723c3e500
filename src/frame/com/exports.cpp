// The four functions that the component exports, and the entry point through which Windows reports the ends
// of threads.

#include <new>

#include "frame/com/catalogue.h"
#include "frame/com/class_factory.h"
#include "frame/com/registration.h"
#include "frame/values/module.h"
#include "frame/values/per_thread.h"
#include "frame/values/winapi.h"

using namespace vorla;

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID id, void** factory) {
    if (!factory) return E_POINTER;
    *factory = nullptr;
    for (const Publication* publication : catalogue())
        if (publication->classId() == classId) return makeClassFactory(*publication, id, factory);
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return module::canUnload() ? S_OK : S_FALSE; }

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
    try {
        return registration::add(vorla6, catalogue(), module::path());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() { return registration::remove(vorla6, catalogue()); }

// The C++ runtime's memory for exceptions when there is no other. The runtime never frees it, so a host that
// loads and unloads the component would lose it each time.
namespace __gnu_cxx {
void __freeres();
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* processEnds) {
    if (reason == DLL_THREAD_DETACH) PerThreadStates::threadEnds();
    if (reason == DLL_PROCESS_DETACH && !processEnds) __gnu_cxx::__freeres();
    return TRUE;
}
