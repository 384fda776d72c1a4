"""Reads C and C++ as far as it takes to say in which construct a gap stands, and what the tokens beside it are.

Guesses by neighbours alone: it is there to sort differences by, not to be right about every sign.
"""

import re

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
WORDS = set("""if else while do for switch case default break continue return goto try catch throw sizeof new delete
    struct class union enum namespace template operator using typedef const static inline extern friend public private
    protected static_cast const_cast reinterpret_cast dynamic_cast noexcept override final typename co_await co_return
    co_yield decltype alignas requires concept explicit virtual volatile constexpr""".split())
NAMED_CASTS = {"static_cast", "const_cast", "reinterpret_cast", "dynamic_cast"}
BINARY = set("/ % | ^ == != <= >= || <=> << ".split()) | {">>"}
ASSIGNMENT = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
# Behind these a sign is a prefix.
BEFORE_PREFIX = BINARY | ASSIGNMENT | {""} | set("""( [ { , ; ? : && + - * & ! ~ < } return throw case sizeof delete
    else do co_await co_yield co_return""".split())
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
        # By index: class of the token before, class of the token, construct, role as the first token of a line.
        self.found = {}
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
        is_body = frame.kind in NOT_BODIES or frame.kind in ("function", "control", "block")
        if before in ASSIGNMENT or before in ("(", ",", "return", "[", "]", "{") and not is_body:
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
        if token == "{":
            kind = self.brace_kind(before)
        else:
            kind = "subscript" if token == "[" else self.paren_kind(index, before)
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
        if not 0 < len(content) < 12 or "sizeof" in content or "this" in content:
            return False
        if not all(t[0].isalpha() or t[0] == "_" or t in ("*", "&", "::", "<", ">", ",", "&&") for t in content):
            return False
        if following[:1] in ("*", "&", "-", "+", "("):
            # Only a type makes a cast of these; otherwise they are a product, a sum, a call.
            is_typed = content[-1] in ("*", "&", "const", ">") or content[-1].endswith("_t")
            return is_typed or bool(set(content) & (TYPES | {"struct", "const"}))
        return following in ("~", "!", "{") or following[:1].isalnum() or following[:1] in ("_", '"', "'")
