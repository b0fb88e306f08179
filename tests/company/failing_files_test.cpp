// A company appears whole or not at all, whichever write of the engine fails; and what was acknowledged is there.
#include "support/failing_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "cuvexa/company.h"
#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::tests {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class Failing_file_system : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "cuvexa-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string file() const { return (folder_ / "empresa.db").string(); }

    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder_)) all.push_back(entry.path().filename().string());
        return all;
    }

    static std::string verdict(const std::string& file) {
        Sqlite_connection connection(file);
        return to_text(connection.execute("PRAGMA integrity_check")->field("integrity_check"));
    }

    /// Makes a company while a write fails; whether it was made. Nothing else may be there then.
    bool makes_whole_or_nothing() {
        bool made = true;
        try {
            Company::create({.database = file()}, Contents::sample_company);
        } catch (const Company_error& failure) {
            made = false;
            EXPECT_STRNE(failure.what(), "");
        }
        EXPECT_THAT(names(), made ? testing::Matcher<std::vector<std::string>>(ElementsAre("empresa.db"))
                                  : testing::Matcher<std::vector<std::string>>(IsEmpty()));
        return made;
    }

    int calls_of_making() {
        Failing_files files;
        files.fail_none();
        EXPECT_TRUE(makes_whole_or_nothing());
        fs::remove(file());
        return files.calls();
    }

    fs::path folder_;
};

TEST_F(Failing_file_system, lets_a_company_appear_whole_or_not_at_all) {
    for (const auto how : {Failing_files::Fails::once, Failing_files::Fails::from_then_on}) {
        const int calls = calls_of_making();
        int refused = 0, walked = 0;
        for (int number = 1; number <= calls; number += stride(23)) {
            SCOPED_TRACE("write " + std::to_string(number));
            Failing_files files;
            files.fail(number, how);
            const bool made = makes_whole_or_nothing();
            files.fail_none();
            ++walked;
            refused += made ? 0 : 1;
            if (made) {
                EXPECT_EQ(verdict(file()), "ok");
                EXPECT_NO_THROW(Company({.database = file()}));
            }
            fs::remove(file());
        }
        EXPECT_GT(calls, 100);
        EXPECT_GT(refused, walked / 2) << "of " << walked;
        RecordProperty("failures", walked);
    }
}

TEST_F(Failing_file_system, loses_nothing_that_was_acknowledged) {
    Company::create({.database = file()}, Contents::sample_company);
    int calls = 1;
    for (int number = 1; number <= calls; number += stride(3)) {
        SCOPED_TRACE("write " + std::to_string(number));
        Failing_files files;
        std::vector<std::string> acknowledged;
        {
            const Company company({.database = file()});
            company.connection().execute("DELETE FROM Moneda WHERE Mn_Cve_Moneda LIKE 'X%'");
            files.fail(number, Failing_files::Fails::once);
            for (const std::string key : {"X1", "X2", "X3", "X4"}) {
                try {
                    company.connection().execute("INSERT INTO Moneda (Mn_Cve_Moneda, Es_Cve_Estado) VALUES ('" + key +
                                                 "', 'AC')");
                    acknowledged.push_back(key);
                } catch (const Database_error&) {
                }
            }
        }
        calls = std::max(calls, files.calls());
        files.fail_none();
        EXPECT_GE(acknowledged.size(), 3u) << "one failure fails one statement";
        EXPECT_EQ(verdict(file()), "ok");
        const Company again({.database = file()});
        const auto rows =
            again.connection().execute("SELECT Mn_Cve_Moneda FROM Moneda WHERE Mn_Cve_Moneda LIKE 'X%' ORDER BY 1");
        std::vector<std::string> kept;
        for (; !rows->eof(); rows->move_next()) kept.push_back(to_text(rows->field("Mn_Cve_Moneda")));
        EXPECT_EQ(kept, acknowledged);
    }
    EXPECT_GT(calls, 8);
}

}  // namespace
}  // namespace cuvexa::tests
