// Every class's object: identity, description, and the calls that no member answers.
#include "contract/component.h"

namespace vorla::test {
namespace {

template <class Interface>
ComPointer<Interface> ask(IUnknown* object, REFIID id) {
    ComPointer<Interface> answer;
    EXPECT_EQ(S_OK, object->QueryInterface(id, reinterpret_cast<void**>(answer.put())));
    return answer;
}

TEST(Object, identityIsAnEquivalence) {
    const Component component;
    for (std::uint16_t number = 0; number < classCount; ++number) {
        const auto object = component.create(number);
        const IID ids[] = {IID_IUnknown, IID_IDispatch, interfaceId(number), IID_ISupportErrorInfo,
                           IID_IProvideClassInfo};
        const auto identity = ask<IUnknown>(object.get(), IID_IUnknown);
        for (const IID& from : ids)
            for (const IID& to : ids) {
                const auto first = ask<IUnknown>(object.get(), from);
                const auto second = ask<IUnknown>(first.get(), to);
                EXPECT_EQ(identity.get(), ask<IUnknown>(second.get(), IID_IUnknown).get());
            }
        void* nothing = &nothing;
        EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(IID_IClassFactory, &nothing));
        EXPECT_EQ(nullptr, nothing);
        EXPECT_EQ(E_POINTER, object->QueryInterface(IID_IUnknown, nullptr));
        EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(
                                     interfaceId(static_cast<std::uint16_t>((number + 1) % 12)), &nothing));
    }
}

TEST(Object, referencesAreCounted) {
    const Component component;
    auto object = component.create(0);
    EXPECT_EQ(2u, object->AddRef());
    EXPECT_EQ(1u, object->Release());
    EXPECT_EQ(0u, object.detach()->Release());
    EXPECT_EQ(S_OK, component.canUnloadNow());
}

TEST(Object, describesItself) {
    const Component component;
    for (std::uint16_t number = 0; number < classCount; ++number) {
        const auto object = component.create(number);
        UINT count = 99;
        EXPECT_EQ(S_OK, object->GetTypeInfoCount(&count));
        EXPECT_EQ(1u, count);
        ComPointer<ITypeInfo> description;
        EXPECT_EQ(S_OK, object->GetTypeInfo(0, 0, description.put()));
        Bstr name;
        EXPECT_EQ(S_OK, description->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
        EXPECT_EQ(std::wstring(L"_") + classNames[number], name.view());
        ITypeInfo* none = description.get();
        EXPECT_EQ(DISP_E_BADINDEX, object->GetTypeInfo(1, 0, &none));
        EXPECT_EQ(nullptr, none);
        EXPECT_EQ(E_POINTER, object->GetTypeInfo(0, 0, nullptr));
        EXPECT_EQ(E_POINTER, object->GetTypeInfoCount(nullptr));

        const auto provider = ask<IProvideClassInfo>(object.get(), IID_IProvideClassInfo);
        ComPointer<ITypeInfo> coclass;
        EXPECT_EQ(S_OK, provider->GetClassInfo(coclass.put()));
        Bstr className;
        EXPECT_EQ(S_OK, coclass->GetDocumentation(MEMBERID_NIL, className.put(), nullptr, nullptr, nullptr));
        EXPECT_EQ(classNames[number], className.view());
        EXPECT_EQ(E_POINTER, provider->GetClassInfo(nullptr));

        const auto errors = ask<ISupportErrorInfo>(object.get(), IID_ISupportErrorInfo);
        EXPECT_EQ(S_OK, errors->InterfaceSupportsErrorInfo(interfaceId(number)));
        EXPECT_EQ(S_OK, errors->InterfaceSupportsErrorInfo(IID_IDispatch));
        EXPECT_EQ(S_FALSE, errors->InterfaceSupportsErrorInfo(IID_IClassFactory));
    }
}

TEST(Object, classesWithoutMembersAnswerNoName) {
    const Component component;
    const auto object = component.create(numberOfEnum);
    auto name = const_cast<LPOLESTR>(L"CBR");
    DISPID id = 0;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id));
    EXPECT_EQ(DISPID_UNKNOWN, id);
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(object.get(), 0x60030000, DISPATCH_METHOD, none).code);
}

// Because the library deletes files and starts programs.
TEST(Object, isNotMarkedSafeForScripting) {
    constexpr IID objectSafety{0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
    const Component component;
    void* safety = nullptr;
    EXPECT_EQ(E_NOINTERFACE, component.create(0)->QueryInterface(objectSafety, &safety));
}

// A call from another apartment arrives through the standard marshaller.
DWORD WINAPI callThroughProxy(void* parameter) {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    DWORD failures = 1;
    {
        ComPointer<IDispatch> proxy;
        if (SUCCEEDED(CoGetInterfaceAndReleaseStream(static_cast<IStream*>(parameter), IID_IDispatch,
                                                     reinterpret_cast<void**>(proxy.put())))) {
            failures = 0;
            for (int i = 0; i < 50; ++i) {
                Variant piece(std::int16_t{2}), text(TextView(L"a;b;c")), separator(TextView(L";"));
                VARIANT arguments[] = {separator.raw(), piece.raw(), text.raw()};
                DISPPARAMS parameters{arguments, nullptr, 3, 0};
                Variant result;
                const auto answer = proxy->Invoke(0x60030002, IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                                  result.put(), nullptr, nullptr);
                if (answer != S_OK || result.raw().vt != VT_BSTR || viewOf(result.raw().bstrVal) != L"b")
                    ++failures;
            }
        }
    }
    CoUninitialize();
    return failures;
}

TEST(Object, answersOtherApartments) {
    const Component component;
    const auto object = component.create(0);
    IStream* stream = nullptr;
    ASSERT_EQ(S_OK, CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.get(), &stream));
    const HANDLE thread = CreateThread(nullptr, 0, &callThroughProxy, stream, 0, nullptr);
    for (;;) {
        const auto signalled = MsgWaitForMultipleObjects(1, &thread, FALSE, 60'000, QS_ALLINPUT);
        if (signalled != WAIT_OBJECT_0 + 1) break;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    DWORD failures = 99;
    GetExitCodeThread(thread, &failures);
    CloseHandle(thread);
    EXPECT_EQ(0u, failures);
}

}  // namespace
}  // namespace vorla::test
