#!/usr/bin/env python3
"""Writes what the clients know of the component: its records and classes, from the description that the program gives.

    write.py PROGRAM python|typescript FILE
"""

import json
import subprocess
import sys


class Description:
    def __init__(self, program):
        document = json.loads(subprocess.run([program, "describe"], check=True, stdout=subprocess.PIPE).stdout)
        schemas = document["components"]["schemas"]
        self.records = {name: schema for name, schema in schemas.items() if name not in ("Object", "Date")}
        self.classes = document["x-classes"]

    def records_inner_first(self):
        done = []

        def add(name):
            for field in self.records[name]["properties"].values():
                inner = referred(field)
                if inner in self.records and inner not in done:
                    add(inner)
            if name not in done:
                done.append(name)

        for name in self.records:
            add(name)
        return [(name, self.records[name]) for name in done]


def referred(schema):
    """The name of the schema that this one refers to, be it with a description around it."""
    schema = schema.get("allOf", [schema])[0]
    return schema.get("$ref", "").rpartition("/")[2]


def properties(members):
    """Getter and setter by name, in the order in which the first of both stands."""
    found = {}
    for member in members:
        if member["kind"] != "method":
            found.setdefault(member["name"], {})[member["kind"]] = member
    return found


def methods(members):
    return [member for member in members if member["kind"] == "method"]


# ---- Python ---------------------------------------------------------------------------------------------------------


def python_type(schema):
    name = referred(schema) or schema["type"]
    return {"Object": "clsRpDetalle", "Date": "datetime.date", "string": "str", "number": "float", "integer": "int",
            "boolean": "bool", "null": "None"}.get(name, name)


def python_default(schema):
    type_ = python_type(schema)
    return {"datetime.date": "no_date", "str": '""', "float": "0.0", "int": "0", "bool": "False"}.get(
        type_, f"field(default_factory={type_})")


def python_text(text, indent):
    lines = f"\n{indent}".join(text.replace("\\", "\\\\").replace('"', '\\"').split("\n"))
    return f'{indent}"""' + lines.replace(f"\n{indent}\n", "\n\n") + '"""\n'


def python_record(name, record):
    text = f"\n\n@dataclass\nclass {name}:\n" + python_text(record["description"], "    ") + "\n"
    for field, schema in record["properties"].items():
        text += f"    {field}: {python_type(schema)} = {python_default(schema)}"
        text += f"  #: {schema['description']}\n" if "description" in schema else "\n"
    return text


class Python_class:
    """A class of the component; of a batch, its arguments and results may be those that are not there yet."""

    def __init__(self, type_, batched):
        self.type, self.batched = type_, batched

    def name(self):
        return "Batched_" + self.type["name"] if self.batched else self.type["name"]

    def given(self, schema):
        type_ = python_type(schema)
        if type_ == "clsRpDetalle":
            return ("Batched_" if self.batched else "") + type_
        return f"Union[{type_}, Later[Any]]" if self.batched else type_

    def result(self, schema):
        type_ = python_type(schema)
        return f"Later[{type_}]" if self.batched and type_ != "None" else type_

    def property(self, name, both):
        text = ""
        if "get" in both:
            result = both["get"]["result"]
            text += f"\n    @property\n    def {name}(self) -> {self.result(result)}:\n"
            text += python_text(both["get"]["description"], "        ")
            text += f'        return self._door.get(self, "{name}", {python_type(result)})\n'
        if "let" in both:
            value = both["let"]["params"][0]["schema"]
            text += f"\n    @{name}.setter\n    def {name}(self, value: {self.given(value)}) -> None:\n"
            text += f'        self._door.let(self, "{name}", value)\n'
        return text

    def method(self, member):
        def parameter(each):
            default = "" if each["required"] else f" = {python_default(each['schema'])}"
            return f", {each['name']}: {self.given(each['schema'])}{default}"

        parameters = "".join(map(parameter, member["params"]))
        names = ", ".join(each["name"] for each in member["params"])
        text = f"\n    def {member['name']}(self{parameters}) -> {self.result(member['result'])}:\n"
        text += python_text(member["description"], "        ")
        return text + f'        return self._door.call(self, "{member["name"]}", ' \
                      f"{python_type(member['result'])}, [{names}])\n"

    def text(self):
        text = f"\n\nclass {self.name()}:\n" + python_text(self.type["description"], "    ")
        text += "\n    def __init__(self, door: Any):\n        self._door = door\n"
        text += f'        self._object: int = door.create("{self.type["name"]}")\n'
        text += "".join(self.property(name, both) for name, both in properties(self.type["members"]).items())
        return text + "".join(map(self.method, methods(self.type["members"])))


