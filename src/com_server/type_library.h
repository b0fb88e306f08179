// The type library, made from the tables of members and records.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>

namespace cuvexa::com_server {

/// Writes the library for clients of that bitness (SYS_WIN32 or SYS_WIN64) into a new file. Throws `Result_error`.
void write_type_library(SYSKIND system, const std::wstring& path);

}  // namespace cuvexa::com_server
