// The console in a browser without a screen: what it shows is what the database holds, computed apart; who may not sees nothing; hostile
// texts stay texts; it is read without a mouse, without colors, on any width and on paper.
//
//   CUVEXA_RECEIPTS      how many receipts the company has (2000)
//   CUVEXA_SCREENSHOTS   a folder for a picture of each view
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, readFileSync, readdirSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import test, { after, before } from "node:test";
import {
    Service,
    Visit,
    cents,
    change,
    cleanUp,
    companiesFile,
    copyOf,
    folder,
    freePort,
    launch,
    python,
    row,
    rows,
    run,
    sample,
    today,
    token,
    tokens,
    written,
} from "./running.mjs";

const receipts = Number(process.env.CUVEXA_RECEIPTS ?? 2000);
const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

const account = "SRR-MXN";
const from = "2026-08-03"; // 90 days, today the last of them
const day = (text) => text.split("-").reverse().join("/");

let browser, central, broken, hostile, alone, several, ana;

before(async () => {
    central = sample("central", receipts);
    broken = copyOf(central, "broken");
    hostile = sample("hostile", 400);
    ana = token("ana", "--read");
    alone = await new Service("--db", central).ready;
    several = await new Service("--companies", companiesFile({ central, rota: broken, hostil: hostile })).ready;
    browser = await launch();
});

after(async () => {
    await browser?.close();
    assert.equal(await alone?.end(), 0);
    assert.equal(await several?.end(), 0);
    cleanUp();
});

/** A visit to the company, signed in; what went wrong in it fails the test, and so does what it asked another place for. */
async function visit(t, { service = alone, company = "", bearer = ana, ...looks } = {}) {
    const visitor = await Visit.begin(browser, `${service.address}/${company}`, looks);
    t.after(async () => {
        await visitor.end();
        assert.deepEqual(visitor.problems, []);
        assert.deepEqual(
            visitor.asked.filter((url) => !/^(blob|data):/.test(url) && new URL(url).origin !== visitor.origin),
            [],
        );
    });
    await visitor.signIn(bearer);
    return visitor;
}

const kinds = {
    receipts: { table: "Recibo_Pago", key: "Rp_Folio", date: "Rp_Fecha", amount: "Rp_Importe" },
    deposits: { table: "Deposito_Pago", key: "Dp_Folio", date: "Dp_Fecha", amount: "Dp_Importe" },
    checks: { table: "Cheque", key: "Ch_Folio", date: "Ch_Fecha", amount: "Ch_Importe" },
    requests: { table: "Solicitud_Cheque", key: "Sch_Folio", date: "Sch_Fecha", amount: "Sch_Importe" },
    movements: { table: "Banco_Movimiento", key: "Bm_Folio", date: "Bm_Fecha", amount: "Bm_Importe" },
    receivables: { table: "Cuenta_x_Cobrar", key: "Cxc_Folio", date: "Cxc_Fecha", amount: "Cxc_Precio_Neto_Importe" },
    payables: { table: "Cuenta_x_Pagar", key: "Cxp_Folio", date: "Cxp_Fecha", amount: "Cxp_Precio_Neto_Importe" },
    advances: { table: "Anticipo_Cxc", key: "An_Folio", date: "An_Fecha", amount: "An_Importe" },
    vouchers: { table: "Poliza", key: "Pz_Folio", date: "Pz_Fecha", amount: undefined },
};

/** A document of each kind; every company of any size has them. */
function someDocuments(file) {
    return Object.entries(kinds).map(
        ([kind, { table, key, date }]) =>
            `#/documentos/${kind}/${row(file, `SELECT ${key} AS folio FROM ${table} ORDER BY ${date} DESC, ${key} DESC`).folio}`,
    );
}

const places = () => [
    "#/cuentas",
    `#/cuentas/${account}`,
    "#/documentos/receipts",
    "#/documentos/movements",
    someDocuments(central)[2],
    "#/presupuestos",
    "#/revision",
];

// ---- Who may ----------------------------------------------------------------------------------------------------------

test("a token without the right sees nothing but the door", async (t) => {
    const other = token("otra", "--company", "hostil");
    const visitor = await Visit.begin(browser, `${several.address}/central/`);
    t.after(() => visitor.end());
    const refused = async (text) => {
        await visitor.signIn(text);
        return visitor.text("#refused");
    };
    assert.match(await refused("cvx_nobody"), /no existe o fue retirado/);
    assert.match(await refused(other), /no abre esta empresa/);
    assert.match(await refused("ñandú"), /letras, cifras/);
    assert.equal(await visitor.page.$("nav:not([hidden] nav)"), null);
    await visitor.page.evaluate(() => {
        location.hash = "#/cuentas/SRR-MXN";
    });
    await visitor.page.waitForSelector("#token");
    assert.ok(!(await visitor.text("body")).includes(account));
    assert.deepEqual(
        visitor.asked.filter((url) => /balances|movements/.test(url)),
        [],
    );
});

test("a token that is taken away while it looks ends at the door", async (t) => {
    const visitor = await Visit.begin(browser, `${alone.address}/`);
    t.after(() => visitor.end());
    await visitor.signIn(token("breve"));
    assert.match(await visitor.text(), /Total en MXN/);
    run("token", "remove", "breve", "--tokens", tokens);
    await visitor.page.evaluate(() => {
        location.hash = "#/presupuestos";
    });
    await visitor.page.waitForSelector("#token");
    assert.match(await visitor.text(), /no existe o fue retirado/);
    assert.ok(!(await visitor.text()).includes("Total"));
});

