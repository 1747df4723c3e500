// The DLL as Windows sees it: exports, imports, marks, loading and unloading.
#include <cstring>
#include <set>

#include "contract/component.h"
#include "frame/values/unique_handle.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/resource_count.h"

namespace vorla::test {
namespace {

// The image as the loader mapped it.
class Image {
public:
    explicit Image(HMODULE module) : base_(reinterpret_cast<const BYTE*>(module)) {}

    const IMAGE_NT_HEADERS& headers() const {
        return at<IMAGE_NT_HEADERS>(static_cast<DWORD>(at<IMAGE_DOS_HEADER>(0).e_lfanew));
    }

    std::set<std::string> exports() const {
        const auto& directory = at<IMAGE_EXPORT_DIRECTORY>(directoryAt(IMAGE_DIRECTORY_ENTRY_EXPORT));
        std::set<std::string> names;
        for (DWORD i = 0; i < directory.NumberOfNames; ++i)
            names.insert(text((&at<DWORD>(directory.AddressOfNames))[i]));
        EXPECT_EQ(names.size(), directory.NumberOfFunctions);
        return names;
    }

    std::set<std::string> imports() const {
        std::set<std::string> names;
        for (auto* entry = &at<IMAGE_IMPORT_DESCRIPTOR>(directoryAt(IMAGE_DIRECTORY_ENTRY_IMPORT));
             entry->Name != 0; ++entry) {
            std::string name = text(entry->Name);
            for (char& character : name) character = static_cast<char>(std::tolower(character));
            names.insert(name);
        }
        return names;
    }

    /// The functions, by name, that the image takes from others.
    std::set<std::string> functions() const {
        std::set<std::string> names;
        for (auto* entry = &at<IMAGE_IMPORT_DESCRIPTOR>(directoryAt(IMAGE_DIRECTORY_ENTRY_IMPORT));
             entry->Name != 0; ++entry)
            for (auto* thunk = &at<IMAGE_THUNK_DATA>(entry->OriginalFirstThunk); thunk->u1.AddressOfData != 0;
                 ++thunk)
                if (!IMAGE_SNAP_BY_ORDINAL(thunk->u1.Ordinal))
                    names.insert(text(static_cast<DWORD>(thunk->u1.AddressOfData) + sizeof(WORD)));
        return names;
    }

private:
    template <class T>
    const T& at(DWORD offset) const {
        return *reinterpret_cast<const T*>(base_ + offset);
    }
    const char* text(DWORD offset) const { return reinterpret_cast<const char*>(base_ + offset); }
    DWORD directoryAt(int index) const {
        return headers().OptionalHeader.DataDirectory[index].VirtualAddress;
    }

    const BYTE* base_;
};

TEST(Module, exportsTheFourEntryPoints) {
    const Component component;
    const std::set<std::string> expected{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                         "DllUnregisterServer"};
    EXPECT_EQ(expected, Image(component.module()).exports());
}

TEST(Module, importsOnlyFromWindows) {
    const Component component;
    const std::set<std::string> windows{"advapi32.dll", "gdi32.dll",  "kernel32.dll", "mpr.dll",
                                        "msvcrt.dll",   "ole32.dll",  "oleaut32.dll", "shell32.dll",
                                        "shlwapi.dll",  "user32.dll", "winmm.dll"};
    for (const auto& name : Image(component.module()).imports()) EXPECT_TRUE(windows.contains(name)) << name;
}

// What these serve is a tenth of the component's size or more: printf, and texts for a console.
TEST(Module, writesToNoConsole) {
    const Component component;
    const auto functions = Image(component.module()).functions();
    EXPECT_TRUE(functions.contains("malloc"));
    for (const auto* absent : {"fputc", "fputs", "fputwc", "localeconv", "strerror"})
        EXPECT_FALSE(functions.contains(absent)) << absent;
}

TEST(Module, isSmallStrippedAndMarked) {
    const Component component;
    const Image image(component.module());
    const auto& optional = image.headers().OptionalHeader;
    EXPECT_TRUE(optional.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
    EXPECT_TRUE(optional.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
    EXPECT_EQ(0u, image.headers().FileHeader.NumberOfSymbols);
    // Builds are reproducible.
    EXPECT_EQ(0u, image.headers().FileHeader.TimeDateStamp);
    WIN32_FILE_ATTRIBUTE_DATA file;
    ASSERT_TRUE(GetFileAttributesExW(L"Vorla6.dll", GetFileExInfoStandard, &file));
    EXPECT_LE(file.nFileSizeLow, 1024u * 1024u);
}

TEST(Module, countsObjectsFactoriesAndLocks) {
    const Component component;
    EXPECT_EQ(S_OK, component.canUnloadNow());
    {
        auto factory = component.factory(0);
        EXPECT_EQ(S_FALSE, component.canUnloadNow());
        Dispatch object;
        ASSERT_EQ(S_OK,
                  factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.put())));
        factory = {};
        EXPECT_EQ(S_FALSE, component.canUnloadNow());
        ComPointer<ISupportErrorInfo> facet;
        ASSERT_EQ(S_OK, object->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(facet.put())));
        object = {};
        EXPECT_EQ(S_FALSE, component.canUnloadNow());
    }
    EXPECT_EQ(S_OK, component.canUnloadNow());
    {
        const auto factory = component.factory(0);
        EXPECT_EQ(S_OK, factory->LockServer(TRUE));
        EXPECT_EQ(S_OK, factory->LockServer(TRUE));
        EXPECT_EQ(S_OK, factory->LockServer(FALSE));
    }
    EXPECT_EQ(S_FALSE, component.canUnloadNow());
    EXPECT_EQ(S_OK, component.factory(3)->LockServer(FALSE));
    EXPECT_EQ(S_OK, component.canUnloadNow());
}

TEST(Module, refusesWhatIsNotIts) {
    const Component component;
    void* object = &object;
    EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, component.getClassObject(IID_IUnknown, IID_IClassFactory, &object));
    EXPECT_EQ(nullptr, object);
    object = &object;
    EXPECT_EQ(E_NOINTERFACE, component.getClassObject(classId(0), IID_IDispatch, &object));
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(E_POINTER, component.getClassObject(classId(0), IID_IClassFactory, nullptr));
    const auto factory = component.factory(0);
    object = &object;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(factory.get(), IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
    object = &object;
    EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, IID_IClassFactory, &object));
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(E_POINTER, factory->CreateInstance(nullptr, IID_IDispatch, nullptr));
    EXPECT_EQ(E_POINTER, factory->QueryInterface(IID_IUnknown, nullptr));
    EXPECT_EQ(E_NOINTERFACE, factory->QueryInterface(IID_IDispatch, &object));
}

