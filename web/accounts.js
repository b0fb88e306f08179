// Cuentas: where each account stands, and where it comes from.
import { data, h } from "./dom.js";
import { amount, longDate } from "./format.js";
import { state } from "./labels.js";
import { daysOfCharts, figure, lastDays, readAll } from "./parts.js";
import { read } from "./api.js";
import { toDocument } from "./router.js";
import { everyDay, sparkline } from "./sparkline.js";

/** What accounts sum up to, by the value of a column. */
function totals(accounts, column) {
    const sums = new Map();
    for (const account of accounts) {
        const sum = sums.get(account[column]) ?? { balance: 0, transit: 0, firm: 0, count: 0 };
        sum.balance += account.Bc_Saldo ?? 0;
        sum.transit += account.Saldo_Transito ?? 0;
        sum.firm += account.Saldo_Firme ?? 0;
        sum.count += 1;
        sums.set(account[column], sum);
    }
    return sums;
}

function totalsOfCurrencies(accounts) {
    const cards = [...totals(accounts, "Mn_Cve_Moneda")].map(([currency, sum]) =>
        h(
            "section",
            { class: "card total", "data-currency": currency },
            h("h2", {}, "Total en ", data(currency)),
            h(
                "dl",
                { class: "stats" },
                figure("Saldo", sum.balance),
                figure("En tránsito", sum.transit),
                figure("En firme", sum.firm),
            ),
            h("p", { class: "quiet" }, sum.count === 1 ? "1 cuenta" : `${sum.count} cuentas`),
        ),
    );
    return h("div", { class: "cards" }, cards);
}

const columns = ["Cuenta", `${daysOfCharts} días`, "En tránsito", "En firme", "Saldo"];

function cellOf(index, name, content) {
    const figures = index > 1;
    return h(
        "td",
        { role: "cell", class: figures ? "figure" : null, "data-label": columns[index], "data-column": name },
        content,
    );
}

/** The books say one thing and the movements another: what the audit explains. */
function mismatch(account) {
    const moved = (account.Saldo_Transito ?? 0) + (account.Saldo_Firme ?? 0);
    if (Math.abs(moved - (account.Bc_Saldo ?? 0)) < 0.005) return null;
    return h(
        "p",
        { class: "warning" },
        `Sus movimientos suman ${amount(moved)}: `,
        h("a", { href: "#/revision" }, "ver la revisión"),
    );
}

function line(daily, period) {
    const values = daily ? everyDay(daily, period.from, period.to).map((day) => day.balance) : [];
    if (values.length === 0) return null;
    const words = `De ${amount(values[0])} a ${amount(values.at(-1))}`;
    return [sparkline(values), h("span", { class: "visually-hidden" }, words)];
}

function rowOf(account, daily, period) {
    const key = account.Bc_Cve_Banco_Cuenta;
    return h(
        "tr",
        { role: "row", "data-account": key },
        h(
            "th",
            { role: "rowheader", scope: "row" },
            h("a", { href: toDocument("accounts", key) }, data(account.Bc_Descripcion || key)),
            h(
                "span",
                { class: "detail" },
                data(key),
                " · ",
                data(account.Bc_Cuenta),
                account.Es_Cve_Estado === "AC" ? null : [" ", state(account.Es_Cve_Estado)],
            ),
            mismatch(account),
        ),
        cellOf(1, "line", line(daily, period)),
        cellOf(2, "Saldo_Transito", amount(account.Saldo_Transito ?? 0)),
        cellOf(3, "Saldo_Firme", amount(account.Saldo_Firme ?? 0)),
        cellOf(4, "Bc_Saldo", [
            h("strong", {}, amount(account.Bc_Saldo)),
            " ",
            h("span", { class: "unit" }, data(account.Mn_Cve_Moneda)),
        ]),
    );
}

function bankOf(accounts, balances, period) {
    const [first] = accounts;
    return h(
        "tbody",
        { role: "rowgroup", "data-bank": first.Bn_Cve_Banco },
        h(
            "tr",
            { role: "row", class: "bank" },
            h(
                "th",
                { role: "rowheader", scope: "rowgroup", colspan: 3 },
                data(first.Bn_Descripcion || first.Bn_Cve_Banco),
            ),
            h(
                "td",
                { role: "cell", class: "figure", colspan: 2, "data-column": "Bn_Saldo" },
                h("span", { class: "quiet" }, "Saldo del banco "),
                amount(first.Bn_Saldo),
            ),
        ),
        accounts.map((account) => rowOf(account, balances.get(account.Bc_Cve_Banco_Cuenta), period)),
    );
}

/** In the order of their banks' names; of a bank, those in use first. */
function byBank(accounts) {
    const banks = new Map();
    for (const account of accounts) {
        if (!banks.has(account.Bn_Cve_Banco)) banks.set(account.Bn_Cve_Banco, []);
        banks.get(account.Bn_Cve_Banco).push(account);
    }
    const name = ([bank, [first]]) => String(first.Bn_Descripcion || bank);
    const inUse = (account) => (account.Es_Cve_Estado === "AC" ? 0 : 1);
    return [...banks]
        .sort((a, b) => name(a).localeCompare(name(b), "es"))
        .map(([, ofBank]) => ofBank.sort((a, b) => inUse(a) - inUse(b)));
}

export async function accountsView(place, options) {
    const [accounts, period] = await Promise.all([readAll("accounts", {}, options), lastDays(options)]);
    const { accounts: daily } = await read("balances", period, options);
    const balances = new Map(daily.map((each) => [each.account, each]));
    const table = h(
        "table",
        { role: "table", class: "accounts" },
        h("caption", { class: "visually-hidden" }, "Cuentas por banco"),
        h(
            "thead",
            { role: "rowgroup" },
            h(
                "tr",
                { role: "row" },
                columns.map((name, index) =>
                    h("th", { role: "columnheader", scope: "col", class: index > 1 ? "figure" : null }, name),
                ),
            ),
        ),
        byBank(accounts).map((ofBank) => bankOf(ofBank, balances, period)),
    );
    return {
        title: "Cuentas",
        content: [
            totalsOfCurrencies(accounts),
            accounts.length ? table : h("p", { class: "empty" }, "No hay cuentas."),
            h("p", { class: "quiet" }, `Las líneas van del ${longDate(period.from)} al ${longDate(period.to)}.`),
        ],
    };
}
