// What long commands tell a person at a terminal, and what is left when Ctrl-C ends them.
#include "cli/progress.h"

#include <fcntl.h>
#include <pty.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "cli/program.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using cli::Progress;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(Cli_progress, a_line_is_drawn_anew_ten_times_a_second_at_most_and_wiped_in_the_end) {
    std::ostringstream out;
    Progress::Clock::time_point now{};
    {
        Progress progress(&out, [&] { return now; });
        progress.tell("Recibos", 1, 3);
        progress.tell("Recibos", 2, 3);
        now += std::chrono::milliseconds(99);
        progress.tell("Recibos", 2, 3);
        now += std::chrono::milliseconds(1);
        progress.per_cent_of("Copia")(100);
    }
    EXPECT_EQ(out.str(), "\rRecibos: 1 de 3 (33 %)\rCopia: 100 %          \r            \r");
}

TEST(Cli_progress, nothing_is_drawn_where_nobody_reads_it) {
    Progress progress(nullptr, [] { return Progress::Clock::now(); });
    progress.tell("Recibos", 0, 0);
}

/// A `cuvexa` whose standard error is a terminal, and whose trace stops it until the test reads that.
class Cli_terminal : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        ASSERT_EQ(mkfifo((folder / "trace").c_str(), 0600), 0);
    }
    void TearDown() override {
        if (process_ > 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
        }
        if (terminal_ >= 0) close(terminal_);
        Program::TearDown();
    }

    void begin(const std::vector<std::string>& arguments) {
        int program_side = -1;
        ASSERT_EQ(openpty(&terminal_, &program_side, nullptr, nullptr, nullptr), 0);
        process_ = fork();
        if (process_ == 0) {
            signal(SIGINT, SIG_DFL);
            const int out = open((folder / ".out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            dup2(out, STDOUT_FILENO);
            dup2(program_side, STDERR_FILENO);
            close(terminal_);
            if (chdir(folder.c_str()) != 0) _exit(127);
            const std::string program = in_build("bin/cuvexa");
            std::vector<char*> words{const_cast<char*>("cuvexa")};
            for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
            words.push_back(nullptr);
            execv(program.c_str(), words.data());
            _exit(127);
        }
        close(program_side);
    }

    /// Reads the terminal until it has shown that text, or the program is gone.
    void wait_for(const std::string& text) {
        while (seen_.find(text) == std::string::npos && read_more()) {
        }
        ASSERT_THAT(seen_, HasSubstr(text));
    }

    void press_ctrl_c() const { kill(process_, SIGINT); }

    /// Lets the program go on where it waits for a reader of its trace.
    void read_trace() const {
        const int trace = open((folder / "trace").c_str(), O_RDONLY);
        char part[4096];
        while (read(trace, part, sizeof part) > 0) {
        }
        close(trace);
    }

    Outcome end() {
        while (read_more()) {
        }
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = -1;
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(folder / ".out"), seen_};
    }

    /// The whole of it, with its trace.
    Outcome interrupted(std::vector<std::string> arguments, const std::string& line) {
        arguments.insert(arguments.end(), {"--trace", "trace"});
        begin(arguments);
        wait_for(line);
        press_ctrl_c();
        read_trace();
        return end();
    }

    Outcome watched(const std::vector<std::string>& arguments) {
        seen_.clear();
        begin(arguments);
        return end();
    }

    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (!name.starts_with(".") && name != "trace") names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    bool read_more() {
        char part[1024];
        const ssize_t size = read(terminal_, part, sizeof part);
        if (size <= 0) return false;
        seen_.append(part, static_cast<std::size_t>(size));
        return true;
    }

    int terminal_ = -1;
    pid_t process_ = -1;
    std::string seen_;
};

TEST_F(Cli_terminal, long_commands_tell_a_person_how_far_they_are) {
    const auto expect_lines = [&](const std::vector<std::string>& arguments, const std::string& first) {
        const Outcome outcome = watched(arguments);
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        EXPECT_THAT(outcome.err, StartsWith("\r" + first));
        EXPECT_THAT(outcome.err, testing::EndsWith(" \r")) << "the line is wiped";
    };
    expect_lines({"sample", "--receipts", "20", "--months", "1", "--db", "company.db"}, "Recibos: 0 de 20 (0 %)");
    expect_lines({"audit", "--db", "company.db"}, "Revisión");
    expect_lines({"statement", "SRR-MXN", "--db", "company.db"}, "Estado de cuenta");
    expect_lines({"backup", "--db", "company.db", "copy.db"}, "Copia");
    expect_lines({"restore", "--db", "back.db", "copy.db"}, "Copia");
    expect_lines({"init", "--sample", "--db", "new.db"}, "Base de datos nueva");
    expect_lines({"upgrade", "--db", "new.db"}, "Actualización");
}

