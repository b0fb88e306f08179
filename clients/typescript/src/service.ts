// A service, reached by `fetch`.
import { clsRpDetalle, Tesoreria } from "./treasury.js";
import { type Entries, type Held, Later, plain } from "./values.js";

/** A member gave False, and nothing of the batch was kept. The message is what the component's `Error` says. */
export class Refused extends Error {
  constructor(
    readonly member: string,
    message: string,
  ) {
    super(message);
  }
}

/** An entry that does not fit (-32602), or a run-time error of the component (-32000, with its number). */
export class Failed extends Error {
  readonly code: number;
  readonly number: number | undefined;

  constructor(error: RpcError) {
    super(error.message);
    this.code = error.code;
    this.number = error.data?.number;
  }
}

/**
 * The service did not do it: who asks may not (401, 403), too much is asked (413), a key was used for another request
 * (422), the disk is full (507), …
 */
export class ServiceError extends Error {
  constructor(
    readonly status: number,
    message: string,
  ) {
    super(`${status}: ${message}`);
  }
}

/**
 * No answer came, however often it was tried. What was sent may have been done: send it again with its `key`, or ask
 * `Service.answerTo(key)`.
 */
export class Unreachable extends Error {
  constructor(
    readonly key: string,
    message: string,
  ) {
    super(message);
  }
}

interface RpcError {
  code: number;
  message: string;
  data?: { number?: number };
}

interface Entry {
  jsonrpc: "2.0";
  id: number;
  method: string;
  params: Record<string, unknown>;
}

interface Answer {
  id: number;
  result?: { value?: unknown; args?: unknown[]; Error?: string };
  error?: RpcError;
}

const longestRest = 10_000; // milliseconds between two tries

interface Reply {
  status: number;
  headers: Headers;
  body: string;
}

export interface Options {
  /** Where the service has several. */
  company?: string;
  /** How often a request is sent at most; 8 if not given. */
  tries?: number;
  /** Milliseconds until an answer is given up; 60,000 if not given. */
  timeout?: number;
}

/** A service that runs somewhere. */
export class Service {
  private readonly base: string;
  private readonly tries: number;
  private readonly timeout: number;

  constructor(
    address: string,
    private readonly token: string,
    options: Options = {},
  ) {
    this.base = address.replace(/\/+$/, "") + (options.company ? `/${options.company}` : "");
    this.tries = options.tries ?? 8;
    this.timeout = options.timeout ?? 60_000;
  }

  /** A request that is kept whole or not at all, and once, however often it is sent with its key. */
  batch(key: string = ownKey()): Batch {
    return new Batch(this, key);
  }

  /** What was answered to a batch with that key; undefined when nothing was kept under it. */
  async answerTo(key: string): Promise<unknown> {
    const reply = await this.sent(`/requests-done/${encodeURIComponent(key)}`, {}, key);
    return reply.status === 404 ? undefined : JSON.parse(checked(reply));
  }

  async post(entries: Entry[], key: string): Promise<{ headers: Headers; answers: Answer[] }> {
    const body = JSON.stringify(entries);
    const headers = { "Content-Type": "application/json", "Idempotency-Key": key };
    const reply = await this.sent("/rpc", { method: "POST", headers, body }, key);
    return { headers: reply.headers, answers: JSON.parse(checked(reply)) as Answer[] };
  }

  /** Sends it, again and again while the answer is that it may be sent again, or none: with its key it is safe to. */
  private async sent(path: string, request: RequestInit, key: string): Promise<Reply> {
    const headers = { ...request.headers, Authorization: `Bearer ${this.token}` };
    let reason = "";
    let askedToWait = 0;
    for (let attempt = 0; attempt < this.tries; ++attempt) {
      if (attempt > 0) await rest(Math.max(askedToWait, (0.5 + Math.random() / 2) * 100 * 2 ** attempt));
      try {
        const signal = AbortSignal.timeout(this.timeout);
        const response = await fetch(this.base + path, { ...request, headers, signal });
        const reply = { status: response.status, headers: response.headers, body: await response.text() };
        if (![429, 503, 504].includes(reply.status)) return reply;
        reason = `${reply.status}: ${messageIn(reply.body)}`;
        askedToWait = 1000 * Number(reply.headers.get("Retry-After") ?? 0);
      } catch (failure) {
        reason = String(failure);
      }
    }
    throw new Unreachable(key, reason);
  }
}

