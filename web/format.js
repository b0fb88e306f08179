// Amounts and dates as Mexico writes them.

const amounts = new Intl.NumberFormat("es-MX", { minimumFractionDigits: 2, maximumFractionDigits: 2 });
const rates = new Intl.NumberFormat("es-MX", { minimumFractionDigits: 4, maximumFractionDigits: 4 });
const numbers = new Intl.NumberFormat("es-MX");
const short = new Intl.NumberFormat("es-MX", { notation: "compact", maximumFractionDigits: 1 });
const months = [
    "enero",
    "febrero",
    "marzo",
    "abril",
    "mayo",
    "junio",
    "julio",
    "agosto",
    "septiembre",
    "octubre",
    "noviembre",
    "diciembre",
];

export const nothing = "—";

const known = (value) => typeof value === "number" && Number.isFinite(value);

/** 1,234.50; never "-0.00". */
export function amount(value) {
    if (!known(value)) return nothing;
    return amounts.format(Math.abs(value) < 0.005 ? 0 : value);
}

export const rate = (value) => (known(value) ? rates.format(value) : nothing);
export const number = (value) => (known(value) ? numbers.format(value) : nothing);
export const compact = (value) => (known(value) ? short.format(value) : nothing);

const iso = /^(\d{4})-(\d{2})-(\d{2})(?:[T ](\d{2}:\d{2})(?::\d{2})?)?$/;

/** "2024-03-15" is 15/03/2024. What is no date stays as it is. */
export function date(text) {
    const parts = iso.exec(text ?? "");
    return parts ? `${parts[3]}/${parts[2]}/${parts[1]}` : (text ?? "");
}

/** The same with the hour, where there is one. */
export function moment(text) {
    const parts = iso.exec(text ?? "");
    return parts && parts[4] && parts[4] !== "00:00" ? `${date(text)}, ${parts[4]}` : date(text);
}

/** 15 de marzo de 2024 */
export function longDate(text) {
    const parts = iso.exec(text ?? "");
    return parts ? `${Number(parts[3])} de ${months[parts[2] - 1]} de ${parts[1]}` : (text ?? "");
}

export const monthName = (index) => months[index];

// ---- Days, as texts: 2024-03-15 ---------------------------------------------------------------------------------------

export const isDay = (text) => /^\d{4}-\d{2}-\d{2}$/.test(text ?? "");

/** Today, where the user is. */
export function today() {
    const now = new Date();
    const two = (part) => String(part).padStart(2, "0");
    return `${now.getFullYear()}-${two(now.getMonth() + 1)}-${two(now.getDate())}`;
}

/** That many days later. */
export function daysAfter(day, count) {
    return new Date(Date.parse(`${day}T00:00:00Z`) + count * 86_400_000).toISOString().slice(0, 10);
}

/** Seconds since 1970 at its beginning, as charts count. */
export const seconds = (day) => Date.parse(`${day}T00:00:00Z`) / 1000;
