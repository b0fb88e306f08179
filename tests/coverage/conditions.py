#!/usr/bin/python3
"""Leaves, of the branches that the compiler counted, those of conditions that stand in the text.

    conditions.py BUILD <ALL.json >CONDITIONS.json

ALL.json is what gcovr writes of that build with --json, from the root of the sources; only the branches change. Two kinds of
branches are the compiler's alone. A call returns or throws: that is no question of the text, and both ways are left out. And
what an exception leaves half made is undone, each part if it had been made: all of that is left out, unless it stands in a
handler (`catch`). The copies of a template, and of a function in a header, are one: a way that any of them took is taken.
"""
import collections
import concurrent.futures
import itertools
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile


def gcov(build, *arguments):
    return subprocess.run(["gcov", "--branch-probabilities", "--all-blocks", "--stdout", *arguments], cwd=build, check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout


def only_after_an_exception(build, notes):
    """For each place (function, path, line) whether its branches, in order, lie where only an exception leads. gcov tells that of
    blocks that did not run; so it is asked without the counts, when none did."""
    with tempfile.TemporaryDirectory() as nothing_counted:
        link = pathlib.Path(nothing_counted, notes.name)
        link.symlink_to(notes)
        text = gcov(build, str(link.with_suffix(".gcda")))
    flags = collections.defaultdict(list)
    function = path = line = exceptional = None
    for row in text.splitlines():
        if source := re.match(r" +-: +0:Source:(.*)", row):
            function, path = None, source[1]
        elif row.startswith("-----"):
            function = None
        elif name := re.match(r"(\S+):$", row):
            function = name[1]
        elif block := re.match(r" *(\$\$\$\$\$|%%%%%): *\d+-block", row):
            exceptional = block[1] == "$$$$$"
        elif begin := re.match(r" *[-#=]+: *(\d+):", row):
            line = int(begin[1])
        elif row.startswith("branch"):
            flags[function, path, line].append(exceptional)
    return flags


def without_calls(branches, flags):
    """Two branches belong to a call: it returns, or it throws."""
    at = 0
    while at < len(branches):
        if any(branch["throw"] for branch in branches[at:at + 2]):
            at += 2
        else:
            yield branches[at]["count"], flags[at]
            at += 1


def handlers(path):
    """The lines of the `catch`, to their ends."""
    lines = set()
    end = None
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if end and line.startswith(end):
            end = None
        if begin := re.match(r"( *)\} catch \(.*\{$", line):
            end = begin[1] + "}"
        if end:
            lines.add(number)
    return lines


def conditions(build, root, notes):
    """What that object counted: (path, line, counts)."""
    flags = only_after_an_exception(build, notes)
    handled = {}
    for answer in gcov(build, "--json-format", str(notes.with_suffix(".gcda"))).splitlines():
        for file in json.loads(answer)["files"]:
            path = pathlib.Path(os.path.normpath(build / file["file"]))
            if root / "src" not in path.parents:
                continue
            if path not in handled:
                handled[path] = handlers(path)
            for line in file["lines"]:
                number, branches = line["line_number"], line["branches"]
                places = [(function, file["file"], number) for function in (line.get("function_name"), None)]
                known = next((flags[place] for place in places if len(flags.get(place, ())) == len(branches)), None)
                counts = [count for count, undone in without_calls(branches, known or [False] * len(branches))
                          if not undone or number in handled[path]]
                yield str(path.relative_to(root)), number, counts


def main():
    root, build = pathlib.Path.cwd(), pathlib.Path(sys.argv[1]).resolve()
    report = json.load(sys.stdin)
    counted = [counts.with_suffix(".gcno") for counts in build.rglob("*.gcda")]
    sums = collections.defaultdict(list)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(lambda notes: list(conditions(build, root, notes)), counted):
            for path, number, counts in found:
                sums[path, number] = [sum(ways) for ways in itertools.zip_longest(sums[path, number], counts, fillvalue=0)]
    for file in report["files"]:
        for line in file["lines"]:
            if line["branches"]:  # gcovr leaves none where only a brace stands
                line["branches"] = [{"count": count, "fallthrough": False, "throw": False}
                                    for count in sums[file["file"], line["line_number"]]]
    json.dump(report, sys.stdout)


main()
