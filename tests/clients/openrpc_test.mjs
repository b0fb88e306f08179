// The description for machines is one that the tools of OpenRPC read: its published meta-schema takes it.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import test from "node:test";

import jsonSchema from "@json-schema-tools/meta-schema";
import openrpcSchema from "@open-rpc/meta-schema";
import Ajv from "ajv";

const described = JSON.parse(execFileSync(process.env.CUVEXA, ["describe"], { encoding: "utf8" }));

// Both are drafts of their own that ajv knows as its seventh; the one refers to the other with and without a slash.
const draft = "http://json-schema.org/draft-07/schema#";
const ajv = new Ajv({ strict: false, allErrors: true, validateFormats: false });
ajv.addSchema({ ...jsonSchema.default, $schema: draft }, "https://meta.json-schema.tools");
const fits = ajv.compile({ ...openrpcSchema.default, $schema: draft });

test("the meta-schema takes the description", () => {
    assert.ok(fits(described), JSON.stringify(fits.errors?.slice(0, 5), null, 2));
});

test("the meta-schema does not take everything", () => {
    for (const broken of [{ openrpc: "0" }, { methods: [{ name: 5 }] }, { info: {} }, { "not-an-extension": 1 }]) {
        assert.ok(!fits({ ...described, ...broken }), JSON.stringify(broken));
    }
});

test("each reference of the description leads to something", () => {
    const references = JSON.stringify(described).matchAll(/"\$ref":"#\/([^"]+)"/g);
    const targets = new Set([...references].map((found) => found[1]));
    assert.ok(targets.size > 10);
    for (const target of targets) {
        assert.ok(target.split("/").reduce((at, step) => at?.[step], described), target);
    }
});
