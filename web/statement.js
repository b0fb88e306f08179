// Estado de cuenta: what moved an account, with the balance after each movement.
import { Failure, ask, pathOf, read } from "./api.js";
import { folioColumn, linked } from "./cells.js";
import { balanceChart } from "./chart.js";
import { data, h, save, say } from "./dom.js";
import { amount, date, daysAfter, isDay, longDate, number, today } from "./format.js";
import { field, figure, input, lastDays, stateSelect } from "./parts.js";
import { go, to } from "./router.js";
import { everyDay } from "./sparkline.js";
import { Long_table, column } from "./table.js";

const rowsOfPage = 200;
const mostPrinted = 5000;
const mostDays = 3660;

async function periodOf(query, options) {
    const { desde, hasta } = query;
    if (isDay(desde) && isDay(hasta) && desde <= hasta) return { from: desde, to: hasta };
    return lastDays(options);
}

const addressOf = (key, { from, to: until }, state) =>
    to(["cuentas", key], { desde: from, hasta: until, estado: state });

// ---- Its parts --------------------------------------------------------------------------------------------------------

function filters(key, period, state) {
    const from = input(period.from, { type: "date", required: true });
    const until = input(period.to, { type: "date", required: true });
    const states = stateSelect(state, ["TR", "FI", "CA"], "Todos los vigentes");
    const submit = (event) => {
        event.preventDefault();
        from.setCustomValidity(from.value > until.value ? "El inicio está después del fin" : "");
        if (event.target.reportValidity()) go(addressOf(key, { from: from.value, to: until.value }, states.value));
    };
    from.addEventListener("input", () => from.setCustomValidity(""));
    until.addEventListener("input", () => from.setCustomValidity(""));
    return h(
        "form",
        { class: "filters", submit, "aria-label": "Periodo y estado" },
        field("desde", "Desde", from),
        field("hasta", "Hasta", until),
        field("estado", "Movimientos", states),
        h("p", {}, h("button", { type: "submit", id: "ver" }, "Ver")),
        h(
            "p",
            { class: "shortcuts" },
            shortcuts(period.to).map(([text, other]) => h("a", { href: addressOf(key, other, state) }, text)),
        ),
    );
}

function shortcuts(day) {
    const now = today();
    return [
        ["30 días", { from: daysAfter(day, -29), to: day }],
        ["90 días", { from: daysAfter(day, -89), to: day }],
        ["Un año", { from: daysAfter(day, -365), to: day }],
        ["Hasta hoy", { from: daysAfter(now, -89), to: now }],
    ];
}

function sums(daily) {
    return {
        in: daily.days.reduce((sum, day) => sum + day.in, 0),
        out: daily.days.reduce((sum, day) => sum + day.out, 0),
    };
}

function figuresOf(daily, currency) {
    const moved = sums(daily);
    return h(
        "dl",
        { class: "stats card", id: "figures" },
        figure("Saldo inicial", daily.opening.balance, currency),
        figure("Entradas", moved.in),
        figure("Salidas", moved.out),
        figure("Saldo final", daily.closing.balance, currency),
        figure("En firme", daily.closing.firm),
        figure("En tránsito", daily.closing.balance - daily.closing.firm),
    );
}

function accountLine(account) {
    return h(
        "p",
        { class: "lead" },
        data(account.Bc_Cve_Banco_Cuenta),
        " · ",
        data(account.Bn_Descripcion),
        " · número ",
        data(account.Bc_Cuenta),
        " · hoy ",
        h("strong", {}, amount(account.Bc_Saldo)),
        " ",
        data(account.Mn_Cve_Moneda),
        ", de ellos ",
        amount(account.Saldo_Transito ?? 0),
        " en tránsito · saldo del banco ",
        amount(account.Bn_Saldo),
    );
}

const common = [
    folioColumn("Bm_Folio", "Bm_Fecha", "Bm_Documento"),
    column("Bm_Fecha", { room: 3 }),
    linked("Bm_Documento", { room: 3, title: "Documento" }),
    column("Bm_Comentario", {
        room: 3,
        title: "Concepto",
        cell: (row) => data(row.Bm_Comentario || row.Bt_Descripcion || row.Bt_Cve_Banco_Tipo_Movimiento),
    }),
    column("Bm_Referencia", { room: 3 }),
    column("Bm_Importe"),
];
const withBalance = [...common, column("Saldo"), column("Es_Cve_Estado", { room: 2 })];
const withoutBalance = [...common, column("Es_Cve_Estado", { room: 1 })];

// ---- The page ---------------------------------------------------------------------------------------------------------

