// Objects whose names can be found only through IDispatchEx.
#include "frame/host/member_names.h"

#include <dispex.h>
#include <gtest/gtest.h>

#include "frame/host/bound_object.h"
#include "frame/shared/host_queries.h"
#include "support/automation.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

// GetIDsOfNames refuses every name; IDispatchEx, if the object has it, finds them.
class NewerObject : public ScriptedObject {
public:
    explicit NewerObject(bool hasNames = true) : hasNames_(hasNames) {}

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != __uuidof(IDispatchEx)) return ScriptedObject::QueryInterface(id, object);
        *object = hasNames_ ? &names_ : nullptr;
        if (!hasNames_) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

private:
    class Names final : public IDispatchEx {
    public:
        explicit Names(NewerObject& owner) : owner_(owner) {}

        HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD flags, DISPID* id) override {
            EXPECT_EQ(DWORD{fdexNameCaseInsensitive}, flags);
            return owner_.ScriptedObject::GetIDsOfNames(IID_NULL, &name, 1, 0, id);
        }

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
            return owner_.QueryInterface(id, object);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
        ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
        HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
            return E_NOTIMPL;
        }
        HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                         UINT*) override {
            return E_NOTIMPL;
        }
        HRESULT STDMETHODCALLTYPE InvokeEx(DISPID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                           IServiceProvider*) override {
            return E_NOTIMPL;
        }
        HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

    private:
        NewerObject& owner_;
    };

    const bool hasNames_;
    Names names_{*this};
};

TEST(MemberNames, areAskedInTheNewerWayWhenTheOlderIsNotThere) {
    NewerObject control;
    control.property(L"Text", text(L"été"));
    constexpr std::int16_t get = 2;
    {
        BoundObject host{HostObject(&control)};
        EXPECT_EQ(L"été", host.getAs<Text>(L"text"));
        EXPECT_TRUE(host.knows(L"Text"));
        EXPECT_FALSE(host.knows(L"Caption"));
        EXPECT_EQ(438, errorOf([&] { host.get(L"Caption"); }));
        EXPECT_TRUE(ProprieteExiste(HostObject(&control), L"Text", get));
        EXPECT_FALSE(ProprieteExiste(HostObject(&control), L"Caption", get));
    }
    EXPECT_EQ(0, control.references());
}

TEST(MemberNames, failWithoutEitherWay) {
    NewerObject control(false);
    control.property(L"Text", text(L"été"));
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(E_NOTIMPL, findMember(&control, L"Text", LOCALE_USER_DEFAULT, id));
    EXPECT_EQ(440, errorOf([&] { BoundObject(HostObject(&control)).get(L"Text"); }));
    EXPECT_EQ(0, control.references());
}

}  // namespace
}  // namespace vorla::test
