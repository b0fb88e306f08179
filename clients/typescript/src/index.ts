// Cuvexa, the treasury component, for programs in TypeScript: `Service` reaches it, and the classes and records are the
// component's under their published names.
export { Batch, Failed, Refused, Service, ServiceError, Unreachable } from "./service.js";
export type { Options } from "./service.js";
export * from "./treasury.js";
export { Later, noDate } from "./values.js";
export type { DateText, Given } from "./values.js";
