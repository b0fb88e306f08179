// One call of the system fails, each in its turn: what is acknowledged is kept, a database appears whole or not at all, and
// a session answers every request.
//
// A common run takes samples; `./run walks` takes every step.
#ifndef __SANITIZE_ADDRESS__  // the sanitizer wants to be loaded first, and takes the memory itself

#include <sys/wait.h>

#include <cstdlib>

#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"
#include "support/failing_files.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class Failing_calls : public Program {
protected:
    /// Runs the program while the call of that number fails ("files:17", "memory:3", "files:9+").
    Outcome run_failing(const std::string& what, const std::string& arguments) {
        const std::string line = "cd '" + folder.string() + "' && CUVEXA_FAIL=" + what +
                                 " CUVEXA_CALLS=.calls LD_PRELOAD='" + library + "' '" + in_build("bin/cuvexa") + "' " +
                                 arguments + " <.in >.out 2>.err";
        const int status = std::system(line.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(folder / ".out"), read_file(folder / ".err")};
    }

    /// How many calls there are to fail.
    int calls(const std::string& kind, const std::string& arguments) {
        EXPECT_EQ(run_failing(kind + ":0", arguments).code, 0);
        return std::stoi(read_file(folder / ".calls"));
    }

    void give(const std::string& input) { write_file(folder / ".in", input); }

    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename();
            if (name[0] != '.') all.push_back(name);
        }
        return all;
    }

    /// Takes everything away but what stands in hidden files.
    void clear() {
        for (const std::string& name : names()) std::filesystem::remove_all(folder / name);
    }

    std::string question(const std::string& statement) {
        Sqlite_connection connection((folder / "company.db").string());
        return to_text(connection.execute(statement)->field("value"));
    }
    void expect_sound() {
        Sqlite_connection connection((folder / "company.db").string());
        EXPECT_EQ(to_text(connection.execute("PRAGMA integrity_check")->field("integrity_check")), "ok");
    }

    const std::string library = in_build("bin/libcuvexa_failing_calls.so");
    const std::string first_session = read_file(in_source("examples/first_session.jsonl"));
};

TEST_F(Failing_calls, let_a_database_appear_whole_or_not_at_all) {
    give("");
    const std::string init = "init --sample --db company.db";
    const int all = calls("files", init);
    EXPECT_GT(all, 100);
    clear();
    for (const char* mode : {"", "+"}) {
        int refused = 0;
        for (int number = 1; number <= all; number += stride(31)) {
            SCOPED_TRACE("file call " + std::to_string(number) + mode);
            const Outcome outcome = run_failing("files:" + std::to_string(number) + mode, init);
            if (outcome.code == 0) {
                EXPECT_THAT(names(), ElementsAre("company.db"));
                expect_sound();
            } else {
                ++refused;
                EXPECT_EQ(outcome.code, 1);
                EXPECT_THAT(outcome.err, Not(IsEmpty()));
                EXPECT_THAT(names(), IsEmpty());
            }
            clear();
        }
        EXPECT_GT(refused, 0);
    }
}

TEST_F(Failing_calls, leave_a_demonstration_s_database_sound_and_its_end_told) {
    give("");
    const std::string demo = "demo --db company.db";
    const int all = calls("files", demo);
    EXPECT_GT(all, 500);
    clear();
    for (int number = 1; number <= all; number += stride(149)) {
        SCOPED_TRACE("file call " + std::to_string(number));
        const Outcome outcome = run_failing("files:" + std::to_string(number), demo);
        EXPECT_THAT(outcome.code, AnyOf(0, 1));
        EXPECT_EQ(outcome.code != 0, !outcome.err.empty());
        if (std::filesystem::exists(folder / "company.db")) expect_sound();
        for (const std::string& name : names()) EXPECT_EQ(name.find(".nueva-"), std::string::npos) << name;
        clear();
    }
}

