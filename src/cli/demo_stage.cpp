#include <algorithm>

#include "cli/command.h"
#include "cli/demo.h"
#include "cuvexa/suite/audit.h"

namespace cuvexa::cli {

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

/// A field that is no record, as a program writes it.
std::string simple_text(const Place& place) {
    if (const auto* flag = std::get_if<bool*>(&place)) return **flag ? "True" : "False";
    if (const auto* number = std::get_if<double*>(&place)) return number_text(**number);
    if (const auto* date = std::get_if<Date*>(&place)) return iso_date(**date);
    return in_quotes(*std::get<std::string*>(place));
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

}  // namespace

Stage::Stage(Module& module, Connection& connection, std::ostream& out)
    : connection_(&connection), out_(&out), tesoreria_(module), today_(day_of(module.data().GetServerDate())) {
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

void Stage::wrote(std::string_view line) {
    begin(Block::calls) << "   > " << wrapped(line, "       ") << '\n';
}

void Stage::value(std::string_view written, const std::string& result) {
    wrote(written);
    *out_ << indented(result, "     ") << '\n';
}

void Stage::call(std::string_view written, bool result) {
    value(written, result ? "True" : "False");
    if (!result) throw Refused(tesoreria_.Error());
}

void Stage::refused_call(std::string_view written, bool result) {
    value(written, result ? "True" : "False");
    if (result) throw Refused("Se esperaba un rechazo: " + std::string(written));
    value("Error", tesoreria_.Error());
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
        if (difference > 0.005 || difference < -0.005)
            throw Refused("El saldo no volvió a ser el del principio: " + now[i].key);
    }
}

void Stage::audit() {
    const auto findings = cuvexa::audit(*connection_);
    if (findings.empty()) return say("Auditoría: todo cuadra.");
    say("Auditoría:");
    for (const Finding& finding : findings) value(finding.document, finding.figures + "\n" + finding.remedy);
}

std::string Stage::fields_text(Record_place place, Record_place before) {
    std::string text;
    const auto add = [&](std::string_view name, const std::string& value) {
        if (!text.empty()) text += ", ";
        text += std::string(name) + ": " + value;
    };
    for (const Field& field : place.type->fields) {
        const Place now = field.place(place.record);
        const Place then = field.place(before.record);
        if (const auto* record = std::get_if<Record_place>(&now)) {
            const std::string inner = fields_text(*record, std::get<Record_place>(then));
            if (!inner.empty()) add(field.name, '{' + inner + '}');
        } else if (const std::string value = simple_text(now); value != simple_text(then)) {
            add(field.name, value);
        }
    }
    return text;
}

std::string in_quotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

}  // namespace cuvexa::cli
