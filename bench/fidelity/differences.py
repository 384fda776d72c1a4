"""Sorts the differences between two texts that differ in white space only, and says what kinds there are.

A kind is what has happened to a gap (joined, split, indented by so much, so many blanks instead of so many) together
with the tokens round it and the construct that holds it. What a bracket or a sign is gets guessed from its neighbours;
that is good enough to sort by, and to see which rule of the formatter is missing. A line that moved only because the
line or the bracket it hangs on has moved counts for the kind of the change that moved it first.
"""

import concurrent.futures
import re
from collections import Counter, defaultdict

from constructs import Reader, TAB, Text

# What is one to most rules, unless finer kinds are asked for.
OPERANDS = {"named cast"} | set("""name number string type sizeof new delete operator struct decltype class union enum
    typename noexcept co_await override final const static return volatile constexpr explicit virtual inline""".split())
COARSE = {"function": "body", "control": "body", "block": "body", "case block": "body", "lambda": "body",
          "file": "file level", "namespace": "file level", "linkage": "file level"}


def blanks(gap):
    """A gap without a line feed, in words."""
    if gap == "":
        return "none"
    if "\t" in gap:
        return "tab" if gap == "\t" else "tabs"
    return "1" if gap == " " else "n"


def leading(line):
    """The width of the white space that a line begins with."""
    return width(line[:len(line) - len(line.lstrip())])


def width(gap):
    return len(gap.rpartition("\n")[2].expandtabs(TAB))


class Change:
    def __init__(self, kind, lines, index, row):
        self.kind = kind
        self.row = row          # of a change inside a token: the line of the token
        self.lines = lines      # numbers of lines of the old text that it touches
        self.index = index      # of the token behind the gap
        self.follows = False


