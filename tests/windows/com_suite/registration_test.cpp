// What registering writes, and that taking it back leaves the registry as it was.
#include "com/class_factory.h"
#include "com/registry.h"
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

using Registry = std::map<std::wstring, std::wstring>;

/// Whether what is below a class is looked at; of others it is enough that they are there.
bool is_looked_into(const std::wstring& path, const std::wstring& name) {
    static const std::wstring classes = L"\\Software\\Classes", ids = classes + L"\\CLSID";
    const auto ends = [&](const std::wstring& end) { return path.size() > end.size() && path.ends_with(end); };
    if (ends(classes)) return name == L"CLSID" || name.starts_with(L"Cuvexa");
    return !ends(ids) || name.starts_with(L"{0A5CF1F0-") || name.starts_with(L"{3E9C7A1");
}

/// Every key and value below a key.
void list(HKEY key, const std::wstring& path, Registry& found) {
    std::wstring name(16384, L'\0');
    std::vector<BYTE> data(1 << 20);
    for (DWORD i = 0;; ++i) {
        DWORD length = static_cast<DWORD>(name.size()), type = 0, size = static_cast<DWORD>(data.size());
        if (RegEnumValueW(key, i, name.data(), &length, nullptr, &type, data.data(), &size) != ERROR_SUCCESS) break;
        found[path + L"\\\\" + name.substr(0, length)] =
            std::to_wstring(type) + L":" + std::wstring(data.begin(), data.begin() + size);
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        const std::wstring child_name = name.substr(0, length);
        found[path + L"\\" + child_name] = L"";
        if (!is_looked_into(path, child_name)) continue;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, child_name.c_str(), 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
        list(child, path + L"\\" + child_name, found);
        RegCloseKey(child);
    }
}

/// All classes, of everybody and of the current user, and what this house keeps of its own.
Registry registry() {
    Registry found;
    for (const HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        for (const wchar_t* path : {L"Software\\Classes", L"Software\\Cuvexa"}) {
            HKEY key = nullptr;
            if (RegOpenKeyExW(hive, path, 0, KEY_READ, &key) != ERROR_SUCCESS) continue;
            list(key, (hive == HKEY_CURRENT_USER ? L"HKCU\\" : L"HKLM\\") + std::wstring(path), found);
            RegCloseKey(key);
        }
    }
    return found;
}

/// What the later one has more, fewer or otherwise.
std::vector<std::string> differences(const Registry& before, const Registry& after) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : after) {
        const auto old = before.find(name);
        if (old == before.end()) {
            lines.push_back("+ " + utf8(name));
        } else if (old->second != value) {
            lines.push_back("~ " + utf8(name));
        }
    }
    for (const auto& [name, value] : before) {
        if (!after.contains(name)) lines.push_back("- " + utf8(name));
    }
    return lines;
}

constexpr CLSID one_class = {0x0a5cf1f0, 0x7d0e, 0x4f0b, {0x8d, 0x52, 0x7e, 0x3b, 0x11, 0x2a, 0x44, 0x11}};
constexpr GUID a_library = {0x0a5cf1f0, 0x7d0e, 0x4f0b, {0x8d, 0x52, 0x7e, 0x3b, 0x11, 0x2a, 0x44, 0x12}};
constexpr Class_entry entries[] = {
    {one_class, L"CuvexaPrueba.Clase", L"A class", [] { return Pointer<IDispatch>(); }, &a_library, L"1.0"}};
const std::wstring clsid_key = L"Software\\Classes\\CLSID\\{0A5CF1F0-7D0E-4F0B-8D52-7E3B112A4411}";
const std::wstring prog_id_key = L"Software\\Classes\\CuvexaPrueba.Clase";

class Registration : public ::testing::TestWithParam<Scope> {
protected:
    HKEY hive() const { return GetParam() == Scope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }
    std::string text(const std::wstring& key, const std::wstring& name = {}) const {
        return utf8(Key::existing(hive(), key).text(name).value_or(L"(none)"));
    }
    HRESULT enroll(HMODULE module) { return register_server(entries, module, GetParam()); }
    HRESULT withdraw(HMODULE module) { return unregister_server(entries, module); }

