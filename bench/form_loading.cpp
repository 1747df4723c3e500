// LngFormLoad compared with just the reads of the language file that it has to make: what the member and the
// host's calls add to them. The form is as light as automation objects can be, so that it hides nothing.
#include <algorithm>
#include <functional>
#include <memory>

#include "frame/com/catalogue.h"
#include "frame/values/ansi.h"
#include "frame/values/unique_handle.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

constexpr std::size_t controlsInFile = 1'000;
constexpr const wchar_t* texts[] = {L"Caption", L"Text", L"ToolTipText"};

std::wstring controlName(std::size_t number) { return L"ctl" + std::to_wstring(number); }
std::wstring textOf(std::size_t number, const wchar_t* property) {
    return std::wstring(property) + L" of control " + std::to_wstring(number);
}

// An automation object that knows a few names. It must outlive all references to it.
class LightObject : public IDispatch {
public:
    LightObject() = default;
    LightObject(const LightObject&) = delete;
    LightObject& operator=(const LightObject&) = delete;
    virtual ~LightObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IDispatch;
        *object = known ? static_cast<IDispatch*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) override {
        *type = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
        const auto found = std::find(names_.begin(), names_.end(), std::wstring_view(names[0]));
        *id = found == names_.end() ? DISPID_UNKNOWN : static_cast<DISPID>(found - names_.begin()) + 1;
        return found == names_.end() ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return DISP_E_MEMBERNOTFOUND;
        const auto member = static_cast<std::size_t>(id) - 1;
        if (kind & DISPATCH_PROPERTYPUT) return write(member, parameters->rgvarg[0]);
        *result = read(member, *parameters).detach();
        return S_OK;
    }

protected:
    // A member's identifier is its place among the names.
    std::vector<std::wstring_view> names_;
    virtual Variant read(std::size_t member, const DISPPARAMS& parameters) = 0;
    virtual HRESULT write(std::size_t, const VARIANT&) { return DISP_E_MEMBERNOTFOUND; }
};

Variant objectValue(IDispatch* object) {
    Variant value;
    value.put()->vt = VT_DISPATCH;
    value.put()->pdispVal = object;
    return value;
}

class Control final : public LightObject {
public:
    Control(std::size_t number, std::size_t& written)
        : name_(TextView(controlName(number))), written_(written) {
        names_ = {texts[0], texts[1], texts[2], L"Name", L"Tag", L"BackColor"};
    }

private:
    Variant read(std::size_t member, const DISPPARAMS&) override {
        switch (member) {
            case 3: return name_;
            case 4: return TextView(L"");
            case 5: return std::int32_t{1};
            default: return TextView(L"as designed");
        }
    }
    HRESULT write(std::size_t, const VARIANT& value) override {
        written_ += SysStringLen(value.bstrVal);
        return S_OK;
    }

    const Variant name_;
    std::size_t& written_;
};

class Controls final : public LightObject {
public:
    // Taken evenly from all texts in the file, so that forms differ only in size.
    Controls(std::size_t count, std::size_t& written) {
        names_ = {L"Count", L"Item"};
        for (std::size_t i = 0; i < count; ++i)
            controls_.push_back(std::make_unique<Control>(i * (controlsInFile / count), written));
    }

private:
    Variant read(std::size_t member, const DISPPARAMS& parameters) override {
        if (member == 0) return static_cast<std::int32_t>(controls_.size());
        return objectValue(controls_[static_cast<std::size_t>(parameters.rgvarg[0].lVal)].get());
    }

    std::vector<std::unique_ptr<Control>> controls_;
};

class Form final : public LightObject {
public:
    explicit Form(std::size_t controls) : controls_(controls, written_) {
        names_ = {L"Controls", L"Name", L"Tag", L"BackColor", L"hwnd"};
    }

