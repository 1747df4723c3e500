#include "system/folder_levels.h"

#include <algorithm>

namespace vorla {

void createMissingLevels(TextView folder, std::size_t drive, const FolderTest& isFolder,
                         const FolderMaker& create) {
    const auto root = drive + folder.substr(drive).starts_with(L'\\');
    auto existing = folder.size();
    while (existing > root && !isFolder(folder.substr(0, existing)))
        existing = std::max(root, folder.rfind(L'\\', existing - 2) + 1);

    while (existing < folder.size()) {
        const auto end = folder.find(L'\\', existing);
        if (end > existing && !create(folder.substr(0, end))) return;
        existing = end + 1;
    }
}

}  // namespace vorla
