// Cells that lead to documents.
import { kindOfCode, kinds, shown } from "./labels.js";
import { data, h } from "./dom.js";
import { toDocument } from "./router.js";
import { column } from "./table.js";

const keys = {
    Rp_Folio: "receipts",
    Dp_Folio: "deposits",
    Rp_Folio_Deposito: "deposits",
    Ch_Folio: "checks",
    Sch_Folio: "requests",
    Bm_Folio: "movements",
    Cxc_Folio: "receivables",
    Cxp_Folio: "payables",
    An_Folio: "advances",
    Pz_Folio: "vouchers",
    Bc_Cve_Banco_Cuenta: "accounts",
};

/** The column that holds the folio of a kind's documents. */
export const keyOf = (kind) => Object.keys(keys).find((name) => keys[name] === kind);

/** Of a withdrawn document the code has "-CA:" and a folio behind it. */
const codeIn = (text) => String(text ?? "").split("-CA:")[0];

/** The document that a cell names, as {kind, folio}; nothing when it names none. */
function documentIn(row, name) {
    const folio = row[name];
    if (typeof folio !== "string" || folio === "") return undefined;
    const named = /^(.*)_Documento$/.exec(name);
    const kind = named ? kindOfCode(codeIn(row[`${named[1]}_Tabla`])) : keys[name];
    return kind && { kind, folio };
}

/** What stands in a cell: a link where it names a document that `leads` lets pass. */
export function cell(row, name, leads = () => true) {
    const named = documentIn(row, name);
    if (named && leads(named)) return h("a", { href: toDocument(named.kind, named.folio) }, data(named.folio));
    if (/_Tabla$/.test(name)) return data(kinds[kindOfCode(codeIn(row[name]))]?.one ?? row[name]);
    return shown(name, row[name]);
}

export function linked(name, { leads, ...more } = {}) {
    return column(name, { cell: (row) => cell(row, name, leads), ...more });
}

/** The first column of a list: the folio, and below it, where the page is narrow, the date and what else is named. */
export function folioColumn(name, dateName, otherName) {
    const other = (row) => (otherName && row[otherName] ? [" · ", cell(row, otherName)] : null);
    const under = (row) => h("span", { class: "under" }, shown(dateName, row[dateName]), other(row));
    return column(name, { cell: (row) => [cell(row, name), under(row)] });
}

const says = (value, name) => value !== null && value !== "" && !(value === 1 && /_Tipo_Cambio$/.test(name));

/** The columns of a document's rows in which something stands that the page does not say already. */
export function filledColumns(rows, { folio, without = [], leads } = {}) {
    const ofDocument = (name) => {
        const source = /^(.*)_(Tabla|Documento)$/.exec(name)?.[1];
        return source !== undefined && rows.every((row) => row[`${source}_Documento`] === folio);
    };
    return Object.keys(rows[0] ?? {})
        .filter((name) => name !== "lines" && !without.includes(name) && !ofDocument(name))
        .filter((name) => rows.some((row) => says(row[name], name)))
        .map((name) => linked(name, { leads }));
}