    const HMODULE one = this_module();
    const HMODULE other = GetModuleHandleW(L"kernel32.dll");  // another library with a path
    const Registry before = registry();
};
INSTANTIATE_TEST_SUITE_P(Scopes, Registration, ::testing::Values(Scope::machine, Scope::user),
                         [](const auto& scope) { return scope.param == Scope::machine ? "machine" : "user"; });

TEST_P(Registration, writes_the_class_and_its_name) {
    ASSERT_EQ(enroll(one), S_OK);
    EXPECT_EQ(text(clsid_key), "A class");
    EXPECT_EQ(text(clsid_key + L"\\InprocServer32"), path_of(one));
    EXPECT_EQ(text(clsid_key + L"\\InprocServer32", L"ThreadingModel"), "Apartment");
    EXPECT_EQ(text(clsid_key + L"\\ProgID"), "CuvexaPrueba.Clase");
    EXPECT_EQ(text(clsid_key + L"\\TypeLib"), "{0A5CF1F0-7D0E-4F0B-8D52-7E3B112A4412}");
    EXPECT_EQ(text(clsid_key + L"\\Version"), "1.0");
    EXPECT_EQ(text(prog_id_key), "A class");
    EXPECT_EQ(text(prog_id_key + L"\\CLSID"), "{0A5CF1F0-7D0E-4F0B-8D52-7E3B112A4411}");
    withdraw(one);
}

TEST_P(Registration, is_undone_without_a_trace_however_often_it_was_done) {
    ASSERT_EQ(enroll(one), S_OK);
    ASSERT_EQ(enroll(one), S_OK);
    EXPECT_THAT(differences(before, registry()), ::testing::Not(IsEmpty()));
    ASSERT_EQ(withdraw(one), S_OK);
    EXPECT_THAT(differences(before, registry()), IsEmpty());
    ASSERT_EQ(withdraw(one), S_OK);
    EXPECT_THAT(differences(before, registry()), IsEmpty());
}

TEST_P(Registration, what_stood_there_before_comes_back) {
    Key::made(hive(), prog_id_key).text({}, L"Somebody else's");
    Key::made(hive(), prog_id_key + L"\\CLSID").text({}, L"{00000000-0000-0000-0000-000000000001}");
    Key::made(hive(), prog_id_key + L"\\CurVer").text(L"More", L"x");
    Key::made(hive(), clsid_key + L"\\InprocServer32").text({}, L"C:\\gone.dll");
    const Registry found = registry();
    ASSERT_EQ(enroll(one), S_OK);
    ASSERT_EQ(enroll(one), S_OK);
    EXPECT_EQ(text(clsid_key + L"\\InprocServer32"), path_of(one));
    EXPECT_EQ(text(prog_id_key + L"\\CurVer", L"More"), "(none)");
    ASSERT_EQ(withdraw(one), S_OK);
    EXPECT_THAT(differences(found, registry()), IsEmpty());
    RegDeleteTreeW(hive(), prog_id_key.c_str());
    RegDeleteTreeW(hive(), clsid_key.c_str());
    if (Key::existing(hive(), L"Software\\Classes\\CLSID").empty()) RegDeleteTreeW(hive(), L"Software\\Classes\\CLSID");
    EXPECT_THAT(differences(before, registry()), IsEmpty());
}

TEST_P(Registration, another_copy_takes_over_and_gives_back) {
    ASSERT_EQ(enroll(one), S_OK);
    const Registry with_one = registry();
    ASSERT_EQ(enroll(other), S_OK);
    EXPECT_EQ(text(clsid_key + L"\\InprocServer32"), path_of(other));
    ASSERT_EQ(withdraw(other), S_OK);
    EXPECT_THAT(differences(with_one, registry()), IsEmpty());
    ASSERT_EQ(withdraw(one), S_OK);
    EXPECT_THAT(differences(before, registry()), IsEmpty());
}

