// A document's page: what it says, what happened to it, what it moved and owes, and the ways to other documents.
import { pathOf, read } from "./api.js";
import { cell, filledColumns, linked } from "./cells.js";
import { data, h } from "./dom.js";
import { amount, moment } from "./format.js";
import { heading, kinds, state } from "./labels.js";
import { to, toDocument } from "./router.js";
import { table } from "./table.js";

function life(events) {
    return section(
        "life",
        "Vida del documento",
        h(
            "ol",
            { class: "life" },
            events.map((event) =>
                h(
                    "li",
                    { "data-state": event.state },
                    h("span", { class: "event" }, data(event.event)),
                    " ",
                    state(event.state),
                    h(
                        "span",
                        { class: "detail" },
                        event.who ? [data(event.who), ", "] : null,
                        data(moment(event.when)),
                    ),
                    event.document
                        ? h(
                              "a",
                              { class: "detail", href: toDocument(event.document.kind, event.document.folio) },
                              data(event.document.folio),
                          )
                        : null,
                ),
            ),
        ),
    );
}

function header(document, leads) {
    const filled = Object.entries(document.header).filter(([, value]) => value !== null && value !== "");
    return section(
        "header",
        "Datos",
        h(
            "dl",
            { class: "header" },
            filled.map(([name]) =>
                h(
                    "div",
                    { "data-column": name },
                    h("dt", {}, heading(name)),
                    h("dd", {}, cell(document.header, name, leads)),
                ),
            ),
        ),
    );
}

function section(id, title, content) {
    return h("section", { id }, h("h2", {}, title), content);
}

function rowsSection(id, title, rows, options) {
    return rows.length ? section(id, title, table(title, filledColumns(rows, options), rows)) : null;
}

/** Payments name the receivable or payable that they pay by its kind. */
function payments(rows, options) {
    if (rows.length === 0) return null;
    const { leads } = options;
    const named = (row) => ({ kind: row.kind, folio: row.Folio });
    const paid = linked("Folio", {
        title: "Cuenta",
        cell: (row) =>
            leads(named(row)) ? h("a", { href: toDocument(row.kind, row.Folio) }, data(row.Folio)) : data(row.Folio),
    });
    return section(
        "payments",
        "Pagos",
        table("Pagos", [paid, ...filledColumns(rows, { ...options, without: ["kind", "Folio"] })], rows),
    );
}

function voucher(row) {
    const without = ["Pz_Folio", "Pz_Fecha", "Pz_Tabla", "Pz_Documento", "Es_Cve_Estado"];
    return h(
        "article",
        { class: "voucher" },
        h(
            "h3",
            {},
            h("a", { href: toDocument("vouchers", row.Pz_Folio) }, data(row.Pz_Folio)),
            " ",
            state(row.Es_Cve_Estado),
        ),
        h("p", { class: "quiet" }, data(row.Pz_Concepto), " · ", amount(row.Importe)),
        row.lines.length
            ? table(
                  `Renglones de la póliza ${row.Pz_Folio}`,
                  filledColumns(row.lines, { leads: () => false, without }),
                  row.lines,
              )
            : null,
    );
}

function vouchers(rows) {
    return rows.length ? section("vouchers", "Pólizas", rows.map(voucher)) : null;
}

function links(all) {
    if (all.length === 0) return null;
    return section(
        "links",
        "Documentos relacionados",
        h(
            "ul",
            { class: "links" },
            all.map((link) =>
                h(
                    "li",
                    {},
                    h("span", { class: "quiet" }, data(link.relation)),
                    " ",
                    h("a", { href: toDocument(link.kind, link.folio) }, data(link.folio)),
                ),
            ),
        ),
    );
}

/** The columns of lines that say again what the header says. */
function repeated(document) {
    return Object.keys(document.header).filter(
        (name) =>
            !["Es_Cve_Estado", "Rp_Folio_Deposito"].includes(name) &&
            document.lines.every((line) => line[name] === document.header[name]),
    );
}

export async function documentView({ steps: [, kind, folio] }, options) {
    const document = await read(pathOf(kind, folio), {}, options);
    const there = new Set(document.links.map((link) => `${link.kind}/${link.folio}`));
    const leads = (named) => there.has(`${named.kind}/${named.folio}`);
    const shown = { folio: document.folio, leads };
    return {
        title: [`${document.title} `, data(document.folio)],
        name: `${document.title} ${document.folio}`,
        kind: [kinds[kind].title, " ", state(document.state)],
        back: { href: to(["documentos", kind]), text: kinds[kind].title },
        content: [
            life(document.life),
            header(document, leads),
            rowsSection("lines", "Renglones", document.lines, { ...shown, without: repeated(document) }),
            rowsSection("movements", "Movimientos de banco", document.movements, shown),
            rowsSection("receivables", "Cuentas por cobrar", document.receivables, shown),
            rowsSection("payables", "Cuentas por pagar", document.payables, shown),
            rowsSection("advances", "Anticipos", document.advances, shown),
            payments(document.payments, shown),
            vouchers(document.vouchers),
            links(document.links),
        ],
    };
}
