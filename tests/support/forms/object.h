// An object of the forms host: what automation asks of it, answered from its class's table of members and
// recorded.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "frame/host/bound_object.h"
#include "frame/values/com_pointer.h"
#include "frame/values/winapi.h"
#include "support/forms/errors.h"
#include "support/forms/members.h"

namespace vorla::forms {

/// Lives on the heap by its references. It tells its class through IProvideClassInfo and the class's
/// interface, a leading underscore before the name, through GetTypeInfo.
///
/// Each call from outside is a line of the record: "get optMode(1).Caption", "put frmClients.BackColor",
/// "call txtName.SetFocus", "lookup txtName.Index", "get Forms.(enumerator)", "next Forms"; a call of the
/// default member bears that member's name. Failures of its own members reach the caller as exceptions with
/// code 0x800A0000 + number.
class Object : public IDispatch, public IProvideClassInfo {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    /// A property's value as the object's own program reads and writes it: by the same member, but not
    /// recorded and never failed by order. Errors: RuntimeError; 438 for a name that the object has not.
    Variant get(std::wstring_view name);
    template <class Value>
    Value getAs(std::wstring_view name) {
        return fromHost<Value>(get(name).view());
    }
    template <class Value>
    void put(std::wstring_view name, const Value& value) {
        write(name, hostArgument(value));
    }

    /// Gives this object alone one more property, which is only kept.
    void addProperty(const wchar_t* name, Variant value);
    /// Takes a member from this object alone.
    void removeMember(const wchar_t* name);

    /// As the record names it.
    virtual std::wstring path() const = 0;
    const std::wstring& typeName() const { return typeName_; }

    /// How many objects of all hosts live.
    static long livingObjects() { return living_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** type) override;

protected:
    Object(std::wstring typeName, test::CallRecord& record)
        : typeName_(std::move(typeName)), record_(record) {
        ++living_;
    }
    virtual ~Object() { --living_; }

    virtual const Members& members() const = 0;
    /// The items that an enumerator walks; an object is a collection when it says so.
    virtual bool isCollection() const { return false; }
    virtual std::vector<Variant> items() const { return {}; }

    test::CallRecord& record() const { return record_; }

private:
    struct Own {
        std::wstring name;
        Variant value;
        bool removed;
    };

    void write(std::wstring_view name, Variant value);
    /// The member's identifier; DISPID_UNKNOWN when there is none.
    DISPID find(std::wstring_view name) const;
    std::wstring nameOf(DISPID id) const;
    Variant answer(DISPID id, const HostCall& call);
    Variant answer(const Member& member, const HostCall& call);

    const std::wstring typeName_;
    test::CallRecord& record_;
    ComPointer<ITypeInfo> class_, interface_;
    std::vector<Own> own_;
    ULONG references_ = 1;
    static inline long living_ = 0;
};

}  // namespace vorla::forms
