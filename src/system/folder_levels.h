// Creates a folder and the levels above it.
#pragma once

#include <functional>

#include "frame/shared/paths.h"

namespace vorla {

/// Creates one folder, given without a backslash at its end, and returns whether that worked.
using FolderMaker = std::function<bool(TextView path)>;

/// Creates the missing levels of `folder`, starting after the deepest that exists. `folder` ends in a
/// backslash, and its first `drive` characters are its drive, which cannot be created. Ends at the first
/// level that cannot be created. A backslash that follows another ends no level.
void createMissingLevels(TextView folder, std::size_t drive, const FolderTest& isFolder,
                         const FolderMaker& create);

}  // namespace vorla
