#include <stdexcept>

#include "automation/invoke.h"
#include "cli/command.h"
#include "cli/demo.h"
#include "cuvexa/suite/audit.h"

namespace cuvexa::cli {

using namespace automation;

namespace {

constexpr Column balance_columns[] = {
    {"", "Cuenta o banco"},
    {"", "Descripción"},
    {"", "Moneda"},
    {"", "Antes", Column_kind::amount},
    {"", "Cambio", Column_kind::amount},
    {"", "Después", Column_kind::amount},
};

constexpr std::size_t line_width = 116;

/// Broken at blanks, so that a long line stays readable.
std::string wrapped(std::string_view line, std::string_view indent) {
    std::string lines;
    while (display_width(line) + indent.size() > line_width) {
        std::size_t end = line.rfind(' ', line_width - indent.size());
        if (end == std::string_view::npos || end == 0) break;
        lines += line.substr(0, end);
        lines += '\n';
        lines += indent;
        line.remove_prefix(end + 1);
    }
    return lines.append(line);
}

std::string indented(std::string_view text, std::string_view indent) {
    std::string lines(indent);
    for (const char c : text) {
        if (c == '\r') continue;
        lines += c;
        if (c == '\n') lines += indent;
    }
    return lines;
}

std::string call_text(std::string_view method, const Arguments& arguments) {
    std::string text;
    for (const Argument& argument : arguments) text.append(text.empty() ? "" : ", ").append(argument.text);
    return std::string(method) + '(' + text + ')';
}

Place field_named(std::string_view name, Record& record) {
    const Record_place place = place_of(record);
    for (const Field& field : place.type->fields) {
        if (field.name == name) return field.place(place.record);
    }
    throw std::out_of_range("no field " + std::string(name));
}

}  // namespace

Stage::Stage(Module& module, Connection& connection, std::ostream& out)
    : connection_(&connection),
      out_(&out),
      tesoreria_(find_class("Tesoreria")->create(module)),
      today_(day_of(module.data().GetServerDate())) {
    first_balances_ = balances_ = read_balances();
}

std::ostream& Stage::begin(Block block) {
    if (block == Block::other || last_block_ == Block::other) *out_ << '\n';
    last_block_ = block;
    return *out_;
}

void Stage::chapter(std::string_view title, std::string_view about) {
    begin(Block::other) << ++chapter_ << ". " << title << "\n\n" << indented(about, "   ") << '\n';
}

void Stage::say(std::string_view remark) {
    begin(Block::other) << indented(remark, "   ") << '\n';
}

void Stage::show_line(std::string_view line) {
    begin(Block::calls) << "   > " << wrapped(line, "       ") << '\n';
}

void Stage::show_result(std::string_view text) {
    *out_ << indented(text, "     ") << '\n';
}

void Stage::show_assignment(std::string_view name, const Record& record, const Record& before) {
    show_line(std::string(name) + " = " + written(record, before));
}

void Stage::assign(std::string_view property, const Record& record, const Record& before) {
    show_assignment(property, record, before);
    std::vector<Variant> value{record};
    Invoke(*tesoreria_, property, Member_kind::property_let, value);
}

bool Stage::run(std::string_view method, const Arguments& arguments) {
    show_line(call_text(method, arguments));
    std::vector<Variant> values;
    for (const Argument& argument : arguments) values.push_back(argument.value);
    const Variant result = Invoke(*tesoreria_, method, Member_kind::method, values);
    if (!is_missing(result)) show_result(written(result));
    return result != Variant(false);
}

void Stage::call(std::string_view method, const Arguments& arguments) {
    if (!run(method, arguments)) throw Refused(peek("Error"));
}

void Stage::refused_call(std::string_view method, const Arguments& arguments) {
    if (run(method, arguments)) throw Refused("Se esperaba un rechazo: " + call_text(method, arguments));
    show_result(ask("Error"));
}

std::string Stage::get(std::string_view path) {
    std::string text = ask(path);
    show_result(written(text));
    return text;
}

std::string Stage::ask(std::string_view path) {
    show_line(path);
    return peek(path);
}

std::string Stage::peek(std::string_view path) {
    const std::size_t dot = path.find('.');
    std::vector<Variant> none;
    Variant value = Invoke(*tesoreria_, path.substr(0, dot), Member_kind::property_get, none);
    if (dot == std::string_view::npos) return std::get<std::string>(value);
    return *std::get<std::string*>(field_named(path.substr(dot + 1), std::get<Record>(value)));
}

void Stage::rows(std::string_view title, std::string_view statement, std::span<const Column> columns) {
    const auto recordset = connection_->execute(statement);
    begin(Block::other) << "   " << title << '\n';
    print_table(*out_, columns, read_rows(*recordset, columns), "     ");
}

std::vector<Stage::Balance> Stage::read_balances() {
    std::vector<Balance> found;
    const auto read = [&](std::string_view statement) {
        const auto rows = connection_->execute(statement);
        for (; !rows->eof(); rows->move_next()) {
            found.push_back({to_text(rows->field("Clave")), to_text(rows->field("Descripcion")),
                             to_text(rows->field("Moneda")), to_number(rows->field("Saldo"))});
        }
    };
    read(
        "SELECT Bc_Cve_Banco_Cuenta AS Clave, Bc_Descripcion AS Descripcion, Mn_Cve_Moneda AS Moneda, "
        "Bc_Saldo AS Saldo FROM Banco_Cuenta ORDER BY Bc_Cve_Banco_Cuenta");
    read(
        "SELECT Bn_Cve_Banco AS Clave, Bn_Descripcion AS Descripcion, '' AS Moneda, Bn_Saldo AS Saldo "
        "FROM Banco ORDER BY Bn_Cve_Banco");
    return found;
}

void Stage::balances() {
    auto now = read_balances();
    std::vector<Row> moved;
    for (std::size_t i = 0; i < now.size() && i < balances_.size(); ++i) {
        const double before = balances_[i].amount;
        if (now[i].amount == before) continue;
        moved.push_back({now[i].key, now[i].name, now[i].currency, before, now[i].amount - before, now[i].amount});
    }
    balances_ = std::move(now);
    if (moved.empty()) return say("Ningún saldo se movió.");
    begin(Block::other) << "   Saldos que se movieron\n";
    print_table(*out_, balance_columns, moved, "     ");
}

void Stage::require_first_balances() {
    const auto now = read_balances();
    for (std::size_t i = 0; i < now.size() && i < first_balances_.size(); ++i) {
        const double difference = now[i].amount - first_balances_[i].amount;
        if (difference > 0.005 || difference < -0.005) {
            throw Refused("El saldo no volvió a ser el del principio: " + now[i].key);
        }
    }
}

void Stage::audit() {
    const auto findings = cuvexa::audit(*connection_);
    if (findings.empty()) return say("Auditoría: todo cuadra.");
    say("Auditoría:");
    for (const Finding& finding : findings) {
        show_line(finding.document);
        show_result(finding.figures + "\n" + finding.remedy);
    }
}

}  // namespace cuvexa::cli