test("the token stays in the memory of the page", async (t) => {
    const visitor = await visit(t);
    const kept = await visitor.page.evaluate(() =>
        JSON.stringify([
            { ...localStorage },
            { ...sessionStorage },
            document.cookie,
            location.href,
            history.state,
            document.documentElement.outerHTML,
            [...document.querySelectorAll("input")].map((input) => input.value),
        ]),
    );
    assert.ok(!kept.includes(ana));
    assert.deepEqual(JSON.parse(kept).slice(0, 3), [{}, {}, ""]);
    assert.ok(!visitor.asked.some((url) => url.includes(ana)));
    assert.deepEqual(await visitor.context.cookies(), []);
    await visitor.page.reload();
    await visitor.page.waitForSelector("#token");
    await visitor.signIn(ana);
    await visitor.page.click("#leave");
    await visitor.page.waitForSelector("#token");
    assert.ok(!(await visitor.text("body")).includes(account));
});

test("of several companies each has its console, and none is given away", async (t) => {
    const visitor = await Visit.begin(browser, several.address);
    t.after(() => visitor.end());
    assert.ok(!/central|rota|hostil/.test(await visitor.page.content()));
    await visitor.page.type("#name", "central");
    await visitor.page.keyboard.press("Enter");
    await visitor.signIn(ana);
    assert.equal(await visitor.page.evaluate(() => location.pathname), "/central/");
    assert.match(await visitor.text(), /Total en MXN/);
    assert.match(await visitor.text("#company"), /central/);
    assert.deepEqual(visitor.problems, []);
});

// ---- Figures ----------------------------------------------------------------------------------------------------------

const movementsOf = (where) => `FROM Banco_Movimiento WHERE Es_Cve_Estado <> 'CA' AND ${where}`;
const sumOf = (where) => row(central, `SELECT ${cents("Bm_Importe")} AS sum ${movementsOf(where)}`).sum;
const period = `Bc_Cve_Banco_Cuenta = '${account}' AND substr(Bm_Fecha, 1, 10) BETWEEN '${from}' AND '${today}'`;
const beforePeriod = `Bc_Cve_Banco_Cuenta = '${account}' AND substr(Bm_Fecha, 1, 10) < '${from}'`;

test("Cuentas: each account's figures, its bank's, the totals and the lines are the movements'", async (t) => {
    const visitor = await visit(t);
    const shown = await visitor.cells(".accounts tr[data-account]");
    const keys = await visitor.page.$$eval("[data-account]", (all) => all.map((each) => each.dataset.account));
    const accounts = rows(central, "SELECT * FROM Banco_Cuenta");
    assert.deepEqual([...keys].sort(), accounts.map((each) => each.Bc_Cve_Banco_Cuenta).sort());
    const totals = {};
    for (const each of accounts) {
        const of = `Bc_Cve_Banco_Cuenta = '${each.Bc_Cve_Banco_Cuenta}'`;
        const [firm, transit] = [sumOf(`${of} AND Es_Cve_Estado = 'FI'`), sumOf(`${of} AND Es_Cve_Estado = 'TR'`)];
        const cellsOfIt = shown[keys.indexOf(each.Bc_Cve_Banco_Cuenta)];
        assert.equal(cellsOfIt.Saldo_Firme, written(firm));
        assert.equal(cellsOfIt.Saldo_Transito, written(transit));
        assert.equal(cellsOfIt.Bc_Saldo, `${written(firm + transit)} ${each.Mn_Cve_Moneda}`);
        assert.equal(
            cellsOfIt.line,
            `De ${written(sumOf(`${of} AND substr(Bm_Fecha, 1, 10) <= '${from}'`))} a ${written(firm + transit)}`,
        );
        const total = (totals[each.Mn_Cve_Moneda] ??= { firm: 0, transit: 0 });
        total.firm += firm;
        total.transit += transit;
    }
    for (const [currency, { firm, transit }] of Object.entries(totals)) {
        const figures = await visitor.texts(`[data-currency="${currency}"] .number`);
        assert.deepEqual(figures, [firm + transit, transit, firm].map(written));
    }
    for (const bank of rows(
        central,
        "SELECT * FROM Banco WHERE Bn_Cve_Banco IN (SELECT Bn_Cve_Banco FROM Banco_Cuenta)",
    )) {
        const figure = await visitor.text(`[data-bank="${bank.Bn_Cve_Banco}"] [data-column="Bn_Saldo"]`);
        assert.equal(figure, `Saldo del banco ${written(bank.Bn_Saldo * 100)}`);
    }
});

test("Estado de cuenta: figures and running balances are the movements', to the last row", async (t) => {
    const visitor = await visit(t);
    await visitor.go(`#/cuentas/${account}`);
    const opening = sumOf(beforePeriod);
    const [inward, outward] = [sumOf(`${period} AND Bm_Importe > 0`), -sumOf(`${period} AND Bm_Importe < 0`)];
    const firm = sumOf(`(${beforePeriod} OR ${period}) AND Es_Cve_Estado = 'FI'`);
    const closing = opening + inward - outward;
    assert.deepEqual(
        await visitor.texts("#figures .number"),
        [opening, inward, outward, closing, firm, closing - firm].map(written),
    );

    const expected = rows(central, `SELECT * ${movementsOf(period)} ORDER BY substr(Bm_Fecha, 1, 10), Bm_Folio`);
    let balance = opening;
    const running = expected.map((each) => (balance += Math.round(each.Bm_Importe * 100)));
    const check = (shown) =>
        shown.forEach((cellsOfIt) => {
            const movement = expected[cellsOfIt.index];
            assert.equal(cellsOfIt.Bm_Folio, movement.Bm_Folio);
            assert.equal(cellsOfIt.Bm_Fecha, day(movement.Bm_Fecha.slice(0, 10)));
            assert.equal(cellsOfIt.Bm_Importe, written(movement.Bm_Importe * 100));
            assert.equal(cellsOfIt.Saldo, written(running[cellsOfIt.index]));
            assert.equal(cellsOfIt.Es_Cve_Estado, { TR: "En tránsito", FI: "En firme" }[movement.Es_Cve_Estado]);
        });
    check(await visitor.cells());
    await visitor.page.focus(".scroll");
    for (let seen = 0; seen < expected.length; ) {
        await visitor.page.keyboard.press("End");
        await visitor.page.waitForFunction(
            (count) => Number([...document.querySelectorAll("tr[data-index]")].at(-1).dataset.index) >= count,
            {},
            seen,
        );
        seen = await visitor.page.$$eval("tr[data-index]", (all) => Number(all.at(-1).dataset.index) + 1);
        if ((await visitor.text(".count")).endsWith("movimientos")) break;
    }
    await visitor.page.keyboard.press("End");
    const shown = await visitor.cells();
    assert.ok(shown.length < 100, "only what is seen is in the page");
    assert.equal(shown.at(-1).index + 1, expected.length);
    check(shown);
});

