"""Sorts the differences between two texts that differ in white space only, and says what kinds there are.

A kind is what has happened to a gap (joined, split, indented by so much, so many blanks instead of so many) together with
the tokens round it and the construct that holds it. What a bracket or a sign is gets guessed from its neighbours; that is
good enough to sort by, and to see which rule of the formatter is missing. A line that moved only because the line or the
bracket it hangs on has moved counts for the kind of the change that moved it first.
"""

import concurrent.futures
import re
from collections import Counter, defaultdict

TOKEN = re.compile(
    r"""(\s*)(
      //(?:\\\n|[^\n])*
    | /\*.*?(?:\*/|\Z)
    | \#(?:[ \t]*(?:\\[ \t]*\n|"(?:\\.|[^"\\\n])*"|/\*(?:[^*]|\*(?!/))*\*/(?=[ \t]*\S)|(?!//|/\*)\S))*
    | (?:u8|[uUL])?R"(?P<delimiter>[^()\\\s]{0,16})\(.*?\)(?P=delimiter)"
    | (?:u8|[uUL])?"(?:\\.|[^"\\\n])*"
    | (?:u8|[uUL])?'(?:\\.|[^'\\\n])*'
    | [A-Za-z_$][\w$]*
    | \.?\d(?:[eEpP][+-]|'\w|[\w.])*
    | <<=|>>=|\.\.\.|->\*|<=>|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<
    | .
    )""", re.VERBOSE | re.DOTALL)

CONTROL = {"if": "condition", "while": "condition", "switch": "condition", "for": "for head", "catch": "catch head"}
TYPES = set("""void bool char short int long float double signed unsigned auto wchar_t size_t ssize_t FILE string
    uint8_t uint16_t uint32_t uint64_t int8_t int16_t int32_t int64_t u8 u16 u32 u64 __u8 __u16 __u32 __u64""".split())
QUALIFIERS = {"const", "volatile", "static", "inline", "extern", "virtual", "explicit", "mutable", "constexpr", "register",
              "typename", "unsigned", "signed", "typedef"}
WORDS = set("""if else while do for switch case default break continue return goto try catch throw sizeof new delete
    struct class union enum namespace template operator using typedef const static inline extern friend public private
    protected static_cast const_cast reinterpret_cast dynamic_cast noexcept override final typename co_await co_return
    co_yield decltype alignas requires concept explicit virtual volatile constexpr""".split())
NAMED_CASTS = {"static_cast", "const_cast", "reinterpret_cast", "dynamic_cast"}
BINARY = set("/ % | ^ == != <= >= || <=> << ".split()) | {">>"}
ASSIGNMENT = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
# Behind these a sign is a prefix.
BEFORE_PREFIX = (BINARY | ASSIGNMENT | {"(", "[", "{", ",", ";", "?", ":", "&&", "+", "-", "*", "&", "!", "~", "<", "}", "return",
                 "throw", "case", "sizeof", "delete", "else", "do", "co_await", "co_yield", "co_return", ""})
# What is one to most rules, unless finer kinds are asked for.
OPERANDS = {"name", "number", "string", "type", "sizeof", "new", "named cast", "delete", "operator", "struct", "decltype",
            "class", "union", "enum", "typename", "noexcept", "co_await", "override", "final", "const", "static", "return",
            "volatile", "constexpr", "explicit", "virtual", "inline"}
COARSE = {"function": "body", "control": "body", "block": "body", "case block": "body", "lambda": "body",
          "file": "file level", "namespace": "file level", "linkage": "file level"}
NOT_BODIES = {"file", "namespace", "class", "enum", "linkage"}
TAB = 8


class Text:
    """A text as tokens: parallel lists of texts, gaps in front, offsets, and counts of solid characters before."""

    def __init__(self, path):
        with open(path, encoding="latin-1", newline="") as file:
            self.text = file.read()
        self.tokens, self.gaps, self.offsets, self.places = [], [], [], []
        place = 0
        for match in TOKEN.finditer(self.text):
            token = match.group(2)
            self.gaps.append(match.group(1))
            self.tokens.append(token)
            self.offsets.append(match.start(2))
            self.places.append(place)
            # Only long tokens hold white space.
            place += len(token) if len(token) < 3 or token.isalnum() else len(re.sub(r"\\[ \t]*\n|\s", "", token))

    def line_start(self, offset):
        return self.text.rfind("\n", 0, offset) + 1

    def column(self, offset):
        return len(self.text[self.line_start(offset):offset].expandtabs(TAB))

    def line(self, offset):
        return self.text.count("\n", 0, offset) + 1

    def excerpt(self, first, last):
        """The lines from one offset to another, at most three and not too long."""
        end = self.text.find("\n", last)
        lines = self.text[self.line_start(first):end if end >= 0 else len(self.text)].split("\n")
        if len(lines) > 3:
            lines = lines[:1] + [f"  ... {len(lines) - 2} lines"] + lines[-1:]
        return [line.replace("\t", "--->")[:140] for line in lines]


