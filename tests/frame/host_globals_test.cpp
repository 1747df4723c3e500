// The replacements for the host runtime's global objects.
#include "frame/host/globals.h"
#include "frame/values/winapi.h"

#include <gtest/gtest.h>

#include "frame/host/bound_object.h"
#include "support/automation.h"
#include "support/import_patch.h"
#include "support/resource_count.h"

namespace vorla::test {
namespace {

const HMODULE program = GetModuleHandleW(nullptr);

TEST(Screen, twipsPerPixelFollowTheDotsPerInch) {
    struct Row {
        int dots;
        float twips;
    };
    // 1440 twips are one inch.
    const Row rows[] = {{96, 15.0f}, {120, 12.0f}, {144, 10.0f}, {192, 7.5f}, {1440, 1.0f}};
    for (const Row& row : rows) {
        Intercept<decltype(GetDeviceCaps)> caps(program, "gdi32.dll", "GetDeviceCaps");
        caps.answer([&](HDC, int item) { return item == LOGPIXELSX ? row.dots : 1; });
        EXPECT_EQ(row.twips, screen::twipsPerPixelX());
        EXPECT_EQ(1440.0f, screen::twipsPerPixelY());
        caps.answer([&](HDC, int item) { return item == LOGPIXELSY ? row.dots : 1; });
        EXPECT_EQ(row.twips, screen::twipsPerPixelY());
    }
}

TEST(Screen, aScreenThatDoesNotTellCountsAs96DotsPerInch) {
    Intercept<decltype(GetDeviceCaps)> caps(program, "gdi32.dll", "GetDeviceCaps");
    caps.answer([](HDC, int) { return 0; });
    EXPECT_EQ(15.0f, screen::twipsPerPixelX());
}

TEST(Screen, leavesNoDeviceContextBehind) {
    screen::twipsPerPixelX();
    const auto before = Resources::held();
    for (int i = 0; i < 1000; ++i) screen::twipsPerPixelY();
    EXPECT_EQ(before, Resources::held());
}

// A host's program at a path of the test's choice.
class AppTest : public testing::Test {
protected:
    void runFrom(const wchar_t* path) {
        name_.answer([path](HMODULE module, LPWSTR buffer, DWORD size) -> DWORD {
            EXPECT_EQ(nullptr, module);
            const auto length = static_cast<DWORD>(wcslen(path));
            if (length >= size) return size;
            wcscpy(buffer, path);
            return length;
        });
    }

    Intercept<decltype(GetModuleFileNameW)> name_{program, "kernel32.dll", "GetModuleFileNameW"};
};

TEST_F(AppTest, pathAndTitleComeFromTheProgram) {
    struct Row {
        const wchar_t* program;
        const wchar_t* path;
        const wchar_t* title;
    };
    const Row rows[] = {
        {L"C:\\Été 1.0\\Caisse.exe", L"C:\\Été 1.0", L"Caisse"},
        {L"C:\\Caisse.v2.exe", L"C:\\", L"Caisse.v2"},
        {L"C:\\rep.d\\Caisse", L"C:\\rep.d", L"Caisse"},
        {L"\\\\srv\\part\\c.exe", L"\\\\srv\\part", L"c"},
    };
    for (const Row& row : rows) {
        runFrom(row.program);
        EXPECT_EQ(row.path, app::path());
        EXPECT_EQ(row.title, app::title());
        EXPECT_EQ(L"", app::helpFile());
    }
}

TEST_F(AppTest, aPathLongerThanUsual) {
    const auto longPath = L"C:\\" + std::wstring(300, L'a') + L"\\b.exe";
    runFrom(longPath.c_str());
    EXPECT_EQ(L"b", app::title());
    EXPECT_EQ(L"C:\\" + std::wstring(300, L'a'), app::path());
}

TEST_F(AppTest, aSystemThatDoesNotTellLeavesThemEmpty) {
    name_.answer([](HMODULE, LPWSTR, DWORD) { return DWORD{0}; });
    EXPECT_EQ(L"", app::path());
    EXPECT_EQ(L"", app::title());
    EXPECT_EQ(L"", app::helpFile());
}

TEST_F(AppTest, theHelpFileLiesBesideTheProgram) {
    runFrom(L"C:\\Caisse.exe");
    Intercept<decltype(GetFileAttributesW)> attributes(program, "kernel32.dll", "GetFileAttributesW");
    const auto only = [&attributes](std::wstring_view first, std::wstring_view second = {}) {
        attributes.answer([=](LPCWSTR path) -> DWORD {
            return path == first || path == second ? FILE_ATTRIBUTE_ARCHIVE : INVALID_FILE_ATTRIBUTES;
        });
    };
    only(L"C:\\Caisse.hlp");
    EXPECT_EQ(L"C:\\Caisse.hlp", app::helpFile());
    only(L"C:\\Caisse.hlp", L"C:\\Caisse.chm");
    EXPECT_EQ(L"C:\\Caisse.chm", app::helpFile());
    attributes.answer([](LPCWSTR) -> DWORD { return FILE_ATTRIBUTE_DIRECTORY; });
    EXPECT_EQ(L"", app::helpFile());
}

int received = 0;

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_APP) ++received;
    // A message that always posts the next.
    if (message == WM_APP + 1) {
        ++received;
        PostMessageW(window, WM_APP + 1, 0, 0);
    }
    return DefWindowProcW(window, message, w, l);
}