test("Estado de cuenta: by dates and by state, and from a movement to its document and back", async (t) => {
    const visitor = await visit(t);
    await visitor.go(`#/cuentas/${account}`);
    await visitor.page.$eval("#desde", (input) => {
        input.value = "2026-10-01";
    });
    await visitor.page.select("#estado", "TR");
    await visitor.follow(() => visitor.page.click("#ver"));
    assert.equal(await visitor.hash(), `#/cuentas/${account}?desde=2026-10-01&hasta=${today}&estado=TR`);
    const where = `Bc_Cve_Banco_Cuenta = '${account}' AND Es_Cve_Estado = 'TR' AND substr(Bm_Fecha, 1, 10) BETWEEN '2026-10-01' AND '${today}'`;
    const { count } = row(central, `SELECT COUNT(*) AS count ${movementsOf(where)}`);
    assert.ok(count > 0);
    assert.match(
        await visitor.text(".count"),
        new RegExp(`^${count > 200 ? "200 movimientos, y sigue" : `${count} movimiento`}`),
    );
    const [folio, deposit] = await visitor.texts("tr[data-index='0'] a");
    await visitor.follow(() => visitor.page.click("tr[data-index='0'] td a"));
    assert.equal(await visitor.hash(), `#/documentos/${deposit.startsWith("DP") ? "deposits" : "checks"}/${deposit}`);
    await visitor.follow(() =>
        visitor.page.evaluate(
            (text) => [...document.querySelectorAll(".links a")].find((link) => link.textContent === text).click(),
            folio,
        ),
    );
    assert.match(await visitor.text("h1"), new RegExp(folio));
    await visitor.follow(() =>
        visitor.page.evaluate(
            (text) => [...document.querySelectorAll(".links a")].find((link) => link.textContent === text).click(),
            account,
        ),
    );
    assert.equal(await visitor.hash(), `#/cuentas/${account}`);
});

async function downloaded(visitor, text) {
    const client = await visitor.page.createCDPSession();
    const downloadPath = join(folder, `downloads-${text.replace(/\W/g, "")}`);
    mkdirSync(downloadPath);
    const done = new Promise((end) =>
        client.on("Browser.downloadProgress", (event) => event.state === "completed" && end()),
    );
    await client.send("Browser.setDownloadBehavior", {
        behavior: "allow",
        downloadPath,
        eventsEnabled: true,
        browserContextId: visitor.context.id,
    });
    await visitor.page.evaluate(
        (name) => [...document.querySelectorAll("button")].find((button) => button.innerText === name).click(),
        text,
    );
    await done;
    const [name] = readdirSync(downloadPath);
    return { name, path: join(downloadPath, name) };
}

test("Estado de cuenta: the table for spreadsheets has every movement", async (t) => {
    const visitor = await visit(t);
    await visitor.go(`#/cuentas/${account}?desde=2026-05-01&hasta=${today}`);
    const { name, path } = await downloaded(visitor, "Descargar CSV");
    assert.equal(name, `estado-de-cuenta-${account}-2026-05-01-${today}.csv`);
    const table = python(
        path,
        "import csv\nprint(json.dumps(list(csv.DictReader(open(sys.argv[1], encoding='utf-8-sig', newline='')))))",
    );
    const where = `Bc_Cve_Banco_Cuenta = '${account}' AND substr(Bm_Fecha, 1, 10) >= '2026-05-01'`;
    const expected = rows(
        central,
        `SELECT Bm_Folio, Bm_Importe ${movementsOf(where)} ORDER BY substr(Bm_Fecha, 1, 10), Bm_Folio`,
    );
    assert.deepEqual(
        table.map((each) => each.Bm_Folio),
        expected.map((each) => each.Bm_Folio),
    );
    assert.equal(
        table.reduce((sum, each) => sum + Math.round(Number(each.Bm_Importe) * 100), 0),
        expected.reduce((sum, each) => sum + Math.round(each.Bm_Importe * 100), 0),
    );
});

test("Estado de cuenta: the PDF is of the period that is seen", async (t) => {
    const visitor = await visit(t);
    await visitor.go(`#/cuentas/${account}?desde=2026-10-20&hasta=${today}`);
    const { name, path } = await downloaded(visitor, "Descargar PDF");
    assert.equal(name, `estado-de-cuenta-${account}-2026-10-20-${today}.pdf`);
    const text = execFileSync("pdftotext", ["-layout", path, "-"], { encoding: "utf8" });
    assert.ok(
        text.includes(written(sumOf(`Bc_Cve_Banco_Cuenta = '${account}' AND substr(Bm_Fecha, 1, 10) <= '${today}'`))),
    );
});

// ---- Documents --------------------------------------------------------------------------------------------------------

