// Where the user is: #/documentos/receipts?state=AP. What stands behind the hash is never sent to anybody.

/** The steps and the query of the address. */
export function place() {
    const [path, query = ""] = location.hash.replace(/^#/, "").split("?", 2);
    const steps = path.split("/").slice(1).map(decoded);
    return { steps, query: Object.fromEntries(new URLSearchParams(query)) };
}

function decoded(step) {
    try {
        return decodeURIComponent(step);
    } catch {
        return step;
    }
}

/** The address of a place. */
export function to(steps, query = {}) {
    const given = Object.entries(query).filter(([, value]) => value !== "" && value !== undefined && value !== null);
    const text = new URLSearchParams(given).toString();
    return `#/${steps.map(encodeURIComponent).join("/")}${text ? `?${text}` : ""}`;
}

/** Of a document, or of an account. */
export function toDocument(kind, folio) {
    return kind === "accounts" ? to(["cuentas", folio]) : to(["documentos", kind, folio]);
}

export function go(address) {
    location.hash = address;
}
