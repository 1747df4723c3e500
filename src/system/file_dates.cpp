#include "system/file_dates.h"

#include <array>

#include "frame/values/ansi.h"
#include "frame/values/runtime_error.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "system/file_calls.h"

namespace vorla {
namespace {

void checkDate(bool done) {
    if (!done) throw RuntimeError(ErrorNumber::invalidProcedureCall);
}

// In the order of eFileDateType.
using Times = std::array<FILETIME, 3>;

std::size_t placeOf(eFileDateType which) {
    const auto place = static_cast<std::size_t>(which);
    checkDate(place < Times().size());
    return place;
}

Times timesOf(const std::string& path) {
    Times times;
    auto& [creation, modification, access] = times;
    OFSTRUCT opened;
    const auto handle = OpenFile(path.c_str(), &opened, OF_READ | OF_SHARE_DENY_NONE);
    if (handle != HFILE_ERROR) {
        const File file(reinterpret_cast<HANDLE>(static_cast<INT_PTR>(handle)));
        checkFile(GetFileTime(file.get(), &creation, &access, &modification));
        return times;
    }
    // The call above cannot open folders, locked files, or paths of 128 characters or more.
    WIN32_FILE_ATTRIBUTE_DATA data;
    checkFile(GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data));
    return {data.ftCreationTime, data.ftLastWriteTime, data.ftLastAccessTime};
}

}  // namespace

Date fileDate(TextView path, eFileDateType which) {
    const auto place = placeOf(which);
    const FILETIME universal = timesOf(toAnsi(path))[place];
    FILETIME local;
    SYSTEMTIME fields;
    checkDate(FileTimeToLocalFileTime(&universal, &local) && FileTimeToSystemTime(&local, &fields));
    fields.wMilliseconds = 0;
    Date date;
    checkDate(SystemTimeToVariantTime(&fields, &date.days));
    return date;
}

void setFileDate(TextView path, eFileDateType which, Date date) {
    const auto place = placeOf(which);
    SYSTEMTIME fields;
    FILETIME local, universal;
    checkDate(VariantTimeToSystemTime(date.days, &fields) && SystemTimeToFileTime(&fields, &local) &&
              LocalFileTimeToFileTime(&local, &universal));
    // Backup semantics let folders be opened too.
    const File file(CreateFileA(toAnsi(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    checkFile(static_cast<bool>(file));
    std::array<const FILETIME*, 3> chosen{};
    chosen[place] = &universal;
    const auto [creation, modification, access] = chosen;
    checkFile(SetFileTime(file.get(), creation, access, modification));
}

}  // namespace vorla
