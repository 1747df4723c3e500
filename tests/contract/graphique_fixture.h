// VorlaGraphique, called late-bound, and the Windows that it believes to run on.
#pragma once

#include <string>
#include <vector>

#include "contract/component.h"
#include "support/forms/host.h"
#include "support/import_patch.h"
#include "support/scripted_object.h"

namespace vorla::test {

constexpr std::uint16_t numberOfGraphique = 2;

/// Another Windows, as long as this exists. The component asks for it at each call.
class RunningWindows {
public:
    explicit RunningWindows(HMODULE module, DWORD major = 5, DWORD minor = 1, DWORD platform = 2)
        : version_(module, "kernel32.dll", "GetVersionExA") {
        become(major, minor, platform);
    }
    void become(DWORD major, DWORD minor, DWORD platform) {
        version_.answer([=](LPOSVERSIONINFOA record) -> WINBOOL {
            record->dwMajorVersion = major;
            record->dwMinorVersion = minor;
            record->dwPlatformId = platform;
            return TRUE;
        });
    }

private:
    Intercept<decltype(GetVersionExA), RunningWindows> version_;
};

/// Screens of other sizes than the machine's: system metrics by their numbers.
class OtherScreens {
public:
    OtherScreens(HMODULE module, std::map<int, int> metrics)
        : metrics_(module, "user32.dll", "GetSystemMetrics") {
        metrics_.answer([this, metrics](int number) {
            const auto found = metrics.find(number);
            return found == metrics.end() ? metrics_.callOriginal(number) : found->second;
        });
    }

private:
    Intercept<decltype(GetSystemMetrics), OtherScreens> metrics_;
};

/// Displays with other numbers of pixels in an inch.
class OtherResolution {
public:
    OtherResolution(HMODULE module, int x, int y) : caps_(module, "gdi32.dll", "GetDeviceCaps") {
        caps_.answer([=, this](HDC context, int number) {
            return number == LOGPIXELSX ? x : number == LOGPIXELSY ? y : caps_.callOriginal(context, number);
        });
    }

private:
    Intercept<decltype(GetDeviceCaps), OtherResolution> caps_;
};

class Graphique : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(graphique.get(), name, std::move(arguments));
    }
    void run(const wchar_t* name, Arguments arguments) {
        EXPECT_EQ(S_OK, call(name, std::move(arguments)).code) << narrow(name);
    }
    static std::int32_t numberOf(HWND window) {
        return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window));
    }
    static RECT placeOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }

    const Component component;
    const HMODULE module = component.module();
    const Dispatch graphique = component.create(numberOfGraphique);
};

}  // namespace vorla::test
