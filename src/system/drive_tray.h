// Opening and closing the tray of a drive, on both families of Windows.
#pragma once

namespace vorla {

/// Opens the tray of the drive with this letter, or closes it and loads the medium. Nothing happens for any
/// other character, nor when the drive or the system refuses. On Windows 95, 98 and Millenium, on NT 3.51 and
/// on a Windows that the library has no code for, the tray is opened in any case; hosts rely on it.
void moveTray(wchar_t letter, bool open);

}  // namespace vorla
