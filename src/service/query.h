// What the query of a request asks for: each of its parameters is known, is given once, and is a text.
#pragma once

#include <httplib.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "reports/account_statement.h"

namespace cuvexa::service {

/// Throws `reports::Bad_question` for what is not understood, in words for whoever wrote the query.
class Query {
public:
    /// `http` must outlive it.
    Query(const httplib::Request& http, const std::set<std::string>& known);

    bool has(const char* name) const { return http_.has_param(name); }
    std::string text(const char* name) const { return http_.get_param_value(name); }
    std::optional<Date> day(const char* name) const;
    int whole(const char* name, int least, int most, int if_not_given) const;

    reports::Period period() const;
    std::optional<double> amount() const;
    std::size_t limit() const;

    /// Where the page before ended, as that page told it.
    std::vector<std::string> place() const;

private:
    const httplib::Request& http_;
};

}  // namespace cuvexa::service