class Comparison:
    """The changed gaps between two texts, each with its kind."""

    def __init__(self, old_path, new_path, fine=False):
        self.fine = fine
        self.old, self.new = Text(old_path), Text(new_path)
        self.changes = []
        self.partner = dict(zip(self.new.places, range(len(self.new.places))))

    def run(self):
        changed = []
        old, new, partner = self.old, self.new, self.partner
        for index, place in enumerate(old.places):
            other = partner.get(place)
            gap = new.gaps[other] if other is not None else ""
            if gap != old.gaps[index]:
                changed.append((index, old.gaps[index], gap))
            elif "\n" in gap:
                # A line that has not moved ends what followed from the lines before it.
                changed.append((index, None, None))
            if other is not None and new.tokens[other] != old.tokens[index]:
                changed.append((index, "inside", "inside"))
        reader = Reader(old, {c[0] for c in changed})
        reader.read()
        self.classify(changed, reader)
        return self.changes

    def classify(self, changed, reader):
        old = self.old
        line, counted = 1, 0
        carried = None          # shift and kind of the line before
        for index, gap, new_gap in changed:
            offset = old.offsets[index]
            line += old.text.count("\n", counted, offset)
            counted = offset
            before, token, construct, role = reader.found[index]
            if gap is None:
                if token != "directive":
                    carried = None
                continue
            if gap == "inside":
                self.inside(index, token, line)
                continue
            if not self.fine:
                before, token = ("operand" if c in OPERANDS else c for c in (before, token))
                construct = COARSE.get(construct, construct)
            feeds, new_feeds = gap.count("\n"), new_gap.count("\n")
            place = f"{before} | {token}   in {construct}"
            if feeds == 0 and new_feeds == 0:
                if not self.fine:
                    place = f"{self.signs(before, token)}   in {construct}"
                self.add(f"blanks {blanks(gap)} -> {blanks(new_gap)}   {place}", [line], index)
            elif feeds == 0:
                self.add(f"split   {self.pair(before, token)}   in {construct}", [line], index)
                carried = None
            elif new_feeds == 0:
                self.add(f"joined   {self.pair(before, token)}   in {construct}, {role}", [line - feeds, line], index)
                carried = None
            else:
                if feeds != new_feeds:
                    lost = list(range(line - (feeds - new_feeds), line)) if new_feeds < feeds else []
                    self.add(f"empty lines {feeds - 1} -> {new_feeds - 1}   {place}", lost, index)
                elif gap.rpartition("\n")[0] != new_gap.rpartition("\n")[0]:
                    self.add(f"trailing blanks   behind {before}", [line - feeds], index)
                carried = self.indent(index, gap, new_gap, line, before, construct, role, reader, carried)

    @staticmethod
    def signs(before, token):
        """The tokens round a gap inside a line: the two sides of a sign between operands are one."""
        for sign in (before, token):
            if sign.startswith("binary") or sign == "=":
                return f"round {sign}"
        return f"{before} | {token}"

    def pair(self, before, token):
        """The tokens round a line end that has come or gone: the later one only if it matters."""
        matters = self.fine or token[0] in "{}()[" or token in ("comment", "directive", "else", "constructor :")
        return f"{before} | {token}" if matters else f"behind {before}"

    def inside(self, index, token, line):
        """Adds the changes of the lines of a comment or directive."""
        old_lines = self.old.tokens[index].split("\n")
        new_lines = self.new.tokens[self.partner[self.old.places[index]]].split("\n")
        if len(old_lines) != len(new_lines):
            self.add(f"lines of a {token}", range(line, line + len(old_lines)), index)
            return
        moved = [n for n, pair in enumerate(zip(old_lines, new_lines)) if pair[0] != pair[1]]
        shifts = {leading(new_lines[n]) - leading(old_lines[n]) for n in moved}
        solid = all(old_lines[n].split() == new_lines[n].split() for n in moved)
        if shifts == {self.shift_of(index)} and solid and self.cause_of(index):
            self.add(self.cause_of(index), [line + n for n in moved], index, moved[0]).follows = True
            return
        if len(shifts) == 1 and solid:
            what = f"later lines of a {token} {shifts.pop():+}"
        else:
            what = f"inside a {token}"
        self.add(what, [line + n for n in moved], index, moved[0])

    def indent(self, index, gap, new_gap, line, before, construct, role, reader, carried):
        """Adds a change of a line's indent, if there is one, and returns what the next line may follow."""
        shift = width(new_gap) - width(gap)
        if gap.rpartition("\n")[2] == new_gap.rpartition("\n")[2]:
            return None if role != "directive" else carried
        if shift == 0:
            self.add(f"tabs and blanks   {role} in {construct}", [line], index)
            return None
        followed = None
        opener = reader.opener[index]
        if carried and carried[0] == shift:
            followed = carried[1]
        elif opener >= 0 and self.old.tokens[opener] != "{" and self.shift_of(opener) == shift:
            followed = self.cause_of(opener)
        if followed:
            change = self.add(followed, [line], index)
            change.follows = True
            return shift, followed
        if before == "directive" or before[0] == "{":
            role = f"{role} behind {before}"
        kind = f"indent {shift:+}   {role}   in {construct}"
        self.add(kind, [line], index)
        return shift, kind

    def add(self, kind, lines, index, row=None):
        change = Change(kind, lines, index, row)
        self.changes.append(change)
        return change

    def shift_of(self, index):
        other = self.partner.get(self.old.places[index])
        if other is None:
            return 0
        return self.new.column(self.new.offsets[other]) - self.old.column(self.old.offsets[index])

    def cause_of(self, index):
        """The kind of the last change in front of a token."""
        for change in reversed(self.changes):
            if change.index <= index:
                return change.kind
        return None

    def example(self, change):
        """Place, old lines and new lines of a change."""
        if change.row is not None:
            other = self.partner[self.old.places[change.index]]
            tokens = self.old.tokens[change.index], self.new.tokens[other]
            lines = [token.split("\n")[change.row] for token in tokens]
            start = self.old.line(self.old.offsets[change.index])
            return start + change.row, *([line.replace("\t", "--->")[:140]] for line in lines)
        first = max(change.index - 1, 0)
        parts = []
        for text, index, previous in ((self.old, change.index, first),
                                      (self.new, self.partner.get(self.old.places[change.index]),
                                       self.partner.get(self.old.places[first]))):
            if index is None or previous is None:
                parts.append(["(tokens torn or joined)"])
                continue
            start = text.offsets[previous] + len(text.tokens[previous]) - 1
            parts.append(text.excerpt(min(start, text.offsets[index]), text.offsets[index]))
        return self.old.line(self.old.offsets[change.index]), parts[0], parts[1]


