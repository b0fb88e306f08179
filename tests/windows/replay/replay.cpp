// The conversation of `cuvexa rpc`, with the objects of the registered Cuvexa.dll behind it: what a program that binds
// late gets, in the words of JSON-RPC.
//
//   cuvexa_windows_replay < requests > answers
#include <fcntl.h>
#include <io.h>
#include <objbase.h>

#include <iostream>

#include "automation/json_rpc.h"
#include "windows/replay/remote_objects.h"

int main() {
    // Line ends as they are.
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    try {
        cuvexa::automation::serve_json_rpc(std::cin, std::cout, cuvexa::tests::new_remote_object);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
    CoUninitialize();
    return 0;
}
