// How a long command tells a person how far it is, and how Ctrl-C ends it.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "cuvexa/company.h"

namespace cuvexa::cli {

/// Ctrl-C was pressed: what is thrown through a command, so that everything it began is undone.
class Interrupted : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// From here on Ctrl-C is remembered instead of killing the program, and long statements on that company end; pressed once
/// more it kills. `outcome` says in Spanish what is left then, "no queda ninguna copia"; a later call may say something else.
void heed_ctrl_c(Company_options& options, const std::string& outcome);

/// Whether Ctrl-C was pressed since.
bool is_interrupted() noexcept;

/// What its operator reads: "Interrumpido; no queda ninguna copia".
std::string text_of_interruption();

/// One line, drawn anew ten times a second at most and wiped in the end.
class Progress {
public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    /// On standard error when that is a terminal, and a person is there to read it; else nowhere. Begins with that text.
    explicit Progress(const std::string& text, bool wanted = true);

    /// On any stream, or nowhere when it is null.
    Progress(std::ostream* out, Now now);

    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Throws `Interrupted` when Ctrl-C was pressed.
    void tell(const std::string& text);

    /// "Recibos: 30 de 1000 (3 %)"
    void tell(const std::string& what, std::size_t done, std::size_t all);

    /// Tells shares of one piece of work, in per cent: "Copia: 30 %".
    Work_progress per_cent_of(const std::string& what);

private:
    std::ostream* out_;
    Now now_;
    Clock::time_point next_ = {};
    std::string line_;  // that stands there; it is written over with blanks, which every terminal understands
};

}  // namespace cuvexa::cli
