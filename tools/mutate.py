#!/usr/bin/env python3
"""Mutation testing for kai18n: how many small faults in the library do the tests catch?

The tool plants one simple fault (a mutant) at a time in a library source file,
rebuilds the library, runs the test programs that cover that file's component,
and records whether the tests noticed (the mutant is killed) or not (it
survived). The kill rate is a measure of how sharp the tests are, and the
surviving mutants show where they look away.

Subcommands:

  generate  samples mutants from source files, reproducibly from a seed, into a
            JSON file:
              tools/mutate.py generate --commit 5c71469 --seed 20261124 \\
                  --count 460 --out tools/mutants.json
            (the files are read as they stand at --commit, default HEAD; with
            no files named, the library's main algorithm files are used; name
            others as arguments, e.g. src/strings/ucs2string.cpp)

  run       applies each mutant of the list in a git worktree of the list's
            commit, rebuilds only the library (ninja kai18n), runs the covering
            test programs with GTEST_FAIL_FAST=1 under a timeout, restores the
            file, and appends the outcome to a JSONL results file; mutants
            already in that file are skipped, so an interrupted run resumes:
              tools/mutate.py run --mutants tools/mutants.json \\
                  --results /tmp/results.jsonl --workdir /tmp/mutate --jobs 2
            Each job has its own worktree and build directory under --workdir,
            made and built on first use. --commit tests another commit than the
            one the list was sampled from (the sampled lines must still match).

  report    kill rate overall and per file, and the surviving mutants:
              tools/mutate.py report --mutants tools/mutants.json \\
                  --results tools/mutants-before.jsonl [--markdown]

  cleanup   removes the worktrees (and their build directories) of --workdir.

Outcomes: killed (a test program failed, crashed or timed out), survived (all
passed), invalid (the mutant did not compile; left out of the rate).

Python 3 standard library only.
"""

import argparse
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import threading
import time
from collections import OrderedDict, defaultdict

REPO = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# The library's main algorithm files, sampled when `generate` is given none.
DEFAULT_FILES = [
    # strings
    "src/strings/ucs2string.cpp",
    "src/strings/strprintf.cpp",
    "src/strings/lu_utf8string.cpp",
    "src/strings/ucs2string_formatter.cpp",
    "src/strings/lu_utf8_traits.cpp",
    "src/strings/utf8_conversion.cpp",
    # character classes
    "src/facets/lu_ctype.cpp",
    "src/facets/lu_ctype_impl.cpp",
    # number output and input
    "src/facets/lu_num_put.cpp",
    "src/facets/number_digits.cpp",
    "src/facets/lu_num_get.cpp",
    "src/facets/integer_scanner.cpp",
    "src/facets/float_scanner.cpp",
    "src/fmtlib/input_number.cpp",
    # collation
    "src/platform/ka_collation.cpp",
    "src/facets/lu_collate.cpp",
    # catalog queries
    "src/locale/catalog_queries.cpp",
    "src/locale/lu_locale_catalog.cpp",
    # format parser and printer, and the users of the dialect tables
    "src/fmtlib/fmt_string_codec.cpp",
    "src/fmtlib/lu_fmt_dialects.cpp",
    "src/fmtlib/velora_context_pass.cpp",
    # number and date formatters
    "src/fmtlib/number_format_build.cpp",
    "src/fmtlib/number_format_run.cpp",
    "src/fmtlib/date_format_build.cpp",
    "src/fmtlib/date_format_run.cpp",
    # calendar fields
    "src/calendar/gregorian_fields.cpp",
    "src/calendar/gregorian_add_roll.cpp",
    "src/calendar/gregorian_calendar.cpp",
    "src/calendar/calendar.cpp",
    # zone rules
    "src/calendar/simple_time_zone.cpp",
    # input scanners
    "src/fmtlib/input_date.cpp",
    "src/fmtlib/input_date_scan.cpp",
]

# The test programs that cover each component (src/<component>/...). Shared
# state (locales, the catalog, the cache of format definitions, calendars and
# the default zone) also runs the threads suite.
COMPONENT_TESTS = {
    "frame": ["frame_tests"],
    "strings": ["strings_tests"],
    "platform": ["platform_tests", "facets_tests"],
    "locale": ["locale_tests", "catalog_tests", "thread_tests"],
    "facets": ["facets_tests", "fmtlib_tests"],
    "datetime": ["datetime_tests"],
    "calendar": ["calendar_tests", "timelib_tests", "thread_tests"],
    "timelib": ["timelib_tests", "thread_tests"],
    "fmtlib": ["fmtlib_tests", "fmtlib_alloc_tests", "thread_tests"],
}