def python_objects(name, classes):
    text = f"\n\nclass {name}:\n" + '    """Makes objects of the classes of the component."""\n'
    for each in classes:
        text += f"\n    def {each.type['name']}(self) -> {each.name()}:\n        return {each.name()}(self)\n"
    return text


def python(description):
    text = '"""The records and classes of the component. Made from its description; change that."""\n\nimport datetime\n' \
           "from dataclasses import dataclass, field\nfrom typing import Any, Union\n\n" \
           "from .values import Later, no_date\n"
    text += "".join(python_record(*each) for each in description.records_inner_first())
    names = list(description.records)
    for batched in (False, True):
        # The extras of a line come first: they are the type of a property.
        classes = [Python_class(each, batched) for each in reversed(description.classes)]
        text += "".join(each.text() for each in classes)
        text += python_objects("Batched_objects" if batched else "Objects", classes)
        names += [each.name() for each in classes]
    return text + f"\n\n__all__ = {names}\n"


# ---- TypeScript -----------------------------------------------------------------------------------------------------


def typescript_type(schema):
    name = referred(schema) or schema["type"]
    return {"Object": "clsRpDetalle", "Date": "DateText", "integer": "number", "null": "void"}.get(name, name)


def typescript_text(text, indent):
    return f"{indent}/**\n" + "".join(f"{indent} * {line}".rstrip() + "\n" for line in text.split("\n")) + f"{indent} */\n"


def typescript_record(name, record):
    text = "\n" + typescript_text(record["description"], "") + f"export interface {name} {{\n"
    for field, schema in record["properties"].items():
        comment = f"  /** {schema['description']} */\n" if "description" in schema else ""
        text += f"{comment}  {field}: {typescript_type(schema)};\n"
    return text + "}\n"


def typescript_given(schema):
    type_ = typescript_type(schema)
    return type_ if type_ == "clsRpDetalle" else f"Given<{type_}>"


def typescript_property(name, both):
    text = ""
    if "get" in both:
        result = both["get"]["result"]
        text += "\n" + typescript_text(both["get"]["description"], "  ")
        text += f"  get {name}(): Later<{typescript_type(result)}> {{\n"
        text += f'    return this.batch.get(this, "{name}");\n  }}\n'
    if "let" in both:
        value = both["let"]["params"][0]["schema"]
        text += f"  set {name}(value: {typescript_given(value)}) {{\n"
        text += f'    this.batch.let(this, "{name}", value);\n  }}\n'
    return text


def typescript_method(member):
    def parameter(each):
        return f"{each['name']}{'' if each['required'] else '?'}: {typescript_given(each['schema'])}"

    parameters = ", ".join(map(parameter, member["params"]))
    names = ", ".join(each["name"] for each in member["params"])
    text = "\n" + typescript_text(member["description"], "  ")
    text += f"  {member['name']}({parameters}): Later<{typescript_type(member['result'])}> {{\n"
    return text + f'    return this.batch.call(this, "{member["name"]}", [{names}]);\n  }}\n'


def typescript_class(type_):
    text = "\n" + typescript_text(type_["description"], "") + f"export class {type_['name']} implements Held {{\n"
    text += "  readonly number: number;\n\n  constructor(private readonly batch: Entries) {\n"
    text += f'    this.number = batch.create("{type_["name"]}");\n  }}\n'
    text += "".join(typescript_property(*each) for each in properties(type_["members"]).items())
    return text + "".join(map(typescript_method, methods(type_["members"]))) + "}\n"


def typescript(description):
    text = "// The records and classes of the component. Made from its description; change that.\n" \
           'import type { DateText, Entries, Given, Held, Later } from "./values.js";\n'
    text += "".join(typescript_record(*each) for each in description.records.items())
    return text + "".join(map(typescript_class, description.classes))


if __name__ == "__main__":
    program, language, file = sys.argv[1:]
    text = {"python": python, "typescript": typescript}[language](Description(program))
    with open(file, "w", encoding="utf-8") as out:
        out.write(text)