TEST_P(Registration, a_copy_that_was_replaced_leaves_the_one_in_its_place_alone_and_nothing_behind) {
    Key::made(hive(), prog_id_key + L"\\CLSID").text({}, L"{00000000-0000-0000-0000-000000000001}");
    const Registry found = registry();
    ASSERT_EQ(enroll(one), S_OK);
    ASSERT_EQ(enroll(other), S_OK);
    ASSERT_EQ(withdraw(one), S_OK);
    EXPECT_EQ(text(clsid_key + L"\\InprocServer32"), path_of(other));
    EXPECT_EQ(text(prog_id_key + L"\\CLSID"), "{0A5CF1F0-7D0E-4F0B-8D52-7E3B112A4411}");
    ASSERT_EQ(withdraw(other), S_OK);
    EXPECT_THAT(differences(found, registry()), IsEmpty());
    RegDeleteTreeW(hive(), prog_id_key.c_str());
}

TEST_P(Registration, the_name_stays_while_the_class_is_registered_for_the_other_bitness) {
    constexpr REGSAM other_view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    const std::wstring server = clsid_key + L"\\InprocServer32";
    ASSERT_EQ(enroll(one), S_OK);
    Key::made(hive(), server, other_view).text({}, L"C:\\other\\Cuvexa.dll");
    const bool one_view = text(server) != path_of(one);
    if (!one_view) {
        EXPECT_EQ(withdraw(one), S_OK);
        EXPECT_EQ(text(server), "(none)");
        EXPECT_EQ(text(prog_id_key + L"\\CLSID"), "{0A5CF1F0-7D0E-4F0B-8D52-7E3B112A4411}");
    }
    Key classes = Key::made(hive(), L"Software\\Classes\\CLSID", other_view);
    RegDeleteTreeW(classes.get(), clsid_key.substr(clsid_key.find(L'{')).c_str());
    classes = {};
    RegDeleteTreeW(hive(), prog_id_key.c_str());
    if (Key::existing(hive(), L"Software\\Classes\\CLSID").empty()) RegDeleteTreeW(hive(), L"Software\\Classes\\CLSID");
    EXPECT_THAT(differences(before, registry()), IsEmpty());
    if (one_view) GTEST_SKIP() << "both bitnesses have one view here";
}

TEST(Published_registration, regsvr32_registers_seven_classes_and_takes_them_back) {
    const Registry before = registry();
    const auto run = [](const wchar_t* command) {
        std::wstring line = command;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        const std::wstring folder = std::wstring(program).substr(0, std::wstring(program).rfind(L'\\'));
        if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &start,
                            &process)) {
            return DWORD(-1);
        }
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD code = DWORD(-1);
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return code;
    };
    ASSERT_EQ(run(L"regsvr32 /s CuvexaSuite.dll"), 0u);
    EXPECT_TRUE(is_registered({}));
    CLSID expected = {0x3e9c7a10, 0x5d24, 0x4b6b, {0xa7, 0x31, 0x0f, 0x86, 0x2c, 0xd9, 0x54, 0xe8}};
    for (const char* name : {"SessionServices", "DataServices", "PaymentMethodService", "DocumentPaymentsService",
                             "AccountsPayableService", "AccountsReceivableService", "AccountingService"}) {
        CLSID clsid{};
        EXPECT_EQ(CLSIDFromProgID(wide("CuvexaSuite." + std::string(name)).c_str(), &clsid), S_OK) << name;
        ++expected.Data1;
        EXPECT_TRUE(IsEqualCLSID(clsid, expected)) << name;
    }
    ASSERT_EQ(run(L"regsvr32 /s /u CuvexaSuite.dll"), 0u);
    EXPECT_FALSE(is_registered({}));
    EXPECT_THAT(differences(before, registry()), IsEmpty());
}

TEST(Published_registration, the_version_is_that_of_the_product) {
    DWORD handle = 0;
    std::vector<BYTE> data(GetFileVersionInfoSizeW(L"CuvexaSuite.dll", &handle));
    ASSERT_FALSE(data.empty());
    ASSERT_TRUE(GetFileVersionInfoW(L"CuvexaSuite.dll", 0, static_cast<DWORD>(data.size()), data.data()));
    void* text = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(data.data(), L"\\StringFileInfo\\040904B0\\ProductVersion", &text, &length));
    EXPECT_EQ(utf8(static_cast<wchar_t*>(text)), CUVEXA_VERSION);
}

}  // namespace
}  // namespace cuvexa::tests
