// Revisión: what does not add up, and what puts it right. It runs rule by rule, so that its reader sees how far it is.
import { read } from "./api.js";
import { data, h } from "./dom.js";
import { number } from "./format.js";
import { checkName } from "./labels.js";
import { toDocument } from "./router.js";

function findingOf(finding) {
    return h(
        "li",
        { class: "finding", "data-check": finding.check },
        h(
            "p",
            {},
            finding.kind
                ? h("a", { href: toDocument(finding.kind, finding.folio) }, data(finding.document))
                : h("strong", {}, data(finding.document)),
        ),
        h("p", {}, data(finding.figures)),
        h("p", { class: "remedy" }, h("span", { class: "quiet" }, "Remedio: "), data(finding.remedy)),
    );
}

function groupOf(check, findings) {
    return h(
        "section",
        { "data-check": check },
        h("h2", {}, checkName(check), " ", h("span", { class: "badge" }, number(findings.length))),
        h("ol", { class: "findings" }, findings.map(findingOf)),
    );
}

function outcome(done, count) {
    if (count > 0) return `Diferencias encontradas: ${number(count)}`;
    return `Todo cuadra: ${number(done)} revisiones sin diferencias`;
}

export async function auditView(place, options) {
    const { checks } = await read("audit", { check: "none" }, options);
    const bar = h("progress", { max: checks.length, value: 0, "aria-label": "Avance de la revisión" });
    const told = h("p", { class: "count", role: "status" }, `${checks.length} revisiones por hacer.`);
    const found = h("div", { class: "found" });
    const begin = h("button", { type: "button" }, "Revisar");
    const stop = h("button", { type: "button", class: "plain", hidden: true }, "Detener");
    let stopped = false;
    stop.addEventListener("click", () => {
        stopped = true;
    });

    async function run() {
        let count = 0;
        found.replaceChildren();
        for (const [index, check] of checks.entries()) {
            if (stopped)
                return `Detenida después de ${index} de ${checks.length} revisiones. ${count ? outcome(index, count) : ""}`;
            told.textContent = `${index + 1} de ${checks.length}: ${checkName(check)}`;
            const { rows } = await read("audit", { check }, options);
            count += rows.length;
            if (rows.length) found.append(groupOf(check, rows));
            bar.value = index + 1;
        }
        return outcome(checks.length, count);
    }

    begin.addEventListener("click", async () => {
        stopped = false;
        stop.hidden = false;
        stop.focus();
        begin.hidden = true;
        bar.value = 0;
        told.classList.remove("warning");
        try {
            told.textContent = await run();
        } catch (error) {
            if (error.name === "AbortError") return;
            told.classList.add("warning");
            told.textContent = error.message;
        }
        const focused = document.activeElement === stop;
        begin.hidden = false;
        stop.hidden = true;
        begin.textContent = "Revisar de nuevo";
        if (focused) begin.focus();
    });
    return {
        title: "Revisión",
        content: [
            h(
                "p",
                { class: "lead" },
                "Busca lo que no cuadra: documentos a medias, saldos que no son la suma de sus movimientos, pólizas descuadradas. Solo lee.",
            ),
            h(
                "div",
                { class: "bar" },
                h("div", { class: "progress" }, bar, told),
                h("div", { class: "actions" }, begin, stop),
            ),
            found,
        ],
    };
}
