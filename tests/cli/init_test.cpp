// cuvexa init, and what becomes of files that are no database of this version.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "cli/program.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/unit_of_work.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<std::string> names_in(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename();
        if (name[0] != '.') names.push_back(name);
    }
    return names;
}

class Cli_init : public Program {};

TEST_F(Cli_init, makes_an_empty_database) {
    output_of("init --db company.db");
    EXPECT_TRUE(shown("receipts").empty());
    EXPECT_TRUE(shown("accounts").empty());
    EXPECT_EQ(output_of("suite --db company.db show --json").substr(0, 1), "{");
}

TEST_F(Cli_init, makes_the_sample_company) {
    make_company();
    EXPECT_EQ(names_in(folder), std::vector<std::string>{"company.db"});
    const auto account = shown("accounts SRR-MXN");
    ASSERT_EQ(account.size(), 1u);
    EXPECT_EQ(account[0]["Mn_Cve_Moneda"], "MXN");
    EXPECT_EQ(account[0]["Bc_Saldo"], 0.0);
}

TEST_F(Cli_init, refuses_an_existing_database_and_leaves_it_alone) {
    make_company();
    output_of("parameter set --db company.db MINE 1");
    const Outcome again = run("init --db company.db");
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(again.err, "Ya existe y no se toca: company.db\n");
    EXPECT_EQ(output_of("parameter get --db company.db MINE"), "1\n");
}

TEST_F(Cli_init, leaves_an_existing_database_alone_when_told_that_it_may_exist) {
    make_company();
    output_of("parameter set --db company.db MINE 1");
    output_of("init --db company.db --if-missing");
    EXPECT_EQ(output_of("parameter get --db company.db MINE"), "1\n");
    output_of("init --db other.db --if-missing");
    EXPECT_TRUE(std::filesystem::exists(folder / "other.db"));
}

TEST_F(Cli_init, refuses_a_file_that_is_no_database_even_when_it_may_exist) {
    write_file(folder / "company.db", "a text of somebody");
    EXPECT_EQ(run("init --db company.db").code, 1);
    const Outcome tolerant = run("init --db company.db --if-missing");
    EXPECT_EQ(tolerant.code, 1);
    EXPECT_THAT(tolerant.err, HasSubstr("no es una base de datos"));
    EXPECT_EQ(read_file(folder / "company.db"), "a text of somebody");
}

TEST_F(Cli_init, refuses_what_a_deleted_database_left_behind) {
    write_file(folder / "company.db-wal", "x");
    const Outcome outcome = run("init --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "Quedan restos de otra base de datos: company.db-wal\n");
}

TEST_F(Cli_init, names_the_folder_that_is_missing) {
    const Outcome outcome = run("init --db nowhere/company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.err, HasSubstr("No existe la carpeta: "));
}

// A file that may not grow is what a full disk looks like to a program that is not the administrator's.
TEST_F(Cli_init, leaves_nothing_behind_when_the_disk_is_full) {
    std::filesystem::create_directory(folder / "small");
    const std::string limited = "cd '" + folder.string() + "/small' && bash -c \"trap '' XFSZ; ulimit -f 64; exec '" +
                                in_build("bin/cuvexa") + "' init --db company.db --sample\" >/dev/null 2>../.err";
    const int status = std::system(limited.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_THAT(names_in(folder / "small"), IsEmpty());
    const std::string error = read_file(folder / ".err");
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
}

class Cli_databases : public Program {
protected:
    /// Every command that opens a database must refuse it in one line that holds `text`.
    void expect_refused(const std::string& file, const std::string& text) {
        for (const std::string command : {"show receipts", "parameter list", "parameter set A B", "suite show",
                                          "suite posting CHEQUE on", "rpc", "demo", "init --if-missing"}) {
            const Outcome outcome = run(command + " --db " + file);
            EXPECT_EQ(outcome.code, 1) << command;
            EXPECT_THAT(outcome.err, HasSubstr(text)) << command;
            EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
            EXPECT_EQ(outcome.out, "") << command;
        }
    }
};

TEST_F(Cli_databases, that_are_missing_are_refused_and_not_made) {
    for (const std::string command : {"show receipts", "parameter list", "suite show", "rpc"}) {
        const Outcome outcome = run(command + " --db none.db");
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.err, "No existe la base de datos: none.db (se crea con: cuvexa init --db none.db)\n");
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "none.db"));
}

TEST_F(Cli_databases, that_are_other_files_are_refused) {
    write_file(folder / "letter.txt", std::string(5000, 'x'));
    expect_refused("letter.txt", "no es una base de datos");
    EXPECT_EQ(read_file(folder / "letter.txt"), std::string(5000, 'x'));
}

TEST_F(Cli_databases, that_are_empty_files_are_refused) {
    write_file(folder / "empty.db", "");
    expect_refused("empty.db", "No es una base de datos de Cuvexa: empty.db");
}

TEST_F(Cli_databases, that_are_folders_are_refused) {
    std::filesystem::create_directory(folder / "sub");
    expect_refused("sub", "");
}

TEST_F(Cli_databases, of_another_version_are_refused) {
    make_company();
    {
        Sqlite_connection connection((folder / "company.db").string());
        connection.execute("UPDATE Esquema_Suite SET Eq_Version = 99");
    }
    expect_refused("company.db", "La versión del esquema de la base de datos es 99");
}

TEST_F(Cli_databases, of_an_earlier_version_are_refused_until_they_are_upgraded) {
    {
        Sqlite_connection connection((folder / "company.db").string(), {.create = true});
        Unit_of_work whole(connection);
        run_script(connection, read_file(in_source("tests/company/versions/1.sql")));
        whole.commit();
    }
    expect_refused("company.db", "(se actualiza con: cuvexa upgrade --db company.db)");
    const std::string tried = output_of("upgrade --db company.db --dry-run");
    EXPECT_THAT(tried, StartsWith("Se actualizaría de la versión 1 a la 2: company.db\n"));
    EXPECT_THAT(tried, HasSubstr("\nCREATE TABLE Peticion_Servicio (\n"));
    expect_refused("company.db", "(se actualiza con: cuvexa upgrade --db company.db)");
    EXPECT_EQ(output_of("upgrade --db company.db"), "Actualizada de la versión 1 a la 2: company.db\n");
    EXPECT_EQ(output_of("upgrade --db company.db"), "Ya es de la versión 2: company.db\n");
    EXPECT_EQ(output_of("upgrade --db company.db --dry-run"), "Ya es de la versión 2: company.db\n");
    EXPECT_THAT(shown("deposits DP-MTY-00000002"), testing::SizeIs(2));
}

TEST_F(Cli_databases, held_by_another_program_are_refused_after_the_wait) {
    make_company();
    Sqlite_connection other((folder / "company.db").string());
    const Unit_of_work holding(other);
    const Outcome outcome = run("parameter set --db company.db A B --wait 0.05");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.err, HasSubstr("La base de datos está ocupada por otro programa"));
    EXPECT_THAT(output_of("parameter list --db company.db"), HasSubstr("FIN_MONEDA_LOCAL")) << "readers do not wait";
}

