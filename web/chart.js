// Charts, drawn by uPlot in the colors of the style sheet. It is null where the program was built without it.
import uPlot from "./uPlot.esm.js";
import { amount, compact, date, monthName, seconds } from "./format.js";
import { h } from "./dom.js";

const dark = matchMedia("(prefers-color-scheme: dark)");

function color(name) {
    return getComputedStyle(document.documentElement).getPropertyValue(name).trim();
}

function axis(more) {
    return {
        stroke: color("--quiet"),
        grid: { stroke: color("--line"), width: 1 },
        ticks: { show: false },
        font: `12px ${color("--font")}`,
        ...more,
    };
}

/** 5 mar; of a January its year too. */
function dayLabel(time) {
    const day = new Date(time * 1000);
    const month = monthName(day.getUTCMonth()).slice(0, 3);
    return `${day.getUTCDate()} ${month}${day.getUTCMonth() === 0 ? ` ${day.getUTCFullYear()}` : ""}`;
}

function options(width, days, shown) {
    const tell = (plot) => {
        const at = plot.cursor.idx;
        const day = at === null || at === undefined ? undefined : days[at];
        shown.replaceChildren(
            day ? `${date(day.date)}: saldo ${amount(day.balance)}, en firme ${amount(day.firm)}` : "",
        );
    };
    return {
        width,
        height: width < 500 ? 200 : 260,
        tzDate: (time) => uPlot.tzDate(new Date(time * 1000), "Etc/UTC"),
        legend: { show: false },
        cursor: { y: false, drag: { x: false, y: false } },
        hooks: { setCursor: [tell] },
        scales: { x: { time: true } },
        axes: [
            axis({ values: (plot, times) => times.map(dayLabel), space: 70, size: 34 }),
            axis({ values: (plot, values) => values.map(compact), size: 58 }),
        ],
        series: [
            {},
            {
                stroke: color("--accent"),
                fill: color("--accent-wash"),
                width: 2,
                paths: uPlot.paths.stepped({ align: 1 }),
                points: { show: false },
            },
            {
                stroke: color("--gold"),
                width: 1.5,
                dash: [5, 4],
                paths: uPlot.paths.stepped({ align: 1 }),
                points: { show: false },
            },
        ],
    };
}

/** The balance and what is firm of it, day by day. It is drawn anew when the window or the colors change, until `end`. */
export function balanceChart(days, description) {
    const shown = h("p", { class: "pointed", "aria-hidden": "true" });
    const place = h("div", { class: "chart", role: "img", "aria-label": description });
    const element = h(
        "figure",
        {},
        place,
        h(
            "figcaption",
            {},
            h("span", { class: "legend" }, "Saldo"),
            " ",
            h("span", { class: "legend firm" }, "En firme"),
            shown,
        ),
    );
    if (uPlot === null) place.append(h("p", {}, "Este programa se construyó sin lo que dibuja las gráficas."));
    const values = [days.map((day) => seconds(day.date)), days.map((day) => day.balance), days.map((day) => day.firm)];
    let plot;
    const draw = () => {
        plot?.destroy();
        plot = undefined;
        if (uPlot !== null && place.clientWidth > 0) plot = new uPlot(options(place.clientWidth, days, shown), values, place);
    };
    let width = 0;
    const resized = new ResizeObserver(() => {
        if (place.clientWidth === width) return;
        width = place.clientWidth;
        draw();
    });
    resized.observe(place);
    dark.addEventListener("change", draw);
    const end = () => {
        resized.disconnect();
        dark.removeEventListener("change", draw);
        plot?.destroy();
    };
    return { element, end };
}