# A build in this configuration compiles fast and runs the tests fast enough.
CMAKE_FLAGS = [
    "-G", "Ninja",
    "-DCMAKE_BUILD_TYPE=Release",
    "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -g0",
    "-DKAI18N_BUILD_TESTS=ON",
    "-DKAI18N_BUILD_EXAMPLES=OFF",
    "-DKAI18N_BUILD_BENCH=OFF",
    "-DKAI18N_BUILD_FUZZ=OFF",
]

TIMEOUT_FACTOR = 3.0     # a test program may take this many times its unmutated time,
TIMEOUT_MARGIN = 10.0    # and at least this many seconds more than it
BUILD_TIMEOUT = 900.0


# ---------------------------------------------------------------------------
# Reading C++ source: which characters are code

def code_lines(text):
    """Splits `text` into lines with comments and the insides of string and
    character literals blanked out (replaced by spaces, quotes kept), so that
    positions in a blanked line are positions in the real one. Also returns,
    per line, whether it is a preprocessor line (or a continuation of one)."""
    out = []
    state = "code"          # code, block, string, char, raw
    raw_end = ""
    preprocessor = []
    in_directive = False
    for line in text.split("\n"):
        buf = []
        i = 0
        stripped = line.lstrip()
        is_directive = in_directive or (state == "code" and stripped.startswith("#"))
        while i < len(line):
            c = line[i]
            nxt = line[i + 1] if i + 1 < len(line) else ""
            if state == "block":
                if c == "*" and nxt == "/":
                    buf.append("  ")
                    i += 2
                    state = "code"
                else:
                    buf.append(" ")
                    i += 1
            elif state == "raw":
                if line.startswith(raw_end, i):
                    buf.append(" " * (len(raw_end) - 1) + '"')
                    i += len(raw_end)
                    state = "code"
                else:
                    buf.append(" ")
                    i += 1
            elif state in ("string", "char"):
                quote = '"' if state == "string" else "'"
                if c == "\\":
                    buf.append("  "[: len(line[i:i + 2])])
                    i += 2
                elif c == quote:
                    buf.append(c)
                    i += 1
                    state = "code"
                else:
                    buf.append(" ")
                    i += 1
            else:
                if c == "/" and nxt == "/":
                    buf.append(" " * (len(line) - i))
                    i = len(line)
                elif c == "/" and nxt == "*":
                    buf.append("  ")
                    i += 2
                    state = "block"
                elif c == '"' and i > 0 and line[i - 1] == "R":
                    m = re.match(r'"([^(\s]{0,16})\(', line[i:])
                    if m:
                        raw_end = ")" + m.group(1) + '"'
                        buf.append('"' + " " * (len(m.group(0)) - 1))
                        i += len(m.group(0))
                        state = "raw"
                    else:
                        buf.append(c)
                        i += 1
                        state = "string"
                elif c == '"':
                    buf.append(c)
                    i += 1
                    state = "string"
                elif c == "'" and not (i > 0 and line[i - 1].isalnum() and
                                       not re.search(r"(^|[^\w])(u8|u|U|L)$", line[:i])):
                    # a digit separator (1'000) is not a character literal
                    buf.append(c)
                    i += 1
                    state = "char"
                else:
                    buf.append(c)
                    i += 1
        if state in ("string", "char"):
            state = "code"   # an unterminated literal ends with its line
        out.append("".join(buf))
        preprocessor.append(is_directive)
        in_directive = is_directive and line.rstrip().endswith("\\")
    return out, preprocessor


# ---------------------------------------------------------------------------
# Mutation operators. Each finds, in one blanked line, the places it can
# change and gives (operator, start, end, replacement) for each.

