// Says whether the running Windows is the one that its arguments name: version_probe code name

#include <cstdlib>

#include "frame/shared/system_queries.h"
#include "frame/values/winapi.h"

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    vorla::Text name = L"before";
    const auto version = vorla::VersionWindows(name);
    return static_cast<int>(version) == _wtoi(arguments[1]) && name == arguments[2] ? 0 : 1;
}