/** What the table shows: the statement, or of a single state the list of movements, which has no running balance. */
function sourceOf(key, period, state) {
    if (state === "") return { path: pathOf("accounts", key, "statement"), query: period, columns: withBalance };
    return { path: "movements", query: { ...period, account: key, state }, columns: withoutBalance };
}

function countOf({ count, whole }) {
    if (count === 0) return whole ? "Sin movimientos" : "Leyendo…";
    return `${number(count)} ${count === 1 ? "movimiento" : "movimientos"}${whole ? "" : ", y sigue"}`;
}

async function csvOf({ path, query }, options) {
    const parts = [];
    for (let after; ; ) {
        const answer = await ask(path, { ...query, limit: 1000, after }, { ...options, accept: "text/csv" });
        const text = await answer.text();
        parts.push(after === undefined ? text : text.slice(text.indexOf("\r\n") + 2));
        after = answer.headers.get("Cuvexa-Next");
        if (!after) return new Blob(["\ufeff", ...parts], { type: "text/csv;charset=utf-8" });
        say(`${number(parts.length * 1000)} movimientos leídos`);
    }
}

async function pdfOf(key, period, options) {
    const path = pathOf("accounts", key, "statement");
    return (await ask(path, period, { ...options, accept: "application/pdf" })).blob();
}

function chartOf(daily, period) {
    const length = (Date.parse(period.to) - Date.parse(period.from)) / 86_400_000;
    const days = everyDay(daily, period.from, period.to);
    const values = days.map((day) => day.balance);
    const words =
        `Saldo por día del ${longDate(period.from)} al ${longDate(period.to)}: empieza en ` +
        `${amount(daily.opening.balance)}, termina en ${amount(daily.closing.balance)}; el menor es ` +
        `${amount(Math.min(...values))} y el mayor ${amount(Math.max(...values))}.`;
    return length < mostDays ? balanceChart(days, words) : { element: null, end() {} };
}

/** Buttons for what takes a while: one at a time, and a failure is told. */
function worker(told) {
    return (text, work) => {
        const button = h("button", { type: "button", class: "plain" }, text);
        button.addEventListener("click", async () => {
            button.disabled = true;
            try {
                await work();
            } catch (error) {
                if (error.name !== "AbortError") told({ error });
            } finally {
                button.disabled = false;
            }
        });
        return button;
    };
}

export async function statementView({ steps: [, key], query }, options) {
    const period = await periodOf(query, options);
    const state = ["TR", "FI", "CA"].includes(query.estado) ? query.estado : "";
    const source = sourceOf(key, period, state);
    const [account, daily] = await Promise.all([
        read(pathOf("accounts", key), {}, options),
        read(pathOf("accounts", key, "balances"), period, options),
    ]);

    const count = h("p", { class: "count", role: "status" }, "Leyendo…");
    const told = (news) => {
        count.classList.toggle("warning", Boolean(news.error));
        count.textContent = news.error ? news.error.message : countOf(news);
    };
    const rows = new Long_table({
        caption: "Movimientos",
        columns: source.columns,
        load: (after) => read(source.path, { ...source.query, limit: rowsOfPage, after }, options),
        told,
        empty: "No hay movimientos en este periodo.",
    });
    const chart = chartOf(daily, period);
    const name = `estado-de-cuenta-${key}-${period.from}-${period.to}`.replace(/[^\w.-]/g, "_");
    const button = worker(told);
    const print = async () => {
        await rows.all(mostPrinted);
        if (rows.whole) window.print();
        else
            told({
                error: new Failure(
                    0,
                    `Son más de ${number(mostPrinted)} movimientos: descargue el PDF o un periodo menor.`,
                ),
            });
    };
    return {
        title: account.Bc_Descripcion || key,
        kind: "Estado de cuenta",
        back: { href: to(["cuentas"]), text: "Cuentas" },
        content: [
            accountLine(account),
            filters(key, period, state),
            h("p", { class: "printed" }, `Del ${date(period.from)} al ${date(period.to)}, impreso el ${date(today())}`),
            figuresOf(daily, account.Mn_Cve_Moneda),
            chart.element,
            h(
                "div",
                { class: "bar" },
                count,
                h(
                    "div",
                    { class: "actions" },
                    button("Imprimir", print),
                    button("Descargar CSV", async () => save(await csvOf(source, options), `${name}.csv`)),
                    button("Descargar PDF", async () => save(await pdfOf(key, period, options), `${name}.pdf`)),
                ),
            ),
            rows.element,
        ],
        begin: () => rows.more(),
        end: () => {
            rows.end();
            chart.end();
        },
    };
}