COMPARISON = re.compile(r"(?<=\s)(<=|>=|==|!=|<|>)(?=\s)")
FLIPPED = {"<": ">=", "<=": ">", ">": "<=", ">=": "<", "==": "!=", "!=": "=="}
STRICTNESS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
LOGICAL = re.compile(r"(?<=\s)(&&|\|\|)(?=\s)")
DROP_ONE = re.compile(r"(?<=[\w)\]])(\s[+-]\s1)(?![\w.'])")
INTEGER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)(?![\w.'])")
SUBSCRIPT = re.compile(r"(?<=[\w)\]])\[([^\[\]]+)\]")
# The right-hand operand of a comparison, when it is a name, a member or a call
# without arguments, and ends the comparison.
SIMPLE_OPERAND = re.compile(
    r"\s([A-Za-z_]\w*(?:(?:\.|->|::)[A-Za-z_]\w*)*(?:\(\))?)(?=\s*(?:\)|;|&&|\|\||,|\?))")
BOOL_RETURN = re.compile(r"\breturn\s+(true|false)\s*;")
IF_HEAD = re.compile(r"\bif\s*\(")
NOT_OPERANDS = {"nullptr", "true", "false", "NULL", "this"}
KEYWORD_STATEMENTS = ("break", "continue", "goto", "case", "default", "else", "do",
                      "try", "public", "private", "protected", "using", "namespace",
                      "template", "typedef", "static_assert", "friend", "struct",
                      "class", "enum", "union", "extern")
KEYWORD_STATEMENT = re.compile(r"^(%s)\b" % "|".join(KEYWORD_STATEMENTS))
DECLARATION = re.compile(
    r"^(?:(?:const|constexpr|static|inline|thread_local|volatile|mutable|unsigned|"
    r"signed|long|short|typename)\s+)*"
    r"[A-Za-z_][\w:]*(?:<[^;=()]*>)?(?:\s*[*&]+\s*|\s+)(?:const\s*[*&]*\s*)?"
    r"[A-Za-z_]\w*\s*(?:=[^=]|;|\{|\(|\[)")
FUNCTION_HEAD = re.compile(r"^[\w:<>,*&~\s]+\([^;]*\)\s*(?:const\s*)?(?:noexcept\s*)?(?:->\s*\S+\s*)?\{?$")


def comparison_mutants(code):
    found = []
    for m in COMPARISON.finditer(code):
        op = m.group(1)
        found.append(("comparison-flip", m.start(1), m.end(1), FLIPPED[op]))
        if op in STRICTNESS:
            found.append(("comparison-strictness", m.start(1), m.end(1), STRICTNESS[op]))
    return found


def logical_mutants(code):
    return [("logical", m.start(1), m.end(1), "||" if m.group(1) == "&&" else "&&")
            for m in LOGICAL.finditer(code)]


def off_by_one_mutants(code, declaration):
    found = []
    for m in DROP_ONE.finditer(code):
        found.append(("off-by-one-drop", m.start(1), m.end(1), ""))
    for comparison in COMPARISON.finditer(code):
        m = SIMPLE_OPERAND.match(code, comparison.end())
        if m is None or m.group(1) in NOT_OPERANDS:
            continue
        for sign in (" + 1", " - 1"):
            found.append(("off-by-one-add", m.end(1), m.end(1), sign))
    if not declaration:
        for m in SUBSCRIPT.finditer(code):
            inside = m.group(1).strip()
            if not inside or inside.startswith(("&", "=")) or inside == "this" or \
                    INTEGER.fullmatch(inside):
                continue  # a lambda's captures, or a literal index (the constant operator's)
            for sign in (" + 1", " - 1"):
                found.append(("off-by-one-index", m.end(1), m.end(1), sign))
    return found


def constant_mutants(code):
    found = []
    for m in INTEGER.finditer(code):
        digits = m.group(1)
        if digits.lower().startswith("0x"):
            value = int(digits, 16) + 1
            body = digits[2:]
            new = format(value, "X" if body.isupper() else "x").rjust(len(body), "0")
            replacement = digits[:2] + new
        elif len(digits) > 1 and digits.startswith("0"):
            continue  # octal: rare, and easy to get wrong
        else:
            value = int(digits)
            replacement = "0" if value == 1 else str(value + 1)
        found.append(("constant", m.start(1), m.end(1), replacement))
    return found


def bool_return_mutants(code):
    return [("return-bool", m.start(1), m.end(1), "false" if m.group(1) == "true" else "true")
            for m in BOOL_RETURN.finditer(code)]


def matching_paren(code, open_index):
    depth = 0
    for i in range(open_index, len(code)):
        if code[i] == "(":
            depth += 1
        elif code[i] == ")":
            depth -= 1
            if depth == 0:
                return i
    return -1


def branch_mutants(code):
    found = []
    for m in IF_HEAD.finditer(code):
        if code[m.end():].lstrip().startswith("constexpr"):
            continue
        close = matching_paren(code, m.end() - 1)
        if close < 0:
            continue
        condition = code[m.end():close]
        if ";" in condition or re.search(r"(?<![=!<>])=(?!=)", condition):
            continue  # an init-statement or a declaration the body may use
        found.append(("branch-false", m.end(), close, "false"))
        found.append(("branch-true", m.end(), close, "true"))
    return found


def is_declaration(stripped):
    if stripped.startswith(("return", "throw", "delete", "new ")):
        return False
    return bool(DECLARATION.match(stripped))


def statement_mutant(lines, index):
    """The removal of the one statement on line `index`, if it holds one whole
    expression statement (or a return that is neither the function's last
    statement nor of a reference)."""
    code = lines[index]
    stripped = code.strip()
    if not stripped.endswith(";") or stripped.count(";") != 1 or stripped == ";":
        return None
    if stripped.startswith(("{", "}")) or KEYWORD_STATEMENT.match(stripped):
        return None
    if re.match(r"^(for|while|switch)\b", stripped):
        return None  # a loop without its body is no simpler than with it
    if stripped.startswith("if"):
        return guarded_statement_mutant(code)
    if stripped.count("(") != stripped.count(")") or stripped.count("{") != stripped.count("}"):
        return None
    if is_declaration(stripped) or re.match(r"^[\w:]+\s*:", stripped):
        return None
    if stripped.startswith("return"):
        if stripped.startswith(("return *", "return this")) or next_code_closes_function(lines, index):
            return None
    previous = previous_code(lines, index)
    if previous is None:
        return None
    if not (previous.endswith((";", "{", "}", ":")) or previous == "else" or
            (previous.endswith(")") and re.match(r"^(\}\s*)?(else\s+)?(if|for|while)\b", previous))):
        return None
    if previous.endswith(":") and "?" in previous:
        return None
    start = len(code) - len(code.lstrip())
    return ("statement", start, len(code.rstrip()), "{}")


def guarded_statement_mutant(code):
    """`if (c) statement;` on one line: the statement is removed, the test kept."""
    head = IF_HEAD.search(code)
    if head is None:
        return None
    close = matching_paren(code, head.end() - 1)
    if close < 0:
        return None
    body = code[close + 1:].strip()
    if not body.endswith(";") or body.startswith(("{", "return *", "return this")):
        return None
    start = code.index(body, close + 1)
    return ("statement", start, start + len(body), "{}")


def previous_code(lines, index):
    for j in range(index - 1, -1, -1):
        text = lines[j].strip()
        if text:
            return text
    return None


def next_code_closes_function(lines, index):
    for j in range(index + 1, len(lines)):
        text = lines[j]
        if text.strip():
            return text.startswith("}")
    return True


def line_mutants(lines, index):
    """Every mutant of line `index` of the blanked `lines`."""
    code = lines[index]
    stripped = code.strip()
    if not stripped or stripped in ("{", "}", "};") or stripped.startswith("static_assert"):
        return []
    if FUNCTION_HEAD.match(stripped) and not re.match(r"^(\}\s*)?(else\s+)?(if|for|while|switch)\b", stripped):
        return []  # a function's signature
    declaration = is_declaration(stripped)
    found = []
    found += comparison_mutants(code)
    found += logical_mutants(code)
    found += off_by_one_mutants(code, declaration)
    found += constant_mutants(code)
    found += bool_return_mutants(code)
    found += branch_mutants(code)
    removal = statement_mutant(lines, index)
    if removal:
        found.append(removal)
    return found


def apply_change(line, start, end, replacement):
    return line[:start] + replacement + line[end:]


def read_source(root, commit, path):
    """The text of `path` as it stands at `commit` (not as in the work tree)."""
    return git(["show", "%s:%s" % (commit, path)], root, strip=False)


def file_mutants(text):
    """All mutants of one source text: (line number, original, mutated, operator)."""
    real = text.split("\n")
    blanked, directive = code_lines(text)
    result = []
    for index, code in enumerate(blanked):
        if directive[index]:
            continue
        seen = set()
        for operator, start, end, replacement in line_mutants(blanked, index):
            mutated = apply_change(real[index], start, end, replacement)
            if mutated == real[index] or mutated in seen:
                continue
            seen.add(mutated)
            result.append((index + 1, real[index], mutated, operator))
    return result


def significant_lines(text):
    blanked, directive = code_lines(text)
    return sum(1 for code, d in zip(blanked, directive) if code.strip() and not d)


def allocate(counts, total):
    """Splits `total` over files in proportion to `counts` (largest remainders)."""
    whole = sum(counts.values())
    shares = {f: total * n / whole for f, n in counts.items()}
    given = {f: int(s) for f, s in shares.items()}
    left = total - sum(given.values())
    for f in sorted(shares, key=lambda f: (given[f] - shares[f], f))[:left]:
        given[f] += 1
    return given


def operator_family(operator):
    return operator.split("-")[0]


def sample_file(path, candidates, k, seed):
    """`k` mutants of one file, at most one a line, chosen by a generator
    seeded from the seed and the file's name. Each pick first draws an
    operator family with a weight of the square root of its candidates (so
    that the plentiful statement removals and constants do not crowd out the
    rest), then one of that family's candidates."""
    rng = random.Random("%s:%s" % (seed, path))
    families = OrderedDict()
    for mutant in candidates:
        families.setdefault(operator_family(mutant[3]), []).append(mutant)
    used_lines = set()
    chosen = []
    while len(chosen) < k:
        open_families = [(name, [m for m in family if m[0] not in used_lines])
                         for name, family in families.items()]
        open_families = [(name, family) for name, family in open_families if family]
        if not open_families:
            break
        weights = [len(family) ** 0.5 for _, family in open_families]
        _, family = rng.choices(open_families, weights=weights)[0]
        mutant = rng.choice(family)
        used_lines.add(mutant[0])
        chosen.append(mutant)
    return sorted(chosen)


def git(args, cwd, strip=True):
    out = subprocess.run(["git"] + args, cwd=cwd, check=True, text=True,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE).stdout
    return out.strip() if strip else out


def command_generate(args):
    files = args.files or DEFAULT_FILES
    root = args.root
    commit = git(["rev-parse", "--short", args.commit + "^{commit}"], root)
    texts = {f: read_source(root, commit, f) for f in files}
    counts = {f: significant_lines(texts[f]) for f in files}
    quota = allocate(counts, args.count)
    mutants = []
    for path in files:
        for line, original, mutated, operator in sample_file(
                path, file_mutants(texts[path]), quota[path], args.seed):
            mutants.append(OrderedDict([
                ("id", "m%04d" % (len(mutants) + 1)), ("file", path), ("line", line),
                ("operator", operator), ("original", original), ("mutated", mutated)]))
    command = "python3 tools/mutate.py generate --commit %s --seed %s --count %d" % (
        commit, args.seed, args.count)
    if args.files:
        command += " " + " ".join(args.files)
    command += " --out " + os.path.relpath(os.path.abspath(args.out), os.path.abspath(root))
    document = OrderedDict([
        ("command", command),
        ("commit", commit),
        ("seed", args.seed),
        ("count", len(mutants)),
        ("mutants", mutants),
    ])
    with open(args.out, "w", encoding="utf-8") as f:
        json.dump(document, f, indent=1, ensure_ascii=False)
        f.write("\n")
    by_operator = defaultdict(int)
    for m in mutants:
        by_operator[m["operator"]] += 1
    print("%d mutants from %d files into %s" % (len(mutants), len(files), args.out))
    for operator in sorted(by_operator):
        print("  %-22s %4d" % (operator, by_operator[operator]))


# ---------------------------------------------------------------------------
# Running the mutants

class Stopped(Exception):
    """The run was asked to stop (Ctrl-C or SIGTERM)."""


class Job:
    """One worktree of the commit under test, with its own build directory."""

    def __init__(self, number, workdir, commit, repo, log):
        self.number = number
        self.root = os.path.join(workdir, "job%d" % number)
        self.source = os.path.join(self.root, "src")
        self.build = os.path.join(self.root, "build")
        self.commit = commit
        self.repo = repo
        self.log = log
        self.baseline = {}
        self.process = None
        self.stop = threading.Event()

    # -- set-up

    def prepare(self, programs):
        """Builds everything and times the unmutated test programs (in the
        job's thread: the two jobs build side by side)."""
        self.configure_and_build()
        self.measure_baseline(programs)

    def make_worktree(self):
        if not os.path.isdir(self.source):
            os.makedirs(self.root, exist_ok=True)
            git(["worktree", "add", "--detach", self.source, self.commit], self.repo)
        head = git(["rev-parse", "HEAD"], self.source)
        wanted = git(["rev-parse", self.commit + "^{commit}"], self.repo)
        if head != wanted:
            raise SystemExit("%s is at %s, not %s" % (self.source, head[:7], self.commit))

    def restore_leftovers(self):
        """A worktree left dirty by a run that was killed outright is put back."""
        dirty = git(["status", "--porcelain", "--untracked-files=no"], self.source)
        if dirty:
            self.log("job%d: worktree not clean, restoring:\n%s" % (self.number, dirty))
            git(["checkout", "--", "."], self.source)

    def configure_and_build(self):
        if not os.path.exists(os.path.join(self.build, "build.ninja")):
            subprocess.run(["cmake", "-S", self.source, "-B", self.build] + CMAKE_FLAGS,
                           check=True, stdout=subprocess.DEVNULL)
        self.log("job%d: building %s" % (self.number, self.build))
        started = time.time()
        subprocess.run(["ninja", "-C", self.build, "-j1"], check=True, stdout=subprocess.DEVNULL)
        self.log("job%d: built in %.0f s" % (self.number, time.time() - started))

    def measure_baseline(self, programs):
        for program in programs:
            status, seconds, detail = self.run_test(program, timeout=1800)
            if status != "pass":
                raise SystemExit("job%d: %s fails without any mutant: %s"
                                 % (self.number, program, detail))
            self.baseline[program] = seconds
            self.log("job%d: %s passes in %.1f s" % (self.number, program, seconds))

    # -- child processes

    def execute(self, command, timeout, cwd=None, env=None):
        """Runs `command` in its own process group, its output going to a file
        (a mutant may print without end); returns (returncode, or None on
        timeout, seconds, the last 64 KiB of output)."""
        if self.stop.is_set():
            raise Stopped()
        started = time.time()
        output_path = os.path.join(self.root, "last-output.txt")
        with open(output_path, "wb") as output:
            self.process = subprocess.Popen(command, cwd=cwd, env=env, stdout=output,
                                            stderr=subprocess.STDOUT, start_new_session=True)
            try:
                code = self.process.wait(timeout=timeout)
            except subprocess.TimeoutExpired:
                self.kill_child()
                self.process.wait()
                code = None
            finally:
                self.process = None
        if self.stop.is_set():
            raise Stopped()
        with open(output_path, "rb") as output:
            output.seek(max(0, os.path.getsize(output_path) - 65536))
            text = output.read().decode("utf-8", "replace")
        return code, time.time() - started, text

    def kill_child(self):
        process = self.process
        if process is not None and process.poll() is None:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass

    def run_test(self, program, timeout):
        env = dict(os.environ, GTEST_FAIL_FAST="1", GTEST_BRIEF="1")
        binary = os.path.join(self.build, "tests", program)
        code, seconds, output = self.execute([binary], timeout, cwd=os.path.join(self.build, "tests"),
                                             env=env)
        if code is None:
            return "timeout", seconds, "timed out after %.0f s" % seconds
        if code < 0:
            return "crash", seconds, "signal %d" % -code
        if code != 0:
            failed = re.findall(r"\[  FAILED  \] (\S+)", output)
            return "fail", seconds, "exit %d%s" % (code, (": " + failed[0]) if failed else "")
        return "pass", seconds, ""

    def build_library(self):
        code, seconds, output = self.execute(["ninja", "-C", self.build, "-j1", "kai18n"],
                                             BUILD_TIMEOUT)
        return code, seconds, output

    # -- one mutant

    def evaluate(self, mutant, programs):
        path = os.path.join(self.source, mutant["file"])
        with open(path, encoding="utf-8") as f:
            original_text = f.read()
        lines = original_text.split("\n")
        index = mutant["line"] - 1
        if index >= len(lines) or lines[index] != mutant["original"]:
            return {"outcome": "stale", "detail": "line %d no longer reads as sampled" % mutant["line"]}
        lines[index] = mutant["mutated"]
        started = time.time()
        result = {}
        try:
            with open(path, "w", encoding="utf-8") as f:
                f.write("\n".join(lines))
            code, build_seconds, output = self.build_library()
            result["build_s"] = round(build_seconds, 1)
            if code is None:
                result.update(outcome="invalid", detail="build timed out")
                return result
            if code != 0:
                error = next((l.strip() for l in output.splitlines() if "error:" in l), "")
                result.update(outcome="invalid", detail=error[:200])
                return result
            result.update(outcome="survived", tests={})
            for program in programs:
                timeout = max(self.baseline[program] * TIMEOUT_FACTOR,
                              self.baseline[program] + TIMEOUT_MARGIN)
                status, seconds, detail = self.run_test(program, timeout)
                if status == "timeout":
                    # confirmed with twice the time: a busy machine is not an endless loop
                    status, seconds, detail = self.run_test(program, 2 * timeout)
                result["tests"][program] = round(seconds, 1)
                if status != "pass":
                    result.update(outcome="killed", by=program, how=status, detail=detail)
                    break
            return result
        finally:
            with open(path, "w", encoding="utf-8") as f:
                f.write(original_text)
            result["seconds"] = round(time.time() - started, 1)


def programs_for(path):
    parts = path.split("/")
    component = parts[1] if len(parts) > 2 and parts[0] == "src" else None
    if component not in COMPONENT_TESTS:
        raise SystemExit("no test programs known for %s" % path)
    return COMPONENT_TESTS[component]


def load_mutants(path):
    with open(path, encoding="utf-8") as f:
        return json.load(f)


def load_results(path):
    results = OrderedDict()
    if os.path.exists(path):
        with open(path, encoding="utf-8") as f:
            for line in f:
                line = line.strip()
                if line:
                    record = json.loads(line)
                    results[record["id"]] = record
    return results


def group_by_file(mutants):
    """Mutants of one file are run one after another: switching files costs a
    second compile (the restored file of the last mutant)."""
    groups = OrderedDict()
    for mutant in mutants:
        groups.setdefault(mutant["file"], []).append(mutant)
    return sorted(groups.values(), key=len, reverse=True)


class Runner:
    def __init__(self, args, document):
        self.args = args
        self.commit = args.commit or document["commit"]
        self.lock = threading.Lock()
        self.done = 0
        self.started = time.time()
        self.queue = []
        self.total = 0

    def log(self, message):
        with self.lock:
            print("%s %s" % (time.strftime("%H:%M:%S"), message), flush=True)

    def record(self, mutant, result, job):
        record = OrderedDict([("id", mutant["id"]), ("file", mutant["file"]),
                              ("line", mutant["line"]), ("operator", mutant["operator"])])
        record.update(result)
        record["job"] = job.number
        with self.lock:
            with open(self.args.results, "a", encoding="utf-8") as f:
                f.write(json.dumps(record) + "\n")
            self.done += 1
            elapsed = time.time() - self.started
            print("%s [%d/%d] %s %s:%d %s -> %s %s (%.0f s)" % (
                time.strftime("%H:%M:%S"), self.done, self.total, mutant["id"], mutant["file"],
                mutant["line"], mutant["operator"], result["outcome"],
                result.get("by", result.get("detail", ""))[:80], result.get("seconds", 0)),
                flush=True)
            if self.done % 10 == 0:
                print("    %.1f min so far, about %.1f min to go" % (
                    elapsed / 60, elapsed / self.done * (self.total - self.done) / 60), flush=True)

    def next_group(self):
        with self.lock:
            return self.queue.pop(0) if self.queue else None

    def work(self, job, programs, errors, finished):
        try:
            job.prepare(programs)
            while not job.stop.is_set():
                group = self.next_group()
                if group is None:
                    break
                for mutant in group:
                    result = job.evaluate(mutant, programs_for(mutant["file"]))
                    self.record(mutant, result, job)
            # leave the library built from the unmutated sources
            if not job.stop.is_set():
                job.build_library()
        except Stopped:
            pass
        except BaseException as error:  # reported by the main thread
            errors.append((job.number, error))
        finally:
            finished.set()


def command_run(args):
    document = load_mutants(args.mutants)
    mutants = document["mutants"]
    done = load_results(args.results)
    todo = [m for m in mutants if m["id"] not in done]
    if args.limit:
        todo = todo[:args.limit]
    runner = Runner(args, document)
    runner.queue = group_by_file(todo)
    runner.total = len(todo)
    runner.log("%d mutants, %d already done, %d to run with %d job(s) at %s"
               % (len(mutants), len(done), len(todo), args.jobs, runner.commit))
    if not todo:
        return
    programs = sorted({p for m in todo for p in programs_for(m["file"])})
    os.makedirs(args.workdir, exist_ok=True)
    jobs = [Job(n, os.path.abspath(args.workdir), runner.commit, args.root, runner.log)
            for n in range(args.jobs)]
    for job in jobs:  # one at a time: git locks the repository while it adds one
        job.make_worktree()
        job.restore_leftovers()
    errors = []
    finished = [threading.Event() for _ in jobs]
    threads = [threading.Thread(target=runner.work, args=(job, programs, errors, event))
               for job, event in zip(jobs, finished)]

    def stop(*_):
        for job in jobs:
            job.stop.set()
            job.kill_child()

    signal.signal(signal.SIGTERM, lambda *_: stop())
    for thread in threads:
        thread.start()
    # The main thread sleeps rather than blocking in Thread.join: a join that a
    # Ctrl-C interrupts can let the interpreter exit before the workers have
    # restored their files.
    interrupted = False
    while not all(event.is_set() for event in finished):
        try:
            time.sleep(0.5)
        except KeyboardInterrupt:
            runner.log("interrupted: restoring the worktrees")
            interrupted = True
            stop()
    for t in threads:
        t.join()
    for number, error in errors:
        runner.log("job%d failed: %r" % (number, error))
    runner.log("finished %d mutants in %.1f min" % (runner.done, (time.time() - runner.started) / 60))
    if errors:
        sys.exit(1)
    if interrupted or any(job.stop.is_set() for job in jobs):
        sys.exit(130)


def command_cleanup(args):
    workdir = os.path.abspath(args.workdir)
    for name in sorted(os.listdir(workdir)) if os.path.isdir(workdir) else []:
        source = os.path.join(workdir, name, "src")
        if os.path.isdir(source):
            git(["worktree", "remove", "--force", source], args.root)
        shutil.rmtree(os.path.join(workdir, name), ignore_errors=True)
    print("removed the worktrees of %s" % workdir)


# ---------------------------------------------------------------------------
# Reporting

def tally(records):
    counts = defaultdict(int)
    for r in records:
        counts[r["outcome"]] += 1
    valid = counts["killed"] + counts["survived"]
    rate = 100.0 * counts["killed"] / valid if valid else 0.0
    return counts, rate


def print_rate_table(heading, groups, markdown, code=False):
    """One row of counts and kill rate per (name, records) group, as text or markdown."""
    if markdown:
        print("| %s | mutants | killed | survived | invalid | kill rate |" % heading)
        print("| --- | ---: | ---: | ---: | ---: | ---: |")
    else:
        print("%-40s %7s  %6s  %8s  %7s  %6s" % (heading, "mutants", "killed", "survived",
                                                "invalid", "rate"))
    for name, rs in groups:
        c, r = tally(rs)
        row = (("`%s`" % name) if markdown and code else name, len(rs), c["killed"],
               c["survived"], c["invalid"], r)
        if markdown:
            print("| %s | %d | %d | %d | %d | %.0f%% |" % row)
        else:
            print("%-40s %7d  %6d  %8d  %7d  %5.1f%%" % row)


def command_report(args):
    document = load_mutants(args.mutants)
    results = load_results(args.results)
    by_id = {m["id"]: m for m in document["mutants"]}
    records = [r for r in results.values() if r["id"] in by_id]
    files = OrderedDict()
    for m in document["mutants"]:
        files.setdefault(m["file"], [])
    for r in records:
        files[r["file"]].append(r)
    markdown = args.markdown
    counts, rate = tally(records)
    print("%d of %d mutants run: %d killed, %d survived, %d invalid%s; kill rate %.1f%%\n" % (
        len(records), len(by_id), counts["killed"], counts["survived"], counts["invalid"],
        (", %d stale" % counts["stale"]) if counts["stale"] else "", rate))
    print_rate_table("file", list(files.items()), markdown, code=True)
    by_operator = defaultdict(list)
    for r in records:
        by_operator[r["operator"]].append(r)
    print()
    print_rate_table("operator", sorted(by_operator.items()), markdown)
    survivors = [r for r in records if r["outcome"] == "survived"]
    print("\nSurviving mutants (%d):" % len(survivors))
    for r in survivors:
        m = by_id[r["id"]]
        if markdown:
            print("- %s `%s:%d` %s: `%s` -> `%s`" % (m["id"], m["file"], m["line"], m["operator"],
                                                   m["original"].strip(), m["mutated"].strip()))
        else:
            print("%s %s:%d %s\n    - %s\n    + %s" % (m["id"], m["file"], m["line"], m["operator"],
                                                      m["original"].strip(), m["mutated"].strip()))


# ---------------------------------------------------------------------------

def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--root", default=REPO, help="the repository (default: this tool's)")
    sub = parser.add_subparsers(dest="command", required=True)

    generate = sub.add_parser("generate", help="sample mutants into a JSON list")
    generate.add_argument("files", nargs="*", help="source files, relative to the repository")
    generate.add_argument("--commit", default="HEAD", help="sample the files as at this commit")
    generate.add_argument("--seed", default="20261124")
    generate.add_argument("--count", type=int, default=460)
    generate.add_argument("--out", default=os.path.join(REPO, "tools", "mutants.json"))
    generate.set_defaults(handler=command_generate)

    run = sub.add_parser("run", help="run the mutants of a list, appending outcomes to a results file")
    run.add_argument("--mutants", default=os.path.join(REPO, "tools", "mutants.json"))
    run.add_argument("--results", required=True, help="JSONL file of outcomes (appended to)")
    run.add_argument("--workdir", default="/tmp/mutate", help="where the worktrees and builds go")
    run.add_argument("--jobs", type=int, default=1)
    run.add_argument("--commit", help="commit to test (default: the one the list was sampled from)")
    run.add_argument("--limit", type=int, default=0, help="run at most this many mutants")
    run.set_defaults(handler=command_run)

    report = sub.add_parser("report", help="kill rates and surviving mutants")
    report.add_argument("--mutants", default=os.path.join(REPO, "tools", "mutants.json"))
    report.add_argument("--results", required=True)
    report.add_argument("--markdown", action="store_true")
    report.set_defaults(handler=command_report)

    cleanup = sub.add_parser("cleanup", help="remove the worktrees of a work directory")
    cleanup.add_argument("--workdir", default="/tmp/mutate")
    cleanup.set_defaults(handler=command_cleanup)

    args = parser.parse_args()
    args.handler(args)


if __name__ == "__main__":
    main()
