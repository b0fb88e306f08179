// The client in TypeScript: compiled strictly, run by Node against a service of a sample company.
import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:net";
import { createServer as createHttpServer, request as send } from "node:http";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { createInterface } from "node:readline";
import test, { after, before } from "node:test";
import { fileURLToPath } from "node:url";

const { CUVEXA, CUVEXA_SOURCE, CUVEXA_CLIENTS } = process.env;
const here = dirname(fileURLToPath(import.meta.url));
const tsc = join(here, "node_modules", "typescript", "bin", "tsc");
const library = join(CUVEXA_CLIENTS, "typescript");
const folder = mkdtempSync(join(tmpdir(), "cuvexa-clients-"));
const database = join(folder, "company.db");
const tokens = join(folder, "tokens.json");
const day = "2024-03-15";

const run = (...args) => execFileSync(CUVEXA, args, { encoding: "utf8" });
const shown = (view) => JSON.parse(run("show", view, "--json", "--db", database));

let cuvexa, service, token, address, running;

before(async () => {
    execFileSync(process.execPath, [tsc, "-p", library], { stdio: "inherit" });
    cuvexa = await import(join(library, "dist", "index.js"));
    run("init", "--db", database, "--sample");
    token = run("token", "add", "ana", "--tokens", tokens).trim().split(" ").at(-1);
    const args = ["serve", "--db", database, "--tokens", tokens, "--listen", "127.0.0.1:0", "--server-date", day];
    running = spawn(CUVEXA, args, { stdio: ["ignore", "ignore", "pipe"] });
    const line = await new Promise((done) => createInterface(running.stderr).once("line", done));
    address = `http://${JSON.parse(line).listening}`;
    service = new cuvexa.Service(address, token);
});

after(async () => {
    const ended = new Promise((done) => running.once("exit", done));
    running.kill();
    assert.equal(await ended, 0);
    rmSync(folder, { recursive: true });
});

const header = {
    Rp_Fecha: day,
    Mn_Cve_Moneda: "MXN",
    Rp_Tipo_Cambio: 1,
    TipoReciboPago: { Trp_Cve_Tipo_Recibo_Pago: "01" },
    Sucursal: { Sc_Cve_Sucursal: "MTY" },
};

/** A receipt in a batch; its header. */
function capture(batch, amount = 150) {
    const treasury = batch.Tesoreria();
    treasury.NuevoReciboCaja();
    treasury.RpEncabezado = header;
    treasury.RpDetalle = { Fp_Cve_Forma_Pago: { Fp_Cve_Forma_Pago: "01" }, Rp_Importe: amount };
    treasury.Add_Recibo_Caja_Detalle();
    return { treasury, receipt: treasury.RpEncabezado };
}

test("what earlier entries give goes into later ones", async () => {
    const batch = service.batch();
    const { treasury, receipt } = capture(batch);
    const closed = treasury.FinReciboCaja(receipt.at("Rp_Folio"));
    assert.throws(() => closed.value, /not sent/);
    await batch.send();
    assert.equal(closed.value, true);
    assert.match(receipt.value.Rp_Folio, /^RP-MTY-/);
    assert.equal(receipt.value.Rp_Fecha, day);
    assert.equal(receipt.at("Sucursal").at("Sc_Cve_Sucursal").value, "MTY");
});

test("a refusal is thrown with its reason, and nothing is kept", async () => {
    const kept = shown("receipts").length;
    const batch = service.batch();
    const { treasury, receipt } = capture(batch);
    treasury.Genera_Deposito("NONE", receipt.at("Rp_Folio"), day, true, day);
    await assert.rejects(batch.send(), (failure) => {
        assert.ok(failure instanceof cuvexa.Refused);
        assert.equal(failure.member, "Genera_Deposito");
        return /No se encontró la información de la cuenta bancaria!/.test(failure.message);
    });
    assert.equal(shown("receipts").length, kept);
});

test("what does not fit, and who may not, is told", async () => {
    const batch = service.batch();
    batch.Tesoreria().GetSaldo(5);
    await assert.rejects(batch.send(), (failure) => failure instanceof cuvexa.Failed && failure.code === -32602);
    const stranger = new cuvexa.Service(address, "cvx_no").batch();
    capture(stranger);
    await assert.rejects(stranger.send(), (failure) => failure instanceof cuvexa.ServiceError && failure.status === 401);
});

test("objects are given, optional arguments left out, records come back as the member left them", async () => {
    const batch = service.batch();
    const treasury = batch.Tesoreria();
    const extras = batch.clsRpDetalle();
    extras.Rp_Vendedor = "V1";
    treasury.RpDetalle2 = extras;
    const seller = extras.Rp_Vendedor;
    const movement = {
        Bt_Cve_Banco_Tipo_Movimiento: "INT",
        Bm_Fecha: day,
        Bm_Fecha_Firme: day,
        Bm_Importe: 10,
        Bm_Tipo_Cambio: 1,
        Cuenta: { Bc_Cve_Banco_Cuenta: "PTO-MXN" },
    };
    treasury.Registra_Movimiento_Banco(movement);
    const balance = treasury.GetSaldo("PTO-MXN");
    await batch.send();
    assert.equal(seller.value, "V1");
    assert.equal(balance.value, 10);
    assert.equal(movement.Cuenta.Mn_Cve_Moneda, "MXN");
});

