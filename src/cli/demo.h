// The demonstration: chapters that call the component as any program would and show what each call moved.
#pragma once

#include <concepts>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/variant.h"
#include "cli/terminal.h"
#include "cli/written.h"
#include "cuvexa/data_access.h"
#include "cuvexa/module.h"

namespace cuvexa::cli {

/// What a call passes, and how a program writes it: a value, or a variable that holds a record.
struct Argument {
    template <class V>
    requires std::constructible_from<automation::Variant, V> Argument(V&& given)
        : value(std::forward<V>(given)), text(written(value)) {}
    Argument(std::string_view variable, const automation::Record& record) : value(record), text(variable) {}

    automation::Variant value;
    std::string text;
};
using Arguments = std::vector<Argument>;

/// Where the chapters play: it narrates, calls the component by the names of its members, and shows rows and balances.
/// What is shown of a call is made of the name and the values that the call is made with.
class Stage {
public:
    Stage(Module& module, Connection& connection, std::ostream& out);

    Connection& connection() { return *connection_; }

    /// The date on which everything happens.
    Date today() const { return today_; }

    /// Numbers and prints a heading; `about` says in a sentence or two what happens and why.
    void chapter(std::string_view title, std::string_view about);

    /// A remark between two calls.
    void say(std::string_view remark);

    /// Runs a method and shows it with its result. Throws `Refused` with `Error` when it gives False.
    void call(std::string_view method, const Arguments& arguments = {});

    /// The same for a call that must be refused: shows its `Error`, and throws `Refused` when it gives True.
    void refused_call(std::string_view method, const Arguments& arguments);

    /// Assigns a record to a property and shows its fields that are not empty, or those that `before` does not have
    /// alike.
    template <class R>
    void let(std::string_view property, const R& record, const R& before = {}) {
        assign(property, record, before);
    }

    /// Shows a record in a variable, which a call may pass.
    template <class R>
    Argument variable(std::string_view name, const R& record) {
        show_assignment(name, record, R{});
        return {name, record};
    }

    /// Reads a property, or a field of a record in it ("RpEncabezado.Rp_Folio"), and shows its value.
    std::string get(std::string_view path);

    /// The same, silently.
    std::string peek(std::string_view path);

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

    enum class Block { calls, other };

    /// Between two blocks stands one empty line; calls that follow each other are one block.
    std::ostream& begin(Block block);

    bool run(std::string_view method, const Arguments& arguments);
    std::string ask(std::string_view path);
    void assign(std::string_view property, const automation::Record& record, const automation::Record& before);
    void show_assignment(std::string_view name, const automation::Record& record, const automation::Record& before);
    void show_line(std::string_view line);
    void show_result(std::string_view text);

    Connection* connection_;
    std::ostream* out_;
    automation::Object tesoreria_;
    Date today_;
    std::vector<Balance> first_balances_;
    std::vector<Balance> balances_;
    int chapter_ = 0;
    Block last_block_ = Block::other;
};

// The chapters, in their order.
void receipt_chapter(Stage& stage);
void closing_chapter(Stage& stage);
void deposit_chapter(Stage& stage);
void check_chapter(Stage& stage);
void budget_chapter(Stage& stage);
void application_chapter(Stage& stage);
void way_back_chapter(Stage& stage);

}  // namespace cuvexa::cli
