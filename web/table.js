// Tables. A long one has in the page only the rows that are seen, and asks for further ones when its reader comes near them.
import { formOf, heading, isFigure, shown } from "./labels.js";
import { h } from "./dom.js";

const rowsBeside = 12; // kept in the page above and below those that are seen
const rowsToGo = 60; // so near the end further ones are asked for

/** A column as `table` and `longTable` take it: its name, its heading, and what stands in its cell of a row. */
export function column(
    name,
    { room = 1, title = heading(name), cell = (row) => shown(name, row[name]), figure = isFigure(name) } = {},
) {
    return { name, room, title, cell, figure };
}

const narrow = ["Sc_Cve_Sucursal", "Mn_Cve_Moneda", "Renglones", "Bm_Referencia"];

/** How a column stands, and how wide it is in a long table. */
function classOf({ name, room, figure }, isFirst = false) {
    const form = formOf(name);
    const words = [
        isFirst || /_Documento$/.test(name) ? "key" : "",
        figure ? "figure" : "",
        form === "date" ? "date" : "",
        form === "state" ? "state-column" : "",
        narrow.includes(name) ? "code" : "",
        room > 1 ? `room${room}` : "",
    ];
    return words.filter(Boolean).join(" ") || null;
}

function headOf(columns) {
    const cellOf = (each, index) => h("th", { scope: "col", class: classOf(each, index === 0) }, each.title);
    return h("thead", {}, h("tr", {}, columns.map(cellOf)));
}

function cells(row, columns) {
    return columns.map((each, index) => {
        const attributes = { class: classOf(each, index === 0), "data-column": each.name, "data-label": each.title };
        if (index === 0) return h("th", { ...attributes, scope: "row" }, each.cell(row));
        return h("td", attributes, each.cell(row));
    });
}

/** A table with all of its rows. */
export function table(caption, columns, rows) {
    return h(
        "div",
        { class: "wide", role: "region", tabindex: 0, "aria-label": caption },
        h(
            "table",
            {},
            h("caption", { class: "visually-hidden" }, caption),
            headOf(columns),
            h(
                "tbody",
                {},
                rows.map((row) => h("tr", {}, cells(row, columns))),
            ),
        ),
    );
}

/**
 * A table of any length. `load` gives `{rows, next}` behind the place `next` of the page before; its rows' first cell holds a link, and
 * the arrow keys go from one to the next. `told` hears how many rows there are, whether all, and of failures.
 */
export class Long_table {
    constructor({ caption, columns, load, told, empty }) {
        Object.assign(this, { columns, load, told, empty });
        this.rows = [];
        this.next = undefined;
        this.whole = false;
        this.active = 0;
        this.above = h("tr", { class: "gap", "aria-hidden": "true" }, h("td"));
        this.below = h("tr", { class: "gap", "aria-hidden": "true" }, h("td"));
        this.body = h("tbody", {}, this.above, this.below);
        this.table = h(
            "table",
            { class: "long", "aria-rowcount": -1 },
            h("caption", { class: "visually-hidden" }, caption),
            headOf(columns),
            this.body,
        );
        this.element = h(
            "div",
            {
                class: "scroll",
                role: "region",
                tabindex: 0,
                "aria-label": caption,
                scroll: () => this.look(),
                keydown: (event) => this.key(event),
            },
            this.table,
        );
        this.resized = new ResizeObserver(() => this.look(true));
        this.resized.observe(this.element);
        this.whole_print = () => this.show(0, this.rows.length);
        this.after_print = () => this.look(true);
        window.addEventListener("beforeprint", this.whole_print);
        window.addEventListener("afterprint", this.after_print);
    }

    /** When the page shows something else. */
    end() {
        this.ended = true;
        this.resized.disconnect();
        window.removeEventListener("beforeprint", this.whole_print);
        window.removeEventListener("afterprint", this.after_print);
    }

    /** Asks for one page more; those who ask meanwhile wait for the same. */
    more() {
        this.asking ??= this.ask().finally(() => {
            this.asking = undefined;
        });
        return this.asking;
    }

    async ask() {
        try {
            const page = await this.load(this.next);
            if (this.ended) return;
            this.rows.push(...page.rows);
            this.next = page.next ?? undefined;
            this.whole = page.next === null || page.next === undefined;
            this.table.setAttribute("aria-rowcount", this.whole ? this.rows.length + 1 : -1);
            this.told({ count: this.rows.length, whole: this.whole });
            this.failed = false;
        } catch (error) {
            if (error.name === "AbortError" || this.ended) return;
            this.failed = true;
            this.told({ count: this.rows.length, whole: false, error });
        }
        this.look(true);
    }

