// Windows' own declarations, for every file that needs them.
//
// Windows defines some function names as macros, and such a macro would rename members that are published
// under the same name. No other file includes <windows.h>, so every member has the same name everywhere.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <shellapi.h>
#include <shtypes.h>
#include <windows.h>

#undef CharToOem
#undef DeleteFile
#undef GetComputerName
#undef GetPrinter
#undef GetTempFileName
#undef MessageBox
#undef OemToChar
