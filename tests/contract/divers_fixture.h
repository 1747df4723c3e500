// What the tests of VorlaDivers share.
#pragma once

#include <list>

#include "contract/component.h"
#include "frame/contract/records.h"
#include "support/forms/host.h"
#include "support/scripted_object.h"

namespace vorla::test {

class Divers : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(divers.get(), name, std::move(arguments));
    }

    /// A procedure of the vtable, by its place among the members.
    template <class... Raw>
    HRESULT slot(std::size_t place, Raw... raw) {
        using Slot = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Raw...);
        constexpr std::size_t slotsOfDispatch = 7;
        const auto* const vtable = *reinterpret_cast<void* const* const*>(divers.get());
        return reinterpret_cast<Slot>(vtable[slotsOfDispatch + place])(divers.get(), raw...);
    }

    /// Calls a member that ignores failures.
    void run(const wchar_t* name, Arguments arguments) {
        EXPECT_EQ(S_OK, call(name, std::move(arguments)).code) << narrow(name);
    }

    /// The function in the slot of a method, as an early-bound host calls it.
    template <class... Arguments>
    auto slot(const wchar_t* name) {
        using Function = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Arguments...);
        ComPointer<ITypeInfo> description;
        EXPECT_EQ(S_OK, divers->GetTypeInfo(0, 0, description.put()));
        const auto id = idOf(divers.get(), name);
        std::size_t place = 0;
        FUNCDESC* function = nullptr;
        for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
            if (function->memid == id) place = static_cast<std::size_t>(function->oVft) / sizeof(void*);
            description->ReleaseFuncDesc(function);
        }
        EXPECT_NE(0u, place) << narrow(name);
        return reinterpret_cast<Function>((*reinterpret_cast<void***>(divers.get()))[place]);
    }

    const Component component;
    const HMODULE module = component.module();
    const Dispatch divers = component.create(4);
};

/// A list with lines and item data, the numbers 10, 20, 30, …
class ScriptedList : public ScriptedObject {
public:
    explicit ScriptedList(std::vector<Variant> lines) {
        std::vector<Variant> data;
        for (std::size_t i = 0; i < lines.size(); ++i)
            data.push_back(static_cast<std::int32_t>(10 * (i + 1)));
        property(L"ListCount", static_cast<std::int16_t>(lines.size()));
        indexed(L"List", std::move(lines)).indexed(L"ItemData", std::move(data));
    }
    ~ScriptedList() override { EXPECT_EQ(0, references()); }
};

/// A tree view with nodes "K1" "Text 1", "K2" "Text 2", …
class ScriptedTree : public ScriptedObject {
public:
    explicit ScriptedTree(int count, bool hasItem = true) {
        for (int i = 1; i <= count; ++i) {
            const auto number = std::to_wstring(i);
            nodeObjects.emplace_back().property(L"Key", text(L"K" + number));
            nodeObjects.back().property(L"Text", text(L"Text " + number));
        }
        const wchar_t* const item = hasItem ? L"Item" : L"Nth";
        nodes.property(L"Count", std::int16_t(count)).method(item, [this](const Call& call) {
            return itemAt(call.argument(0));
        });
        nodes.defaultMember(item);
        property(L"Nodes", object(&nodes));
    }
    ~ScriptedTree() override {
        value(L"Nodes") = Variant();
        EXPECT_EQ(0, references());
        EXPECT_EQ(0, nodes.references());
        for (const auto& node : nodeObjects) EXPECT_EQ(0, node.references());
    }

    ScriptedObject& node(int number) { return *std::next(nodeObjects.begin(), number - 1); }

    ScriptedObject nodes;
    std::list<ScriptedObject> nodeObjects;

private:
    Variant itemAt(VariantView which) {
        constexpr std::uint16_t elementNotFound = 35601;
        int number = 1;
        for (auto& node : nodeObjects) {
            const bool found = which.type() == VT_BSTR
                                   ? viewOf(which.raw().bstrVal) == viewOf(node.value(L"Key").raw().bstrVal)
                                   : which.type() == VT_I4 && which.raw().lVal == number;
            if (found) return object(&node);
            ++number;
        }
        throw RuntimeError(elementNotFound);
    }
};

/// The same with a form of the forms host, which nobody may hold when the test ends.
class DiversForm : public Divers {
protected:
    ~DiversForm() override {
        form.unload();
        form.AddRef();
        EXPECT_EQ(1u, form.Release());
    }

    forms::Host host;
    forms::Form& form = host.load(L"frmMain", {.caption = L"Saisie", .left = 300, .top = 300});

private:
    // Tests may unload the form.
    const ComPointer<forms::Form> kept_{&form};
};

}  // namespace vorla::test
