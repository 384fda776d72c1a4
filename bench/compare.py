"""Compares whole processes: compare.py CORVANE_FORMAT ROUNDS

Each tool gets the same files of a tree in one process start and rewrites a scratch copy in place. Files that
corvane-format refuses are left out for all, since it would be quick with them and do nothing. The copies are made anew
before each run and all tools run in turn, round by round. What is compared is processor time, user and system, as the
operating system accounts it when the process ends; a ratio is taken within a round, and the median of the rounds is
printed. At the end: processor time and peak memory of one huge construct, and of one ten times as long.
"""

import glob
import os
import shutil
import statistics
import subprocess
import sys
import tempfile

TREES = {
    "googletest, C++": ("googletest", (".cc", ".h")),
    "libstdc++ headers, C++": ("libstdc++-12-dev", ("", ".h", ".hpp", ".tcc")),
    "C library headers, C": ("libc6-dev", (".h",)),
}

UNCRUSTIFY_SETTINGS = """
indent_columns = 4
indent_with_tabs = 0
indent_class = true
indent_namespace = true
nl_fcall_brace = add
nl_if_brace = add
nl_else_brace = add
nl_for_brace = add
nl_while_brace = add
nl_do_brace = add
nl_fdef_brace = add
nl_class_brace = add
nl_enum_brace = add
nl_struct_brace = add
nl_namespace_brace = add
sp_arith = force
sp_assign = force
sp_bool = force
sp_compare = force
sp_after_comma = force
sp_before_ptr_star = remove
sp_after_ptr_star = force
align_var_def_span = 1
"""

HUGE = {
    "class": ("class A\n{\n", "int a; // a\nvoid f(int b, const char* c) const;\n", "};\n"),
    "initializer list": ("int a[] = {", "1, 0x2f, /* c */ f(3),\n", "4};\n"),
    "function": ("void f()\n{\n", "for (int i = 0; i < n; ++i) { g(a[i] + 1, b); }\nint x = 1;\n", "}\n"),
    "enum": ("enum E\n{\n", "a = 1, // a\nb,\n", "c\n};\n"),
    "comment": ("/*\n", "    some words of a comment\n", "*/\n"),
    "file of functions": ("", "int f(int a, char* b)\n{\nif (a) { return *b; }\nelse return 0;\n}\n", ""),
}


def tools(corvane, scheme, settings):
    """Each tool with the command that rewrites the files behind it, and the trees that it is meant for."""
    return [
        ("corvane-format", [corvane, "-i", "-s", scheme], "C++ C"),
        ("clang-format", ["clang-format", "-i", "--style=LLVM"], "C++ C"),
        ("clang-format, no column limit", ["clang-format", "-i", "--style={BasedOnStyle: LLVM, ColumnLimit: 0}"], "C++ C"),
        ("astyle", ["astyle", "-n", "-q", "--style=allman", "--pad-oper", "--pad-comma", "--align-pointer=type"], "C++ C"),
        ("uncrustify", ["uncrustify", "-q", "-c", settings, "-l", "CPP", "--replace", "--no-backup"], "C++ C"),
        ("indent", ["indent"], "C"),
    ]


def package_files(package, endings):
    files = []
    for listing in glob.glob(f"/var/lib/dpkg/info/{package}*.list"):
        if os.path.basename(listing).split(":")[0].removesuffix(".list") != package:
            continue
        for path in open(listing).read().split("\n"):
            inside = path.startswith(("/usr/include/", "/usr/src/"))
            if inside and os.path.splitext(path)[1] in endings and os.path.isfile(path) and not os.path.islink(path):
                files.append(path)
    return files


def accepted(corvane, scheme, files):
    """The files that corvane-format formats."""
    def formats(path):
        with open(os.devnull, "w") as null:
            return subprocess.run([corvane, "-s", scheme, path], stdout=null, stderr=null).returncode == 0
    return [path for path in files if formats(path)]


def copy_files(files, folder):
    """Numbered copies, since the names of a tree repeat; a header without an ending gets .h, which all tools know."""
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    copies = []
    for number, path in enumerate(files):
        copies.append(os.path.join(folder, f"{number}_{os.path.basename(path)}"))
        if not os.path.splitext(path)[1]:
            copies[-1] += ".h"
        shutil.copyfile(path, copies[-1])
    return copies


def measure(command):
    """Processor seconds and peak memory in MB of one process."""
    with open(os.devnull, "w") as null:
        process = subprocess.Popen(command, stdout=null, stderr=null)
        _, _, usage = os.wait4(process.pid, 0)
        process.returncode = 0
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def changed(files, copies):
    return sum(open(a, "rb").read() != open(b, "rb").read() for a, b in zip(files, copies))


def compare_tree(title, found, files, tool_list, folder, rounds):
    times = {name: [] for name, _, _ in tool_list}
    changes = {}
    for _ in range(rounds):
        for name, command, _ in tool_list:
            copies = copy_files(files, folder)
            times[name].append(measure(command + copies)[0])
            changes[name] = changed(files, copies)
    size = sum(map(os.path.getsize, files)) / 1e6
    print(f"\n{title}: {len(files)} of {found} files, {size:.1f} MB, {rounds} rounds")
    print("| tool | processor seconds, median | ratio to corvane-format, median (least to most) | files changed |")
    print("|---|---|---|---|")
    own = times["corvane-format"]
    for name, _, _ in tool_list:
        ratios = [other / mine for other, mine in zip(times[name], own)]
        print(f"| {name} | {statistics.median(times[name]):.2f} | {statistics.median(ratios):.2f}"
              f" ({min(ratios):.2f} to {max(ratios):.2f}) | {changes[name]} |")


def compare_growth(corvane, scheme, folder, rounds):
    print("\nGrowth: one construct of about 1 MB, and ten times as long")
    print("| construct | seconds | seconds, ten times | ratio | peak MB | peak MB, ten times | ratio |")
    print("|---|---|---|---|---|---|---|")
    os.makedirs(folder, exist_ok=True)
    for name, (before, part, after) in HUGE.items():
        results = []
        for factor in (1, 10):
            path = os.path.join(folder, "huge.cpp")
            with open(path, "w") as out:
                out.write(before + part * (factor * 1_000_000 // len(part)) + after)
            runs = [measure([corvane, "-s", scheme, path]) for _ in range(rounds)]
            results.append([statistics.median(run[i] for run in runs) for i in (0, 1)])
        (time, memory), (time10, memory10) = results
        print(f"| {name} | {time:.2f} | {time10:.2f} | {time10 / time:.1f}"
              f" | {memory:.0f} | {memory10:.0f} | {memory10 / memory:.1f} |")


def main():
    corvane, rounds = sys.argv[1], int(sys.argv[2])
    scheme = os.path.join(os.path.dirname(__file__), "..", "schemes", "Corvane.fsc")
    with tempfile.TemporaryDirectory() as scratch:
        settings = os.path.join(scratch, "uncrustify.cfg")
        with open(settings, "w") as out:
            out.write(UNCRUSTIFY_SETTINGS)
        for title, (package, endings) in TREES.items():
            language = title.split(", ")[1]
            chosen = [tool for tool in tools(corvane, scheme, settings) if language in tool[2].split()]
            found = package_files(package, endings)
            files = accepted(corvane, scheme, found)
            compare_tree(title, len(found), files, chosen, os.path.join(scratch, "tree"), rounds)
        compare_growth(corvane, scheme, os.path.join(scratch, "growth"), rounds)


main()