class Frame:
    """What an open bracket holds."""

    def __init__(self, kind, index):
        self.kind = kind
        self.index = index      # of the bracket's token
        self.first = None       # index of the first token of the statement that is being read
        self.head = []          # the words of that statement that say what its braces are
        self.assigned = False   # whether the statement has had a sign of assignment
        self.base = False       # whether it is behind the colon of a constructor's or a class's list
        self.after_head = False  # whether the next token begins a body without braces
        self.questions = 0


class Reader:
    """Goes over the tokens of a text and tells of some of them in which construct they stand."""

    def __init__(self, text, wanted):
        self.text = text
        self.wanted = wanted    # indices of the tokens that are asked for
        self.found = {}         # by index: class of the token before, class of the token, construct, role as first of a line
        self.opener = {}        # by wanted index: the index of the bracket that holds it
        self.frames = [Frame("file", -1)]

    def read(self):
        tokens, wanted = self.text.tokens, self.wanted
        before, before_class = "", "start"
        label = None
        for index, token in enumerate(tokens):
            start = token[0]
            if start == "/" and token[1:2] in ("/", "*"):
                kind = "comment"
            elif start == "#" and not token.startswith("##"):
                kind = "directive"
            else:
                kind = None
            if kind:
                if index in wanted:
                    self.tell(index, before_class, kind, kind)
                before_class = kind
                continue
            role = None
            if index in wanted:
                role = self.role(index, token, before, label)
            kind, frame = self.step(index, token, before)
            if index in wanted:
                self.tell(index, before_class, kind, role, frame)
            before, before_class = token, kind
            label = kind if kind in ("case :", "label :", "access :") else None

    def tell(self, index, before, kind, role, frame=None):
        frame = frame or self.frames[-1]
        self.found[index] = (before, kind, frame.kind, role)
        self.opener[index] = frame.index

    def role(self, index, token, before, label):
        """What a token is if it is the first of a line."""
        frame = self.frames[-1]
        if token == "}":
            return f"close brace of {frame.kind}"
        if token == "{":
            return f"open brace of {self.brace_kind(before)}"
        if token in (")", "]"):
            return f"{token} of {frame.kind}"
        if frame.index >= 0 and self.text.tokens[frame.index] in ("(", "["):
            return f"later line in {frame.kind}"
        if frame.kind == "braced list":
            return "row of a braced list"
        if frame.kind == "enum":
            return "enumerator"
        if frame.first is None:
            following = self.text.tokens[index + 1] if index + 1 < len(self.text.tokens) else ""
            if frame.after_head and token not in ("if",):
                return "body without braces"
            if token in ("case", "default", "else", "catch"):
                return token
            if token in ("public", "protected", "private") or (following == ":" and frame.kind == "class"):
                return "access label"
            if following == ":" and frame.kind not in NOT_BODIES:
                return "goto label"
            if before == "}" and token == "while":
                return "while behind }"
            if label:
                return f"first behind {label}"
            return "statement" if frame.kind not in NOT_BODIES else "declaration"
        if frame.base:
            return "later line of a list of bases or initializers"
        if before == ">" and frame.head[:1] == ["template"]:
            return "declaration behind template<>"
        if frame.kind in NOT_BODIES and not frame.assigned:
            return "later line of a declaration"
        return "later line of an expression"

    def step(self, index, token, before):
        """Takes one token; returns its class and the frame that holds it."""
        frame = self.frames[-1]
        if token in ("{", "(", "["):
            return self.open(index, token, before)
        if token in ("}", ")", "]"):
            return self.close(index, token)
        if token == ";":
            if frame.kind != "for head":
                self.end_statement(frame)
            return ";", frame
        if token == ":":
            return self.colon(index, before, frame), frame
        kind = self.classify(index, token, before, frame)
        if frame.first is None:
            frame.first = index
            frame.after_head = False
        if token in WORDS:
            frame.head.append(token)
            if token in ("else", "do", "try"):
                self.end_statement(frame)
                frame.after_head = token != "try"
                frame.head = [token]
        elif token == "?":
            frame.questions += 1
        elif token in ASSIGNMENT and "operator" not in frame.head:
            frame.assigned = True
        return kind, frame

    @staticmethod
    def end_statement(frame):
        frame.first, frame.head, frame.assigned, frame.base = None, [], False, False
        frame.questions, frame.after_head = 0, False

    def colon(self, index, before, frame):
        if frame.questions:
            frame.questions -= 1
            return "? :"
        if frame.kind == "for head":
            return "for :"
        if "case" in frame.head or "default" in frame.head:
            self.end_statement(frame)
            return "case :"
        if frame.kind == "class" and (before in ("public", "private", "protected") or frame.first == index - 1):
            self.end_statement(frame)
            return "access :"
        if frame.first is not None and frame.first == index - 1:
            self.end_statement(frame)
            return "label :"
        if before == ")" or before in ("noexcept", "override"):
            frame.base = True
            return "constructor :"
        if {"class", "struct", "enum", "union"} & set(frame.head):
            frame.base = True
            return "base :"
        return "bit-field :"

    def classify(self, index, token, before, frame):
        start = token[0]
        if start in "\"'" or token[-1] == '"':
            return "string"
        if start.isdigit() or (start == "." and len(token) > 1 and token[1].isdigit()):
            return "number"
        if start.isalpha() or start == "_":
            if token in NAMED_CASTS:
                return "named cast"
            return token if token in WORDS else "type" if token in TYPES or token.endswith("_t") else "name"
        if token in ("*", "&", "&&"):
            if before == "operator":
                return "operator name"
            if before in BEFORE_PREFIX and before not in ("}",):
                pointer_before = before in ("*", "&", "&&") and self.is_declaring(index - 1, frame)
                return f"pointer {token}" if pointer_before else f"prefix {token}"
            if self.is_declaring(index, frame):
                return f"pointer {token}"
            return f"binary {token}"
        if token in ("+", "-"):
            return f"prefix {token}" if before in BEFORE_PREFIX else f"binary {token}"
        if token in ("!", "~"):
            return f"prefix {token}"
        if token in ("++", "--"):
            return token
        if before == "operator":
            return "operator name"
        if token in ASSIGNMENT:
            return "="
        return "binary op" if token in BINARY else token

    def is_declaring(self, index, frame):
        """Whether a sign behind a name or type may be that of a pointer or reference."""
        tokens = self.text.tokens
        before = tokens[index - 1]
        if before in TYPES or before.endswith("_t") or before in ("const", "volatile", ">", "auto", "typename"):
            return True
        if frame.kind in ("parameters", "catch head"):
            return not frame.assigned
        if frame.kind in ("parentheses",):
            return tokens[index + 1] in (")", "*")
        if frame.assigned or frame.first is None:
            return False
        if {"return", "case", "throw", "goto", "delete"} & set(frame.head):
            return False
        if frame.kind in ("condition", "call", "subscript", "braced list"):
            return False
        # From the start of the statement on, only what a type has.
        return all(t[0].isalpha() or t[0] in "_<>:*&,/" for t in tokens[frame.first:index][-12:])

    def brace_kind(self, before):
        frame = self.frames[-1]
        head = frame.head
        words = set(head)
        if before in ASSIGNMENT or before in ("(", ",", "return", "[", "]", "{") and frame.kind not in NOT_BODIES | {"function", "control", "block"}:
            return "lambda" if before == "]" else "braced list"
        if frame.kind in ("braced list", "enum") or before == "return":
            return "braced list"
        if before == "]":
            return "lambda"
        if self.is_bracket_frame(frame):
            return "lambda" if before in (")", "mutable", "noexcept", "const", ">", "*", "&") else "braced list"
        if before in ("else", "do", "try") or head[:1] in (["else"], ["do"]) and frame.first is None:
            return "control"
        if frame.first is None:
            if frame.after_head:
                return "control"
            if before == ":":
                return "case block" if frame.kind not in NOT_BODIES else "block"
            # Behind the declarations of the parameters of an old C function.
            return "function" if frame.kind in NOT_BODIES and before == ";" else "block"
        if "namespace" in words:
            return "namespace"
        if before[:1] == '"' and "extern" in words:
            return "linkage"
        if "enum" in words and before != ")":
            return "enum"
        if {"class", "struct", "union"} & words and before not in (")", "=") and not frame.assigned:
            return "class"
        if frame.assigned:
            return "lambda" if before in (")", "mutable") else "braced list"
        if frame.kind in NOT_BODIES:
            if frame.base and (before[:1].isalpha() or before[:1] == "_" or before == ">"):
                return "braced list"
            return "function"
        if before == ")":
            return "control"
        return "braced list"

    @staticmethod
    def is_bracket_frame(frame):
        return frame.kind in ("parameters", "call", "condition", "for head", "parentheses", "subscript", "catch head")

    def paren_kind(self, index, before):
        frame = self.frames[-1]
        if before in CONTROL:
            return CONTROL[before]
        if before in ("sizeof", "decltype", "alignof", "alignas", "noexcept", "defined"):
            return before
        is_name = before[:1].isalpha() or before[:1] == "_"
        if is_name and before not in WORDS or before in (">", "]"):
            in_scope = frame.kind in NOT_BODIES and not frame.assigned and not frame.base
            if in_scope or before == "]":
                return "parameters"
            return "call"
        if "operator" in frame.head[-1:]:
            return "parameters"
        if frame.kind in NOT_BODIES and before == ")" and not frame.assigned:
            return "parameters"
        return "parentheses"

    def open(self, index, token, before):
        frame = self.frames[-1]
        kind = self.brace_kind(before) if token == "{" else "subscript" if token == "[" else self.paren_kind(index, before)
        if token == "{" and kind not in ("braced list", "lambda"):
            frame.after_head = False
        elif frame.first is None:
            frame.first = index
        inner = Frame(kind, index)
        self.frames.append(inner)
        return f"{token} of {kind}" if token != "[" else "[", inner

    def close(self, index, token):
        # A text whose brackets don't match, between branches of directives, is read as well as may be.
        if len(self.frames) == 1:
            return token, self.frames[0]
        inner = self.frames.pop()
        frame = self.frames[-1]
        if token == "}" and inner.kind not in ("braced list", "lambda"):
            if inner.kind not in ("class", "enum"):
                self.end_statement(frame)
        elif token == ")" and inner.kind in ("condition", "for head", "catch head"):
            if not (frame.head[-1:] == ["while"] and frame.head[:1] == ["do"]):
                self.end_statement(frame)
                frame.after_head = True
        elif inner.kind == "parentheses" and self.is_cast(inner.index + 1, index):
            return ") of cast", inner
        return f"{token} of {inner.kind}" if token != "]" else "]", inner

    def is_cast(self, first, last):
        """Whether parentheses round some tokens seem to hold a type, and an operand follows."""
        tokens = self.text.tokens
        content = tokens[first:last]
        following = tokens[last + 1] if last + 1 < len(tokens) else ""
        if not 0 < len(content) < 12 or any(t[0].isdigit() or t[0] in ".\"'" or t in ("sizeof", "this") for t in content):
            return False
        is_typed = content[-1] in ("*", "&", "const", ">") or bool(set(content) & (TYPES | {"struct", "const"})) or content[-1].endswith("_t")
        if not all(t[0].isalpha() or t[0] == "_" or t in ("*", "&", "::", "<", ">", ",", "&&") for t in content):
            return False
        if following[:1] in ("*", "&", "-", "+", "("):
            return is_typed
        return bool(following) and (following[0].isalnum() or following[0] in "_\"'~!{" and len(following) < 3 or following[0] in "\"'_")


def blanks(gap):
    """A gap without a line feed, in words."""
    if gap == "":
        return "none"
    if "\t" in gap:
        return "tab" if gap == "\t" else "tabs"
    return "1" if gap == " " else "n"


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
        shifts = {width("\n" + re.match(r"\s*", new_lines[n]).group()) - width("\n" + re.match(r"\s*", old_lines[n]).group())
                  for n in moved}
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
            lines = [text.tokens[i].split("\n")[change.row] for text, i in ((self.old, change.index), (self.new, other))]
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
