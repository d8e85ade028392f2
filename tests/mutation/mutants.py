"""Finds the mutants of a source file: each is one small change of one expression or statement."""
import dataclasses
import re

from clang import cindex
from clang.cindex import CursorKind as Kind

SWAPS = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"], "&&": ["||"], "||": ["&&"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "%=": ["*="],
    "&=": ["|="], "|=": ["&="], "^=": ["&="], "<<=": [">>="], ">>=": ["<<="],
}
RELATIONS = ["<", "<=", ">", ">=", "==", "!="]

# Calls that only save time or memory: neither they nor their arguments are mutated.
FAST_ONLY = {"reserve", "shrink_to_fit", "assert", "willNeed", "dontNeed"}

# Results that are equal to the default value of their type.
EMPTY = {"false", "0", "{}", "nullptr", "std::nullopt"}

FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
             Kind.CONVERSION_FUNCTION}
SCOPES = {Kind.NAMESPACE, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE, Kind.LINKAGE_SPEC,
          Kind.UNEXPOSED_DECL}
LOOPS = {Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT, Kind.DO_STMT}
# Their children that are statements may be deleted.
BLOCKS = LOOPS | {Kind.COMPOUND_STMT, Kind.IF_STMT, Kind.CASE_STMT, Kind.DEFAULT_STMT}
ASSIGNMENTS = {"=", *(swap for swap in SWAPS if swap.endswith("=") and swap not in RELATIONS)}


class NotParsed(Exception):
    pass


@dataclasses.dataclass
class Mutant:
    file: str  # relative to the project
    function: str  # with its class
    line: int  # of the change
    text: str  # the line, without indentation
    change: str  # "< to <=", "delete", ...
    variant: str  # the code of the mutant; empty for a deletion
    number: int = 0

    def key(self):
        """Does not depend on the position in the file."""
        return (self.file, self.function, self.text, self.change)


@dataclasses.dataclass
class Site:
    """A range of the file that has mutants. Sites are nested or disjoint."""
    start: int
    end: int
    form: str  # "expression", "condition" (converted to bool), "delete", "return"
    is_constexpr: bool
    mutants: list = dataclasses.field(default_factory=list)


def flat(code):
    """Code on one line, without comments."""
    words = re.findall(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'|//[^\n]*|/\*.*?\*/|\s+|[\s\S]', code, re.DOTALL)
    return "".join(" " if word.isspace() or word.startswith(("//", "/*")) else word for word in words).strip()


