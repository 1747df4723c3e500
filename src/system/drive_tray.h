// Opening and closing the tray of a drive.
#pragma once

namespace vorla {

/// Opens the tray of the drive with this letter, or closes it and loads the medium. Any other character is
/// ignored, and so is a refusal of the drive or the system. On Windows 95, 98 and Millennium, on NT 3.51 and
/// on versions that the library has no code for, the tray is always opened; old hosts rely on this.
void moveTray(wchar_t letter, bool open);

}  // namespace vorla