TEST_F(Cli_terminal, who_asks_for_json_is_no_person) {
    make_company();
    EXPECT_THAT(watched({"audit", "--json", "--db", "company.db"}).err, IsEmpty());
    EXPECT_THAT(watched({"statement", "SRR-MXN", "--json", "--db", "company.db"}).err, IsEmpty());
}

TEST_F(Cli_terminal, a_database_in_the_making_is_gone_after_ctrl_c) {
    const Outcome init = interrupted({"init", "--sample", "--db", "company.db"}, "Base de datos nueva");
    EXPECT_EQ(init.code, 130);
    EXPECT_THAT(init.err, testing::EndsWith(" \rInterrumpido; no queda ninguna base de datos\r\n"));
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(Cli_terminal, a_life_ends_with_a_whole_day_after_ctrl_c) {
    const Outcome sample = interrupted({"sample", "--receipts", "400", "--db", "company.db"}, "Recibos");
    EXPECT_EQ(sample.code, 130);
    EXPECT_THAT(sample.err, HasSubstr("Interrumpido; "));
    EXPECT_THAT(files(), IsEmpty()) << "its catalogues were not there yet";
    begin({"sample", "--receipts", "200000", "--db", "company.db"});  // a share of them takes longer than a line stands
    wait_for("(1 %)");
    press_ctrl_c();
    const Outcome later = end();
    EXPECT_EQ(later.code, 130);
    EXPECT_THAT(later.err, testing::EndsWith(" \rInterrumpido; la empresa queda hasta su último día completo\r\n"));
    EXPECT_THAT(output_of("audit --db company.db"), StartsWith("Todo cuadra"));
}

TEST_F(Cli_terminal, an_upgrade_is_undone_after_ctrl_c) {
    const auto version = [&] {
        Sqlite_connection database((folder / "company.db").string());
        return to_text(
            database.execute("SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'")->field("Eq_Version"));
    };
    {
        Sqlite_options options;
        options.create = true;
        Sqlite_connection older((folder / "company.db").string(), options);
        run_script(older, read_file(in_source("tests/company/versions/1.sql")));
    }
    const Outcome upgrade = interrupted({"upgrade", "--db", "company.db"}, "Actualización");
    EXPECT_EQ(upgrade.code, 130);
    EXPECT_THAT(upgrade.err, testing::EndsWith(" \rInterrumpido; la base de datos queda como estaba\r\n"));
    EXPECT_EQ(version(), "1");
    EXPECT_EQ(run("upgrade --db company.db").code, 0);
    EXPECT_EQ(version(), "2");
}

TEST_F(Cli_terminal, what_only_reads_ends_after_ctrl_c) {
    make_company();
    const Outcome audit = interrupted({"audit", "--db", "company.db"}, "Revisión");
    EXPECT_EQ(audit.code, 130);
    EXPECT_EQ(audit.out, "");
    EXPECT_THAT(audit.err, testing::EndsWith(" \rInterrumpido; la revisión no terminó\r\n"));
    const Outcome statement =
        interrupted({"statement", "SRR-MXN", "--html", "page.html", "--db", "company.db"}, "Estado de cuenta");
    EXPECT_EQ(statement.code, 130);
    EXPECT_THAT(files(), testing::ElementsAre("company.db"));
}

TEST_F(Cli_terminal, a_copy_in_the_making_is_gone_after_ctrl_c) {
    make_company();
    // Whoever holds the file alone stops the copy before it begins.
    sqlite3* holder = nullptr;
    ASSERT_EQ(sqlite3_open((folder / "company.db").c_str(), &holder), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(holder, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr),
              SQLITE_OK);
    begin({"backup", "--db", "company.db", "copy.db"});
    wait_for("Copia");
    press_ctrl_c();
    sqlite3_close(holder);
    const Outcome backup = end();
    EXPECT_EQ(backup.code, 130);
    EXPECT_THAT(backup.err, testing::EndsWith(" \rInterrumpido; no queda ninguna copia\r\n"));
    EXPECT_THAT(files(), testing::ElementsAre("company.db"));
}

}  // namespace
}  // namespace cuvexa::tests
