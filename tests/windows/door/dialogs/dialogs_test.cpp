// The two dialogs of Cuvexa.dll, asked for by late binding; a timer is the user.
#include <gtest/gtest.h>
#include <objbase.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "com/late.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::tests {
namespace {

using com::any;
using com::Any;
using com::Late_object;

struct Search {
    const wchar_t* title;
    HWND found = nullptr;
};

BOOL CALLBACK look_at(HWND window, LPARAM argument) {
    auto& search = *reinterpret_cast<Search*>(argument);
    wchar_t text[100] = L"";
    GetWindowTextW(window, text, 100);
    if (IsWindowVisible(window) && std::wstring(text) == search.title) search.found = window;
    return search.found == nullptr;
}

/// The visible window of this thread with that title.
HWND window_titled(const wchar_t* title) {
    Search search{title};
    EnumThreadWindows(GetCurrentThreadId(), look_at, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/// What the user does while a dialog is open, one step per tick; each waits until the dialog has the keyboard.
class User {
public:
    User(const wchar_t* dialog, std::vector<std::function<void(HWND)>> steps)
        : dialog_(dialog), steps_(std::move(steps)) {
        current = this;
        timer_ = SetTimer(nullptr, 0, 30, time_came);
    }
    ~User() {
        KillTimer(nullptr, timer_);
        current = nullptr;
    }
    bool done() const { return next_ == steps_.size(); }

private:
    static void CALLBACK time_came(HWND, UINT, UINT_PTR, DWORD) { current->act(); }

    void act() {
        const HWND window = window_titled(dialog_);
        const HWND focus = GetFocus();
        if (window && focus && IsChild(window, focus) && !done()) steps_[next_++](focus);
    }

    static inline User* current = nullptr;
    const wchar_t* dialog_;
    std::vector<std::function<void(HWND)>> steps_;
    std::size_t next_ = 0;
    UINT_PTR timer_;
};

std::function<void(HWND)> type(const wchar_t* text) {
    return [text](HWND focus) {
        for (const wchar_t* at = text; *at; ++at) PostMessageW(focus, WM_CHAR, *at, 1);
    };
}

std::function<void(HWND)> key(int code) {
    return [code](HWND focus) { PostMessageW(focus, WM_KEYDOWN, static_cast<WPARAM>(code), 1); };
}

class Library_dialogs : public ::testing::Test {
protected:
    void SetUp() override {
        path_ = std::filesystem::temp_directory_path() /
                ("cuvexa-dialogs-" + std::to_string(GetCurrentProcessId()) + ".db");
        std::filesystem::remove(path_);
        {
            Sqlite_connection database(path_.string(), {.synchronous = Synchronous::off, .create = true});
            run_script(database, schema_sql());
            run_script(database, sample_company_sql());
        }
        SetEnvironmentVariableW(L"CUVEXA_DB", path_.c_str());
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        treasury_ = Late_object::create("Cuvexa.Tesoreria");
    }
    void TearDown() override {
        treasury_ = {};
        CoUninitialize();
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    std::string deposit(short firm) {
        Any given[] = {any(make_date(2024, 3, 15)), any("MXN"), any(firm)};
        return com::text_in(*treasury_.invoke("PedirDatosDeposito", DISPATCH_METHOD, given).get());
    }

    std::filesystem::path path_;
    Late_object treasury_;
};

TEST_F(Library_dialogs, the_deposit_dialog_gives_account_date_and_firmness) {
    User user(L"Depósito a banco", {type(L"srr-mxn"), key(VK_F4)});
    EXPECT_EQ(deposit(1), "SRR-MXN|2024-03-15|1");
    EXPECT_TRUE(user.done());
    EXPECT_EQ(com::text_in(*treasury_.get("Error").get()), "");
}

TEST_F(Library_dialogs, a_cancelled_dialog_gives_the_empty_text) {
    User user(L"Depósito a banco", {key(VK_ESCAPE)});
    EXPECT_EQ(deposit(0), "");
    EXPECT_TRUE(user.done());
}

TEST_F(Library_dialogs, the_payment_method_dialog_gives_bank_reference_and_account) {
    User user(L"Datos de la forma de pago", {type(L"sierra"), key(VK_RETURN), type(L"Centro"), key(VK_RETURN),
                                             type(L"0901"), key(VK_RETURN), type(L"TR-5"), key(VK_F4)});
    Any given[] = {any("03")};
    EXPECT_EQ(com::text_in(*treasury_.invoke("PedirDatosFormaPago", DISPATCH_METHOD, given).get()),
              "Banco de la Sierra|TR-5|0901|SIERRA");
    EXPECT_TRUE(user.done());
}

}  // namespace
}  // namespace cuvexa::tests