struct Work {
    DWORD apartment;
    int rounds;
    LONG failures = 0;
};

// Expectations belong to the test's own thread, so other threads count their failures.
DWORD WINAPI loadCallUnload(void* parameter) {
    auto& work = *static_cast<Work*>(parameter);
    if (FAILED(CoInitializeEx(nullptr, work.apartment))) return 1;
    for (int i = 0; i < work.rounds; ++i) {
        const HMODULE module = LoadLibraryW(L".\\Vorla6.dll");
        using GetClassObject = HRESULT WINAPI(REFCLSID, REFIID, void**);
        const auto getClassObject = reinterpret_cast<GetClassObject*>(
            reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
        {
            ComPointer<IClassFactory> factory;
            ComPointer<IDispatch> object;
            getClassObject(classId(0), IID_IClassFactory, reinterpret_cast<void**>(factory.put()));
            factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.put()));
            auto name = const_cast<LPOLESTR>(L"CBR");
            DISPID id = 0;
            object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id);
            VARIANT arguments[2];
            arguments[0].vt = VT_I2;
            arguments[0].iVal = static_cast<SHORT>(i % 2 == 0 ? 4 : -1);
            arguments[1].vt = VT_EMPTY;
            DISPPARAMS parameters{arguments, nullptr, 2, 0};
            VARIANT result;
            VariantInit(&result);
            const HRESULT answer =
                object->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
            const bool right =
                i % 2 == 0 ? answer == S_OK && viewOf(result.bstrVal) == L"    " : answer == DISP_E_EXCEPTION;
            if (!right) InterlockedIncrement(&work.failures);
            VariantClear(&result);
            SetErrorInfo(0, nullptr);
        }
        FreeLibrary(module);
    }
    CoUninitialize();
    return 0;
}

