// The demonstration: chapters that call the component as any program would and show what each call moved.
#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/record_table.h"
#include "cli/terminal.h"
#include "cuvexa/data_access.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa::cli {

/// Where the chapters play: it narrates, runs calls, and shows rows and balances.
class Stage {
public:
    Stage(Module& module, Connection& connection, std::ostream& out);

    /// The instance that all chapters use.
    Tesoreria& tesoreria() { return tesoreria_; }
    Connection& connection() { return *connection_; }

    /// The date on which everything happens.
    Date today() const { return today_; }

    /// Numbers and prints a heading; `about` says in a sentence or two what happens and why.
    void chapter(std::string_view title, std::string_view about);

    /// A remark between two calls.
    void say(std::string_view remark);

    /// Shows a line as a program writes it.
    void wrote(std::string_view line);

    /// Shows an assignment of a record: its fields that are not empty, or those that `before` does not have alike.
    template <class R>
    void wrote(std::string_view property, R record, R before = {}) {
        const bool shortened = !(before == R{});
        wrote(std::string(property) + " = {" + (shortened ? "…, " : "") +
              fields_text({&record_type<R>(), &record}, {&record_type<R>(), &before}) + "}");
    }

    /// Shows a call, as a program writes it, and its result. Throws `Refused` with `Error` when it gave False.
    void call(std::string_view written, bool result);

    /// The same for a call that must be refused: shows its `Error`, and throws `Refused` when it gave True.
    void refused_call(std::string_view written, bool result);

    /// Shows a call that gives a value, and the value.
    void value(std::string_view written, const std::string& result);

    /// The rows of a statement under a title.
    void rows(std::string_view title, std::string_view statement, std::span<const Column> columns);

    /// The accounts and banks whose balance has changed since the last time: before, change, after.
    void balances();

    /// Throws `Refused` when a balance is not what it was when the stage was set.
    void require_first_balances();

    /// Shows what `cuvexa audit` finds.
    void audit();

    /// Documents that one chapter leaves to the next: what it is, and its folio.
    std::string receipt;
    std::vector<std::string> checks;

    /// The check header that was shown last; the next one is shown by its differences.
    tTsEncabezado shown_check;

private:
    struct Balance {
        std::string key, name, currency;
        double amount = 0;
    };
    std::vector<Balance> read_balances();
    static std::string fields_text(Record_place place, Record_place before);

    enum class Block { calls, other };

    /// Between two blocks stands one empty line; calls that follow each other are one block.
    std::ostream& begin(Block block);

    Connection* connection_;
    std::ostream* out_;
    Tesoreria tesoreria_;
    Date today_;
    std::vector<Balance> first_balances_;
    std::vector<Balance> balances_;
    int chapter_ = 0;
    Block last_block_ = Block::other;
};

/// A text between double quotes.
std::string in_quotes(std::string_view text);

// The chapters, in their order.
void receipt_chapter(Stage& stage);
void closing_chapter(Stage& stage);
void deposit_chapter(Stage& stage);
void check_chapter(Stage& stage);
void budget_chapter(Stage& stage);
void application_chapter(Stage& stage);
void way_back_chapter(Stage& stage);

}  // namespace cuvexa::cli
