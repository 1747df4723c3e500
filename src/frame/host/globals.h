// What hosts' own programs find as global objects. A component has no host to ask for them, so they are
// computed from the system.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/text.h"

namespace vorla {

namespace screen {

/// How many twips (1/1440 inch) one pixel of the screen is wide and high: 15 at 96 dots per inch.
float twipsPerPixelX();
float twipsPerPixelY();

}  // namespace screen

namespace app {

/// The folder of the host's program, without a final backslash unless it is a root.
Text path();

/// The host's title: its program's file name without the extension.
Text title();

/// The help file beside the host's program, named as the program is: .chm, else .hlp; empty without one.
Text helpFile();

}  // namespace app

/// Lets the host process the events that wait for this thread. WM_QUIT stays in the queue.
void DoEvents();

/// The picture in a file: bitmap, icon, metafile, JPEG or GIF. An empty name gives an empty picture.
/// Errors: 53 for a file that is not there, 481 for one that is no picture.
HostPicture LoadPicture(TextView fileName);

}  // namespace vorla
