#include "bare.h"

#include <stdexcept>

#include "database/dialect/lexer.h"
#include "database/postgresql/kept_statement.h"
#include "database/postgresql/results.h"
#include "database/servers.h"

namespace cuvexa::bench {
namespace {

bool of_transactions(std::string_view verb) {
    return verb == "BEGIN" || verb == "COMMIT" || verb == "ROLLBACK";
}

}  // namespace

Bare_session::Bare_session(const std::string& conninfo, As as)
    : as_(as),
      connection_(PQconnectdb(conninfo.c_str())),
      interpreter_(database::server_called("PostgreSQL"),
                   [this](std::string_view text) {
                       const Result result(PQexec(connection_.get(), std::string(text).c_str()));
                       return postgresql::rows_of(result.get());
                   }),
      shape_(postgresql::mark_of) {
    if (PQstatus(connection_.get()) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(connection_.get()));
    require(Result(PQexec(connection_.get(), "SET client_min_messages = warning")), "SET");
}

void Bare_session::make_ready(const std::vector<std::string>& texts) {
    calls_.clear();
    for (const std::string& text : texts) calls_.push_back(call_for(text));
}

Bare_session::Call Bare_session::call_for(const std::string& text) {
    const auto& tokens = interpreter_.read(text);
    shape_.read(text, tokens);
    const dialect::Translation translation = interpreter_.translation(text);
    if (as_ == As::text || of_transactions(tokens.front().in(text)) || !translation.takes_parameters()) {
        return {.text = translation.with_literals()};
    }
    Call call;
    call.prepared = true;
    std::vector<Oid> types;
    std::string scratch;
    for (std::size_t literal = 0; literal < shape_.literals(); ++literal) {
        types.push_back(postgresql::type_of(shape_, literal));
        const std::string_view value = shape_.literal(literal);
        call.values.emplace_back(shape_.is_number(literal) ? value : dialect::text_content(value, scratch));
    }
    constexpr Oid text_type = 25;
    for (const std::size_t literal : translation.pinned()) types[literal] = text_type;
    const std::string& name = prepared(translation.with_parameters('$'), types);
    if (name.empty()) return {.text = translation.with_literals()};
    call.text = name;
    return call;
}

/// The name of what is prepared; empty when the server prepares no such statement.
const std::string& Bare_session::prepared(const std::string& text, const std::vector<Oid>& types) {
    std::string key = text;
    for (const Oid type : types) key += '/' + std::to_string(type);
    const auto [place, is_new] = names_.emplace(key, "bare_" + std::to_string(names_.size()));
    std::string& name = place->second;
    if (is_new) {
        const Result result(
            PQprepare(connection_.get(), name.c_str(), text.c_str(), static_cast<int>(types.size()), types.data()));
        if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) name.clear();
    }
    return name;
}

void Bare_session::run() {
    std::vector<const char*> values;
    for (const Call& call : calls_) {
        if (!call.prepared) {
            require(Result(PQexec(connection_.get(), call.text.c_str())), call.text);
            continue;
        }
        values.clear();
        for (const std::string& value : call.values) values.push_back(value.c_str());
        require(Result(PQexecPrepared(connection_.get(), call.text.c_str(), static_cast<int>(values.size()),
                                      values.data(), nullptr, nullptr, 0)),
                call.text);
    }
}

void Bare_session::require(Result result, const std::string& text) const {
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return;
    throw std::runtime_error(PQresultErrorMessage(result.get()) + text);
}

}  // namespace cuvexa::bench
