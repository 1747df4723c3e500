#include "frame/shared/paths.h"

#include <algorithm>

namespace vorla {
namespace {

constexpr TextView backslash = L"\\";
constexpr auto none = TextView::npos;

bool isNetworkPath(TextView path) { return path.starts_with(L"\\\\"); }

// The length of the drive: "C:", or the server and the share. 0 when there is none.
std::size_t lengthOfDrive(TextView path) {
    if (!isNetworkPath(path)) return path.find(L':') + 1;
    const auto endOfServer = path.find(L'\\', 2);
    if (endOfServer == none) return 0;
    return std::min(path.find(L'\\', endOfServer + 1), path.size());
}

TextView folderOf(TextView path, const FolderTest& isFolder) {
    return isFolder(path) ? path : path.substr(0, path.rfind(L'\\') + 1);
}

TextView nameOf(TextView path, const FolderTest& isFolder) {
    return isFolder(path) ? TextView() : path.substr(path.rfind(L'\\') + 1);
}

TextView extensionOf(TextView path, const FolderTest& isFolder) {
    // A point in a folder's name begins no extension.
    const auto point = path.find_last_of(L".\\");
    if (point == none || path[point] != L'.' || isFolder(path)) return {};
    return path.substr(point + 1);
}

TextView nameWithoutExtension(TextView path, const FolderTest& isFolder) {
    constexpr std::size_t longestExtension = 4;
    const auto name = nameOf(path, isFolder);
    const auto point = name.rfind(L'.');
    if (point == none || name.size() - point - 1 > longestExtension) return name;
    return name.substr(0, point);
}

TextView folderWithoutDrive(TextView path, const FolderTest& isFolder) {
    constexpr std::size_t letterAndColon = 2;
    const auto folder = folderOf(path, isFolder);
    const auto drive = lengthOfDrive(path);
    if (drive == 0) return folder;
    // Two characters, wherever the colon stands: old hosts rely on this.
    return folder.substr(std::min(isNetworkPath(path) ? drive : letterAndColon, folder.size()));
}

}  // namespace

Joined AjouteAntiSlash(TextView Chemin) {
    if (Chemin.ends_with(backslash)) return Piece(Chemin);
    return {Chemin, backslash};
}

TextView withoutBackslash(TextView path) {
    if (path.ends_with(backslash)) path.remove_suffix(1);
    return path;
}

Joined DecoupeChemin(TextView Chemin, eFileN Partie, const FolderTest& isFolder) {
    const bool hasSeparator = Chemin.find(L'\\') != none;
    switch (Partie) {
        case eFileN::efRépertoire: return Piece(hasSeparator ? folderOf(Chemin, isFolder) : Chemin);
        case eFileN::eFNomFichier: return Piece(hasSeparator ? nameOf(Chemin, isFolder) : Chemin);
        case eFileN::eFExtension: return Piece(extensionOf(Chemin, isFolder));
        case eFileN::eFNomFichierSansExtention: return Piece(nameWithoutExtension(Chemin, isFolder));
        case eFileN::eFRépertoireSansDisque: return Piece(folderWithoutDrive(Chemin, isFolder));
        case eFileN::efDisque: return Piece(Chemin.substr(0, lengthOfDrive(Chemin)));
        case eFileN::efRacine: return AjouteAntiSlash(Chemin.substr(0, lengthOfDrive(Chemin)));
        case eFileN::efAll: return Piece(Chemin);
    }
    return {};
}

Text withExtension(TextView path, TextView from, TextView to) {
    const Text sought = L"." + Text(from);
    Text result;
    for (;;) {
        const auto place = path.find(sought);
        result += path.substr(0, place);
        if (place == none) return result;
        result += to;
        path.remove_prefix(place + sought.size());
    }
}

}  // namespace vorla
