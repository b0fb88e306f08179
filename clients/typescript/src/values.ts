// Values of a batch, and those that are not there yet.

/** A date as "2024-03-15", or "2024-03-15T10:20:30" where there is a time of day. */
export type DateText = string;

/** A date that was never set. */
export const noDate: DateText = "1899-12-30";

/** What a member takes: of a record any fields, and in each place what an earlier entry of the batch will have given. */
export type Given<T> = Later<T> | (T extends object ? { [Field in keyof T]?: Given<T[Field]> } : T);

/** An object that a batch made. */
export interface Held {
  readonly number: number;
}

/** Where the members of the classes put their entries. */
export interface Entries {
  create(name: string): number;
  call<T>(target: Held, member: string, args: unknown[]): Later<T>;
  get<T>(target: Held, member: string): Later<T>;
  let(target: Held, member: string, value: unknown): void;
}

/** What an entry of a batch gives, once the batch is sent. It may be given to later entries of its batch. */
export class Later<T> {
  constructor(
    private readonly entry: number,
    private readonly path: string,
    private readonly read: (path: string) => unknown,
  ) {}

  /** Throws before the batch was sent, and where the entry did not run. */
  get value(): T {
    return this.read(this.path) as T;
  }

  /** A field of a record. */
  at<Field extends keyof T & string>(field: Field): Later<T[Field]> {
    return new Later(this.entry, `${this.path}/${field}`, this.read);
  }

  /** As the service reads it: a reference to the earlier entry. */
  toJSON(): unknown {
    return { result: this.entry, path: this.path };
  }
}

/** As the service reads it: an object by its number. */
export function plain(value: unknown): unknown {
  const held = value as Partial<Held> & object;
  return typeof value === "object" && value !== null && typeof held.number === "number" ? { object: held.number } : value;
}
