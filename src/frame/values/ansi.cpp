#include "frame/values/ansi.h"

#include <limits>

#include "frame/values/runtime_error.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

// Windows takes lengths as int.
int counted(std::size_t length) {
    if (length > std::size_t{std::numeric_limits<int>::max()}) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<int>(length);
}

int checked(int length) {
    if (length == 0) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return length;
}

int toWide(std::string_view bytes, wchar_t* out, int room) {
    return checked(MultiByteToWideChar(CP_ACP, 0, bytes.data(), counted(bytes.size()), out, room));
}

int toBytes(TextView text, char* out, int room) {
    return checked(
        WideCharToMultiByte(CP_ACP, 0, text.data(), counted(text.size()), out, room, nullptr, nullptr));
}

}  // namespace

std::string toAnsi(TextView text) {
    if (text.empty()) return {};
    std::string result(static_cast<std::size_t>(toBytes(text, nullptr, 0)), '\0');
    toBytes(text, result.data(), counted(result.size()));
    return result;
}

Text fromAnsi(std::string_view bytes) {
    if (bytes.empty()) return {};
    Text result(static_cast<std::size_t>(toWide(bytes, nullptr, 0)), L'\0');
    toWide(bytes, result.data(), counted(result.size()));
    return result;
}

Text fromAnsiBuffer(std::string_view buffer) { return fromAnsi(buffer.substr(0, buffer.find('\0'))); }

Bstr bstrFromAnsi(std::string_view bytes) {
    if (bytes.empty()) return {};
    const auto length = toWide(bytes, nullptr, 0);
    auto result = Bstr::adopt(SysAllocStringLen(nullptr, static_cast<UINT>(length)));
    if (!result.get()) throw std::bad_alloc();
    toWide(bytes, result.get(), length);
    return result;
}

}  // namespace vorla
