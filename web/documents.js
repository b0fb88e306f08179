// Documentos: find one among all of its kind.
import { read } from "./api.js";
import { folioColumn, keyOf, linked } from "./cells.js";
import { h } from "./dom.js";
import { number } from "./format.js";
import { hasAccount, hasBranch, isFigure, kinds, listColumns, statesOf } from "./labels.js";
import { field, input, readAll, select, stateSelect } from "./parts.js";
import { go, to, toDocument } from "./router.js";
import { Long_table } from "./table.js";

const rowsOfPage = 100;
const folioLetters = /^[\p{L}\p{N}][\p{L}\p{N}_./-]*\d$/u;

function menu(kind) {
    const names = Object.keys(kinds).filter((name) => name !== "accounts");
    return h(
        "nav",
        { class: "kinds", "aria-label": "Clases de documentos" },
        h(
            "ul",
            {},
            names.map((name) =>
                h(
                    "li",
                    {},
                    h(
                        "a",
                        { href: to(["documentos", name]), "aria-current": name === kind ? "page" : null },
                        kinds[name].title,
                    ),
                ),
            ),
        ),
    );
}

/** The document of exactly that folio; those next to it are read in the order of folios, and it is among them or nowhere. */
async function documentOf(kind, folio, options) {
    if (!folioLetters.test(folio)) return undefined;
    const near = await read(kind, { order: "folio", after: JSON.stringify([folio.slice(0, -1)]), limit: 12 }, options);
    const name = keyOf(kind);
    return near.rows.find((row) => row[name].toUpperCase() === folio.toUpperCase())?.[name];
}

/** The amount as somebody writes it: 1,234.50. */
function amountOf(text) {
    const plain = text.replaceAll(/[$\s,]/g, "");
    return /^-?\d+(\.\d+)?$/.test(plain) ? plain : undefined;
}

function filters(kind, query, accounts, options) {
    const texts = {
        text: input(query.text, { type: "search", maxlength: 200, placeholder: "Folio, nombre, referencia…" }),
        amount: input(query.amount, { inputmode: "decimal", maxlength: 20 }),
        state: stateSelect(query.state, statesOf[kind]),
        from: input(query.from, { type: "date" }),
        to: input(query.to, { type: "date" }),
        branch: hasBranch(kind) ? input(query.branch, { maxlength: 20, size: 6 }) : undefined,
        account: hasAccount(kind)
            ? select(query.account, [
                  ["", "Todas"],
                  ...accounts.map((each) => [each.Bc_Cve_Banco_Cuenta, each.Bc_Cve_Banco_Cuenta]),
              ])
            : undefined,
    };
    const submit = async (event) => {
        event.preventDefault();
        const amount = amountOf(texts.amount.value);
        texts.amount.setCustomValidity(
            texts.amount.value && amount === undefined ? "Escriba una cantidad: 1,234.50" : "",
        );
        texts.from.setCustomValidity(
            texts.from.value && texts.to.value && texts.from.value > texts.to.value
                ? "El inicio está después del fin"
                : "",
        );
        if (!event.target.reportValidity()) return;
        const asked = Object.fromEntries(
            Object.entries(texts)
                .filter(([, each]) => each)
                .map(([name, each]) => [name, each.value.trim()]),
        );
        asked.amount = amount;
        const folio = await documentOf(kind, asked.text, options).catch(() => undefined);
        go(folio ? toDocument(kind, folio) : to(["documentos", kind], asked));
    };
    for (const each of Object.values(texts))
        each?.addEventListener("input", () =>
            [texts.amount, texts.from].forEach((other) => other.setCustomValidity("")),
        );
    return h(
        "form",
        { class: "filters", submit, role: "search", "aria-label": kinds[kind].title },
        field("texto", "Buscar", texts.text),
        field("importe", "Importe", texts.amount),
        field("estado", "Estado", texts.state),
        field("desde", "Desde", texts.from),
        field("hasta", "Hasta", texts.to),
        texts.branch && field("sucursal", "Sucursal", texts.branch),
        texts.account && field("cuenta", "Cuenta", texts.account),
        h(
            "p",
            {},
            h("button", { type: "submit", id: "buscar" }, "Buscar"),
            " ",
            h("a", { class: "clear", href: to(["documentos", kind]) }, "Limpiar"),
        ),
    );
}

/**
 * Pages until one has rows or the list ends: an answer looks at ten thousand documents at most, and may have found nothing among them.
 */
function loaderOf(kind, query, told, options) {
    let looked = 0;
    return async (behind) => {
        for (let after = behind; ; ) {
            const page = await read(kind, { ...query, limit: rowsOfPage, after }, options);
            if (page.rows.length > 0 || !page.next) return page;
            looked += 10_000;
            told({ looked });
            after = page.next;
        }
    };
}

function countOf({ count, whole, looked }) {
    if (looked) return `Se han revisado ${number(looked)} documentos…`;
    if (count === 0) return whole ? "Ninguno" : "Leyendo…";
    return `${number(count)}${whole ? "" : " o más"} ${count === 1 && whole ? "documento" : "documentos"}`;
}

function columnsOf(kind) {
    const [folio, date, ...others] = listColumns(kind);
    const first = folioColumn(folio.name, date.name);
    return [
        first,
        linked(date.name, { room: 3 }),
        ...others.map(({ name, room }) => linked(name, { room, figure: isFigure(name) })),
    ];
}

export async function documentsView({ steps: [, kind], query }, options) {
    const known = ["text", "amount", "state", "from", "to", "branch", "account"];
    const asked = Object.fromEntries(Object.entries(query).filter(([name]) => known.includes(name)));
    const accounts = hasAccount(kind) ? await readAll("accounts", {}, options) : [];
    const count = h("p", { class: "count", role: "status" }, "Leyendo…");
    const told = (news) => {
        count.classList.toggle("warning", Boolean(news.error));
        count.textContent = news.error ? news.error.message : countOf(news);
    };
    const rows = new Long_table({
        caption: kinds[kind].title,
        columns: columnsOf(kind),
        load: loaderOf(kind, asked, told, options),
        told,
        empty: "Ningún documento es así.",
    });
    return {
        title: kinds[kind].title,
        kind: "Documentos",
        content: [
            menu(kind),
            filters(kind, asked, accounts, options),
            h("div", { class: "bar" }, count),
            h("div", { class: kind }, rows.element),
        ],
        begin: () => rows.more(),
        end: () => rows.end(),
    };
}