TEST_F(Failing_calls, lose_nothing_that_a_session_acknowledged) {
    make_company();
    std::filesystem::copy_file(folder / "company.db", folder / ".new");
    give(first_session);
    const std::string rpc = "rpc --db company.db --server-date 2024-03-15";
    const int all = calls("files", rpc);
    EXPECT_GT(all, 50);
    for (const char* mode : {"", "+"}) {
        for (int number = 1; number <= all; number += stride(13)) {
            SCOPED_TRACE("file call " + std::to_string(number) + mode);
            clear();
            std::filesystem::copy_file(folder / ".new", folder / "company.db");
            const Outcome outcome = run_failing("files:" + std::to_string(number) + mode, rpc);
            EXPECT_THAT(outcome.code, AnyOf(0, 1));
            const auto answers = json_lines(outcome.out);
            EXPECT_EQ(answers.size(), outcome.code == 0 ? 15u : 0u) << "it opened, or it said why not";
            const auto accepted = [&](int id) {
                return !answers.empty() && answers[static_cast<std::size_t>(id) - 1]["result"]["value"] == true;
            };
            expect_sound();
            const int lines = std::stoi(question("SELECT COUNT(*) AS value FROM Recibo_Pago"));
            EXPECT_GE(lines, (accepted(5) ? 1 : 0) + (accepted(7) ? 1 : 0));
            if (accepted(10)) {
                EXPECT_EQ(question("SELECT COUNT(*) AS value FROM Deposito_Pago"), std::to_string(lines));
            }
        }
    }
}

class Failing_memory : public Failing_calls, public testing::WithParamInterface<bool> {
protected:
    /// A session in which the request for memory of that number fails.
    Rpc_session session(int number) {
        std::vector<std::string> words{"--db", "company.db", "--server-date", "2024-03-15"};
        if (GetParam()) words.push_back("--atomic");
        setenv("LD_PRELOAD", library.c_str(), 1);
        setenv("CUVEXA_FAIL", ("memory:" + std::to_string(number)).c_str(), 1);
        return started(words);
    }

    /// The number of an object that was made, in spite of one failure.
    static nlohmann::json object_of(Rpc_session& session) {
        for (int attempt = 0; attempt < 3; ++attempt) {
            const auto answer = session.ask("create", {{"class", "Tesoreria"}});
            if (answer.contains("result")) return answer["result"]["object"];
        }
        return nullptr;
    }

private:
    Rpc_session started(const std::vector<std::string>& words) {
        struct Environment {
            ~Environment() {
                unsetenv("LD_PRELOAD");
                unsetenv("CUVEXA_FAIL");
            }
        } const given;
        return Rpc_session(folder, words);
    }
};

TEST_P(Failing_memory, refuses_a_request_at_most_and_the_session_goes_on) {
    make_company();
    std::filesystem::copy_file(folder / "company.db", folder / ".new");
    give(first_session);
    const auto requests = json_lines(first_session);
    const int all =
        calls("memory", std::string("rpc --db company.db --server-date 2024-03-15") + (GetParam() ? " --atomic" : ""));
    EXPECT_GT(all, 1000);
    int walked = 0, refused = 0;
    for (int number = 1; number <= all; number += stride(211), ++walked) {
        SCOPED_TRACE("request for memory " + std::to_string(number));
        clear();
        std::filesystem::copy_file(folder / ".new", folder / "company.db");
        int accepted_lines = 0;
        {
            Rpc_session under_test = session(number);
            bool goes_on = true;
            for (const auto& request : requests) {
                const bool captures = request["params"].value("member", "") == "Add_Recibo_Caja_Detalle";
                if (captures && !goes_on) continue;
                const auto answer = under_test.ask(request["method"], request["params"]);
                ASSERT_TRUE(answer.contains("result") || answer.contains("error")) << request;
                const bool was_refused = answer.contains("error") || answer["result"]["value"] == false;
                if (was_refused) ++refused;
                if (!captures) continue;
                goes_on = !was_refused;  // a document whose line was undone is not gone on with
                if (!was_refused) ++accepted_lines;
            }
            const auto object = object_of(under_test);
            ASSERT_TRUE(object.is_number());
            under_test.ask("call", {{"object", object}, {"member", "NuevoReciboCaja"}});
            for (const auto& request : requests) {  // the receipt of the first session once more
                if (request["id"] > 5) break;
                auto params = request["params"];
                if (!params.contains("object")) continue;
                params["object"] = object;
                const auto answer = under_test.ask(request["method"], params);
                ASSERT_TRUE(answer.contains("result")) << answer;
                if (request["id"] == 5) {
                    EXPECT_EQ(answer["result"]["value"], true)
                        << "what failed is over, " << under_test.ask("get", {{"object", object}, {"member", "Error"}});
                }
            }
            EXPECT_EQ(under_test.finish(), 0);
        }
        EXPECT_GE(std::stoi(question("SELECT COUNT(*) AS value FROM Recibo_Pago")), accepted_lines + 1);
    }
    EXPECT_GT(refused, walked) << "one deposit is refused in each session";
}

INSTANTIATE_TEST_SUITE_P(Atomic, Failing_memory, testing::Bool());

}  // namespace
}  // namespace cuvexa::tests

#endif
