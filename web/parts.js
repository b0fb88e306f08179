// What several views are made of.
import { data, h } from "./dom.js";
import { amount, daysAfter, isDay, today } from "./format.js";
import { stateName } from "./labels.js";
import { read } from "./api.js";

export const daysOfCharts = 90;

/** The last 90 days; where nothing moved in them, the 90 days that end with the last movement. */
export async function lastDays(options) {
    const now = today();
    const newest = (await read("movements", { limit: 1 }, options)).rows[0]?.Bm_Fecha?.slice(0, 10);
    const to = isDay(newest) && newest <= daysAfter(now, -daysOfCharts) ? newest : now;
    return { from: daysAfter(to, 1 - daysOfCharts), to };
}

/** A list whole, page by page. */
export async function readAll(path, query, options) {
    const rows = [];
    for (let after; ; ) {
        const page = await read(path, { ...query, limit: 1000, after }, options);
        rows.push(...page.rows);
        if (!page.next) return rows;
        after = page.next;
    }
}

export function field(id, label, input) {
    input.id = id;
    input.setAttribute("name", id);
    return h("p", { class: "field" }, h("label", { for: id }, label), input);
}

export function input(value, attributes = {}) {
    const element = h("input", { autocomplete: "off", ...attributes });
    element.value = value ?? "";
    return element;
}

/** A choice; `choices` are [value, text]. */
export function select(value, choices) {
    const element = h(
        "select",
        {},
        choices.map(([key, text]) => h("option", { value: key }, text)),
    );
    element.value = choices.some(([key]) => key === value) ? value : choices[0][0];
    return element;
}

export function stateSelect(value, states, all = "Todos") {
    return select(value, [["", all], ...states.map((code) => [code, stateName(code)])]);
}

/** A figure with what it is; `note` stands below it. */
export function figure(label, value, currency, note) {
    return h(
        "div",
        { class: "stat" },
        h("dt", {}, label),
        h(
            "dd",
            {},
            h("span", { class: "number" }, amount(value)),
            currency ? [" ", h("span", { class: "unit" }, data(currency))] : null,
            note,
        ),
    );
}