class EventsTest : public testing::Test {
protected:
    EventsTest() {
        received = 0;
        WNDCLASSW type{};
        type.lpfnWndProc = &procedure;
        type.hInstance = program;
        type.lpszClassName = L"VorlaEventsTest";
        RegisterClassW(&type);
        window_ = CreateWindowW(type.lpszClassName, L"", 0, 0, 0, 10, 10, nullptr, nullptr, program, nullptr);
        EXPECT_NE(nullptr, window_);
        DoEvents();
    }
    ~EventsTest() override {
        DestroyWindow(window_);
        UnregisterClassW(L"VorlaEventsTest", program);
    }

    HWND window_;
};

TEST_F(EventsTest, everythingThatWaitsIsDelivered) {
    for (int i = 0; i < 20; ++i) PostMessageW(window_, WM_APP, 0, 0);
    EXPECT_EQ(0, received);
    DoEvents();
    EXPECT_EQ(20, received);
}

TEST_F(EventsTest, anEndlessHandlerDoesNotKeepTheCaller) {
    PostMessageW(window_, WM_APP + 1, 0, 0);
    DoEvents();
    EXPECT_GT(received, 100);
}

TEST_F(EventsTest, quittingIsLeftToTheHostsLoop) {
    PostQuitMessage(7);
    DoEvents();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(7u, message.wParam);
}

// A file in the current folder with these bytes.
class TemporaryFile {
public:
    TemporaryFile(const wchar_t* name, const void* bytes, DWORD size) : name_(name) {
        const HANDLE file = CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, bytes, size, &written, nullptr));
        CloseHandle(file);
    }
    ~TemporaryFile() { DeleteFileW(name_); }

private:
    const wchar_t* name_;
};

// A bitmap of 2 by 1 pixels, 24 bits each: a row of 8 bytes.
constexpr std::uint8_t bitmap[] = {'B', 'M', 62, 0, 0, 0, 0, 0,  0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 2, 0, 0,
                                   0,   1,   0,  0, 0, 1, 0, 24, 0, 0, 0,  0, 0, 8, 0,  0, 0, 0, 0, 0, 0,
                                   0,   0,   0,  0, 0, 0, 0, 0,  0, 0, 0,  0, 1, 2, 3,  4, 5, 6, 0, 0};

std::int16_t kindOf(const HostPicture& picture) {
    ComPointer<IDispatch> dispatch;
    EXPECT_EQ(S_OK, picture.get()->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.put())));
    return BoundObject(HostObject(dispatch.get())).getAs<std::int16_t>(L"Type");
}

TEST(LoadPicture, loadsAFileByRelativeOrAbsoluteName) {
    static_assert(sizeof bitmap == 62);
    const TemporaryFile file(L"Été.bmp", bitmap, sizeof bitmap);
    EXPECT_EQ(PICTYPE_BITMAP, kindOf(LoadPicture(L"Été.bmp")));
    wchar_t absolute[MAX_PATH];
    ASSERT_NE(0u, GetFullPathNameW(L"Été.bmp", MAX_PATH, absolute, nullptr));
    EXPECT_EQ(PICTYPE_BITMAP, kindOf(LoadPicture(absolute)));
}

TEST(LoadPicture, anEmptyNameIsAnEmptyPicture) { EXPECT_EQ(PICTYPE_NONE, kindOf(LoadPicture(L""))); }

TEST(LoadPicture, failures) {
    const TemporaryFile noPicture(L"texte.bmp", "abc", 3), empty(L"vide.bmp", "", 0);
    EXPECT_EQ(481, errorOf([] { LoadPicture(L"texte.bmp"); }));
    EXPECT_EQ(481, errorOf([] { LoadPicture(L"vide.bmp"); }));
    EXPECT_EQ(53, errorOf([] { LoadPicture(L"absente.bmp"); }));
    EXPECT_EQ(53, errorOf([] { LoadPicture(L"absent\\absente.bmp"); }));
    EXPECT_EQ(53, errorOf([] { LoadPicture(L"."); }));
    // A web address is not a file name, and nothing is fetched.
    EXPECT_EQ(53, errorOf([] { LoadPicture(L"http://localhost/a.bmp"); }));
}

}  // namespace
}  // namespace vorla::test
