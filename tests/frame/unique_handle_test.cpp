// Owners of handles: each kind is ended by its own function, once, and what is no handle by none.
#include "frame/values/unique_handle.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/import_patch.h"

namespace vorla::test {
namespace {

const HMODULE program = GetModuleHandleW(nullptr);

// Never a handle of anything.
template <class Handle>
Handle fake(INT_PTR number) {
    return reinterpret_cast<Handle>(number * 16 + 0x7000'0000);
}

// Owns two of a kind, moves them and gives one away, and expects that the other is ended by `function`.
template <class Owner, class Function, class Handle>
void expectEndedBy(const char* dll, const char* function, Handle none) {
    std::vector<Handle> ended;
    Intercept<Function, Owner> closer(program, dll, function);
    closer.answer([&](auto handle) {
        ended.push_back(static_cast<Handle>(handle));
        return decltype(closer.callOriginal(handle)){};
    });
    {
        const Owner nothing, alsoNothing(none);
        EXPECT_FALSE(nothing) << function;
        EXPECT_FALSE(alsoNothing) << function;
        EXPECT_EQ(none, nothing.get()) << function;
        Owner first(fake<Handle>(1)), second(fake<Handle>(2));
        EXPECT_TRUE(first) << function;
        Owner moved(std::move(first));
        EXPECT_FALSE(first) << function;
        EXPECT_EQ(fake<Handle>(1), moved.get()) << function;
        moved = std::move(second);
        EXPECT_EQ(fake<Handle>(2), moved.get()) << function;
        EXPECT_EQ(fake<Handle>(1), second.release()) << function;
        EXPECT_TRUE(ended.empty()) << function;
    }
    EXPECT_EQ(std::vector<Handle>{fake<Handle>(2)}, ended) << function;
}

template <class Owner, class Handle>
void expectDeleted() {
    expectEndedBy<Owner, decltype(DeleteObject)>("gdi32.dll", "DeleteObject", Handle{});
}

TEST(UniqueHandle, eachKindIsEndedByItsFunction) {
    constexpr const char *kernel = "kernel32.dll", *user = "user32.dll";
    expectEndedBy<RegistryKey, decltype(RegCloseKey)>("advapi32.dll", "RegCloseKey", HKEY{});
    expectEndedBy<File, decltype(CloseHandle)>(kernel, "CloseHandle", INVALID_HANDLE_VALUE);
    expectEndedBy<FileSearch, decltype(FindClose)>(kernel, "FindClose", INVALID_HANDLE_VALUE);
    expectEndedBy<KernelObject, decltype(CloseHandle)>(kernel, "CloseHandle", HANDLE{});
    expectEndedBy<Desktop, decltype(CloseDesktop)>(user, "CloseDesktop", HDESK{});
    expectEndedBy<LoadedModule, decltype(FreeLibrary)>(kernel, "FreeLibrary", HMODULE{});
    expectEndedBy<GlobalBlock, decltype(GlobalFree)>(kernel, "GlobalFree", HGLOBAL{});
    expectEndedBy<OpenMixer, decltype(mixerClose)>("winmm.dll", "mixerClose", HMIXER{});
    expectEndedBy<Icon, decltype(DestroyIcon)>(user, "DestroyIcon", HICON{});
    expectEndedBy<MemoryContext, decltype(DeleteDC)>("gdi32.dll", "DeleteDC", HDC{});
    expectDeleted<Bitmap, HBITMAP>();
    expectDeleted<Font, HFONT>();
    expectDeleted<Brush, HBRUSH>();
    expectDeleted<Pen, HPEN>();
    expectDeleted<Region, HRGN>();
    expectDeleted<Palette, HPALETTE>();
}

TEST(WindowContext, isGivenBackToItsWindow) {
    using Released = std::vector<std::pair<HWND, HDC>>;
    Released released;
    Intercept<decltype(ReleaseDC)> releases(program, "user32.dll", "ReleaseDC");
    releases.answer([&](HWND window, HDC context) {
        released.emplace_back(window, context);
        return releases.callOriginal(window, context);
    });
    const HWND desktop = GetDesktopWindow();
    HDC client, whole;
    {
        const auto ofClient = WindowContext::ofClientArea(nullptr);
        const auto ofWhole = WindowContext::ofWholeWindow(desktop);
        ASSERT_TRUE(ofClient);
        ASSERT_TRUE(ofWhole);
        client = ofClient.get(), whole = ofWhole.get();
        EXPECT_EQ(desktop, WindowFromDC(whole));
    }
    EXPECT_EQ((Released{{desktop, whole}, {nullptr, client}}), released);
    EXPECT_FALSE(WindowContext::ofClientArea(fake<HWND>(1)));
    EXPECT_EQ(2u, released.size());
}

TEST(SelectedObject, theOneBeforeIsPutBack) {
    const MemoryContext context(CreateCompatibleDC(nullptr));
    const Brush brush(CreateSolidBrush(RGB(1, 2, 3)));
    const auto before = GetCurrentObject(context.get(), OBJ_BRUSH);
    {
        const SelectedObject selected(context.get(), brush.get());
        EXPECT_TRUE(selected);
        EXPECT_EQ(brush.get(), GetCurrentObject(context.get(), OBJ_BRUSH));
    }
    EXPECT_EQ(before, GetCurrentObject(context.get(), OBJ_BRUSH));
    EXPECT_FALSE(SelectedObject(context.get(), nullptr));
    EXPECT_EQ(before, GetCurrentObject(context.get(), OBJ_BRUSH));
}

TEST(SelectedPalette, theOneBeforeIsPutBack) {
    const MemoryContext context(CreateCompatibleDC(nullptr));
    const Palette palette(CreateHalftonePalette(nullptr));
    const auto before = GetCurrentObject(context.get(), OBJ_PAL);
    Intercept<decltype(RealizePalette)> realised(program, "gdi32.dll", "RealizePalette");
    {
        const SelectedPalette selected(context.get(), palette.get());
        EXPECT_EQ(palette.get(), GetCurrentObject(context.get(), OBJ_PAL));
        EXPECT_EQ(1, realised.calls());
    }
    EXPECT_EQ(before, GetCurrentObject(context.get(), OBJ_PAL));
    EXPECT_EQ(2, realised.calls());
    // Without a palette nothing is selected.
    { const SelectedPalette none(context.get(), nullptr); }
    EXPECT_EQ(2, realised.calls());
}

}  // namespace
}  // namespace vorla::test
