// A line of some days, without axes: where an account comes from.
import { svg } from "./dom.js";
import { daysAfter } from "./format.js";

/** The balance at the end of each day of a period: what `/balances` tells only of the days on which something moved. */
export function everyDay(daily, from, to) {
    const moved = new Map(daily.days.map((day) => [day.date, day]));
    const days = [];
    let last = { balance: daily.opening.balance, firm: daily.opening.firm };
    for (let day = from; day <= to; day = daysAfter(day, 1)) {
        last = moved.get(day) ?? last;
        days.push({ date: day, balance: last.balance, firm: last.firm });
    }
    return days;
}

const width = 180;
const height = 40;

export function sparkline(values) {
    const least = Math.min(...values);
    const most = Math.max(...values);
    const y = (value) => (most === least ? height / 2 : height - 3 - ((value - least) / (most - least)) * (height - 6));
    const x = (index) => (index / Math.max(1, values.length - 1)) * width;
    const points = values.map((value, index) => `${x(index).toFixed(1)},${y(value).toFixed(1)}`);
    return svg(
        "svg",
        { class: "sparkline", viewBox: `0 0 ${width} ${height}`, preserveAspectRatio: "none", "aria-hidden": "true" },
        svg("polygon", { points: `0,${height} ${points.join(" ")} ${width},${height}` }),
        svg("polyline", { points: points.join(" ") }),
    );
}
