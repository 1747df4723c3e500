#include "system/VorlaFichier.h"

#include <windows.h>

#include "frame/declarations/files.h"
#include "frame/declarations/paths.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/unique_handle.h"
#include "system/file_sizes.h"
#include "system/file_types.h"

namespace vorla {
namespace {

// The name of an existing file or folder as its folder stores it; empty when there is none.
Text storedName(TextView path) {
    WIN32_FIND_DATAA found;
    const FileSearch search(FindFirstFileA(toAnsi(path).c_str(), &found));
    return search ? fromAnsi(found.cFileName) : Text();
}

// For calls on files that answer whether they worked.
void checkFile(bool done) {
    if (!done) throw RuntimeError(ErrorNumber::fileNotFound);
}

std::string contentOf(TextView path) {
    const File file(CreateFileA(toAnsi(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    checkFile(static_cast<bool>(file));
    LARGE_INTEGER size;
    checkFile(GetFileSizeEx(file.get(), &size));
    // As many characters as a text can have.
    if (size.QuadPart > 0x7FFFFFFF) throw RuntimeError(ErrorNumber::overflow);
    std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t length = 0;
    while (length < content.size()) {
        DWORD count = 0;
        checkFile(ReadFile(file.get(), content.data() + length, static_cast<DWORD>(content.size() - length),
                           &count, nullptr));
        if (count == 0) break;
        length += count;
    }
    // Somebody may have cut the file meanwhile.
    content.resize(length);
    return content;
}

double lengthOf(TextView path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    checkFile(GetFileAttributesExA(toAnsi(path).c_str(), GetFileExInfoStandard, &data));
    return data.nFileSizeHigh * 4294967296.0 + data.nFileSizeLow;
}

class UsersFormats final : public SizeFormats {
public:
    Text whole(double number) const override { return Text(decimalText(number).view()); }
    Text brief(double number) const override { return through(L"#0.##", number); }
    Text standard(double number) const override { return through(L"Standard", number); }
    Text grouped(double number) const override { return through(L"### ### ### ### ### ##0", number); }

private:
    static Text through(const wchar_t* format, double number) { return Text(formatted(number, format).view()); }
};

}  // namespace

Joined VorlaFichier::NormalisePath(TextView Path) { return AjouteAntiSlash(Path); }

TextView VorlaFichier::DeNormalisePath(TextView Path) { return withoutBackslash(Path); }

Joined VorlaFichier::ExtraitChemin(TextView Chemin, eFileN RenvoieNomFic) {
    return DecoupeChemin(Chemin, RenvoieNomFic);
}

Text VorlaFichier::FileNameShortToLong(Text& FileName) {
    return endOnError(Text(), [&] {
        FileName += L'\\';
        const TextView path = FileName;
        constexpr std::size_t behindTheRoot = 3;
        Text result(path.substr(0, 2));
        for (auto end = path.find(L'\\', behindTheRoot); end != TextView::npos;
             end = path.find(L'\\', end + 1)) {
            const auto name = storedName(path.substr(0, end));
            if (name.empty()) return Text();
            result += L'\\' + name;
        }
        return result;
    });
}

Text VorlaFichier::FileNameLongToShort(const Text& FileName) {
    return endOnError(Text(), [&] { return CheminCourt(FileName); });
}

Bstr VorlaFichier::LectDat(TextView FileName) {
    return endOnError(Bstr(), [&] { return bstrFromAnsi(contentOf(FileName)); });
}

bool VorlaFichier::FileExist(TextView FileName, const eFileToTest& TypeFile) {
    return ExisteFichier(FileName, TypeFile);
}

bool VorlaFichier::IsFileExist(TextView FileName, const eFileToTest& TypeFile) {
    return FileExist(FileName, TypeFile);
}

eFiletype VorlaFichier::FileType(TextView FileName) {
    return endOnError(eFiletype::eftOther, [&] {
        return typeOfExtension(lowerCased(DecoupeChemin(FileName, eFileN::eFExtension).text()));
    });
}

Text VorlaFichier::FileSize(const Text& NomFichier, const bool& Short) {
    return endOnError(Text(), [&] {
        if (!ExisteFichier(NomFichier, eFileToTest::eftFile)) return Text();
        return SizeToString(lengthOf(NomFichier), Short);
    });
}

Text VorlaFichier::SizeToString(double FileSise, const bool& Short) {
    return endOnError(Text(), [&] { return sizeText(FileSise, Short, UsersFormats()); });
}

}  // namespace vorla
