// What the service gives. The token is in this module's memory alone: it is gone with the page.

let token = "";

/** What went wrong, in words for the user. */
export class Failure extends Error {
    constructor(status, message) {
        super(message);
        this.status = status;
    }

    /** The token does not open this company. */
    get isRefusal() {
        return this.status === 401 || this.status === 403 || this.status === 429;
    }
}

const words = {
    0: "El servicio no responde.",
    401: "Ese token no existe o fue retirado.",
    403: "Ese token no abre esta empresa.",
    404: "No existe.",
    406: "Este servicio no hace PDF.",
    429: "Demasiados intentos fallidos desde esta dirección. Espere un minuto.",
    503: "El servicio o su base de datos no responde en este momento.",
    504: "La respuesta tardó demasiado.",
};

export function signIn(given) {
    token = given;
}

export function signOut() {
    token = "";
}

let tellsLag = () => {};

/** `listener` hears with each answer how many seconds it may be behind its primary, or "unknown"; null where there is no replica. */
export function onAnswer(listener) {
    tellsLag = listener;
}

export const isSignedIn = () => token !== "";

/** A path below the company's; the steps of `parts` may hold any letters. */
export function pathOf(...parts) {
    return parts.map(encodeURIComponent).join("/");
}

/** The answer to a GET; nothing of it is kept on the disk of this machine. */
export async function ask(path, query = {}, { signal, accept = "application/json" } = {}) {
    const address = new URL(path, document.baseURI);
    for (const [name, value] of Object.entries(query)) {
        if (value !== undefined && value !== null && value !== "") address.searchParams.set(name, value);
    }
    const headers = { Accept: accept, Authorization: `Bearer ${token}` };
    let answer;
    try {
        answer = await fetch(address, { headers, signal, cache: "no-store", credentials: "omit", redirect: "error" });
    } catch (error) {
        if (error.name === "AbortError") throw error;
        throw new Failure(0, words[0]);
    }
    if (!answer.ok) throw new Failure(answer.status, words[answer.status] ?? (await reasonOf(answer)));
    tellsLag(answer.headers.get("Cuvexa-Replica-Lag"));
    return answer;
}

async function reasonOf(answer) {
    try {
        return `El servicio respondió ${answer.status}: ${(await answer.json()).error.message}`;
    } catch {
        return `El servicio respondió ${answer.status}.`;
    }
}

export async function read(path, query, options) {
    return (await ask(path, query, options)).json();
}