test("a key is done once, however often it is sent and whatever answer is lost", async () => {
    const deeds = ["drop", "refuse", "lose"];
    const keys = [];
    const obstacle = createHttpServer((asked, answer) => {
        keys.push(asked.headers["idempotency-key"]);
        const deed = deeds.shift();
        if (deed === "drop") return asked.socket.destroy();
        if (deed === "refuse") return answer.writeHead(503).end();
        const { method, headers } = asked;
        const passed = send(address + asked.url, { method, headers }, (given) => {
            if (deed === "lose") return asked.socket.destroy();
            answer.writeHead(given.statusCode, given.headers);
            given.pipe(answer);
        });
        asked.pipe(passed);
    });
    await new Promise((done) => obstacle.listen(0, "127.0.0.1", done));
    const kept = shown("receipts").length;
    const batch = new cuvexa.Service(`http://127.0.0.1:${obstacle.address().port}`, token).batch("order/1");
    const { receipt } = capture(batch);
    await batch.send();
    obstacle.close();
    assert.deepEqual(keys, Array(4).fill("order/1"));
    assert.ok(batch.replayed, "the third was done, and its answer lost");
    assert.equal(shown("receipts").length, kept + 1);
    const told = await service.answerTo("order/1");
    assert.equal(told.at(-1).result.value.Rp_Folio, receipt.value.Rp_Folio);
    assert.equal(await service.answerTo("another"), undefined);
});

test("after its tries the key is told", async () => {
    const gone = new cuvexa.Service("http://127.0.0.1:1", token, { tries: 2 }).batch("k");
    capture(gone);
    await assert.rejects(gone.send(), (failure) => failure instanceof cuvexa.Unreachable && failure.key === "k");
});

// ---- Types ------------------------------------------------------------------------------------------------------------

/** Compiles a program beside the library; what the compiler says. */
function compiled(name, text) {
    const scratch = join(folder, name);
    mkdirSync(join(scratch, "node_modules"), { recursive: true });
    execFileSync("ln", ["-sfn", library, join(scratch, "node_modules", "cuvexa")]);
    execFileSync("ln", ["-sfn", join(here, "node_modules", "@types"), join(scratch, "node_modules", "@types")]);
    writeFileSync(join(scratch, "package.json"), '{"type":"module"}');
    writeFileSync(join(scratch, "program.ts"), text);
    const options = ["--strict", "--target", "ES2022", "--module", "NodeNext", "--types", "node", "program.ts"];
    try {
        execFileSync(process.execPath, [tsc, ...options], { cwd: scratch, encoding: "utf8" });
        return "";
    } catch (failure) {
        return failure.stdout;
    }
}

test("the compiler refuses what the component would", () => {
    const lines = [
        'import { Service } from "cuvexa";',
        'const treasury = new Service("", "").batch().Tesoreria();',
        'treasury.GetSaldo("SRR-MXN");',
        "treasury.GetSaldo(5);",
        "treasury.Nothing();",
        "treasury.RpEncabezado = { Rp_Folios: '' };",
        "treasury.Error = '';",
        "treasury.FinReciboCaja(treasury.RpEncabezado.at('Rp_Tipo_Cambio'));",
    ];
    const refused = [...compiled("wrong", lines.join("\n")).matchAll(/program\.ts\((\d+),\d+\): error TS/g)];
    assert.deepEqual([...new Set(refused.map((found) => Number(found[1])))], [4, 5, 6, 7, 8]);
});

/** A port that nobody listens on, below those that the system gives to who asks for any: nobody is given it meanwhile. */
async function freePort() {
    for (;;) {
        const port = 20_000 + Math.floor(Math.random() * 12_000);
        const probe = createServer();
        const isFree = await new Promise((done) => {
            probe.once("error", () => done(false)).listen(port, "127.0.0.1", () => done(true));
        });
        if (!isFree) continue;
        await new Promise((done) => probe.close(done));
        return String(port);
    }
}

test("the README's example runs as it stands", async () => {
    const page = readFileSync(join(CUVEXA_SOURCE, "README.md"), "utf8");
    const section = page.split("\n## From other machines\n")[1].split("\n## ")[0];
    const block = (language) => section.split(`\n\`\`\`${language}\n`)[1].split("\n```\n")[0];
    const port = await freePort();
    const here = (text) => text.replaceAll("8470", port);
    assert.equal(compiled("readme", here(block("ts"))), "");
    const scratch = join(folder, "readme");
    run("init", "--db", join(scratch, "company.db"), "--sample");
    const shell = here(block("sh")).replace("serve ", `serve --listen 127.0.0.1:${port} `);
    const script = `set -e\ntrap 'kill $!; wait' EXIT\n${shell}\n'${process.execPath}' program.js\n`;
    const env = { ...process.env, PATH: `${dirname(CUVEXA)}:${process.env.PATH}` };
    const output = execFileSync("sh", ["-c", script], { cwd: scratch, env, encoding: "utf8", timeout: 60_000 });
    assert.match(output, /RP-MTY-00000001 is in DP-MTY-00000001\n$/);
});
