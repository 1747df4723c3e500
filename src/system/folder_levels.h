// Creating a folder together with the levels that lead to it.
#pragma once

#include <functional>

#include "frame/shared/paths.h"

namespace vorla {

/// Creates one folder, given without a backslash behind it; whether that worked.
using FolderMaker = std::function<bool(TextView path)>;

/// Creates what is missing of `folder`, from the deepest level that exists on. `folder` ends in a backslash,
/// and its first `drive` characters are its drive, which nobody can create. Ends with the first level that
/// cannot be created. A backslash that follows another ends no level.
void createMissingLevels(TextView folder, std::size_t drive, const FolderTest& isFolder,
                         const FolderMaker& create);

}  // namespace vorla
