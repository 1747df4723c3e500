// The language in use: one for each thread, freed with the thread or with the component.
#include <atomic>
#include <optional>

#include "contract/langue_fixture.h"

namespace vorla::test {
namespace {

TEST_F(Langue, instancesOfAThreadShareTheLanguage) {
    const auto second = component.create(numberOfLangue);
    select(L"ENG");
    EXPECT_EQ(languages + L"\\ENG.lng", viewOf(invoke(second.get(), L"LngGetFileName").result.raw().bstrVal));
    EXPECT_EQ(S_OK, invoke(second.get(), L"LngSetLanguage", {text(L"")}).code);
    EXPECT_EQ(L"", textOf(L"LngGetFileName"));
    // The language outlives the objects.
    select(L"FRA");
    component.create(numberOfLangue);
    EXPECT_EQ(languages + L"\\FRA.lng", textOf(L"LngGetFileName"));
}

std::wstring answered(const Dispatch& langue, const wchar_t* name, Arguments arguments = {}) {
    const auto outcome = invoke(langue.get(), name, std::move(arguments));
    return outcome.result.raw().vt == VT_BSTR ? std::wstring(viewOf(outcome.result.raw().bstrVal)) : L"?";
}

TEST_F(Langue, twoThreadsHoldTwoLanguages) {
    languageFile(L"ENG", L"[Messages]\r\nm=english\r\n");
    languageFile(L"FRA", L"[Messages]\r\nm=français\r\n");
    select(L"ENG");
    std::wstring before, during, meanwhile;
    onThread(component, [&](const Dispatch& other) {
        before = answered(other, L"LngGetFileName");
        invoke(other.get(), L"LngSetFileName", {text(application.path()), text(L"FRA")});
        during = answered(other, L"LoadMsgLng", {text(L"m")});
        // The other thread's object, called from this thread: the calling thread counts, not the object.
        meanwhile = answered(Dispatch(langue.get()), L"LoadMsgLng", {text(L"m")});
    });
    EXPECT_EQ(L"", before);
    EXPECT_EQ(L"français", during);
    EXPECT_EQ(L"français", meanwhile);
    EXPECT_EQ(L"english", textOf(L"LoadMsgLng", {text(L"m")}));

    // Many calls at the same time.
    std::atomic<int> wrong{0};
    const auto askAgainAndAgain = [&](const wchar_t* code, const wchar_t* message) {
        const auto mine = component.create(numberOfLangue);
        invoke(mine.get(), L"LngSetFileName", {text(application.path()), text(code)});
        for (int i = 0; i < 200; ++i) wrong += answered(mine, L"LoadMsgLng", {text(L"m")}) != message;
    };
    {
        const Thread english([&] { askAgainAndAgain(L"ENG", L"english"); });
        const Thread french([&] { askAgainAndAgain(L"FRA", L"français"); });
    }
    EXPECT_EQ(0, wrong);
}

// The bytes allocated from all heaps of the process. Unlike the pages that the process holds, this does not
// count gaps between blocks.
SIZE_T allocatedBytes() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    EXPECT_LE(count, 64u);
    SIZE_T bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

// Whether the heap is being checked. A checked heap keeps freed blocks for a while, to detect writes into
// them, and counts them as allocated. Each block that it takes in pushes another out, mostly a smaller one.
bool heapKeepsFreedBlocks() {
    constexpr SIZE_T size = 100'000;
    constexpr int blocks = 20;
    const auto before = allocatedBytes();
    for (int i = 0; i < blocks; ++i) HeapFree(GetProcessHeap(), 0, HeapAlloc(GetProcessHeap(), 0, size));
    return allocatedBytes() >= before + blocks / 2 * size;
}

// Room for what the system itself keeps.
constexpr SIZE_T slack = 64 * 1024;

TEST_F(Langue, anEndingThreadLeavesNothing) {
    if (heapKeepsFreedBlocks()) GTEST_SKIP() << "the heap is watched; the other runs count what is left";
    const std::wstring long_(100'000, L'x');
    const auto useAndEnd = [&] {
        onThread(component, [&](const Dispatch& mine) {
            invoke(mine.get(), L"LngSetFileName", {text(long_), text(L"ENG")});
        });
    };
    useAndEnd();
    const auto before = allocatedBytes();
    for (int i = 0; i < 200; ++i) useAndEnd();
    // Three paths of 200 KB each time would be 120 MB.
    EXPECT_LE(allocatedBytes(), before + slack);
}

TEST(LangueUnloading, theModuleTakesEveryThreadsLanguageAlong) {
    if (heapKeepsFreedBlocks()) GTEST_SKIP() << "the heap is watched; the other runs count what is left";
    const std::wstring long_(10000, L'x');
    const auto useAndUnload = [&] {
        const Component component;
        const auto langue = component.create(numberOfLangue);
        EXPECT_EQ(L"", answered(langue, L"LngGetFileName"));
        EXPECT_EQ(S_OK, invoke(langue.get(), L"LngSetFileName", {text(long_), text(L"ENG")}).code);
    };
    useAndUnload();
    EXPECT_EQ(nullptr, GetModuleHandleW(L"Vorla6.dll"));
    const auto before = allocatedBytes();
    // More often than a process has slots for threads' values. Neither the slots nor the C++ runtime's memory
    // may be lost.
    for (int i = 0; i < 1200; ++i) useAndUnload();
    EXPECT_LE(allocatedBytes(), before + slack);
}

TEST(LangueUnloading, aThreadMayOutliveTheModule) {
    const HANDLE used = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE go = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    bool ended = false;
    {
        std::optional<Component> component(std::in_place);
        const Thread thread([&] {
            {
                const auto mine = component->create(numberOfLangue);
                invoke(mine.get(), L"LngSetFileName", {text(L"C:\\a"), text(L"ENG")});
            }
            SetErrorInfo(0, nullptr);
            SetEvent(used);
            WaitForSingleObject(go, 20'000);
            ended = true;
        });
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(used, 20'000));
        EXPECT_EQ(S_OK, component->canUnloadNow());
        component.reset();
        // The thread's state does not keep the module loaded, and none of its code runs when the thread ends.
        EXPECT_EQ(nullptr, GetModuleHandleW(L"Vorla6.dll"));
        SetEvent(go);
    }
    EXPECT_TRUE(ended);
    CloseHandle(used);
    CloseHandle(go);
}

}  // namespace
}  // namespace vorla::test
