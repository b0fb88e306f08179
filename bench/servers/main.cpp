// What a session on PostgreSQL costs by each way to it, and what many of them do at once. Prints one JSON object; the tables
// are made of them by tests/servers/ways.
//
//   cuvexa_server_load ways [--atomic] [--seconds S] DATABASE ODBC-DATABASE TEXT-DATABASE PREPARED-DATABASE
//       One session that works on the first by the server's own protocol, one on the second through ODBC, and the
//       statements of the first bare on the others, as texts and prepared; in turn, S seconds each. The four begin alike.
//
//   cuvexa_server_load work WORK [--atomic] [--seconds S] [--users N] [--apart WHAT] [--made-alone] DATABASE
//       WORK: receipt, deposit (a receipt with its deposit), check1, check5 (created and applied). All users at once make
//       documents for S seconds and then, unless they are --made-alone, cancel them for as long at most. --apart: what each has for himself, account,
//       bank (and an account in it) or branch (and both); without it all work on one account.
#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <nlohmann/json.hpp>
#include <thread>

#include "bare.h"
#include "session.h"

namespace cuvexa::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Json = nlohmann::ordered_json;

double seconds_since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// ---- The ways -------------------------------------------------------------------------------------------------------

/// What one way has cost so far.
struct Costs {
    double seconds = 0, program = 0, server = 0;

    void add(int process, const std::function<void()>& work) {
        const double program_before = thread_seconds(), server_before = process_seconds(process);
        const auto begin = Clock::now();
        work();
        seconds += seconds_since(begin);
        program += thread_seconds() - program_before;
        server += process_seconds(process) - server_before;
    }
};

/// Four documents, of which one is cancelled.
void documents(Session& session) {
    const Desk desk;
    const std::string receipt = receipt_of_two_lines(session.treasury(), desk, session.done());
    deposit(session.treasury(), desk, receipt, session.done());
    applied_check(session.treasury(), desk, 1, session.done());
    const std::string check = applied_check(session.treasury(), desk, 5, session.done());
    session.done()([&] { return session.treasury().Cancelar_Cheque(check); });
}

Json ways(const std::vector<std::string>& databases, bool atomic, double seconds) {
    constexpr int documents_of_a_turn = 5;
    Session own(databases[0], atomic), odbc(databases[1], atomic);
    Bare_session texts(databases[2], Bare_session::As::text), prepared(databases[3], Bare_session::As::prepared);
    std::array<Costs, 4> costs;
    std::size_t statements = 0;
    // The first turn is not counted: what is prepared is prepared then.
    for (bool warm = false; !warm || costs[0].seconds < seconds; warm = true) {
        const auto turn = [&](Session& session) {
            for (int i = 0; i < documents_of_a_turn; ++i) documents(session);
        };
        own.texts().take();
        odbc.texts().take();
        costs[0].add(own.process(), [&] { turn(own); });
        const std::vector<std::string> said = own.texts().take();
        costs[1].add(odbc.process(), [&] { turn(odbc); });
        texts.make_ready(said);
        prepared.make_ready(said);
        costs[2].add(texts.process(), [&] { texts.run(); });
        costs[3].add(prepared.process(), [&] { prepared.run(); });
        statements += said.size();
        if (!warm) {
            costs = {};
            statements = 0;
        }
    }
    Json told{{"statements", statements}};
    for (std::size_t i = 0; const char* name : {"own", "odbc", "text", "prepared"}) {
        told[name] = {{"seconds", costs[i].seconds}, {"program", costs[i].program}, {"server", costs[i].server}};
        ++i;
    }
    return told;
}

// ---- Many at work ---------------------------------------------------------------------------------------------------

/// A kind of document: how one is made, and cancelled by its folio.
struct Work {
    std::function<std::string(Session&, const Desk&)> make;
    std::function<bool(Tesoreria&, const std::string&)> cancel;
};

Work receipt_work(bool with_deposit) {
    return {[=](Session& session, const Desk& desk) {
                std::string folio = receipt_of_two_lines(session.treasury(), desk, session.done());
                if (with_deposit) deposit(session.treasury(), desk, folio, session.done());
                return folio;
            },
            [=](Tesoreria& treasury, const std::string& folio) {
                return treasury.Cancelar_Recibo_Caja(folio, with_deposit, false);
            }};
}

Work check_work(int lines) {
    return {[=](Session& session, const Desk& desk) {
                return applied_check(session.treasury(), desk, lines, session.done());
            },
            [](Tesoreria& treasury, const std::string& folio) { return treasury.Cancelar_Cheque(folio); }};
}

Work work_called(const std::string& name) {
    if (name == "receipt") return receipt_work(false);
    if (name == "deposit") return receipt_work(true);
    return check_work(name == "check5" ? 5 : 1);
}

/// Copies the row of that key under another one.
void copy_row(Connection& connection, const std::string& table, const std::string& key, const std::string& from,
              const std::string& to, const std::string& columns, const std::string& values) {
    connection.execute("INSERT INTO " + table + " (" + key + ", " + columns + ") SELECT '" + to + "', " + values +
                       " FROM " + table + " WHERE " + key + " = '" + from + "' AND NOT EXISTS (SELECT " + key +
                       " FROM " + table + " WHERE " + key + " = '" + to + "')");
}

