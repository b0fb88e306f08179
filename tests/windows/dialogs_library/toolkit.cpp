// The toolkit in a library that is loaded and unloaded, as hosts have it.
#include "cuvexa/win32_dialogs.h"

/// Shows an error; returns when it was closed.
extern "C" __declspec(dllexport) void show_a_warning() {
    cuvexa::make_win32_toolkit()->show_error({"Aviso de una biblioteca", 48, "Rutina()", "", "Cuvexa", ""});
}
