// A host object for tests, with scripted properties, methods and items, and a log of every name used on it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "frame/values/com_pointer.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"
#include "support/host_call.h"

namespace vorla::test {

/// Lives on the test's stack: references are counted but never delete it. `references()` must be 0 again when
/// the test ends.
///
/// The log has one line for each call from outside, in order: "lookup Text", "get Text", "put Text",
/// "putref Font", "call Refresh", "next" for an item of an enumerator. Reading a property as hosts do (as
/// a property or a function) is a "get"; the default member is called "(default)", the enumerator
/// "(enumerator)".
class ScriptedObject : public IDispatch {
public:
    using Call = HostCall;
    using Method = std::function<Variant(const Call&)>;

    /// How a collection lets its items be walked.
    enum class Walk { byEnumerator, byCountAndItem, byCountAndDefault };

    ScriptedObject() = default;
    /// An object with a default property that cannot be written.
    explicit ScriptedObject(Variant defaultValue);
    ScriptedObject(const ScriptedObject&) = delete;
    ScriptedObject& operator=(const ScriptedObject&) = delete;
    virtual ~ScriptedObject() = default;

    /// A property that can be read and written, by reference too.
    ScriptedObject& property(const wchar_t* name, Variant value = {});
    ScriptedObject& readOnly(const wchar_t* name, Variant value);
    /// A property with one index, from 0. Any other index is error 381, as in controls.
    ScriptedObject& indexed(const wchar_t* name, std::vector<Variant> values);
    /// A RuntimeError that the body throws reaches the caller as an exception with its number.
    ScriptedObject& method(const wchar_t* name, Method body);
    /// Makes this name's member the default one too.
    ScriptedObject& defaultMember(const wchar_t* name);
    ScriptedObject& items(std::vector<Variant> values, Walk walk);
    /// Numbers the items just given, or the indexed property, from here instead of from 0.
    ScriptedObject& numberedFrom(std::int32_t first);

    /// The name of the class, told through IProvideClassInfo, or of the interface, through GetTypeInfo.
    ScriptedObject& className(const wchar_t* name);
    ScriptedObject& interfaceName(const wchar_t* name);

    /// The `number`-th call of Invoke or of an enumerator from now (1 is the next) fails with this code.
    /// Codes 0x800Axxxx come as an exception's `scode`.
    ScriptedObject& failCall(int number, HRESULT code);
    /// The same with an exception whose `wCode` is the error's number.
    ScriptedObject& failCallWithNumber(int number, WORD errorNumber);
    /// The same with an exception of any code, described.
    ScriptedObject& failCallExplained(int number, HRESULT code);
    /// The same, but the exception is filled in only when the caller asks for it.
    ScriptedObject& failCallDeferred(int number, WORD errorNumber);
    /// The `number`-th lookup of a name from now fails with this code, whether or not the name is known.
    ScriptedObject& failLookup(int number, HRESULT code);

    /// A property's value.
    Variant& value(const wchar_t* name);
    Variant& value(const wchar_t* name, std::size_t index);

    const std::vector<std::wstring>& log() const { return record_.log(); }
    void clearLog() { record_.clearLog(); }
    /// The number of lines that begin with this text.
    std::size_t logged(const std::wstring& beginning) const { return record_.logged(beginning); }

    long references() const { return references_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references_); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

private:
    // A part of this object that tells the class.
    class ClassInfo final : public IProvideClassInfo {
    public:
        explicit ClassInfo(ScriptedObject& owner) : owner_(owner) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
            return owner_.QueryInterface(id, object);
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
        ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
        HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** type) override;

    private:
        ScriptedObject& owner_;
    };

    struct Member {
        std::wstring name;
        std::vector<Variant> values;  // one for a property, one for each index of an indexed one
        Method body;                  // of a method
        bool writable = true;
        bool indexed = false;
        std::int32_t firstIndex = 0;
    };

    Member& add(const wchar_t* name);
    Member* find(std::wstring_view name);
    Member& known(const wchar_t* name);
    HRESULT answer(Member& member, const Call& call, Variant& result);

    std::vector<Member> members_;
    std::vector<Variant> items_;
    bool enumerates_ = false;
    DISPID default_ = DISPID_UNKNOWN;
    ComPointer<ITypeInfo> class_;
    ComPointer<ITypeInfo> interface_;
    ClassInfo classInfo_{*this};
    CallRecord record_;
    long references_ = 0;
};

}  // namespace vorla::test
