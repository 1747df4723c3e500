#include "system/VorlaFichier.h"

#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/host/message_box.h"
#include "frame/shared/browsing.h"
#include "frame/shared/files.h"
#include "frame/shared/paths.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "system/drive_tray.h"
#include "system/file_calls.h"
#include "system/file_dates.h"
#include "system/file_sizes.h"
#include "system/file_types.h"
#include "system/folder_levels.h"

namespace vorla {
namespace {

// The name of a file or folder as its folder stores it; empty when it does not exist.
Text storedName(TextView path) {
    WIN32_FIND_DATAA found;
    const FileSearch search(FindFirstFileA(toAnsi(path).c_str(), &found));
    return search ? fromAnsi(found.cFileName) : Text();
}

std::string contentOf(TextView path) {
    const File file(CreateFileA(toAnsi(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    checkFile(static_cast<bool>(file));
    LARGE_INTEGER size;
    checkFile(GetFileSizeEx(file.get(), &size));
    // The most characters that a text can have.
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
    // Another program may have shortened the file meanwhile.
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
    static Text through(const wchar_t* format, double number) {
        return Text(formatted(number, format).view());
    }
};

// The folder with its drive and a backslash at its end.
Text wholeFolder(TextView folder) {
    const Text path = AjouteAntiSlash(folder).text();
    if (!DecoupeChemin(path, eFileN::efDisque).text().empty()) return path;
    return DecoupeChemin(app::path(), eFileN::efRacine).text() + path;
}

bool isFolder(TextView path) { return ExisteFichier(path, eFileToTest::eftDirectory); }

bool createFolder(TextView path) { return CreateDirectoryA(toAnsi(path).c_str(), nullptr); }

Text creationFailed(TextView folder) {
    return L"Impossible de créer le répertoire\r\n" + Text(folder) +
           L"\r\n\r\nUne fenêtre va s'ouvrir dans laquelle vous pourrer créer un dossier manuellement et \r\n"
           L"vous pourrez indiquez quel est le répertoire de stockage.";
}

// Shows the message in the host's box or the system's. False if the user cancels.
bool goesOn(const HostObject& host, TextView message, std::int32_t owner) {
    constexpr std::int32_t style = MB_OKCANCEL | MB_ICONSTOP;
    if (!host) return messageBox(message, style, owner) != IDCANCEL;
    const auto button =
        BoundObject(host).call(L"Action", owner, message, style, app::title(), app::helpFile());
    return convertedTo<std::int32_t>(button.view()) != IDCANCEL;
}

Date dateIn(const Variant& value) {
    // Numbers are refused although dates are numbers: they are more often a mistake.
    const auto type = value.raw().vt;
    if (type != VT_DATE && type != VT_BSTR) throw RuntimeError(ErrorNumber::typeMismatch);
    return convertedTo<Date>(value.view());
}

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

Text VorlaFichier::GetFolder(TextView Title, const Text& InitDir, const bool& AllowCreateFolder,
                             const bool& BrowseForFilesAndFolder) {
    return BrowseForItem(BrowseKind::folder, Title, {InitDir, AllowCreateFolder, BrowseForFilesAndFolder});
}

Text VorlaFichier::GetComputer(TextView Title) { return BrowseForItem(BrowseKind::computer, Title); }

Text VorlaFichier::GetPrinter(TextView Title) { return BrowseForItem(BrowseKind::printer, Title); }

Text VorlaFichier::CreateFolder(TextView Folder, const HostObject& MsgBoxCtl, TextView Mes,
                                const std::int32_t& hwndOwner) {
    return endOnError(Text(), [&] {
        if (Folder.empty()) return Text();
        const Text folder = wholeFolder(Folder);
        const auto drive = DecoupeChemin(folder, eFileN::efDisque).length();
        createMissingLevels(folder, drive, &isFolder, &createFolder);
        if (isFolder(folder)) return folder;

        constexpr std::int32_t nobody = -1;
        if (hwndOwner == nobody) return Text();
        const Text message = Mes.empty() ? creationFailed(folder) : Text(Mes);
        if (!goesOn(MsgBoxCtl, message, hwndOwner)) return Text();
        const Text chosen = BrowseForItem(BrowseKind::folder, L"", {folder});
        return chosen.empty() ? chosen : AjouteAntiSlash(chosen).text();
    });
}

Variant VorlaFichier::readFileDate(TextView FileName, const eFileDateType& DateType) {
    return endOnError(Variant(), [&] { return Variant(fileDate(FileName, DateType)); });
}

void VorlaFichier::writeFileDate(TextView FileName, const eFileDateType& DateType, VariantView value) {
    endOnError([&] { setFileDate(FileName, DateType, dateIn(plainValue(value))); });
}

bool VorlaFichier::DeleteFile(const Text& NomFichier) {
    return endOnError(false, [&] { return SupprimeFichier(NomFichier); });
}

bool VorlaFichier::RenameFile(const Text& NomFichierSrc, const Text& NomFichierDest) {
    return endOnError(false, [&] {
        return MoveFileA(toAnsi(NomFichierSrc).c_str(), toAnsi(NomFichierDest).c_str()) != FALSE;
    });
}

Text VorlaFichier::GetTempFileName(const Text& sPrefix) {
    return endOnError(Text(), [&] {
        Text systemsOwn;
        return CheminTemporaire(sPrefix, systemsOwn);
    });
}

bool VorlaFichier::IsFieldEpmty(VariantView Valeur) {
    return endOnError(false, [&] {
        const auto value = plainValue(Valeur);
        switch (value.raw().vt) {
            case VT_EMPTY:
            case VT_NULL: return true;
            case VT_BSTR: return viewOf(value.raw().bstrVal).empty();
            default: return false;
        }
    });
}

void VorlaFichier::CDEjectLoad(eEjectOperation Action, TextView Lecteur) {
    endOnError([&] {
        if (Lecteur.empty()) return;
        moveTray(Lecteur.front(), Action == eEjectOperation::eeoEjecter);
    });
}

}  // namespace vorla
