#include "cli/progress.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <iostream>
#include <utility>

namespace cuvexa::cli {

namespace {

constexpr std::chrono::milliseconds between_lines{100};

std::atomic<bool> ctrl_c = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a handler sets it");

std::string& outcome_of_interruption() {
    static std::string outcome;
    return outcome;
}

extern "C" void remember_ctrl_c(int signal) {
    ctrl_c = true;
    std::signal(signal, SIG_DFL);
}

}  // namespace

void heed_ctrl_c(Company_options& options, const std::string& outcome) {
    outcome_of_interruption() = outcome;
    options.interrupt = &ctrl_c;
    static const auto before = std::signal(SIGINT, remember_ctrl_c);
    if (before == SIG_IGN) std::signal(SIGINT, SIG_IGN);  // as whoever started the program wants it
}

bool is_interrupted() noexcept {
    return ctrl_c;
}

std::string text_of_interruption() {
    return "Interrumpido; " + outcome_of_interruption();
}

Progress::Progress(const std::string& text, bool wanted)
    : Progress(wanted && isatty(STDERR_FILENO) != 0 ? &std::cerr : nullptr, Clock::now) {
    tell(text);
}

Progress::Progress(std::ostream* out, Now now) : out_(out), now_(std::move(now)) {}

Progress::~Progress() {
    if (!line_.empty()) *out_ << '\r' << std::string(line_.size(), ' ') << '\r' << std::flush;
}

void Progress::tell(const std::string& text) {
    if (is_interrupted()) throw Interrupted(text_of_interruption());
    if (out_ == nullptr) return;
    const Clock::time_point now = now_();
    if (!line_.empty() && now < next_) return;
    const std::size_t rest = line_.size() > text.size() ? line_.size() - text.size() : 0;
    *out_ << '\r' << text << std::string(rest, ' ') << std::flush;
    line_ = text;
    next_ = now + between_lines;
}

void Progress::tell(const std::string& what, std::size_t done, std::size_t all) {
    tell(what + ": " + std::to_string(done) + " de " + std::to_string(all) + " (" +
         std::to_string(100 * done / std::max<std::size_t>(all, 1)) + " %)");
}

Work_progress Progress::per_cent_of(const std::string& what) {
    return [this, what](int per_cent) { tell(what + ": " + std::to_string(per_cent) + " %"); };
}

}  // namespace cuvexa::cli
