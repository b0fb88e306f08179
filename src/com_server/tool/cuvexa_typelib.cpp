// A step of the build: writes the type library, or the header for C++ clients.
//
//   cuvexa_typelib 32|64|header FILE
#include <fstream>
#include <iostream>
#include <string>

#include "com/pointers.h"
#include "com_server/client_header.h"
#include "com_server/type_library.h"

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "cuvexa_typelib 32|64|header FILE\n";
        return 2;
    }
    const std::string what = arguments[1];
    try {
        if (what == "header") {
            std::ofstream file(arguments[2], std::ios::binary);
            cuvexa::com_server::write_client_header(file);
            return file.flush() ? 0 : 1;
        }
        cuvexa::com_server::write_type_library(what == "64" ? SYS_WIN64 : SYS_WIN32, cuvexa::com::wide(arguments[2]));
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "cuvexa_typelib: " << failure.what() << "\n";
        return 1;
    }
}