    /// The characters of all texts given since the last call.
    std::int64_t written() { return static_cast<std::int64_t>(std::exchange(written_, 0)); }

private:
    Variant read(std::size_t member, const DISPPARAMS&) override {
        switch (member) {
            case 0: return objectValue(&controls_);
            case 1: return TextView(L"frmBench");
            case 2: return TextView(L"");
            default: return std::int32_t{1};
        }
    }

    std::size_t written_ = 0;
    Controls controls_;
};

// The application's folder with its one language file, deleted after the measurement.
class Application {
public:
    Application() {
        wchar_t temporary[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        folder_ = temporary + (L"vorla_bench " + std::to_wstring(GetCurrentProcessId()));
        CreateDirectoryW(folder_.c_str(), nullptr);
        CreateDirectoryW(languages().c_str(), nullptr);
        std::wstring content = L"[frmBench]\r\n";
        for (std::size_t i = 0; i < controlsInFile; ++i)
            for (const auto property : texts)
                content += controlName(i) + L"#" + property + L"=" + textOf(i, property) + L"\r\n";
        const auto bytes = toAnsi(content);
        const File made(CreateFileW(file().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        DWORD written = 0;
        if (!WriteFile(made.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
            throw std::runtime_error("the language file cannot be written");
    }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    ~Application() {
        DeleteFileW(file().c_str());
        RemoveDirectoryW(languages().c_str());
        RemoveDirectoryW(folder_.c_str());
    }

    const std::wstring& folder() const { return folder_; }
    std::wstring languages() const { return folder_ + L"\\Languages"; }
    std::wstring file() const { return languages() + L"\\ENG.lng"; }

private:
    std::wstring folder_;
};

// A form with so many controls, loaded by the component; gives the characters of its texts.
std::function<std::int64_t()> loading(const Dispatch& langue, std::size_t controls) {
    const auto form = std::make_shared<Form>(controls);
    const Slot<IDispatch**, IDispatch**, VARIANT_BOOL, VARIANT_BOOL, BSTR> load(langue.get(), L"LngFormLoad");
    return [form, load] {
        IDispatch *object = form.get(), *noLabel = nullptr;
        load(&object, &noLabel, VARIANT_FALSE, VARIANT_FALSE, nullptr);
        return form->written();
    };
}

// Reads the same texts with the system's function alone.
std::function<std::int64_t()> reading(const std::string& file, std::size_t controls) {
    std::vector<std::string> keys;
    for (std::size_t i = 0; i < controls; ++i)
        for (const auto property : texts)
            keys.push_back(toAnsi(controlName(i * (controlsInFile / controls)) + L"#" + property));
    return [file, keys] {
        std::int64_t characters = 0;
        char buffer[1026];
        for (const auto& key : keys)
            characters +=
                GetPrivateProfileStringA("frmBench", key.c_str(), "", buffer, sizeof buffer, file.c_str());
        return characters;
    };
}

}  // namespace

void measureFormLoading(Bench& bench, const Component& component) {
    const Application application;
    const auto langue = create(component.factory(classEntry<VorlaLangue>.number).get());
    const Bstr folder{TextView(application.folder())}, code{TextView(L"ENG")};
    const Slot<BSTR, BSTR> select(langue.get(), L"LngSetFileName");
    select(folder.get(), code.get());

    bench.compare("LngFormLoad, 1,000 controls", 1.3, loading(langue, 1'000),
                  "its 3,000 private-profile reads", reading(toAnsi(application.file()), 1'000));

    const std::string name = "growth to 1,000 controls: LngFormLoad";
    const auto large = loading(langue, 1'000), small = loading(langue, 100);
    // Texts of 100 controls out of 1,000: neither none nor all.
    const auto characters = small();
    if (characters == 0 || characters >= large()) throw WrongResult(name);
    const auto times = medians(bench.effort, {batchOf(large), batchOf(small)});
    bench.report.add({name, times[0] / 1'000, "each control of 100", times[1] / 100, 1.5});
}

}  // namespace vorla::bench