test("Documentos: the newest of each kind, with their amounts", async (t) => {
    const visitor = await visit(t);
    for (const [kind, { table, key, date, amount }] of Object.entries(kinds)) {
        await visitor.go(`#/documentos/${kind}`);
        const sum = amount
            ? cents(amount)
            : "(SELECT SUM(CAST(ROUND(Pzd_Cargo * 100) AS INTEGER)) FROM Poliza_Detalle WHERE Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio)";
        const expected = rows(
            central,
            `SELECT ${key} AS folio, substr(${date}, 1, 10) AS date, ${sum} AS amount FROM ${table} ` +
                `GROUP BY ${key} ORDER BY substr(${date}, 1, 10) DESC, ${key} DESC LIMIT 40`,
        );
        const shown = await visitor.page.$$eval("tr[data-index]", (all) =>
            all.slice(0, 40).map((one) => ({
                folio: one.querySelector("th a").textContent,
                date: one.querySelector("td.date").textContent,
                amount: one.querySelector("td.figure").textContent,
            })),
        );
        assert.ok(expected.length > 0);
        assert.deepEqual(
            shown.slice(0, 20),
            expected
                .slice(0, 20)
                .map((each) => ({ folio: each.folio, date: day(each.date), amount: written(each.amount) })),
            kind,
        );
    }
});

test("Documentos: found by folio, party, amount, state and dates", async (t) => {
    const visitor = await visit(t);
    await visitor.go("#/documentos/checks");
    const search = async (fields) => {
        await visitor.go("#/documentos/checks");
        for (const [id, value] of Object.entries(fields)) {
            if (id === "estado" || id === "cuenta") await visitor.page.select(`#${id}`, value);
            else
                await visitor.page.$eval(
                    `#${id}`,
                    (input, text) => {
                        input.value = text;
                    },
                    value,
                );
        }
        await visitor.follow(() => visitor.page.click("#buscar"));
        return (await visitor.cells()).map((each) => each.Ch_Folio);
    };
    const found = (where) =>
        rows(
            central,
            `SELECT Ch_Folio FROM Cheque WHERE ${where} ORDER BY substr(Ch_Fecha, 1, 10) DESC, Ch_Folio DESC LIMIT 30`,
        ).map((each) => each.Ch_Folio);
    const some = row(central, "SELECT * FROM Cheque WHERE Es_Cve_Estado = 'AP' ORDER BY Ch_Folio DESC");
    const compare = async (fields, where) => {
        const expected = found(where);
        assert.ok(expected.length > 0, where);
        assert.deepEqual((await search(fields)).slice(0, 30), expected);
    };
    await compare({ texto: some.Ch_Beneficiario.toUpperCase() }, `Ch_Beneficiario = '${some.Ch_Beneficiario}'`);
    await compare(
        { importe: written(some.Ch_Importe * 100) },
        `ROUND(Ch_Importe * 100) = ${Math.round(some.Ch_Importe * 100)}`,
    );
    await compare({ estado: "CA" }, "Es_Cve_Estado = 'CA'");
    await compare(
        { estado: "AP", cuenta: some.Bc_Cve_Banco_Cuenta },
        `Es_Cve_Estado = 'AP' AND Bc_Cve_Banco_Cuenta = '${some.Bc_Cve_Banco_Cuenta}'`,
    );
    await compare(
        { desde: "2026-06-01", hasta: "2026-06-30" },
        "substr(Ch_Fecha, 1, 10) BETWEEN '2026-06-01' AND '2026-06-30'",
    );
    assert.deepEqual(await search({ texto: "no hay tal cosa" }), []);
    assert.match(await visitor.text(), /Ningún documento es así/);
    await search({ texto: some.Ch_Folio.toLowerCase() });
    assert.equal(await visitor.hash(), `#/documentos/checks/${some.Ch_Folio}`, "a whole folio leads to its document");
});

test("Documentos: a long list is read as far as it is seen, and no row of it is left out or comes twice", async (t) => {
    const visitor = await visit(t);
    await visitor.go("#/documentos/movements");
    assert.equal(
        visitor.asked.filter((url) => /movements\?.*limit=100/.test(url)).length,
        1,
        "one page before anybody moves",
    );
    const most = Math.min(600, row(central, "SELECT COUNT(*) AS count FROM Banco_Movimiento").count);
    const seen = new Map();
    await visitor.page.focus(".scroll");
    await visitor.page.keyboard.press("Home");
    for (let pages = 0; seen.size < most && pages < 200; ++pages) {
        const inPage = await visitor.page.$$eval("tr[data-index]", (all) =>
            all.map((one) => [Number(one.dataset.index), one.querySelector("a").textContent]),
        );
        assert.ok(inPage.length < 120, `${inPage.length} rows in the page`);
        for (const [index, folio] of inPage) {
            assert.equal(seen.get(index) ?? folio, folio);
            seen.set(index, folio);
        }
        await visitor.page.keyboard.press("PageDown");
        await visitor.page.waitForNetworkIdle({ idleTime: 20 });
    }
    const expected = rows(
        central,
        `SELECT Bm_Folio FROM Banco_Movimiento ORDER BY substr(Bm_Fecha, 1, 10) DESC, Bm_Folio DESC LIMIT ${seen.size}`,
    );
    assert.ok(seen.size >= most, `${seen.size} of ${most}`);
    assert.deepEqual(
        [...seen].sort(([a], [b]) => a - b).map(([, folio]) => folio),
        expected.map((each) => each.Bm_Folio),
    );
});

test("Documentos: rows that stay seen stay the same elements while further ones come", async (t) => {
    const visitor = await visit(t);
    await visitor.go("#/documentos/movements");
    const outcome = await visitor.page.evaluate(async () => {
        const scroll = document.querySelector(".scroll");
        const rows = () => document.querySelectorAll("tr[data-index]");
        const row = scroll.querySelector("tr[data-index='18']");
        const link = row.querySelectorAll("a")[1];
        link.focus();
        const before = rows().length;
        scroll.scrollTop = row.offsetTop;
        while (rows()[0].dataset.index === "0" && rows().length === before)
            await new Promise((next) => requestAnimationFrame(next));
        return { same: scroll.querySelector("tr[data-index='18']") === row, kept: document.activeElement === link };
    });
    assert.deepEqual(outcome, { same: true, kept: true });
});

const stateNames = {
    AC: "Activo",
    AP: "Aplicado",
    DP: "Depositado",
    AD: "Aplicado y depositado",
    TR: "En tránsito",
    FI: "En firme",
    CA: "Cancelado",
    PXA: "Por autorizar",
};

