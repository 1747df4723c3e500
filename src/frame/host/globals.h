// Replacements for the global objects of hosts' own programs. A component cannot ask its host for them, so
// they are computed from the system.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/text.h"

namespace vorla {

namespace screen {

/// The width and height of a screen pixel in twips (1/1440 inch): 15 at 96 dots per inch.
float twipsPerPixelX();
float twipsPerPixelY();

}  // namespace screen

namespace app {

/// The folder of the host's program, without a final backslash unless it is a root.
Text path();

/// The host's title: its program's file name without the extension.
Text title();

/// The help file beside the host's program, with the program's name and the extension .chm or else .hlp;
/// empty when there is neither.
Text helpFile();

}  // namespace app

/// The seconds since midnight, local time, with their fraction.
float Timer();

/// Lets the host process the events that are waiting for this thread. WM_QUIT stays in the queue.
void DoEvents();

/// The picture in a file: bitmap, icon, metafile, JPEG or GIF. An empty name gives an empty picture. Errors:
/// 53 for a missing file, 481 for a file that is not a picture.
HostPicture LoadPicture(TextView fileName);

}  // namespace vorla
