// The program cuvexa on Windows: what it makes is what the servers open.
#ifdef CUVEXA_WITH_PROGRAM
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

/// Runs the program beside this one; its exit code and what it wrote.
std::pair<DWORD, std::string> cuvexa(const std::string& words) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr, write = nullptr;
    CreatePipe(&read, &write, &inherited, 1 << 20);
    SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = write;
    std::wstring line = L"cuvexa.exe " + wide(words);
    PROCESS_INFORMATION process{};
    const bool started =
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    CloseHandle(write);
    std::string output;
    char part[4096];
    for (DWORD size = 0; started && ReadFile(read, part, sizeof part, &size, nullptr) && size > 0;) {
        output.append(part, size);
    }
    CloseHandle(read);
    if (!started) return {DWORD(-1), "not started"};
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = DWORD(-1);
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return {code, output};
}

TEST(Program, makes_a_database_whose_name_has_accents_and_the_suite_opens_it) {
    const Folder folder;
    const std::string file = folder / "peña.db";
    auto [code, output] = cuvexa("init --sample --db \"" + file + "\"");
    ASSERT_EQ(code, 0u) << output;
    EXPECT_THAT(output, HasSubstr("Base de datos creada con la empresa de muestra: " + file));
    EXPECT_TRUE(stands(file));
    const Variable named("CUVEXA_DB", file);
    EXPECT_EQ(make_embedded_suite({})->data()->GetNextFolio("MTY", "CHEQUE"), "CH-MTY-00000001");
    std::tie(code, output) = cuvexa("suite folios CHEQUE MTY --db \"" + file + "\"");
    EXPECT_EQ(code, 0u) << output;
    EXPECT_THAT(output, HasSubstr("CHEQUE"));
}

TEST(Program, leaves_a_file_that_stands_alone) {
    const Folder folder;
    const std::string file = folder / "empresa.db";
    make_sample_company(file);
    const auto [code, output] = cuvexa("init --db \"" + file + "\"");
    EXPECT_EQ(code, 1u);
    EXPECT_THAT(output, HasSubstr("Ya existe y no se toca: "));
}

TEST(Program, shows_what_the_component_does) {
    const auto [code, output] = cuvexa("demo");
    EXPECT_EQ(code, 0u) << output;
    EXPECT_THAT(output, HasSubstr("Auditoría: todo cuadra."));
}

}  // namespace
}  // namespace cuvexa::tests
#endif