test("a document's page: its lines, movements, vouchers, life and ways, as the database has them", async (t) => {
    const visitor = await visit(t);
    const deposit = row(
        central,
        "SELECT Dp_Folio AS folio, COUNT(*) AS lines FROM Deposito_Pago WHERE Es_Cve_Estado = 'AC' GROUP BY Dp_Folio ORDER BY lines DESC, Dp_Folio",
    ).folio;
    await visitor.go(`#/documentos/deposits/${deposit}`);
    const lines = rows(central, `SELECT * FROM Deposito_Pago WHERE Dp_Folio = '${deposit}' ORDER BY Dp_Id`);
    const shownLines = await visitor.cells("#lines tbody tr");
    assert.deepEqual(
        shownLines.map((each) => [each.Dp_Id, each.Dp_Importe]),
        lines.map((each) => [each.Dp_Id, written(each.Dp_Importe * 100)]),
    );
    const movements = rows(
        central,
        `SELECT * FROM Banco_Movimiento WHERE Bm_Documento = '${deposit}' ORDER BY Bm_Folio`,
    );
    const shownMovements = await visitor.cells("#movements tbody tr");
    assert.deepEqual(
        shownMovements.map((each) => [each.Bm_Folio, each.Bm_Importe]),
        movements.map((each) => [each.Bm_Folio, written(each.Bm_Importe * 100)]),
    );
    const links = await visitor.texts("#links a");
    for (const { Rp_Folio } of rows(
        central,
        `SELECT DISTINCT Rp_Folio FROM Recibo_Pago WHERE Rp_Folio_Deposito = '${deposit}'`,
    )) {
        assert.ok(links.includes(Rp_Folio));
    }
    const charges = await visitor.texts("#vouchers [data-column=Pzd_Cargo]:not(th)");
    const { sum } = row(
        central,
        `SELECT ${cents("Pzd_Cargo")} AS sum FROM Poliza_Detalle WHERE Pz_Folio IN (SELECT Pz_Folio FROM Poliza WHERE Pz_Documento = '${deposit}')`,
    );
    assert.equal(
        written(charges.reduce((total, text) => total + Math.round(Number(text.replaceAll(",", "")) * 100), 0)),
        written(sum),
    );

    const check = row(central, "SELECT * FROM Cheque WHERE Es_Cve_Estado = 'AP' ORDER BY Ch_Folio");
    await visitor.go(`#/documentos/checks/${check.Ch_Folio}`);
    const life = await visitor.texts(".life li");
    assert.match(
        life[0],
        new RegExp(`^Captura\\s+Activo\\s+${check.Oper_Alta}, ${day(check.Fecha_Alta.slice(0, 10))}`),
    );
    assert.match(life.at(-1), /Aplicado/);
    assert.equal(await visitor.text(".head .state"), "Aplicado");
    for (const kind of ["receipts", "receivables", "payables", "advances", "requests", "movements"]) {
        const { table, key, amount } = kinds[kind];
        const some = row(
            central,
            `SELECT ${key} AS folio, Es_Cve_Estado AS state, ${cents(amount)} AS amount FROM ${table} GROUP BY ${key} ORDER BY ${key} DESC`,
        );
        await visitor.go(`#/documentos/${kind}/${some.folio}`);
        assert.equal(await visitor.text(".head .state"), stateNames[some.state]);
        assert.ok(
            (await visitor.texts("dl.header dd")).includes(written(some.amount)),
            `${some.folio}: ${written(some.amount)}`,
        );
    }
});

test("a document that does not exist is told, and the reader goes on", async (t) => {
    const visitor = await Visit.begin(browser, `${alone.address}/`);
    t.after(() => visitor.end());
    await visitor.signIn(ana);
    await visitor.go("#/documentos/checks/CH-0");
    assert.match(await visitor.text(), /No existe/);
    await visitor.go("#/presupuestos");
    assert.match(await visitor.text("h1"), /Presupuestos/);
    await visitor.page.evaluate(() => {
        location.hash = "#/nada";
    });
    await visitor.page.waitForFunction(() => location.hash === "#/cuentas");
});

// ---- Budgets, audit ---------------------------------------------------------------------------------------------------

test("Presupuestos: what was used of a month is what its checks come to", async (t) => {
    const visitor = await visit(t);
    await visitor.go("#/presupuestos");
    assert.match(await visitor.text("h1"), /2026/);
    await visitor.page.$$eval("details", (all) =>
        all.forEach((one) => {
            one.open = true;
        }),
    );
    const checks =
        "FROM Cheque JOIN Tipo_Cheque USING (Tc_Cve_Tipo_Cheque) WHERE Cheque.Es_Cve_Estado NOT IN ('CA', 'PXA') AND ";
    const cases = [
        [
            "Anticipo a proveedor/PV/PV02",
            "Tc_Solicitar = '05' AND Ch_Solicitar_Valor = 'PV02'",
            "Anticipo_Proveedor_Presupuesto",
            "App",
        ],
        ["Anticipo a proveedor/EM/EM01", "Tc_Solicitar = '05'", "Anticipo_Proveedor_Presupuesto", "App"],
        [
            "Devolución a cliente/CL/CL01",
            "Tc_Solicitar = '03' AND Ch_Solicitar_Valor = 'CL01'",
            "Devolucion_Cliente_Presupuesto",
            "Dcp",
        ],
        [
            "Préstamo a deudor/SC/MTY",
            "Tc_Solicitar = '04' AND Cheque.Sc_Cve_Sucursal = 'MTY'",
            "Prestamo_Deudor_Presupuesto",
            "Pdp",
        ],
    ];
    let all = 0;
    for (const [budget, where, table, prefix] of cases) {
        const [, level, holder] = budget.split("/");
        const allowed = row(
            central,
            `SELECT * FROM ${table} WHERE ${prefix}_Tipo = '${level}' AND ${prefix}_Valor = '${holder}' AND ${prefix}_Periodo = 2026`,
        );
        const shown = await visitor.cells(`[data-budget="${budget}"] tbody tr`);
        for (let month = 1; month <= 12; ++month) {
            const two = String(month).padStart(2, "0");
            const used = rows(
                central,
                `SELECT Ch_Importe * Ch_Tipo_Cambio AS amount ${checks} ${where} AND substr(Ch_Fecha, 1, 7) = '2026-${two}'`,
            ).reduce((sum, each) => sum + each.amount, 0);
            all += used;
            assert.equal(shown[month - 1].used, written(used * 100), `${budget}, ${two}`);
            assert.equal(shown[month - 1].budget, written(allowed[`${prefix}_${two}`] * 100));
        }
    }
    assert.ok(all > 0);
});