    /** All rows, as far as `most`. */
    async all(most) {
        while (!this.whole && !this.failed && !this.ended && this.rows.length < most) await this.more();
    }

    /** The height of a row, as the style sheet says. */
    get height() {
        return parseFloat(getComputedStyle(this.table).getPropertyValue("--row")) || 40;
    }

    /** Puts into the page what is seen now. */
    look(anew = false) {
        if (this.ended || !this.element.isConnected) return;
        const height = this.height;
        const first = Math.max(0, Math.floor(this.element.scrollTop / height) - rowsBeside);
        const last = Math.min(
            this.rows.length,
            Math.ceil((this.element.scrollTop + this.element.clientHeight) / height) + rowsBeside,
        );
        if (anew || first < this.first || last > this.last || this.first === undefined)
            this.show(Math.max(0, first - rowsBeside), Math.min(this.rows.length, last + rowsBeside));
        if (!this.whole && !this.failed && last + rowsToGo > this.rows.length) this.more();
    }

    show(first, last) {
        const height = this.height;
        const focused = this.body.contains(document.activeElement);
        this.first = first;
        this.last = last;
        const gone = this.fill(first, last);
        this.above.firstChild.style.height = `${first * height}px`;
        this.below.firstChild.style.height = `${(this.rows.length - last) * height}px`;
        this.above.hidden = first === 0;
        this.below.hidden = last >= this.rows.length;
        for (const element of gone) element.remove(); // last: were it lower meanwhile, it would scroll up
        if (focused && !this.body.contains(document.activeElement))
            (this.link(this.active) ?? this.element).focus({ preventScroll: true });
    }

    /**
     * Puts these rows into the page; gives the elements that are to go. What stays seen stays the same element: nobody's click or
     * focus is lost because further rows come.
     */
    fill(first, last) {
        const elements = [...this.body.querySelectorAll("tr:not(.gap)")];
        const stays = ({ dataset }) => dataset.index >= first && dataset.index < last;
        const before = new Map(elements.filter(stays).map((each) => [Number(each.dataset.index), each]));
        let place = this.above;
        for (let index = first; index < last; ++index) {
            const element = before.get(index) ?? this.row(this.rows[index], index);
            if (!before.has(index)) place.after(element);
            place = element;
        }
        if (this.whole && this.rows.length === 0) place.after(this.nothing());
        return elements.filter((each) => !stays(each));
    }

    /** As wide as the columns that any window has room for. */
    nothing() {
        return h(
            "tr",
            {},
            h("td", { colspan: this.columns.filter((each) => each.room === 1).length, class: "empty" }, this.empty),
        );
    }

    row(row, index) {
        const element = h("tr", { "aria-rowindex": index + 2, "data-index": index }, cells(row, this.columns));
        for (const [place, link] of element.querySelectorAll("a").entries()) {
            link.tabIndex = index === this.active && place === 0 ? 0 : -1;
            link.addEventListener("focus", () => this.choose(index));
        }
        return element;
    }

    link(index) {
        return this.body.querySelector(`tr[data-index="${index}"] a`);
    }

    choose(index) {
        const before = this.link(this.active);
        if (before) before.tabIndex = -1;
        this.active = index;
        const now = this.link(index);
        if (now) now.tabIndex = 0;
    }

    /** To the next link of the row, or the one before. */
    sideways(step) {
        const row = this.link(this.active)?.closest("tr");
        const links = [...(row?.querySelectorAll("a") ?? [])].filter((link) => link.offsetParent !== null);
        links[links.indexOf(document.activeElement) + step]?.focus();
    }

    key(event) {
        if (event.key === "ArrowRight") this.sideways(1);
        if (event.key === "ArrowLeft") this.sideways(-1);
        const page = Math.max(1, Math.floor(this.element.clientHeight / this.height) - 2);
        const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -Infinity, End: Infinity };
        const step = steps[event.key];
        if (step === undefined || event.ctrlKey || event.altKey || event.metaKey || this.rows.length === 0) return;
        event.preventDefault();
        const from = event.target === this.element && this.active === 0 && step > 0 ? -1 : this.active;
        const index = Math.min(
            this.rows.length - 1,
            Math.max(0, step === Infinity ? this.rows.length - 1 : from + step),
        );
        this.go(Number.isFinite(index) ? index : 0);
    }

    go(index) {
        this.choose(index);
        const height = this.height;
        const head = this.table.tHead.offsetHeight;
        const top = index * height;
        const seen = this.element.clientHeight - head;
        if (top < this.element.scrollTop) this.element.scrollTop = top;
        if (top + height > this.element.scrollTop + seen) this.element.scrollTop = top + height - seen;
        this.look(true);
        this.link(index)?.focus({ preventScroll: true });
    }
}