/** Entries that `send` sends as one request. */
export class Batch implements Entries {
  /** The answer is that of an earlier request with the same key. */
  replayed = false;

  private readonly entries: Entry[] = [];
  private readonly given = new Map<number, unknown[]>();
  private answers = new Map<number, Answer>();
  private objects = 0;

  constructor(
    private readonly service: Service,
    readonly key: string,
  ) {}

  Tesoreria(): Tesoreria {
    return new Tesoreria(this);
  }

  clsRpDetalle(): clsRpDetalle {
    return new clsRpDetalle(this);
  }

  /** Throws `Refused`, `Failed` or `ServiceError`, and nothing was kept; or `Unreachable`. */
  async send(): Promise<void> {
    if (this.entries.length === 0) return;
    const { headers, answers } = await this.service.post(this.entries, this.key);
    this.replayed = headers.get("Idempotency-Replayed") === "true";
    const endedBy = headers.get("Cuvexa-Ended-By");
    if (endedBy !== null) this.refuse(Number(endedBy) - 1, answers);
    this.answers = new Map(answers.map((answer) => [answer.id, answer]));
    for (const [entry, args] of this.given) giveBack(args, this.answers.get(entry)?.result?.args ?? []);
  }

  create(name: string): number {
    this.add("create", { class: name });
    return ++this.objects;
  }

  call<T>(target: Held, member: string, args: unknown[]): Later<T> {
    const last = args.findLastIndex((each) => each !== undefined);
    const sent = args.slice(0, last + 1).map((each) => plain(each ?? null));
    const entry = this.add("call", { object: target.number, member, args: sent });
    this.given.set(entry, args);
    return this.later(entry);
  }

  get<T>(target: Held, member: string): Later<T> {
    return this.later(this.add("get", { object: target.number, member }));
  }

  let(target: Held, member: string, value: unknown): void {
    this.add("let", { object: target.number, member, value: plain(value) });
  }

  private refuse(at: number, answers: Answer[]): never {
    const { error, result } = answers[at] ?? {};
    if (error) throw new Failed(error);
    throw new Refused(String(this.entries[at]?.params["member"]), result?.Error ?? "");
  }

  /** An entry as it is now: what the caller changes later is not its business. */
  private add(method: string, params: Record<string, unknown>): number {
    const entry: Entry = { jsonrpc: "2.0", id: this.entries.length + 1, method, params };
    return this.entries.push(JSON.parse(JSON.stringify(entry)) as Entry);
  }

  private later<T>(entry: number): Later<T> {
    return new Later<T>(entry, "/value", (path) => {
      const answer = this.answers.get(entry);
      if (!answer) throw new Error("the batch was not sent, or not kept");
      return path
        .split("/")
        .slice(1)
        .reduce((found: unknown, step) => (found as Record<string, unknown>)[step], answer.result);
    });
  }
}

/** Records go by reference: what the member left in them is the caller's. */
function giveBack(given: unknown[], after: unknown[]): void {
  given.forEach((argument, at) => {
    if (typeof argument === "object" && argument !== null && !(argument instanceof Later)) {
      Object.assign(argument, after[at]);
    }
  });
}

/** One that no other batch has. */
function ownKey(): string {
  const part = () => Math.random().toString(36).slice(2);
  return `${Date.now()}-${part()}${part()}${part()}`;
}

function messageIn(body: string): string {
  try {
    return (JSON.parse(body) as { error: { message: string } }).error.message;
  } catch {
    return body;
  }
}

function checked({ status, body }: Reply): string {
  if (status !== 200) throw new ServiceError(status, messageIn(body));
  return body;
}

function rest(milliseconds: number): Promise<void> {
  return new Promise((done) => setTimeout(done, Math.min(longestRest, milliseconds)));
}