test("Revisión: rule by rule, to the end; a company without differences is told so", async (t) => {
    const visitor = await visit(t);
    await visitor.go("#/revision");
    await visitor.page.click("main button");
    await visitor.page.waitForFunction(() => /^Todo cuadra/.test(document.querySelector(".count").textContent));
    const checks = Number(/\d+/.exec(await visitor.text(".count"))[0]);
    assert.equal(visitor.asked.filter((url) => /audit\?check=(?!none)/.test(url)).length, checks);
    assert.equal(await visitor.page.$eval("progress", (bar) => bar.value === bar.max && bar.max), checks);
    assert.deepEqual(await visitor.texts(".finding"), []);
});

test("Revisión: each finding has its figures, its remedy and the way to its document", async (t) => {
    change(
        broken,
        `UPDATE Banco_Cuenta SET Bc_Saldo = Bc_Saldo + 100 WHERE Bc_Cve_Banco_Cuenta = '${account}'`,
        "UPDATE Deposito_Pago SET Dp_Importe = Dp_Importe + 1 WHERE Dp_Folio = (SELECT MIN(Dp_Folio) FROM Deposito_Pago WHERE Es_Cve_Estado = 'AC') AND Dp_Id = '0001'",
    );
    const visitor = await visit(t, { service: several, company: "rota/" });
    assert.match(await visitor.text(`[data-account="${account}"] .warning`), /Sus movimientos suman/);
    await visitor.go("#/revision");
    await visitor.page.click("main button");
    await visitor.page.waitForFunction(() => /^Diferencias/.test(document.querySelector(".count").textContent));
    let findings;
    try {
        run("audit", "--db", broken, "--json");
        assert.fail("the audit of the command line finds nothing");
    } catch (refused) {
        findings = JSON.parse(refused.stdout);
    }
    assert.ok(findings.length >= 3);
    const shown = await visitor.texts(".finding");
    assert.deepEqual(
        shown,
        findings.map((each) => [each.document, each.figures, `Remedio: ${each.remedy}`].join("\n\n")),
    );
    const [href] = await visitor.page.$$eval(".finding a", (all) => all.map((one) => one.getAttribute("href")));
    assert.equal(href, `#/cuentas/${account}`);
    await visitor.follow(() => visitor.page.click('.finding a[href*="deposits"]'));
    assert.match(await visitor.text("h1"), /^Depósito/);
});

// ---- Hostile texts ----------------------------------------------------------------------------------------------------

const hostileTexts = [
    '<script>globalThis.taken = "script"</script>',
    '"><img src=x onerror="globalThis.taken=1">',
    "\u202egnirts \u202d\u2066\u200f&amp;<b>&lt;",
    "x".repeat(8000),
    "javascript:globalThis.taken=2",
    "</td></table><svg onload=globalThis.taken=3>'\"`${taken}",
];

/** Into every text that is no key of another row and no date. */
const poison = `
texts = json.loads(sys.argv[2])
turn = 0
connection.execute("PRAGMA ignore_check_constraints = ON")
for (table,) in connection.execute("SELECT name FROM sqlite_master WHERE type = 'table'").fetchall():
    for column in connection.execute(f"PRAGMA table_info('{table}')").fetchall():
        name = column["name"]
        said = "_Cve_" in name or "Fecha" in name or any(name.endswith(end) for end in ("_Folio", "_Tabla", "_Documento", "_Valor", "_Id", "_ID", "_Tipo", "_Solicitar", "_Codigo", "_Deposito"))
        if column["type"] != "TEXT" or column["pk"] or (said and name != "Es_Cve_Estado"):
            continue
        if name == "Es_Cve_Estado" and table not in ("Poliza", "Solicitud_Cheque"):
            continue
        for key in [each[0] for each in connection.execute(f"SELECT rowid FROM {table}").fetchall()]:
            connection.execute(f"UPDATE {table} SET {name} = ? WHERE rowid = ?", (texts[turn % len(texts)], key))
            turn += 1
for table, name in (("Recibo_Pago", "Rp_Folio"), ("Cheque", "Ch_Folio"), ("Cheque_x_Aplicar", "Ch_Folio")):
    key = connection.execute(f"SELECT MIN({name}) FROM {table}").fetchone()[0]
    connection.execute(f"UPDATE {table} SET {name} = ? WHERE {name} = ?", (texts[1] + "/%2e?#" + texts[2], key))
connection.commit()
`;

