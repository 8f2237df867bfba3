"""The changes that scripts/mutate tries: one token of a source file replaced by another."""
import dataclasses
import os
import re

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
  | (?P<text>(?:u8|[LuU])?"(?:\\.|[^"\\\n])*"|(?:u8|[LuU])?'(?:\\.|[^'\\\n])*')
  | (?P<number>(?:0[xX][0-9a-fA-F']+|\d[\d']*(?:\.[\d']*)?(?:[eE][+-]?\d+)?)[uUlLfF]*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<=|>>=|<=>|->\*?|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|::|[-+*/%&|^!~<>=?:;,.(){}\[\]])
""", re.VERBOSE | re.MULTILINE | re.DOTALL)

# What each operator becomes; those that also have another meaning only if blanks on both sides show that they
# compare or calculate.
ALWAYS = {"==": ["!="], "!=": ["=="], "<=": ["<", ">"], ">=": [">", "<"], "++": ["--"],
          "--": ["++"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
          "!": [""]}
BETWEEN_BLANKS = {"&&": ["||"], "||": ["&&"], "<": ["<=", ">="], ">": [">=", "<="], "+": ["-"], "-": ["+"],
                  "*": ["/"], "/": ["*"], "%": ["*"],
                  "&": ["|"], "|": ["&"], "^": ["|"], "<<": [">>"], ">>": ["<<"]}
WORDS = {"true": ["false"], "false": ["true"]}
# Declarations that say nothing at run time.
SKIPPED_LINE = re.compile(
    r"^\s*(?:template\b|static_assert\b|assert\b|using\b|friend\b|#)|= (?:delete|default);|operator")


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: str
    line: int
    start: int
    end: int
    old: str
    new: str

    def __str__(self):
        return f"{self.path}:{self.line}: '{self.old}' -> '{self.new}'"


def of_number(text):
    """One more, or twice as much of what is too large for that; of 0 and 1 the other one."""
    body = re.match(r"0[xX][0-9a-fA-F']+|[\d']+(?:\.[\d']*)?(?:[eE][+-]?\d+)?", text).group()
    suffix = text[len(body):]
    plain = body.replace("'", "")
    if re.fullmatch(r"\d+|0[xX][0-9a-fA-F]+", plain):
        value = int(plain, 0) if not re.fullmatch(r"0\d+", plain) else int(plain, 8)
        return [f"{0 if value == 1 else value + 1}{suffix}"]
    value = float(plain)
    return [f"{value + 1 if value + 1 != value else value * 2!r}{suffix}"]


def replacements(kind, token, before, after):
    if kind == "number":
        return of_number(token)
    if kind == "word":
        return WORDS.get(token, [])
    if kind == "operator":
        if token in ALWAYS:
            return ALWAYS[token]
        if before == " " and after in " \n":
            return BETWEEN_BLANKS.get(token, [])
    return []


def not_compiled(source):
    """Places that the preprocessor leaves out on this machine: the code for machines without SSE2."""
    return [match.span(1) for match in re.finditer(
        r"(?m)^#if defined\(PLEXORN_SSE2\)\n(?:(?!^#).*\n)*^#else\n((?:(?!^#endif).*\n)*)^#endif", source)]


def find(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        source = file.read()
    left_out = not_compiled(source)
    found = []
    for match in TOKEN.finditer(source):
        start, end = match.span()
        new_texts = replacements(match.lastgroup, match.group(), source[start - 1:start], source[end:end + 1])
        if not new_texts or any(first <= start < last for first, last in left_out):
            continue
        begin_of_line = source.rfind("\n", 0, start) + 1
        if SKIPPED_LINE.search(source[begin_of_line:source.find("\n", start)]):
            continue
        line = source.count("\n", 0, start) + 1
        found += [Mutant(path, line, start, end, match.group(), new) for new in new_texts]
    return found


def apply(root, mutant):
    with open(os.path.join(root, mutant.path), encoding="utf-8") as file:
        source = file.read()
    return source[:mutant.start] + mutant.new + source[mutant.end:]
