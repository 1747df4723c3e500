// An object of the forms host. It answers automation calls from its class's table of members and records
// them.
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

/// Lives on the heap and counts its references. It tells its class through IProvideClassInfo, and through
/// GetTypeInfo the class's interface, which has a leading underscore.
///
/// Each call from outside is a line of the record: "get optMode(1).Caption", "put frmClients.BackColor",
/// "call txtName.SetFocus", "lookup txtName.Index", "get Forms.(enumerator)", "next Forms"; a call of the
/// default member bears that member's name. Failures of its own members reach the caller as exceptions with
/// code 0x800A0000 + number.
class Object : public IDispatch, public IProvideClassInfo {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    /// A property's value, read or written by the host's own program: by the same member, but not recorded
    /// and never failed on order. Errors: RuntimeError; 438 for an unknown name.
    Variant get(std::wstring_view name);
    template <class Value>
    Value getAs(std::wstring_view name) {
        return fromHost<Value>(get(name).view());
    }
    template <class Value>
    void put(std::wstring_view name, const Value& value) {
        write(name, hostArgument(value));
    }

    /// Adds a property to this object only.
    void addProperty(const wchar_t* name, Variant value);
    /// Removes a member from this object only.
    void removeMember(const wchar_t* name);

    /// The object's name in the record.
    virtual std::wstring path() const = 0;
    const std::wstring& typeName() const { return typeName_; }

    /// The number of living objects of all hosts.
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
    /// Whether the object is a collection, and the items that its enumerator walks.
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
