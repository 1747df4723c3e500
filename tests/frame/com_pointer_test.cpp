// References to COM objects: counted, taken over, given away, asked for other interfaces.
#include "frame/values/com_pointer.h"

#include <gtest/gtest.h>

#include "support/scripted_object.h"

namespace vorla::test {
namespace {

TEST(ComPointer, countsEachReference) {
    ScriptedObject object;
    {
        const ComPointer<IDispatch> first(&object);
        EXPECT_EQ(1, object.references());
        ComPointer<IDispatch> second(first), third;
        EXPECT_EQ(2, object.references());
        third = second;
        EXPECT_EQ(3, object.references());
        third = std::move(second);
        EXPECT_EQ(2, object.references());
        EXPECT_FALSE(second);
        third = {};
        EXPECT_EQ(1, object.references());
        EXPECT_FALSE(third);
        third = third;
    }
    EXPECT_EQ(0, object.references());
}

TEST(ComPointer, takesOverAndGivesAway) {
    ScriptedObject object;
    object.AddRef();
    auto owner = ComPointer<IDispatch>::adopt(&object);
    EXPECT_EQ(1, object.references());
    EXPECT_EQ(&object, owner.detach());
    EXPECT_FALSE(owner);
    EXPECT_EQ(1, object.references());
    EXPECT_EQ(S_OK, object.QueryInterface(IID_IDispatch, owner.putVoid()));
    EXPECT_EQ(2, object.references());
    owner = ComPointer<IDispatch>::adopt(&object);
    EXPECT_EQ(1, object.references());
    owner = nullptr;
    EXPECT_EQ(0, object.references());
}

TEST(ComPointer, asksForOtherInterfaces) {
    ScriptedObject object;
    const ComPointer<IDispatch> owner(&object);
    const auto unknown = owner.query<IUnknown>();
    EXPECT_EQ(static_cast<IDispatch*>(&object), unknown.get());
    EXPECT_EQ(2, object.references());
    EXPECT_FALSE(owner.query<IEnumVARIANT>());
    EXPECT_FALSE(ComPointer<IDispatch>().query<IUnknown>());
    EXPECT_FALSE(queried<IEnumVARIANT>(&object));
    EXPECT_FALSE(queried<IUnknown>(nullptr));
    EXPECT_TRUE(queried<IDispatch>(&object));
    EXPECT_EQ(2, object.references());
}

// Leaves its own pointer behind when it refuses, without a reference.
class Careless : public ScriptedObject {
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = static_cast<IDispatch*>(this);
        return E_NOINTERFACE;
    }
};

TEST(ComPointer, aRefusalIsOneWhateverIsLeftBehind) {
    Careless object;
    EXPECT_FALSE(queried<IDispatch>(&object));
    EXPECT_EQ(0, object.references());
}

}  // namespace
}  // namespace vorla::test
