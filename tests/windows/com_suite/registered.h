// CuvexaSuite.dll registered for as long as a test runs, over a sample company of the test's own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "com/registration.h"
#include "com_suite/automation_suite.h"
#include "com_suite/embedded_suite.h"
#include "cuvexa/database/sqlite_connection.h"
#include "support/snapshot.h"

namespace cuvexa::tests {

using namespace cuvexa::com;
using namespace cuvexa::com_suite;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A folder that goes with the test.
class Folder {
public:
    Folder() {
        wchar_t temporary[MAX_PATH], name[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        GetTempFileNameW(temporary, L"cvx", 0, name);
        DeleteFileW(name);
        CreateDirectoryW(name, nullptr);
        name_ = utf8(name);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(std::filesystem::path(wide(name_)), ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string operator/(const std::string& file) const { return name_ + "\\" + file; }

private:
    std::string name_;
};

inline bool stands(const std::string& file) {
    return GetFileAttributesW(wide(file).c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// A variable of the environment, as it was before once this goes.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(wide(name)) {
        wchar_t before[1024];
        const DWORD length = GetEnvironmentVariableW(name_.c_str(), before, 1024);
        if (length) before_ = std::wstring(before, length);
        SetEnvironmentVariableW(name_.c_str(), value.empty() ? nullptr : wide(value).c_str());
    }
    ~Variable() { SetEnvironmentVariableW(name_.c_str(), before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    std::wstring name_;
    std::optional<std::wstring> before_;
};

class Apartment {
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// The library beside the test program.
class Library {
public:
    Library() : module_(LoadLibraryW(L"CuvexaSuite.dll")) {
        if (!module_) throw std::runtime_error("CuvexaSuite.dll is not beside the test program");
    }
    ~Library() { FreeLibrary(module_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    HMODULE module() const { return module_; }
    HRESULT call(const char* entry_point) const {
        const auto address = reinterpret_cast<void*>(GetProcAddress(module_, entry_point));
        return reinterpret_cast<HRESULT(WINAPI*)()>(address)();
    }

private:
    HMODULE module_;
};

inline void make_sample_company(const std::string& file) {
    Company::create({.database = file, .synchronous = "off"}, Contents::sample_company);
}

/// A sample company with its server date, and the published suite over it.
class Registered_suite : public ::testing::Test {
protected:
    static Date today() { return make_date(2024, 3, 15, 10, 20, 30); }

    Registered_suite() {
        if (FAILED(library_.call("DllRegisterServer"))) throw std::runtime_error("not registered");
        make_sample_company(folder / "empresa.db");
    }
    ~Registered_suite() override { library_.call("DllUnregisterServer"); }

    void sql(const std::string& text) {
        Sqlite_connection connection(folder / "empresa.db");
        connection.execute(text);
    }

    Apartment apartment;
    Folder folder;
    Variable database{"CUVEXA_DB", folder / "empresa.db"};
    Variable date{"CUVEXA_SERVER_DATE", "2024-03-15T10:20:30"};
    Variable user{"CUVEXA_USER", "CAJA1"};

private:
    Library library_;
};

}  // namespace cuvexa::tests