test("hostile texts in every field are texts", async (t) => {
    python(hostile, poison, JSON.stringify(hostileTexts));
    for (const width of [360, 1440]) {
        const visitor = await visit(t, { service: several, company: "hostil/", width });
        const everywhere = [
            "#/cuentas",
            `#/cuentas/${account}`,
            ...Object.keys(kinds).map((kind) => `#/documentos/${kind}`),
            ...someDocuments(hostile),
            "#/presupuestos",
        ];
        const folio = row(hostile, "SELECT Ch_Folio AS folio FROM Cheque WHERE Ch_Folio LIKE '%onerror%'").folio;
        everywhere.push(`#/documentos/checks/${encodeURIComponent(folio)}`);
        let seen = "";
        for (const place of everywhere) {
            await visitor.go(place);
            assert.equal(await visitor.page.evaluate(() => globalThis.taken), undefined, place);
            assert.equal(
                await visitor.page.evaluate(
                    () =>
                        document.querySelectorAll(
                            "main script, main img, main b, main [onload], main [onerror], main iframe",
                        ).length,
                ),
                0,
                place,
            );
            assert.ok(
                await visitor.page.evaluate(() => document.documentElement.scrollWidth <= innerWidth),
                `${place} is wider than ${width}`,
            );
            seen += await visitor.page.$eval("main", (main) => main.textContent);
        }
        for (const text of hostileTexts) assert.ok(seen.includes(text), `nowhere: ${text.slice(0, 60)}`);
        assert.match(await visitor.text("h1"), /onerror/);
    }
});

// ---- Eyes, hands, paper -----------------------------------------------------------------------------------------------

async function violations(visitor) {
    await visitor.page.evaluate(axe);
    return visitor.page.evaluate(async () => {
        const found = await globalThis.axe.run(document);
        return found.violations.map(
            (each) => `${each.id}: ${each.nodes.map((node) => `${node.target} ${node.failureSummary}`).join("; ")}`,
        );
    });
}

for (const scheme of ["light", "dark"]) {
    test(`axe finds nothing, ${scheme}`, async (t) => {
        const door = await Visit.begin(browser, several.address, { scheme });
        t.after(() => door.end());
        assert.deepEqual(await violations(door), [], "companies");
        await door.page.goto(`${several.address}/central/`);
        assert.deepEqual(await violations(door), [], "door");
        const visitor = await visit(t, { service: several, company: "rota/", scheme });
        for (const place of [...places(), ...someDocuments(broken)]) {
            await visitor.go(place);
            if (place === "#/revision") {
                await visitor.page.click("main button");
                await visitor.page.waitForFunction(() =>
                    /^(Dif|Todo)/.test(document.querySelector(".count").textContent),
                );
            }
            await visitor.page.$$eval("details", (all) =>
                all.forEach((one) => {
                    one.open = true;
                }),
            );
            assert.deepEqual(await violations(visitor), [], place);
        }
    });
}

for (const width of [360, 768, 1440]) {
    test(`nothing stands out of a window of ${width} pixels`, async (t) => {
        const visitor = await visit(t, { width });
        for (const place of [...places(), ...Object.keys(kinds).map((kind) => `#/documentos/${kind}`)]) {
            await visitor.go(place);
            const out = await visitor.page.evaluate(() =>
                [...document.querySelectorAll("body *")]
                    .filter(
                        (each) =>
                            each.getBoundingClientRect().right > innerWidth + 1 &&
                            !each.closest(".wide, .visually-hidden, .u-wrap"),
                    )
                    .map((each) => each.outerHTML.slice(0, 120)),
            );
            assert.deepEqual(out, [], place);
            assert.ok(await visitor.page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), place);
        }
    });
}