// The administrator may write anything, so the program runs as somebody else.
TEST_F(Cli_databases, that_may_not_be_written_are_read_but_not_changed) {
    make_company();
    std::filesystem::permissions(folder / "company.db", std::filesystem::perms(0444));
    std::filesystem::permissions(folder, std::filesystem::perms(0777));
    std::string as_somebody;
    if (geteuid() == 0) {
        std::filesystem::copy_file(in_build("bin/cuvexa"), folder / "cuvexa");
        as_somebody = "setpriv --reuid=65534 --regid=65534 --clear-groups ./cuvexa";
    } else {
        as_somebody = "'" + in_build("bin/cuvexa") + "'";
    }
    const auto status_of = [&](const std::string& arguments) {
        const std::string line = "cd '" + folder.string() + "' && " + as_somebody + " " + arguments + " >.out 2>.err";
        return WEXITSTATUS(std::system(line.c_str()));
    };
    EXPECT_EQ(status_of("show accounts --db company.db"), 0) << read_file(folder / ".err");
    EXPECT_THAT(read_file(folder / ".out"), HasSubstr("SRR-MXN"));
    EXPECT_EQ(read_file(folder / ".err"),
              "La base de datos solo puede leerse; lo que otro programa escriba mientras tanto no se ve: company.db\n");
    EXPECT_EQ(status_of("audit --db company.db"), 0) << read_file(folder / ".err");
    EXPECT_EQ(status_of("parameter set --db company.db A B"), 1);
    EXPECT_THAT(read_file(folder / ".err"), HasSubstr("La base de datos es de solo lectura"));
    for (const char* left : {"company.db-wal", "company.db-shm"}) EXPECT_FALSE(std::filesystem::exists(folder / left));

    // Others at work have put there what a reader needs.
    std::filesystem::permissions(folder / "company.db", std::filesystem::perms(0644));
    Sqlite_connection owner((folder / "company.db").string());
    owner.execute("UPDATE Empresa SET Em_Descripcion = 'Otra'");
    EXPECT_EQ(status_of("show accounts --db company.db"), 0) << read_file(folder / ".err");
    EXPECT_EQ(read_file(folder / ".err"), "");
    owner.execute("UPDATE Empresa SET Em_Descripcion = 'Otra más'");
}

TEST_F(Cli_databases, made_by_several_at_once_are_made_once_and_all_succeed) {
    const std::string line =
        "cd '" + folder.string() + "' && for i in 1 2 3 4 5 6 7 8; do '" + in_build("bin/cuvexa") +
        "' init --if-missing --sample --db company.db >>.out 2>>.err || echo failed >>.err & done; "
        "wait";
    ASSERT_EQ(std::system(line.c_str()), 0);
    EXPECT_EQ(read_file(folder / ".err"), "");
    const std::string out = read_file(folder / ".out");
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 8);
    EXPECT_THAT(names_in(folder), testing::ElementsAre("company.db"));
}

}  // namespace
}  // namespace cuvexa::tests
