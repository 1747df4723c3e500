// Windows' own declarations, for every file that needs them.
//
// Windows defines some function names as macros, and a macro would rename members that are published under
// the same name. Nothing else includes <windows.h>, so that no member is compiled under two names.
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