TEST(Module, loadsCallsAndUnloadsOnSeveralThreads) {
    Work works[] = {
        {COINIT_APARTMENTTHREADED, 200}, {COINIT_MULTITHREADED, 200}, {COINIT_APARTMENTTHREADED, 200}};
    HANDLE threads[3];
    for (int i = 0; i < 3; ++i) threads[i] = CreateThread(nullptr, 0, &loadCallUnload, &works[i], 0, nullptr);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForMultipleObjects(3, threads, TRUE, 60'000));
    for (int i = 0; i < 3; ++i) {
        DWORD code = 99;
        GetExitCodeThread(threads[i], &code);
        EXPECT_EQ(0u, code);
        EXPECT_EQ(0, works[i].failures);
        CloseHandle(threads[i]);
    }
    EXPECT_EQ(nullptr, GetModuleHandleW(L"Vorla6.dll"));
}

TEST(Module, loadingAndUnloadingKeepsNothingOpen) {
    const auto loadAndUnload = [](int rounds) {
        Work work{COINIT_APARTMENTTHREADED, rounds};
        const HANDLE thread = CreateThread(nullptr, 0, &loadCallUnload, &work, 0, nullptr);
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, 60'000));
        CloseHandle(thread);
        EXPECT_EQ(0, work.failures);
    };
    // Wine's winmm leaves twelve handles open each time that it is unloaded, so here it stays.
    const LoadedModule winmm(LoadLibraryW(L"winmm.dll"));
    loadAndUnload(2);
    ASSERT_EQ(nullptr, GetModuleHandleW(L"Vorla6.dll"));
    const auto before = Resources::held();
    loadAndUnload(50);
    EXPECT_EQ(before, Resources::held());
}

// Loading the library takes as long as a hundred thousand calls.
TEST(Module, keepsItsTypeLibraryUntilTheLastReference) {
    const Component component;
    const Intercept<decltype(LoadTypeLibEx)> loads(component.module(), "oleaut32.dll", "LoadTypeLibEx");
    const auto describe = [](IDispatch* object) {
        ComPointer<ITypeInfo> description;
        EXPECT_EQ(S_OK, object->GetTypeInfo(0, 0, description.put()));
        return description;
    };
    {
        const auto first = component.create(0), second = component.create(8);
        EXPECT_EQ(0, loads.calls());
        for (int i = 0; i < 100; ++i) {
            describe(first.get());
            describe(second.get());
        }
        ComPointer<IProvideClassInfo> provider;
        ASSERT_EQ(S_OK,
                  first->QueryInterface(IID_IProvideClassInfo, reinterpret_cast<void**>(provider.put())));
        ComPointer<ITypeInfo> description;
        EXPECT_EQ(S_OK, provider->GetClassInfo(description.put()));
    }
    EXPECT_EQ(1, loads.calls());
    EXPECT_EQ(S_OK, component.canUnloadNow());
    const auto once = [&] { describe(component.create(0).get()); };
    once();
    EXPECT_EQ(2, loads.calls());
    // A lock or a factory keeps it too.
    const auto factory = component.factory(0);
    once();
    once();
    EXPECT_EQ(3, loads.calls());
}

TEST(Module, leavesNothingOfItsTypeLibrary) {
    const Component component;
    const auto once = [&] {
        ComPointer<ITypeInfo> description;
        EXPECT_EQ(S_OK, component.create(0)->GetTypeInfo(0, 0, description.put()));
    };
    for (int i = 0; i < 5; ++i) once();
    const auto before = Resources::held();
    const MemoryCount count;
    for (int i = 0; i < 20; ++i) once();
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(before, Resources::held());
}

// A type browser keeps a description for longer than any object.
TEST(Module, descriptionsOutliveTheModule) {
    ComPointer<ITypeInfo> description;
    {
        const Component component;
        ASSERT_EQ(S_OK, component.create(0)->GetTypeInfo(0, 0, description.put()));
        EXPECT_EQ(S_OK, component.canUnloadNow());
    }
    ASSERT_EQ(nullptr, GetModuleHandleW(L"Vorla6.dll"));
    Bstr name;
    EXPECT_EQ(S_OK, description->GetDocumentation(0x60030000, name.put(), nullptr, nullptr, nullptr));
    EXPECT_EQ(L"CBR", name.view());
}

struct Describing {
    const Component* component;
    DWORD apartment;
    LONG failures = 0;
};

// The library comes and goes all the time, as these threads have no object in common.
DWORD WINAPI describeOnceMore(void* parameter) {
    auto& work = *static_cast<Describing*>(parameter);
    if (FAILED(CoInitializeEx(nullptr, work.apartment))) return 1;
    for (int i = 0; i < 100; ++i) {
        const auto object = work.component->create(static_cast<std::uint16_t>(i % classCount));
        ComPointer<ITypeInfo> description;
        Bstr name;
        if (object->GetTypeInfo(0, 0, description.put()) != S_OK ||
            description->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr) != S_OK ||
            name.view().substr(1) != classNames[i % classCount])
            ++work.failures;
    }
    CoUninitialize();
    return 0;
}

TEST(Module, describesItselfOnSeveralThreads) {
    const Component component;
    Describing works[] = {{&component, COINIT_APARTMENTTHREADED},
                          {&component, COINIT_MULTITHREADED},
                          {&component, COINIT_APARTMENTTHREADED}};
    HANDLE threads[3];
    for (int i = 0; i < 3; ++i)
        threads[i] = CreateThread(nullptr, 0, &describeOnceMore, &works[i], 0, nullptr);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForMultipleObjects(3, threads, TRUE, 60'000));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(0, works[i].failures);
        CloseHandle(threads[i]);
    }
    EXPECT_EQ(S_OK, component.canUnloadNow());
}

}  // namespace
}  // namespace vorla::test
