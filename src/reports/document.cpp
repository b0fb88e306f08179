#include "reports/document.h"

#include <algorithm>

#include "core/codes.h"
#include "reports/conditions.h"
#include "reports/document_links.h"
#include "reports/lists.h"

namespace cuvexa::reports {

namespace {

constexpr std::string_view lists_of_a_page[] = {"movements", "receivables", "payables", "advances", "vouchers"};

constexpr Column payment_columns[] = {
    {"kind", "Cuenta"},
    {"Folio", "Folio"},
    {"Pc_ID", "Pago"},
    {"Pc_Fecha", "Fecha", Column_kind::date},
    {"Pc_Importe", "Importe", Column_kind::amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Pc_Tabla", "Documento"},
    {"Pc_Documento", "Folio del documento"},
    {"Es_Cve_Estado", "Estado"},
};

/// What a row tells of its own life.
struct Marks {
    std::string state, captured_by, changed_by, retired_by, captured, changed, retired;
};

Marks marks_of(const Source& source, const View& view, const std::string& folio) {
    std::string statement =
        "SELECT TOP 1 Es_Cve_Estado, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, "
        "Oper_Baja, Fecha_Baja FROM ";
    statement.append(view.table).append(" WHERE ").append(view.key).append(" = ").append(sql_quoted(folio));
    const Rows row = source.query(statement.append(" ORDER BY ").append(view.order));
    return {row.text("Es_Cve_Estado"),          row.text("Oper_Alta"),
            row.text("Oper_Ult_Modif"),         row.text("Oper_Baja"),
            date_text(row.value("Fecha_Alta")), date_text(row.value("Fecha_Ult_Modif")),
            date_text(row.value("Fecha_Baja"))};
}

// ---- What happened to it ----------------------------------------------------------------------------------------

Event captured(const Document_links& links, const Marks& marks) {
    const bool as_it_was = marks.changed.empty() || marks.changed == marks.captured;
    std::string state(links.initial_state);
    if (state.empty() && as_it_was && marks.state != state::cancelled) state = marks.state;
    return {"Captura", marks.captured_by, marks.captured, state};
}

/// A registration that led to another state did so when that state, or one that follows it, is there now.
std::string registered(const Document_links& links, const Marks& marks) {
    const bool led = marks.state == links.registered_state || marks.state == state::applied_and_deposited;
    return led ? std::string(links.registered_state) : std::string();
}

void add_registration(const Source& source, const View& view, const std::string& folio, const std::string& state,
                      std::vector<Event>& life) {
    const Rows row = source.query("SELECT Oper_Alta, Fecha_Alta FROM Documento_Registrado WHERE Dr_Documento = " +
                                  sql_quoted(folio) + " AND Dr_Codigo = " + sql_quoted(view.code));
    if (row.eof()) return;
    life.push_back({"Registro", row.text("Oper_Alta"), date_text(row.value("Fecha_Alta")), state});
}

void add_events(const Source& source, const Event_source& from, const std::string& folio, std::vector<Event>& life) {
    for (Rows row = source.query(with_folio(from.query, folio)); !row.eof(); row.next()) {
        Event event{std::string(from.name), row.text("Quien"), date_text(row.value("Cuando")), row.text("Estado")};
        if (!from.view.empty()) event.document = {from.view, row.text("Folio")};
        life.push_back(std::move(event));
    }
}

std::string name_of_change(const View& view, const std::string& state) {
    static constexpr std::pair<std::string_view, const char*> names[] = {
        {state::applied, "Aplicación"}, {state::deposited, "Depósito"},     {state::applied_and_deposited, "Depósito"},
        {state::firm, "En firme"},      {state::in_transit, "En tránsito"}, {state::waiting, "Por autorizar"},
        {state::closed, "Cierre"},      {state::cancelled, "Cancelación"},
    };
    const auto* const known =
        std::find_if(std::begin(names), std::end(names), [&](const auto& each) { return each.first == state; });
    if (known != std::end(names)) return known->second;
    return view.code == document::check_request ? "Autorización" : "Reactivación";
}

/// The state it is in now, when nothing that happened before led to it.
void add_present_state(const View& view, const Marks& marks, std::vector<Event>& life) {
    const auto last = std::find_if(life.rbegin(), life.rend(), [](const Event& event) { return !event.state.empty(); });
    if (last != life.rend() && last->state == marks.state) return;
    const bool retired = marks.state == state::cancelled && !marks.retired.empty();
    life.push_back({name_of_change(view, marks.state), retired ? marks.retired_by : marks.changed_by,
                    retired ? marks.retired : marks.changed, marks.state});
}

std::vector<Event> life_of(const Source& source, const View& view, const std::string& folio, const Marks& marks) {
    const Document_links& links = links_of(view.name);
    std::vector<Event> life{captured(links, marks)};
    add_registration(source, view, folio, registered(links, marks), life);
    for (const Event_source& from : links.events) add_events(source, from, folio, life);
    std::stable_sort(life.begin(), life.end(), [](const Event& a, const Event& b) { return a.when < b.when; });
    add_present_state(view, marks, life);
    return life;
}

// ---- Where it leads ---------------------------------------------------------------------------------------------

/// Collects what belongs to a document: each address is a link once, each row stands in its list once.
class Related {
public:
    Related(const Source& source, Document& document) : source_(source), document_(document) {
        for (const std::string_view name : lists_of_a_page) {
            document.related.push_back({name, {find_view(name)->columns}});
        }
        document.related.push_back({"payments", {payment_columns}});
    }

    void link(std::string_view relation, Address to) {
        const bool itself = to == Address{document_.view->name, document_.folio};
        const bool known = std::any_of(document_.links.begin(), document_.links.end(),
                                       [&](const Link& link) { return link.to == to; });
        if (!itself && !known) document_.links.push_back({std::string(relation), std::move(to)});
    }

    /// The document, or account, that two columns of a row name; a withdrawn one's code has its folio behind it.
    void link_named(std::string_view relation, const std::string& code, const std::string& folio) {
        const View* view = find_view_of_code(code.substr(0, code.find("-CA:")));
        if (view != nullptr && !folio.empty()) link(relation, {view->name, folio});
    }

    void add(const Relation& relation) {
        const View& view = *find_view(relation.view);
        for (Row& row : read_rows_where(source_, view, '(' + with_folio(relation.condition, document_.folio) + ')',
                                        related_documents)) {
            const Address to{view.name, to_text(value_in(row, view.columns, view.key))};
            const bool known = std::any_of(document_.links.begin(), document_.links.end(),
                                           [&](const Link& link) { return link.to == to; });
            link(relation.name, to);
            if (Related_rows* rows = list(view.name); rows != nullptr && !known) {
                rows->table.rows.push_back(std::move(row));
            }
        }
    }

    void add_payments(const std::string& statement) {
        for (Row& row : read_rows(*source_.connection.execute(statement), payment_columns)) {
            const auto text = [&](std::string_view name) { return to_text(value_in(row, payment_columns, name)); };
            const View* view = find_view(text("kind"));
            link("Pago", {view->name, text("Folio")});
            link_named("Pago", text("Pc_Tabla"), text("Pc_Documento"));
            list("payments")->table.rows.push_back(std::move(row));
        }
    }

    void read_voucher_lines() {
        const View& vouchers = *find_view("vouchers");
        Related_rows& rows = *list(vouchers.name);
        for (const Row& row : rows.table.rows) {
            rows.lines.push_back(read_view(source_, *find_line_view(vouchers.name),
                                           to_text(value_in(row, vouchers.columns, vouchers.key))));
        }
    }

private:
    Related_rows* list(std::string_view name) {
        const auto found = std::find_if(document_.related.begin(), document_.related.end(),
                                        [&](const Related_rows& rows) { return rows.name == name; });
        return found == document_.related.end() ? nullptr : &*found;
    }

    const Source& source_;
    Document& document_;
};

std::string payments_of(std::string_view kind, std::string_view table, std::string_view key,
                        const std::string& condition) {
    std::string statement = "SELECT TOP " + std::to_string(related_documents) + " '";
    statement.append(kind).append("' AS kind, ").append(key);
    statement += " AS Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tabla, Pc_Documento, Es_Cve_Estado FROM ";
    return statement.append(table)
        .append(" WHERE ")
        .append(condition)
        .append(" ORDER BY ")
        .append(key)
        .append(", Pc_ID");
}

void relate(const Source& source, Document& document) {
    const View& view = *document.view;
    const Document_links& links = links_of(view.name);
    Related related(source, document);
    const auto column = [&](std::string_view name) { return to_text(value_in(document.header, view.columns, name)); };
    if (!view.account.empty() && !column(view.account).empty()) {
        related.link("Cuenta", {"accounts", column(view.account)});
    }
    if (!links.named.code.empty()) {
        related.link_named("Documento", column(links.named.code), column(links.named.folio));
    }
    for (const Relation& relation : links.relations) related.add(relation);

    const std::string own = with_folio(links.paid_where, document.folio);
    const std::string made =
        "Pc_Documento = " + sql_quoted(document.folio) + " AND Pc_Tabla = " + sql_quoted(view.code);
    if (own.empty() || view.name == "receivables") {
        related.add_payments(payments_of("receivables", "Pago_Cxc", "Cxc_Folio", own.empty() ? made : own));
    }
    if (own.empty() || view.name == "payables") {
        related.add_payments(payments_of("payables", "Pago_Cxp", "Cxp_Folio", own.empty() ? made : own));
    }
    related.read_voucher_lines();
}

}  // namespace

std::optional<Document> read_document(const Source& source, const View& view, const std::string& folio) {
    auto header = read_document_row(source, view, folio);
    if (!header) return std::nullopt;
    Document document;
    document.view = &view;
    document.folio = to_text(value_in(*header, view.columns, view.key));
    document.header = std::move(*header);
    document.state = to_text(value_in(document.header, view.columns, view.state));
    if (const View* lines = find_line_view(view.name)) document.lines = read_view(source, *lines, folio);
    document.life = life_of(source, view, folio, marks_of(source, view, folio));
    relate(source, document);
    return document;
}

}  // namespace cuvexa::reports