class Finder:
    """Walks over the syntax tree of one file."""

    def __init__(self, name, source, unit):
        self.name = name
        self.source = source  # bytes, as offsets count bytes
        self.sites = {}
        self.function = ""
        self.is_constexpr = False
        self.in_lambda = False
        self.switch_bodies = set()  # their ranges
        self.path = unit.spelling
        self.macros = [(c.extent.start.offset, c.extent.end.offset) for c in unit.cursor.get_children()
                       if c.kind == Kind.MACRO_INSTANTIATION and self.is_here(c)]

    def is_here(self, cursor):
        file = cursor.extent.start.file
        return file is not None and file.name == self.path

    def code(self, start, end):
        return self.source[start:end].decode()

    def text(self, cursor):
        return self.code(cursor.extent.start.offset, cursor.extent.end.offset)

    def add(self, form, start, end, position, change, variant=""):
        if start >= end or any(start < e and s < end for s, e in self.macros):
            return
        line = self.source.count(b"\n", 0, position) + 1
        text = self.source.splitlines()[line - 1].decode().strip()
        site = self.sites.setdefault((start, end, form), Site(start, end, form, self.is_constexpr))
        site.mutants.append(Mutant(self.name, self.function, line, text, change, variant))

    def replace(self, cursor, start, end, new, form="expression", change=None):
        """The expression with the bytes from start to end replaced."""
        outer = cursor.extent.start.offset, cursor.extent.end.offset
        variant = flat(self.code(outer[0], start)) + f" {new} " + flat(self.code(end, outer[1]))
        self.add(form, *outer, start, change or f"{self.code(start, end)} to {new}", variant)

    # Declarations.

    def find(self, cursor):
        for child in cursor.get_children():
            if not self.is_here(child):
                continue
            if child.kind in SCOPES:
                self.find(child)
            elif child.kind in FUNCTIONS:
                self.visit_function(child)
            elif child.kind == Kind.FIELD_DECL:
                self.function = f"{cursor.spelling}::{child.spelling}"
                self.is_constexpr = False
                for value in child.get_children():
                    if value.kind.is_expression():
                        self.visit(value, child)

    def visit_function(self, cursor):
        children = list(cursor.get_children())
        body = next((child for child in children if child.kind == Kind.COMPOUND_STMT), None)
        if body is None:
            return
        parent = cursor.semantic_parent
        is_member = parent is not None and parent.kind in SCOPES - {Kind.NAMESPACE} and parent.spelling
        self.function = f"{parent.spelling}::{cursor.spelling}" if is_member else cursor.spelling
        self.function = re.sub(r"<.*", "", self.function)
        head = self.code(cursor.extent.start.offset, body.extent.start.offset)
        self.is_constexpr = re.search(r"\b(constexpr|consteval)\b", head) is not None
        for child in children:
            if child.kind.is_expression() or child == body:  # the others are parameters, types, attributes
                self.visit(child, cursor)

    # Statements and expressions.

    def visit(self, cursor, parent):
        kind = cursor.kind
        if not self.is_here(cursor) or kind in (Kind.STATIC_ASSERT, Kind.PARM_DECL, Kind.TYPE_REF):
            return
        if kind == Kind.VAR_DECL and re.search(r"\bconstexpr\b", self.declaration(cursor)):
            return
        if kind == Kind.CALL_EXPR and cursor.spelling in FAST_ONLY:
            return
        children = list(cursor.get_children())
        self.visit_expression(cursor, kind, children)
        if parent.kind in BLOCKS:
            self.visit_statement(cursor, kind, parent, children)
        if kind == Kind.CASE_STMT:
            children = children[1:]
        if kind == Kind.SWITCH_STMT:
            self.switch_bodies.add((children[-1].extent.start.offset, children[-1].extent.end.offset))
        outer = self.in_lambda
        self.in_lambda = outer or kind == Kind.LAMBDA_EXPR
        for child in children:
            self.visit(child, cursor)
        self.in_lambda = outer

    def declaration(self, cursor):
        """The variable's declaration from the start of its line, where its specifiers are."""
        start = self.source.rfind(b"\n", 0, cursor.extent.start.offset) + 1
        return self.code(start, cursor.extent.end.offset).partition("=")[0]

    def visit_expression(self, cursor, kind, children):
        if kind == Kind.INTEGER_LITERAL:
            self.visit_integer(cursor)
        elif kind == Kind.CXX_BOOL_LITERAL_EXPR:
            start, end = cursor.extent.start.offset, cursor.extent.end.offset
            self.replace(cursor, start, end, {"true": "false", "false": "true"}.get(self.text(cursor), "true"))
        elif kind == Kind.UNARY_OPERATOR and children:
            self.visit_unary(cursor, children[0])
        elif kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.visit_binary(cursor, *children)
        elif kind in (Kind.CALL_EXPR, Kind.UNEXPOSED_EXPR):
            operands = self.operands(cursor, children)
            if len(operands) == 2:
                self.visit_binary(cursor, *operands)
            elif len(operands) == 1 and kind == Kind.CALL_EXPR and cursor.spelling in ("operator++", "operator--"):
                self.visit_unary(cursor, operands[0])
        elif kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR) and children:
            self.visit_condition(children[0])
        elif kind == Kind.DO_STMT:
            self.visit_condition(children[-1])

    def operands(self, cursor, children):
        """Of an overloaded operator: its children are the operands, and the operator between them."""
        inside = [c for c in children if not re.fullmatch(r"operator\W+", c.spelling or "") or
                  c.kind not in (Kind.DECL_REF_EXPR, Kind.UNEXPOSED_EXPR, Kind.OVERLOADED_DECL_REF) or
                  self.text(c) not in {*SWAPS, "++", "--"}]
        is_operator = cursor.spelling.startswith("operator") or len(inside) < len(children)
        return sorted(inside, key=lambda c: c.extent.start.offset) if is_operator else []

    def visit_integer(self, cursor):
        text = self.text(cursor)
        match = re.fullmatch(r"(0[xX][0-9A-Fa-f']+|[0-9][0-9']*)([uUlLzZ]*)", text)
        if not match:
            return
        value = int(match[1].replace("'", ""), 0 if match[1][:2] in ("0x", "0X") else 10)
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        for changed in (value + 1, value - 1):
            if changed >= 0:
                number = hex(changed) if match[1][:2] in ("0x", "0X") else str(changed)
                self.replace(cursor, start, end, number + match[2])

    def visit_unary(self, cursor, operand):
        outer = cursor.extent
        before = outer.start.offset, operand.extent.start.offset
        after = operand.extent.end.offset, outer.end.offset
        for start, end in (before, after):
            operator = flat(self.code(start, end))
            if operator in ("++", "--"):
                self.replace(cursor, start, end, {"++": "--", "--": "++"}[operator])
            elif operator == "!":
                self.replace(cursor, start, end, "", "condition", "remove !")
            elif operator == "-" and operand.kind != Kind.INTEGER_LITERAL:
                self.replace(cursor, start, end, "", change="remove -")

    def visit_binary(self, cursor, left, right):
        start, end = left.extent.end.offset, right.extent.start.offset
        between = self.code(start, end)
        operator = flat(between)
        joins_strings = operator in ("+", "+=") and "string" in cursor.type.get_canonical().spelling
        if operator not in SWAPS or joins_strings:
            return
        start += between.index(operator)
        for new in SWAPS[operator]:
            self.replace(cursor, start, start + len(operator), new)

    def visit_condition(self, condition):
        code = self.text(condition)
        is_negation = condition.kind == Kind.UNARY_OPERATOR and code.startswith("!")
        if not condition.kind.is_expression() or code in ("true", "false", "") or is_negation:
            return
        start, end = condition.extent.start.offset, condition.extent.end.offset
        self.add("condition", start, end, start, "negate condition", f"!({flat(code)})")

    def leave_out_doubles(self):
        """A condition that is a relation is negated as such."""
        for (start, end, form), site in list(self.sites.items()):
            others = self.sites.get((start, end, "expression"))
            if form == "condition" and others and any(m.change.split()[0] in RELATIONS for m in others.mutants):
                site.mutants = [m for m in site.mutants if m.change != "negate condition"]
                if not site.mutants:
                    del self.sites[(start, end, form)]

    def visit_statement(self, cursor, kind, parent, children):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        semicolon = re.match(rb"\s*;", self.source[end:])
        if not semicolon:
            return
        end += semicolon.end()
        if parent.kind in LOOPS and cursor != list(parent.get_children())[-1]:
            return  # its head
        if kind == Kind.RETURN_STMT and children:
            if flat(self.text(children[0])) not in EMPTY:
                # A lambda without a type gets it from the expression.
                value = flat(self.text(children[0]))
                default = f"std::remove_cvref_t<decltype({value})>{{}}" if self.in_lambda else "{}"
                self.add("return", start, end, start, "return {}", default)
        elif self.is_deletable(cursor, kind, parent, children):
            self.add("delete", start, end, start, "delete")

    def is_deletable(self, cursor, kind, parent, children):
        in_switch = parent.kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT) or (
            (parent.extent.start.offset, parent.extent.end.offset) in self.switch_bodies)
        if kind == Kind.BREAK_STMT and in_switch:
            rest = self.source[cursor.extent.end.offset:]
            return not re.match(rb"\s*;\s*(default:\s*break;\s*)?}", rest)  # nothing follows
        if kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.RETURN_STMT):
            return True
        if kind == Kind.CXX_THROW_EXPR:  # elsewhere it may be what ends a function that returns something
            return parent.kind == Kind.IF_STMT
        if kind in (Kind.CALL_EXPR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            return True
        if kind == Kind.BINARY_OPERATOR and len(children) == 2:
            between = self.code(children[0].extent.end.offset, children[1].extent.start.offset)
            return flat(between) in ASSIGNMENTS
        if kind == Kind.UNEXPOSED_EXPR and len(children) == 1:  # with temporary objects
            inner = children[0]
            return self.is_deletable(inner, inner.kind, parent, list(inner.get_children()))
        return kind == Kind.UNEXPOSED_EXPR and bool(children)


def find(root, name, flags):
    """The source and the sites of the file `name`, which is relative to the folder `root`."""
    path = str(root / name)
    options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
    unit = cindex.Index.create().parse(path, ["-x", "c++", *flags], options=options)
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if errors:
        raise NotParsed("\n".join(errors))
    source = (root / name).read_bytes()
    finder = Finder(name, source, unit)
    finder.find(unit.cursor)
    finder.leave_out_doubles()
    sites = sorted(finder.sites.values(), key=lambda site: (site.start, -site.end, site.form == "expression"))
    seen = {}
    for mutant in sorted((m for site in sites for m in site.mutants), key=lambda m: m.line):
        seen[mutant.key()] = count = seen.get(mutant.key(), 0) + 1
        if count > 1:  # an equal change in an equal line of the function
            mutant.change += f" #{count}"
    return source, sites
