#include "cuvexa/company.h"

#include <fstream>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "company/engine.h"
#include "company/files.h"
#include "company/version.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/server_connection.h"
#include "cuvexa/database/trace.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/unit_of_work.h"

namespace cuvexa {

namespace company {

/// A session of the engine with what stands before it: the trace, when it is asked for.
class Session {
public:
    Session(Opened engine, const std::string& trace) : engine_(std::move(engine)) {
        if (trace.empty()) return;
        refuse_trace_over_database(trace);
        trace_.open(path(trace), std::ios::app);
        if (!trace_) throw Company_error("No se puede escribir el rastro: " + trace);
        traced_.emplace(*engine_.connection, trace_);
    }

    Connection& connection() { return traced_ ? static_cast<Connection&>(*traced_) : untraced(); }
    Connection& untraced() { return *engine_.connection; }
    Date_style date_style() const { return engine_.date_style; }
    const std::string& notice() const { return engine_.notice; }

    std::optional<Replica> replica() const {
        auto* const server = dynamic_cast<Server_connection*>(engine_.connection.get());
        return server == nullptr ? std::nullopt : server->replica();
    }

    /// Writes what a new company begins with: whole or not at all.
    void fill(Contents contents, const Work_progress& progress = {}) {
        Unit_of_work whole(connection());
        std::vector<std::string_view> scripts{schema_sql()};
        if (contents == Contents::sample_company) scripts.push_back(sample_company_sql());
        run_scripts(connection(), scripts, progress);
        whole.commit();
    }

    /// Brings a company, shown by that name, to this program's version.
    Upgrade upgrade(const std::string& name, Upgrade_mode mode, const Work_progress& progress) {
        Unit_of_work whole(connection());
        const int found = known_version(untraced(), name);
        run_upgrades(connection(), progress);
        if (mode == Upgrade_mode::keep) whole.commit();
        return {found, schema_version};
    }

private:
    void refuse_trace_over_database(const std::string& trace) const {
        std::error_code ignored;
        if (std::filesystem::equivalent(path(trace), path(engine_.file), ignored)) {
            throw Company_error("El rastro no puede escribirse en la base de datos: " + trace);
        }
    }

    Opened engine_;
    std::ofstream trace_;
    std::optional<Traced_connection> traced_;
};

namespace {

struct Suite_on_session {
    Suite_on_session(std::shared_ptr<Session> opened, Suite_options options)
        : session(std::move(opened)), suite(session->connection(), std::move(options)) {}

    std::shared_ptr<Session> session;
    Reference_suite suite;
};

/// Runs `work`; whatever fails in it, the engine, the file system, is told as one kind of failure.
template <class Work>
auto told(Work&& work) {
    try {
        return work();
    } catch (const std::runtime_error& failure) {
        throw Company_error(failure.what());
    }
}

using Version_check = void (*)(Connection& connection, const std::string& name);

/// What is refused must not have been changed, and to open a file for writing may change it.
Opened opened(const Company_options& options, Access access, Version_check check) {
    const auto engine = engine_for(options);
    if (access == Access::write && !options.is_server()) check(*engine->open(Access::read).connection, options.shown());
    Opened result = engine->open(access);
    check(*result.connection, options.shown());
    return result;
}

std::unique_ptr<Session> open_session(const Company_options& options, Access access) {
    return told(
        [&] { return std::make_unique<Session>(opened(options, access, require_this_version), options.trace); });
}

std::unique_ptr<Session> session_in_memory(Contents contents, const Company_options& options) {
    return told([&] {
        auto session = std::make_unique<Session>(open_in_memory(options), options.trace);
        session->fill(contents);
        return session;
    });
}

}  // namespace

}  // namespace company

Company::Company(std::shared_ptr<company::Session> session) : session_(std::move(session)) {}

Company::Company(const Company_options& options, Access access) : Company(company::open_session(options, access)) {}

Company Company::in_memory(Contents contents, const Company_options& options) {
    return Company(company::session_in_memory(contents, options));
}

Company::Company(Company&&) noexcept = default;
Company& Company::operator=(Company&&) noexcept = default;
Company::~Company() = default;

bool Company::stands(const Company_options& options) {
    return company::told([&] { return company::engine_for(options)->stands(); });
}

void Company::create(const Company_options& options, Contents contents, const Work_progress& progress) {
    const auto fill = [&](company::Opened engine) {
        company::Session(std::move(engine), options.trace).fill(contents, progress);
    };
    company::told([&] { company::engine_for(options)->create(fill); });
}

bool Company::create_if_missing(const Company_options& options, Contents contents, const Work_progress& progress) {
    if (stands(options)) return false;
    try {
        create(options, contents, progress);
        return true;
    } catch (const Company_error&) {
        if (!stands(options)) throw;
        return false;  // another program was faster
    }
}

Upgrade Company::upgrade(const Company_options& options, Upgrade_mode mode, const Work_progress& progress) {
    return company::told([&] {
        const auto known = [](Connection& connection, const std::string& name) {
            company::known_version(connection, name);
        };
        company::Session session(company::opened(options, Access::write, known), options.trace);
        return session.upgrade(options.shown(), mode, progress);
    });
}

void Company::back_up(const Company_options& options, const std::string& copy, const Work_progress& progress) {
    company::told([&] { company::engine_for(options)->back_up(copy, progress); });
}

void Company::restore(const Company_options& options, const std::string& copy, const Work_progress& progress) {
    company::told([&] { company::engine_for(options)->restore(copy, progress); });
}

Connection& Company::connection() const {
    return session_->connection();
}

const std::string& Company::notice() const {
    return session_->notice();
}

std::optional<Replica> Company::replica() const {
    return company::told([&] { return session_->replica(); });
}

Date_style Company::date_style() const {
    return session_->date_style();
}

std::shared_ptr<Reference_suite> Company::suite(Suite_options options) const {
    options.date_style = session_->date_style();
    const auto kept_open = std::make_shared<company::Suite_on_session>(session_, std::move(options));
    return {kept_open, &kept_open->suite};
}

}  // namespace cuvexa