test("all of it by the keyboard alone", async (t) => {
    const visitor = await Visit.begin(browser, `${alone.address}/`);
    t.after(() => visitor.end());
    const { keyboard } = visitor.page;
    const focused = () =>
        visitor.page.evaluate(() => {
            const { activeElement } = document;
            return activeElement === document.body ? "" : activeElement.id || activeElement.innerText.trim();
        });
    const ring = () => visitor.page.evaluate(() => getComputedStyle(document.activeElement).outlineStyle);
    const tabTo = async (text) => {
        for (let i = 0; i < 60; ++i) {
            await keyboard.press("Tab");
            if ((await focused()).startsWith(text))
                return assert.equal(await ring(), "solid", `no ring around ${text}`);
        }
        assert.fail(`the keyboard does not come to ${text}`);
    };
    await visitor.page.waitForSelector("#token");
    assert.equal(await focused(), "token");
    await keyboard.type(ana);
    await keyboard.press("Enter");
    await visitor.page.waitForSelector(".accounts");
    assert.equal(await focused(), "Cuentas", "the title is read first");
    await visitor.page.evaluate(() => document.activeElement.blur());
    await tabTo("Saltar al contenido");
    await keyboard.press("Enter");
    await tabTo("Sierra, operación en pesos");
    await visitor.follow(() => keyboard.press("Enter"));
    await tabTo("desde");
    await tabTo("ver");
    await visitor.follow(() => keyboard.press("Enter"));
    assert.equal(await focused(), "ver", "the focus stays where the reader was");
    await tabTo("Descargar PDF");
    await keyboard.press("Tab");
    await keyboard.press("ArrowDown");
    const [first, second] = await visitor.texts("tr[data-index] th > a");
    assert.equal(await focused(), first);
    await keyboard.press("ArrowDown");
    assert.equal(await focused(), second);
    await keyboard.press("ArrowRight");
    assert.match(await focused(), /^(CH|DP)-/, "the document of the movement stands beside it");
    await keyboard.press("ArrowLeft");
    await keyboard.press("PageDown");
    await keyboard.press("Home");
    assert.equal(await focused(), first);
    await visitor.follow(() => keyboard.press("Enter"));
    assert.match(await visitor.text("h1"), new RegExp(first));
    await visitor.follow(() => visitor.page.goBack());
    assert.match(await visitor.hash(), /^#\/cuentas\//);
    await visitor.page.evaluate(() => document.activeElement.blur());
    await tabTo("Revisión");
    await visitor.follow(() => keyboard.press("Enter"));
    await tabTo("Revisar");
    await keyboard.press("Enter");
    await visitor.page.waitForFunction(() => /^Todo cuadra/.test(document.querySelector(".count").textContent));
    assert.equal(await focused(), "Revisar de nuevo");
    assert.deepEqual(visitor.problems, []);
});

function textOf(pdf) {
    const file = join(folder, "page.pdf");
    writeFileSync(file, pdf);
    return execFileSync("pdftotext", ["-layout", file, "-"], { encoding: "utf8" });
}

test("on paper the statement is whole, without what only a screen needs", async (t) => {
    // The last days, as many as fill pages.
    const of = `Bc_Cve_Banco_Cuenta = '${account}'`;
    const days = rows(
        central,
        `SELECT substr(Bm_Fecha, 1, 10) AS day, COUNT(*) AS count ${movementsOf(of)} GROUP BY 1 ORDER BY 1 DESC`,
    );
    let count = 0;
    const begin = days.find((each) => (count += each.count) > 60).day;
    const folios = rows(
        central,
        `SELECT Bm_Folio ${movementsOf(of)} AND substr(Bm_Fecha, 1, 10) BETWEEN '${begin}' AND '${today}'`,
    ).map((each) => each.Bm_Folio);
    const visitor = await visit(t);
    await visitor.go(`#/cuentas/${account}?desde=${begin}&hasta=${today}`);
    await visitor.page.evaluate(() => {
        globalThis.print = () => document.body.setAttribute("data-printed", "");
    });
    await visitor.page.evaluate(() =>
        [...document.querySelectorAll("button")].find((button) => button.innerText === "Imprimir").click(),
    );
    await visitor.page.waitForSelector("[data-printed]");
    const text = textOf(await visitor.page.pdf({ format: "letter", printBackground: true }));
    assert.deepEqual([...new Set(text.match(/BM-\d+/g))].sort(), folios.sort());
    assert.match(text, /Saldo inicial/);
    assert.match(text, new RegExp(`Del ${day(begin)} al 31/10/2026, impreso el 31/10/2026`));
    assert.ok(!/Descargar|Salir|Presupuestos/.test(text));
});

test("a service that goes away is told, and asked again", async (t) => {
    const where = ["--db", central, "--listen", `127.0.0.1:${await freePort()}`];
    const service = await new Service(...where).ready;
    const visitor = await Visit.begin(browser, `${service.address}/`);
    t.after(() => visitor.end());
    await visitor.signIn(ana);
    assert.equal(await service.end(), 0);
    await visitor.go("#/presupuestos");
    assert.match(await visitor.text(), /El servicio no responde/);
    const again = await new Service(...where).ready;
    t.after(() => again.end());
    await visitor.follow(() => visitor.page.click("main button"));
    assert.match(await visitor.text("h1"), /Presupuestos/);
});

test("what is read of a replica says how far it may be behind", async (t) => {
    const visitor = await visit(t);
    assert.equal(await visitor.page.$("#replica:not([hidden])"), null);
    let lag = "0.412";
    const client = await visitor.page.createCDPSession();
    client.on("Fetch.requestPaused", ({ requestId, responseStatusCode, responseHeaders }) =>
        client.send("Fetch.continueResponse", {
            requestId,
            responseCode: responseStatusCode,
            responseHeaders: [...responseHeaders, { name: "Cuvexa-Replica-Lag", value: lag }],
        }),
    );
    await client.send("Fetch.enable", { patterns: [{ resourceType: "Fetch", requestStage: "Response" }] });
    await visitor.go("#/documentos/checks");
    assert.equal(await visitor.text("#replica"), "Leído de una réplica, a lo más 0.412 s detrás del primario.");
    assert.deepEqual(await violations(visitor), []);
    lag = "unknown";
    await visitor.go("#/presupuestos");
    assert.equal(await visitor.text("#replica"), "Leído de una réplica, no se sabe qué tan detrás del primario.");
    await client.send("Fetch.disable");
    await visitor.go("#/cuentas");
    assert.equal(await visitor.page.$("#replica:not([hidden])"), null);
});

test("the README's lines show the sample company", async (t) => {
    const page = readFileSync(join(process.env.CUVEXA_SOURCE, "README.md"), "utf8");
    const [, lines] = /\n## In the browser\n\n```sh\n([^]*?)\n```/.exec(page);
    const cwd = join(folder, "newcomer");
    mkdirSync(cwd);
    const service = await Service.byLines(lines, cwd);
    t.after(async () => assert.equal(await service.end(), 0));
    const visitor = await visit(t, { service, bearer: service.said.trim().split(/\s/).at(-1) });
    assert.match(await visitor.text(), /Total en MXN/);
    assert.match(await visitor.text(`[data-account="${account}"]`), /[1-9][\d,]*\.\d\d MXN/);
});

// ---- Pictures ---------------------------------------------------------------------------------------------------------

test("a picture of each view", { skip: !process.env.CUVEXA_SCREENSHOTS }, async (t) => {
    const out = process.env.CUVEXA_SCREENSHOTS;
    mkdirSync(out, { recursive: true });
    const take = (visitor, name) => visitor.page.screenshot({ path: join(out, `console-${name}.png`) });
    const size = { width: 1200, height: 860 };
    const visitor = await visit(t, size);
    const check = row(
        central,
        "SELECT Ch_Folio AS folio FROM Cheque WHERE Es_Cve_Estado = 'AP' ORDER BY Ch_Folio DESC",
    ).folio;
    const views = {
        accounts: "#/cuentas",
        statement: `#/cuentas/${account}`,
        documents: "#/documentos/receipts",
        document: `#/documentos/checks/${check}`,
        budgets: "#/presupuestos",
    };
    for (const [name, place] of Object.entries(views)) {
        await visitor.go(place);
        await take(visitor, name);
    }
    const differences = await visit(t, { service: several, company: "rota/", ...size });
    await differences.go("#/revision");
    await differences.page.click("main button");
    await differences.page.waitForFunction(() => /^Diferencias/.test(document.querySelector(".count").textContent));
    await take(differences, "audit");
    const dark = await visit(t, { scheme: "dark", ...size });
    await dark.go(`#/cuentas/${account}`);
    await take(dark, "statement-dark");
    const phone = await visit(t, { width: 390, height: 844 });
    await take(phone, "accounts-phone");
});
