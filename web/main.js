// The console: who is there, and what they look at.
import { accountsView } from "./accounts.js";
import { Failure, isSignedIn, onAnswer, read, signIn, signOut } from "./api.js";
import { auditView } from "./audit.js";
import { budgetsView } from "./budgets.js";
import { documentView } from "./document.js";
import { documentsView } from "./documents.js";
import { data, h, say } from "./dom.js";
import { statesOf } from "./labels.js";
import { go, place } from "./router.js";
import { statementView } from "./statement.js";

const main = document.getElementById("contenido");
const top = document.getElementById("top");
const replica = document.getElementById("replica");

/** Its name, where the service has several: the last step of the page's own path. */
const company = decodeURIComponent(new URL(document.baseURI).pathname.split("/").at(-2) ?? "");

let shown = { end() {} };
let reading = new AbortController();

// ---- Signing in -------------------------------------------------------------------------------------------------------

function door(words) {
    leaveView();
    top.hidden = true;
    replica.hidden = true;
    document.title = "Cuvexa";
    const token = h("input", {
        id: "token",
        type: "password",
        autocomplete: "off",
        autocapitalize: "none",
        spellcheck: "false",
        required: true,
        "aria-describedby": "refused",
    });
    const refused = h("p", { id: "refused", class: "warning", role: "alert" }, words ?? "");
    const enter = h("button", { type: "submit" }, "Entrar");
    const submit = async (event) => {
        event.preventDefault();
        enter.disabled = true;
        refused.textContent = "";
        try {
            if (!/^[\x21-\x7e]+$/.test(token.value.trim()))
                throw new Failure(401, "Un token tiene solo letras, cifras y rayas.");
            signIn(token.value.trim());
            await read("accounts", { limit: 1 });
            await show();
        } catch (error) {
            signOut();
            refused.textContent = error.message;
            enter.disabled = false;
            token.select();
            token.focus();
        }
    };
    main.replaceChildren(
        h(
            "form",
            { class: "door", submit },
            h("h1", {}, h("img", { src: "console/icon.svg", alt: "", width: 40, height: 40 }), " Cuvexa"),
            company ? h("p", {}, "Empresa ", h("strong", {}, data(company))) : null,
            h("p", {}, h("label", { for: "token" }, "Token"), token),
            refused,
            h("p", {}, enter),
            h(
                "p",
                { class: "quiet" },
                "El token queda solo en la memoria de esta página: al cerrarla o recargarla se pide otra vez.",
            ),
        ),
    );
    token.focus();
}

function leave(words) {
    signOut();
    door(words);
}

// ---- Views ------------------------------------------------------------------------------------------------------------

/** The view of a place; nothing when there is none. */
function viewOf({ steps }) {
    if (steps[0] === "cuentas") return steps.length > 1 ? statementView : accountsView;
    if (steps[0] === "documentos" && Object.hasOwn(statesOf, steps[1]))
        return steps.length > 2 ? documentView : documentsView;
    return { presupuestos: budgetsView, revision: auditView }[steps[0]];
}

function leaveView() {
    reading.abort();
    reading = new AbortController();
    shown.end?.();
    shown = { end() {} };
}

function markMenu([first]) {
    for (const link of document.querySelectorAll("#menu a")) {
        const is = link.hash.split("/")[1] === first;
        if (is) link.setAttribute("aria-current", "page");
        else link.removeAttribute("aria-current");
    }
}

function frame(view) {
    const title = h("h1", { tabindex: -1 }, view.title);
    main.replaceChildren(
        h(
            "div",
            { class: "head" },
            view.back ? h("p", { class: "back" }, h("a", { href: view.back.href }, "← ", view.back.text)) : null,
            title,
            view.kind ? h("p", { class: "kind" }, view.kind) : null,
        ),
        ...[view.content].flat(Infinity).filter(Boolean),
    );
    document.title = `${view.name ?? title.textContent} · Cuvexa`;
    return title;
}

function failed(error) {
    const again = h("button", { type: "button", click: show }, "Intentar de nuevo");
    frame({
        title: error.status === 404 ? "No existe" : "No se pudo leer",
        content: [h("p", { class: "warning", role: "alert" }, error.message), h("p", {}, again)],
    }).focus();
}

let last = "";

/** Shows what the address says. */
async function show() {
    if (!isSignedIn()) return door();
    const where = place();
    const view = viewOf(where);
    if (!view) return go("#/cuentas");
    leaveView();
    top.hidden = false;
    markMenu(where.steps);
    const { signal } = reading;
    const from = document.activeElement?.id;
    main.setAttribute("aria-busy", "true");
    try {
        const next = await view(where, { signal });
        if (signal.aborted) return next.end?.();
        shown = next;
        const title = frame(next);
        const here = where.steps.join("/");
        const kept = here === last && from ? document.getElementById(from) : null;
        (kept ?? title).focus({ preventScroll: kept !== null });
        if (!kept) scrollTo(0, 0);
        last = here;
        say(document.title);
        next.begin?.();
    } catch (error) {
        if (error.name === "AbortError" || signal.aborted) return;
        if (error.isRefusal) return leave(error.message);
        failed(error);
        if (!(error instanceof Failure)) throw error;
    } finally {
        if (!signal.aborted) main.removeAttribute("aria-busy");
    }
}

onAnswer((lag) => {
    replica.hidden = lag === null;
    const behind = lag === "unknown" ? "no se sabe qué tan detrás" : `a lo más ${lag} s detrás`;
    replica.textContent = `Leído de una réplica, ${behind} del primario.`;
});
document.getElementById("company").append(data(company));
document.getElementById("leave").addEventListener("click", () => leave());
document.querySelector(".skip").addEventListener("click", (event) => {
    event.preventDefault();
    main.focus();
});
window.addEventListener("hashchange", show);
show();