class Kind:
    """What is known of one kind of difference."""

    def __init__(self):
        self.lines = self.alone = self.followers = self.files = 0
        self.examples = []      # (rank, file, line, old, new)
        self.trees = Counter()

    def merge(self, other, most):
        self.lines += other.lines
        self.alone += other.alone
        self.followers += other.followers
        self.files += other.files
        self.trees.update(other.trees)
        self.examples = sorted(self.examples + other.examples)[:most]


EXAMPLES_OF_A_FILE, EXAMPLES_OF_A_KIND = 2, 12


def analyse(job):
    """The kinds of differences between two files, by their descriptions."""
    tree, name, old_path, new_path, fine = job
    comparison = Comparison(old_path, new_path, fine)
    kinds = defaultdict(Kind)
    keys_of_line = defaultdict(set)
    seen = Counter()
    for change in comparison.run():
        kind = kinds[change.kind]
        kind.followers += change.follows
        for line in change.lines:
            keys_of_line[line].add(change.kind)
        # Origins make better examples than lines that only follow; the rank prefers short ones.
        if not change.follows and seen[change.kind] < EXAMPLES_OF_A_FILE:
            seen[change.kind] += 1
            line, old, new = comparison.example(change)
            rank = len(old) + len(new) + sum(map(len, old)) / 80 + 3 * (seen[change.kind] - 1)
            kind.examples.append((rank, name, line, old, new))
    for keys in keys_of_line.values():
        for key in keys:
            kinds[key].lines += 1
            kinds[key].alone += len(keys) == 1
    for kind in kinds.values():
        kind.files = 1
        kind.trees[tree] = kind.lines
    return dict(kinds)


def collect(run, jobs, fine):
    """The kinds of differences of a whole run; fine ones tell all classes of tokens apart."""
    work = [(run.before.name, name, str(run.before / name), str(run.after / name), fine)
            for name in sorted(run.deleted, key=lambda n: -run.deleted[n]) if name not in run.broken]
    kinds = defaultdict(Kind)
    with concurrent.futures.ProcessPoolExecutor(jobs) as pool:
        for part in pool.map(analyse, work, chunksize=4):
            merge(kinds, part)
    return kinds


def merge(kinds, part):
    for key, kind in part.items():
        kinds[key].merge(kind, EXAMPLES_OF_A_KIND)


def show(kinds, most, only, with_trees=False):
    chosen = [(key, kind) for key, kind in kinds.items() if not only or re.search(only, key)]
    chosen.sort(key=lambda pair: (-pair[1].lines, pair[0]))
    for key, kind in chosen[:most]:
        followers = f", {kind.followers} lines only follow" if kind.followers else ""
        print(f"  {kind.lines:6} lines, {kind.alone:6} alone, {kind.files:4} files   {key}{followers}")
        if with_trees and len(kind.trees) > 1:
            print("           " + ", ".join(f"{tree} {lines}" for tree, lines in kind.trees.most_common()))
        for _, name, line, old, new in kind.examples[:5 if only else 1]:
            print(f"           {name}:{line}")
            for text in old:
                print(f"           - {text}")
            for text in new:
                print(f"           + {text}")
    if len(chosen) > most:
        rest = sum(kind.lines for _, kind in chosen[most:])
        print(f"  {rest:6} lines in {len(chosen) - most} more kinds")
