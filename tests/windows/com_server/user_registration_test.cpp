// Registration by somebody who is no administrator, on a registry of the test's own.
#include "com/registry.h"
#include "com_server/identifiers.h"
#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

/// Stands in for one of the system's keys in this process.
class Stand_in {
public:
    Stand_in(HKEY key, const std::wstring& path) : key_(key), path_(path), own_(Key::made(HKEY_CURRENT_USER, path)) {}
    Stand_in(const Stand_in&) = delete;
    Stand_in& operator=(const Stand_in&) = delete;
    ~Stand_in() {
        stand_back();
        RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
    }
    void stand_in() { EXPECT_EQ(RegOverridePredefKey(key_, own_.get()), ERROR_SUCCESS); }
    void stand_back() { RegOverridePredefKey(key_, nullptr); }

    HKEY get() const { return own_.get(); }

private:
    HKEY key_;
    std::wstring path_;
    Key own_;
};

struct User_registration : ::testing::Test {
    const std::wstring root = L"Software\\Cuvexa-" + std::to_wstring(GetCurrentProcessId());
    Apartment apartment;
    Library library;
    Stand_in machine{HKEY_LOCAL_MACHINE,
                     root + L"-machine"};  // nobody may make classes here: there is no place for them
    Stand_in classes{HKEY_CLASSES_ROOT, root + L"-classes"};
    Stand_in user{HKEY_CURRENT_USER, root + L"-user"};  // last, because the others are made under it

    User_registration() {
        machine.stand_in();
        classes.stand_in();
        user.stand_in();
    }
    ~User_registration() override { user.stand_back(); }
};

TEST_F(User_registration, writes_for_the_user_alone_and_takes_all_of_it_back) {
    const std::wstring before = L"Software\\Classes\\Other";
    Key::made(user.get(), before).text({}, L"what was there");
    ASSERT_EQ(library.register_server(), S_OK);
    const Key server =
        Key::existing(user.get(), L"Software\\Classes\\CLSID\\{6D1B4A53-83C7-4F0E-9A1D-5270C3B84E01}\\InprocServer32");
    EXPECT_EQ(server.text().value_or(L""), library.path());
    EXPECT_EQ(server.text(L"ThreadingModel").value_or(L""), L"Apartment");
    EXPECT_EQ(Key::existing(user.get(), L"Software\\Classes\\Cuvexa.Tesoreria\\CLSID").text().value_or(L""),
              L"{6D1B4A53-83C7-4F0E-9A1D-5270C3B84E01}");
    EXPECT_TRUE(Key::existing(machine.get(), {}).empty());

    ASSERT_EQ(library.unregister_server(), S_OK);
    EXPECT_THAT(Key::existing(user.get(), L"Software\\Classes").keys(), ElementsAre(L"Other"));
    EXPECT_TRUE(Key::existing(machine.get(), {}).empty());
    // Where the system keeps type libraries and interfaces only their own, empty folders may be left.
    for (const std::wstring& folder : Key::existing(classes.get(), {}).keys()) {
        EXPECT_TRUE(Key::existing(classes.get(), folder).empty()) << utf8(folder);
    }
}

}  // namespace
}  // namespace cuvexa::tests
