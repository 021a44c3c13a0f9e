"""Small wrong changes to a source, one at a time, as a careless hand might make them.

    for mutant in mutants_of(path, arguments):
        print(mutant.line, mutant.change)     # 41  "<" becomes "<="
        wrong = mutant.text                   # the whole source with that change

Comparisons, sums, conditions, numbers, truth values, and calls and assignments left out.
coarse_mutants_of makes ruder ones: texts, what is returned, comparisons of objects.
"""

import collections

from clang.cindex import CursorKind, Index, TokenKind, TranslationUnit

Mutant = collections.namedtuple("Mutant", "line change text")

INSTEAD = {
    "<": ("<=",), "<=": ("<",), ">": (">=",), ">=": (">",), "==": ("!=",), "!=": ("==",),
    "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",),
    "%": ("/",), "&": ("|",), "|": ("&",), "<<": (">>",), ">>": ("<<",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "|=": ("&=",),
}
TRUTH = {"YES": "NO", "NO": "YES", "true": "false", "false": "true"}
LEFT_OUT = {CursorKind.CALL_EXPR, CursorKind.OBJC_MESSAGE_EXPR, CursorKind.BINARY_OPERATOR,
            CursorKind.COMPOUND_ASSIGNMENT_OPERATOR}
# What is fixed when the source is compiled, or says nothing about behaviour.
OUTSIDE = {CursorKind.STATIC_ASSERT, CursorKind.TEMPLATE_TYPE_PARAMETER}


class Source:
    def __init__(self, path, arguments):
        self.path = str(path)
        self.bytes = path.read_bytes()
        self.unit = Index.create().parse(self.path, args=arguments,
                                         options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        problems = [d for d in self.unit.diagnostics if d.severity >= 3]
        if problems:
            raise SystemExit("{}: {}".format(path, problems[0]))

    def changed(self, start, end, text):
        return self.bytes[:start] + text.encode() + self.bytes[end:]

    def mutant(self, start, end, text, change):
        line = self.bytes.count(b"\n", 0, start) + 1
        return Mutant(line, change, self.changed(start, end, text))

    def here(self, cursor):
        place = cursor.location.file
        return place is not None and place.name == self.path

    def text(self, start, end):
        return self.bytes[start:end].decode()


def span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def operators(source, cursor):
    children = list(cursor.get_children())
    if len(children) != 2:
        return
    start, end = span(children[0])[1], span(children[1])[0]
    between = source.text(start, end)
    sign = between.strip()
    for other in INSTEAD.get(sign, ()):
        at = start + between.index(sign)
        yield source.mutant(at, at + len(sign), other, '"{}" becomes "{}"'.format(sign, other))


def conditions(source, cursor):
    children = list(cursor.get_children())
    which = {CursorKind.IF_STMT: 0, CursorKind.WHILE_STMT: 0,
             CursorKind.CONDITIONAL_OPERATOR: 0}.get(cursor.kind)
    if which is None or not children:
        return
    start, end = span(children[which])
    text = source.text(start, end)
    if text and children[which].kind.is_expression():
        yield source.mutant(start, end, "!({})".format(text), "the condition is turned round")


def statements(source, cursor):
    if cursor.kind != CursorKind.COMPOUND_STMT:
        return
    for statement in cursor.get_children():
        kind = statement.kind
        if kind == CursorKind.UNEXPOSED_EXPR:
            inner = list(statement.get_children())
            kind = inner[0].kind if inner else kind
        if kind in LEFT_OUT:
            start, end = span(statement)
            first = " ".join(source.text(start, end).split())
            yield source.mutant(start, end, "", "left out: " + first[:60])


def tokens(source):
    seen = []
    for token in source.unit.get_tokens(extent=source.unit.cursor.extent):
        start, end = token.extent.start.offset, token.extent.end.offset
        if token.spelling in TRUTH:
            other = TRUTH[token.spelling]
            seen.append(source.mutant(start, end, other,
                                      "{} becomes {}".format(token.spelling, other)))
        elif token.kind == TokenKind.LITERAL and token.spelling[:1].isdigit():
            if "#" in source.text(source.bytes.rfind(b"\n", 0, start) + 1, start):
                continue
            other = "0" if token.spelling == "1" else "({} + 1)".format(token.spelling)
            if token.spelling == "0":
                other = "1"
            seen.append(source.mutant(start, end, other,
                                      "{} becomes {}".format(token.spelling, other)))
        elif token.spelling == "!" and token.kind == TokenKind.PUNCTUATION:
            seen.append(source.mutant(start, end, "", '"!" is left out'))
    return seen


def mutants_of(path, arguments):
    """In the order of the source; none twice."""
    source = Source(path, arguments)
    found = {}

    def visit(cursor):
        if cursor.kind in OUTSIDE:
            return
        if cursor.kind != CursorKind.TRANSLATION_UNIT and not source.here(cursor):
            return
        made = []
        if cursor.kind in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR):
            made += operators(source, cursor)
        made += conditions(source, cursor)
        made += statements(source, cursor)
        for mutant in made:
            found.setdefault(mutant.text, mutant)
        for child in cursor.get_children():
            visit(child)

    visit(source.unit.cursor)
    for mutant in tokens(source):
        found.setdefault(mutant.text, mutant)
    return sorted(found.values(), key=lambda m: (m.line, m.change))


def objects_compared(source, cursor):
    """== and its like where a class defines them, so that they are calls."""
    if cursor.kind != CursorKind.CALL_EXPR or not cursor.spelling.startswith("operator"):
        return
    sign = cursor.spelling.removeprefix("operator")
    start, end = span(cursor)
    for token in cursor.get_tokens():
        at, behind = token.extent.start.offset, token.extent.end.offset
        if token.spelling == sign and start < at < end:
            for other in INSTEAD.get(sign, ()):
                yield source.mutant(at, behind, other,
                                    '"{}" becomes "{}"'.format(sign, other))


def returned(source, cursor):
    if cursor.kind != CursorKind.RETURN_STMT:
        return
    for value in cursor.get_children():
        start, end = span(value)
        if source.text(start, end) not in ("{}", ""):
            yield source.mutant(start, end, "{}", "{} is returned")


def texts(source):
    for token in source.unit.get_tokens(extent=source.unit.cursor.extent):
        start, end = token.extent.start.offset, token.extent.end.offset
        before = source.text(source.bytes.rfind(b"\n", 0, start) + 1, start)
        if token.kind != TokenKind.LITERAL or "#" in before or "static_assert" in before:
            continue
        if token.spelling.endswith('"'):
            yield source.mutant(end - 1, end - 1, "?", "a text gets a question mark more")
        elif token.spelling.endswith("'"):
            yield source.mutant(start, end, "'\\x7f'", "another character")


def coarse_mutants_of(path, arguments):
    """In the order of the source; none that mutants_of makes."""
    source = Source(path, arguments)
    fine = {mutant.text for mutant in mutants_of(path, arguments)}
    found = {}

    def visit(cursor):
        if cursor.kind in OUTSIDE:
            return
        if cursor.kind != CursorKind.TRANSLATION_UNIT and not source.here(cursor):
            return
        for mutant in (*objects_compared(source, cursor), *returned(source, cursor)):
            found.setdefault(mutant.text, mutant)
        for child in cursor.get_children():
            visit(child)

    visit(source.unit.cursor)
    for mutant in texts(source):
        found.setdefault(mutant.text, mutant)
    return sorted((mutant for text, mutant in found.items() if text not in fine),
                  key=lambda m: (m.line, m.change))
