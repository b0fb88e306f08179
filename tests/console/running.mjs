// What the tests of the console stand on: companies, a service of them, a browser, and what is asked of the database beside both.
import { execFileSync, spawn } from "node:child_process";
import { copyFileSync, existsSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:net";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { createInterface } from "node:readline";
import puppeteer from "puppeteer-core";

const { CUVEXA } = process.env;
const browsers = [process.env.CHROMIUM, "/usr/bin/chromium", "/usr/bin/chromium-browser", "/usr/bin/google-chrome"];

/** The day that the browser takes for today; the sample company ends on it. */
export const today = "2026-10-31";

export const folder = mkdtempSync(join(tmpdir(), "cuvexa-console-"));
export const tokens = join(folder, "tokens.json");

export const run = (...args) => execFileSync(CUVEXA, args, { encoding: "utf8", maxBuffer: 1 << 30 });

/** A company with a life of its own; its file. */
export function sample(name, receipts) {
    const file = join(folder, `${name}.db`);
    run(
        "sample",
        "--db",
        file,
        "--receipts",
        String(receipts),
        "--months",
        "6",
        "--until",
        today,
        "--synchronous",
        "off",
    );
    return file;
}

export function copyOf(file, name) {
    const copy = join(folder, `${name}.db`);
    copyFileSync(file, copy);
    return copy;
}

/** Runs a script of Python on a database, beside the component; what it prints, as JSON. */
export function python(file, script, ...args) {
    const head =
        "import json, sqlite3, sys\nconnection = sqlite3.connect(sys.argv[1])\n" +
        "connection.row_factory = sqlite3.Row\n";
    const given = { encoding: "utf8", input: head + script, maxBuffer: 1 << 30 };
    const printed = execFileSync("python3", ["-", file, ...args], given);
    return printed ? JSON.parse(printed) : undefined;
}

/** The rows of a statement. */
export function rows(file, statement) {
    return python(file, "print(json.dumps([dict(row) for row in connection.execute(sys.argv[2])]))", statement);
}

export const row = (file, statement) => rows(file, statement)[0];

/** Changes a database behind the component's back. */
export function change(file, ...statements) {
    python(
        file,
        "for text in json.loads(sys.argv[2]): connection.execute(text)\nconnection.commit()\n",
        JSON.stringify(statements),
    );
}

/** Cents as they stand on the page, written without the libraries that the page uses. */
export function written(cents) {
    const digits = String(Math.abs(Math.round(cents ?? 0))).padStart(3, "0");
    const whole = digits.slice(0, -2).replace(/\B(?=(\d{3})+$)/g, ",");
    return `${cents < 0 ? "-" : ""}${whole}.${digits.slice(-2)}`;
}

/** The statement of SQLite for a sum in cents, exact to the last. */
export const cents = (column) => `COALESCE(SUM(CAST(ROUND(${column} * 100) AS INTEGER)), 0)`;

// ---- The service ------------------------------------------------------------------------------------------------------

/** One that nobody listens on, below those that the system gives to who asks for any: nobody is given it meanwhile. */
export async function freePort() {
    for (;;) {
        const port = 20000 + Math.floor(Math.random() * 12000);
        const probe = createServer();
        const isFree = await new Promise((tell) => {
            probe.once("error", () => tell(false));
            probe.listen(port, "127.0.0.1", () => tell(true));
        });
        if (!isFree) continue;
        await new Promise((closed) => probe.close(closed));
        return port;
    }
}

export class Service {
    constructor(...options) {
        const listen = options.includes("--listen") ? [] : ["--listen", "127.0.0.1:0"];
        const args = ["serve", "--tokens", tokens, ...listen, ...options];
        this.process = spawn(CUVEXA, args, { stdio: ["ignore", "ignore", "pipe"] });
        const lines = createInterface(this.process.stderr);
        this.ready = new Promise((done) => lines.once("line", done)).then((line) => {
            this.address = `http://${JSON.parse(line).listening}`;
            lines.on("line", () => {});
            return this;
        });
        this.ended = new Promise((done) => this.process.once("exit", done));
    }

    /** The same by lines of a shell, the last of which serves; what they print before it stands in `said`. */
    static async byLines(script, cwd) {
        const service = Object.create(Service.prototype);
        const env = { ...process.env, PATH: `${dirname(CUVEXA)}:${process.env.PATH}` };
        service.process = spawn(
            "sh",
            ["-c", `set -e\n${script.replace(/^(cuvexa serve)/m, "exec $1 --listen 127.0.0.1:0")}`],
            { cwd, env },
        );
        service.said = "";
        service.process.stdout.on("data", (bytes) => {
            service.said += bytes;
        });
        service.ended = new Promise((done) => service.process.once("exit", done));
        for await (const line of createInterface(service.process.stderr)) {
            if (line.startsWith('{"listening"')) {
                service.address = `http://${JSON.parse(line).listening}`;
                break;
            }
        }
        service.process.stderr.resume();
        return service;
    }

    end() {
        this.process.kill();
        return this.ended;
    }
}

export function companiesFile(companies) {
    const file = join(folder, "companies.json");
    writeFileSync(file, JSON.stringify(companies));
    return file;
}

export const token = (name, ...options) =>
    run("token", "add", name, "--tokens", tokens, ...options)
        .trim()
        .split(" ")
        .at(-1);

// ---- The browser ------------------------------------------------------------------------------------------------------

export function launch() {
    const executablePath = browsers.find((path) => path && existsSync(path));
    const args = ["--no-sandbox", "--disable-gpu", "--lang=es-MX", "--force-color-profile=srgb"];
    return puppeteer.launch({
        executablePath,
        args,
        env: { ...process.env, LANGUAGE: "es_MX", TZ: "America/Monterrey" },
    });
}

/** Runs in the page, before its own scripts: the clock stands still, and what the policy forbids is told. */
function prepare(day) {
    const Real = Date;
    const now = Real.parse(`${day}T18:00:00Z`);
    globalThis.Date = class extends Real {
        constructor(...args) {
            if (args.length) super(...args);
            else super(now);
        }
        static now() {
            return now;
        }
    };
    document.addEventListener("securitypolicyviolation", (event) => {
        console.error(`policy: ${event.violatedDirective} ${event.blockedURI} ${event.sample}`);
    });
}

/** A page of a browser that remembers nothing, and everything that went wrong in it. */
export class Visit {
    static async begin(browser, address, { width = 1440, height = 900, scheme = "light" } = {}) {
        const visit = new Visit();
        visit.context = await browser.createBrowserContext();
        visit.page = await visit.context.newPage();
        visit.problems = [];
        visit.asked = [];
        visit.origin = new URL(address).origin;
        const { page } = visit;
        page.setDefaultTimeout(30_000);
        page.on("console", (message) => {
            if (["error", "warn"].includes(message.type())) visit.problems.push(message.text());
        });
        page.on("pageerror", (error) => visit.problems.push(String(error)));
        page.on("request", (request) => visit.asked.push(request.url()));
        await page.setViewport({ width, height });
        await page.emulateTimezone("America/Monterrey");
        await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: scheme }]);
        await page.evaluateOnNewDocument(prepare, today);
        await page.goto(address);
        return visit;
    }

    async signIn(text) {
        await this.page.waitForSelector("#token");
        await this.page.evaluate(() => {
            document.getElementById("token").value = "";
            document.getElementById("refused").textContent = "";
        });
        await this.page.type("#token", text);
        await this.page.keyboard.press("Enter");
        await this.page.waitForFunction(
            () => !document.getElementById("token") || document.getElementById("refused").textContent,
        );
        if ((await this.page.$("#token")) === null) await this.settled();
    }

    /** Until the page shows what its address says, with its first rows. */
    async settled() {
        await this.page.waitForFunction(() => {
            const main = document.getElementById("contenido");
            const count = main.querySelector(".count");
            return (
                main.querySelector("h1") &&
                !main.hasAttribute("aria-busy") &&
                !main.querySelector("[data-old]") &&
                !/^Leyendo|^Se han/.test(count?.textContent ?? "")
            );
        });
    }

    async go(hash) {
        const moves = await this.page.evaluate((to) => {
            if (location.hash === to) return false;
            document.querySelector("main h1")?.setAttribute("data-old", "");
            location.hash = to;
            return true;
        }, hash);
        if (moves) await this.settled();
    }

    /** Does something that leads elsewhere, and waits until it is there. */
    async follow(act) {
        await this.page.$eval("main h1", (title) => title.setAttribute("data-old", ""));
        await act();
        await this.settled();
    }

    text(selector = "main") {
        return this.page.$eval(selector, (element) => element.innerText);
    }

    texts(selector) {
        return this.page.$$eval(selector, (elements) => elements.map((element) => element.innerText.trim()));
    }

    hash() {
        return this.page.evaluate(() => location.hash);
    }

    /** The cells of the rows that are in the page, by the names of their columns; where it is long, the row's index too. */
    cells(selector = ".long tbody tr[data-index]") {
        return this.page.$$eval(selector, (all) =>
            all.map((one) =>
                Object.fromEntries([
                    ["index", Number(one.dataset.index)],
                    ...[...one.querySelectorAll("[data-column]")].map((cell) => [
                        cell.dataset.column,
                        (cell.querySelector("a") ?? cell).textContent.trim(),
                    ]),
                ]),
            ),
        );
    }

    async end() {
        await this.context.close();
    }
}

export function cleanUp() {
    rmSync(folder, { recursive: true });
}