Desk desk_of(Connection& connection, int user, const std::string& apart) {
    Desk desk;
    if (apart.empty()) return desk;
    const std::string number = std::to_string(user + 1);
    desk.account = "CTA-" + number;
    std::string bank = "SIERRA";
    if (apart != "account") {
        bank = "BAN-" + number;
        copy_row(connection, "Banco", "Bn_Cve_Banco", "SIERRA", bank, "Bn_Descripcion", "Bn_Descripcion");
    }
    copy_row(connection, "Banco_Cuenta", "Bc_Cve_Banco_Cuenta", "SRR-MXN", desk.account,
             "Bn_Cve_Banco, Bc_Descripcion, Bc_Cuenta_Contable, Mn_Cve_Moneda, Em_Cve_Empresa",
             "'" + bank + "', Bc_Descripcion, Bc_Cuenta_Contable, Mn_Cve_Moneda, Em_Cve_Empresa");
    if (apart == "branch") {
        desk.branch = "S" + number;
        copy_row(connection, "Sucursal", "Sc_Cve_Sucursal", "MTY", desk.branch,
                 "Sc_Descripcion, Em_Cve_Empresa, Sc_Cuenta_Contable",
                 "Sc_Descripcion, Em_Cve_Empresa, Sc_Cuenta_Contable");
    }
    return desk;
}

struct User {
    User(const std::string& database, bool atomic, int number, const std::string& apart)
        : session(database, atomic), desk(desk_of(session.texts(), number, apart)) {}

    Session session;
    Desk desk;
    std::deque<std::string> folios;
};

/// Lets each user `step` until the time is over or one of them has nothing left to do. Gives how much they did.
Json at_once(std::vector<std::unique_ptr<User>>& users, double seconds, const std::function<bool(User&)>& step) {
    std::atomic<bool> over = false;
    std::atomic<std::size_t> done = 0;
    std::exception_ptr failure;
    std::mutex failure_guard;
    double program = 0, server = 0, statements = 0, repeated = 0;
    std::vector<std::thread> threads;
    threads.reserve(users.size());
    for (const auto& user : users) {
        user->session.texts().take();
        repeated -= user->session.repeated();
        server -= process_seconds(user->session.process());
    }
    const auto begin = Clock::now();
    for (const auto& user : users) {
        threads.emplace_back([&] {
            try {
                while (!over) {
                    if (seconds_since(begin) > seconds || !step(*user)) break;
                    ++done;
                }
            } catch (...) {
                const std::lock_guard guard(failure_guard);
                failure = std::current_exception();
            }
            over = true;
            const std::lock_guard guard(failure_guard);
            program += thread_seconds();
        });
    }
    for (std::thread& thread : threads) thread.join();
    const double took = seconds_since(begin);
    if (failure) std::rethrow_exception(failure);
    for (const auto& user : users) {
        statements += static_cast<double>(user->session.texts().take().size());
        repeated += user->session.repeated();
        server += process_seconds(user->session.process());
    }
    const auto count = static_cast<double>(done.load());
    return {{"per_second", count / took},         {"documents", done.load()},
            {"statements", statements / count},   {"program_ms", program * 1000 / count},
            {"server_ms", server * 1000 / count}, {"repeated", repeated}};
}

struct Load {
    std::string kind, apart;
    bool atomic = false, made_alone = false;
    double seconds = 3;
    int users = 1;
};

Json work(const Load& load, const std::string& database) {
    const Work work = work_called(load.kind);
    // Series begin, and what is prepared is prepared, before the clock starts.
    const int warm_documents = std::clamp(32 / load.users, 2, 8);
    std::vector<std::unique_ptr<User>> users;
    for (int i = 0; i < load.users; ++i) {
        users.push_back(std::make_unique<User>(database, load.atomic, i, load.apart));
        User& user = *users.back();
        for (int warm = 0; warm < warm_documents; ++warm) {
            const std::string folio = work.make(user.session, user.desk);
            if (warm % 2 == 0) continue;
            user.session.done()([&] { return work.cancel(user.session.treasury(), folio); });
        }
    }
    Json told;
    told["made"] = at_once(users, load.seconds, [&](User& user) {
        user.folios.push_back(work.make(user.session, user.desk));
        return true;
    });
    if (load.made_alone) return told;
    told["cancelled"] = at_once(users, load.seconds, [&](User& user) {
        if (user.folios.empty()) return false;
        user.session.done()([&] { return work.cancel(user.session.treasury(), user.folios.front()); });
        user.folios.pop_front();
        return true;
    });
    return told;
}

}  // namespace
}  // namespace cuvexa::bench

int main(int count, char** words) {
    using namespace cuvexa::bench;
    CLI::App program("What a session on PostgreSQL costs, and what many do at once");
    program.require_subcommand(1);
    Load load;
    std::vector<std::string> databases;
    CLI::App* const by_ways = program.add_subcommand("ways");
    CLI::App* const at_work = program.add_subcommand("work");
    at_work->add_option("work", load.kind)
        ->required()
        ->check(CLI::IsMember({"receipt", "deposit", "check1", "check5"}));
    at_work->add_option("--users", load.users)->check(CLI::Range(1, 1000));
    at_work->add_option("--apart", load.apart)->check(CLI::IsMember({"account", "bank", "branch"}));
    at_work->add_flag("--made-alone", load.made_alone);
    for (CLI::App* const command : {by_ways, at_work}) {
        command->add_flag("--atomic", load.atomic);
        command->add_option("--seconds", load.seconds);
        command->add_option("databases", databases)->required()->expected(command == by_ways ? 4 : 1);
    }
    CLI11_PARSE(program, count, words);
    try {
        const Json told = by_ways->parsed() ? ways(databases, load.atomic, load.seconds) : work(load, databases[0]);
        std::puts(told.dump().c_str());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
