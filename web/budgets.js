// Presupuestos: what was used of each month's budget.
import { read } from "./api.js";
import { data, h, svg } from "./dom.js";
import { amount, monthName } from "./format.js";
import { budgetLevels } from "./labels.js";
import { field, select } from "./parts.js";
import { go, to } from "./router.js";

const months = Array.from({ length: 12 }, (_, index) => index);
const two = (index) => String(index + 1).padStart(2, "0");

function monthsOf(row) {
    return months.map((index) => ({
        name: monthName(index),
        budget: row[`Mes_${two(index)}`] ?? 0,
        used: row[`Usado_${two(index)}`] ?? 0,
    }));
}

const sum = (all, name) => all.reduce((total, each) => total + each[name], 0);
const isOver = (each) => each.used > each.budget + 0.005;

const barWidth = 18;
const step = 26;
const high = 90;

/** A bar per month: what was used, before what was allowed. */
function bars(all) {
    const most = Math.max(1, ...all.map((each) => Math.max(each.used, each.budget)));
    const tall = (value) => (Math.max(0, value) / most) * high;
    const bar = (index, value, className) =>
        svg("rect", {
            class: className,
            x: index * step + (step - barWidth) / 2,
            y: high - tall(value),
            width: barWidth,
            height: tall(value),
            rx: 2,
        });
    return svg(
        "svg",
        { class: "bars", viewBox: `0 0 ${12 * step} ${high + 16}`, "aria-hidden": "true" },
        all.map((each, index) => [
            bar(index, each.budget, "allowed"),
            bar(index, each.used, isOver(each) ? "used over" : "used"),
            svg(
                "text",
                { x: index * step + step / 2, y: high + 12, "text-anchor": "middle" },
                each.name.charAt(0).toUpperCase(),
            ),
        ]),
        svg("line", { x1: 0, x2: 12 * step, y1: high, y2: high }),
    );
}

function monthTable(all) {
    const row = (each) =>
        h(
            "tr",
            { "data-month": each.name, class: isOver(each) ? "over" : null },
            h("th", { scope: "row" }, each.name),
            h("td", { class: "figure", "data-column": "budget" }, amount(each.budget)),
            h("td", { class: "figure", "data-column": "used" }, amount(each.used)),
            h("td", { class: "figure", "data-column": "left" }, amount(each.budget - each.used)),
        );
    return h(
        "table",
        { class: "months" },
        h(
            "thead",
            {},
            h(
                "tr",
                {},
                h("th", { scope: "col" }, "Mes"),
                ["Presupuesto", "Usado", "Queda"].map((name) => h("th", { scope: "col", class: "figure" }, name)),
            ),
        ),
        h("tbody", {}, all.map(row)),
    );
}

function budget(row) {
    const all = monthsOf(row);
    const over = all.filter(isOver).map((each) => each.name);
    const [used, allowed] = [sum(all, "used"), sum(all, "budget")];
    const percent = allowed > 0 ? `, ${Math.round((used / allowed) * 100)} %` : "";
    const level = budgetLevels[row.Tipo] ?? row.Tipo;
    return h(
        "article",
        { class: "card budget", "data-budget": `${row.Presupuesto}/${row.Tipo}/${row.Valor}` },
        h("h3", {}, h("span", { class: "quiet" }, data(level)), " ", data(row.Valor)),
        h("p", {}, h("strong", {}, amount(used)), " de ", amount(allowed), percent),
        bars(all),
        over.length ? h("p", { class: "warning" }, `Excedido en ${over.join(", ")}`) : null,
        h("details", {}, h("summary", {}, "Cifras por mes"), monthTable(all)),
    );
}

function groups(rows) {
    const names = [...new Set(rows.map((row) => row.Presupuesto))];
    return names.map((name) =>
        h(
            "section",
            {},
            h("h2", {}, data(name)),
            h("div", { class: "cards" }, rows.filter((row) => row.Presupuesto === name).map(budget)),
        ),
    );
}

function yearForm(years, year) {
    const choice = select(
        String(year),
        years.map((each) => [String(each), String(each)]),
    );
    const submit = (event) => {
        event.preventDefault();
        go(to(["presupuestos"], { anio: choice.value }));
    };
    return h(
        "form",
        { class: "filters", submit, "aria-label": "Año" },
        field("anio", "Año", choice),
        h("p", {}, h("button", { type: "submit", id: "ver" }, "Ver")),
    );
}

export async function budgetsView({ query }, options) {
    const { rows: all } = await read("budgets", {}, options);
    const years = [...new Set(all.map((row) => row.Periodo))].sort((a, b) => b - a);
    const now = new Date().getFullYear();
    const asked = Number(query.anio);
    const year = years.find((each) => each === asked) ?? years.find((each) => each === now) ?? years[0];
    if (year === undefined)
        return { title: "Presupuestos", content: [h("p", { class: "empty" }, "No hay presupuestos.")] };
    const { rows } = await read("budgets", { year }, options);
    return {
        title: `Presupuestos de ${year}`,
        content: [
            yearForm(years, year),
            h(
                "p",
                { class: "quiet" },
                h("span", { class: "legend used" }, "Usado"),
                " ",
                h("span", { class: "legend allowed" }, "Presupuesto"),
                " ",
                h("span", { class: "legend over" }, "Excedido"),
                ". Lo usado es lo que suman los cheques de cada mes.",
            ),
            groups(rows),
        ],
    };
}
