#include "service/companies.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>

namespace cuvexa::service {

namespace {

Suite_options suite_options(Date_style style, const std::optional<Date>& server_date) {
    Suite_options options;
    options.date_style = style;
    options.server_date = server_date;
    // The answer carries what went wrong; the log tells no values.
    options.report_error = [](const Reported_error&) {};
    return options;
}

/// A name that stands in a path as it is.
bool is_company_name(std::string_view name) {
    const auto is_letter = [](unsigned char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    };
    return !name.empty() && name.size() <= 60 && std::all_of(name.begin(), name.end(), is_letter);
}

}  // namespace

Work_session::Work_session(const Company_options& options, const std::optional<Date>& server_date)
    : company_(options),
      is_replica_(company_.replica().has_value()),
      connection_(company_.connection()),
      suite_(std::make_shared<Reference_suite>(connection_, suite_options(company_.date_style(), server_date))) {}

bool Places::take(Clock::time_point until) {
    std::unique_lock lock(mutex_);
    if (!freed_.wait_until(lock, until, [&] { return free_ > 0; })) return false;
    --free_;
    return true;
}

void Places::give_back() {
    {
        const std::lock_guard lock(mutex_);
        ++free_;
    }
    freed_.notify_one();
}

bool Turns::are_taken() {
    if (always_) return true;
    int left = left_;
    while (left > 0 && !left_.compare_exchange_weak(left, left - 1)) {
    }
    return left > 0;
}

Company_sessions::Company_sessions(Company_options options, std::size_t most, std::optional<Date> server_date)
    : options_(std::move(options)), server_date_(server_date), sessions_(most), turns_(!options_.is_server()) {}

Company_sessions::Loan::Loan(Loan&& other) noexcept
    : lender_(std::exchange(other.lender_, nullptr)), in_turn_(other.in_turn_), session_(std::move(other.session_)) {}

Company_sessions::Loan::~Loan() {
    if (lender_) lender_->take_back(*this);
}

Company_sessions::Loan Company_sessions::lend(Access access, Clock::time_point until) {
    const bool in_turn = access == Access::write && turns_.are_taken();
    if (in_turn && !turn_.take(until)) throw Overloaded();
    if (!sessions_.take(until)) {
        if (in_turn) turn_.give_back();
        throw Overloaded();
    }
    Loan loan(*this, in_turn);
    {
        const std::lock_guard lock(mutex_);
        ++in_use_;
        if (!idle_.empty()) {
            loan.session_ = std::move(idle_.back());
            idle_.pop_back();
        }
    }
    if (!loan.session_) loan.session_ = std::make_unique<Work_session>(options_, server_date_);
    return loan;
}

void Company_sessions::take_back(Loan& loan) {
    {
        const std::lock_guard lock(mutex_);
        --in_use_;
        if (loan.session_) idle_.push_back(std::move(loan.session_));
    }
    sessions_.give_back();
    if (loan.in_turn_) turn_.give_back();
}

void Company_sessions::forget_idle() {
    std::vector<std::unique_ptr<Work_session>> forgotten;
    const std::lock_guard lock(mutex_);
    forgotten.swap(idle_);
}

bool Company_sessions::is_time_to_tidy(Clock::time_point now) {
    const std::lock_guard lock(mutex_);
    if (tidied_ != Clock::time_point{} && now - tidied_ < std::chrono::hours(1)) return false;
    tidied_ = now;
    return true;
}

std::size_t Company_sessions::in_use() const {
    const std::lock_guard lock(mutex_);
    return in_use_;
}

std::map<std::string, std::string> companies_in(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw Company_error("No es posible leer el archivo de empresas: " + file);
    const auto json = nlohmann::json::parse(std::string{std::istreambuf_iterator<char>(in), {}}, nullptr, false);
    if (!json.is_object() || json.empty()) throw Company_error("No es un archivo de empresas: " + file);
    std::map<std::string, std::string> found;
    for (const auto& [name, database] : json.items()) {
        if (!is_company_name(name) || !database.is_string()) {
            throw Company_error("No es una empresa: " + name + ", en " + file);
        }
        found[name] = database;
    }
    return found;
}

}  // namespace cuvexa::service
