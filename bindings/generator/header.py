"""Reads the public header through the compiler: what it declares, with the comments."""

from __future__ import annotations

import json
import subprocess
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any, Iterator

Node = dict[str, Any]


@dataclass
class Doc:
    """A comment: its text, the parameters that it explains, and what it says of the result."""

    text: str = ""
    parameters: dict[str, str] = field(default_factory=dict)
    result: str = ""


@dataclass
class Value:
    name: str
    value: int
    doc: str


@dataclass
class Enumeration:
    name: str
    doc: str
    values: list[Value]


@dataclass
class Member:
    """A field of a record or a parameter of a function."""

    name: str
    type: str
    doc: str = ""


@dataclass
class Record:
    name: str
    doc: str
    fields: list[Member]


@dataclass
class Callback:
    name: str
    doc: str
    type: str


@dataclass
class Function:
    name: str
    result: str
    parameters: list[Member]
    doc: Doc


@dataclass
class Header:
    enumerations: list[Enumeration] = field(default_factory=list)
    records: list[Record] = field(default_factory=list)
    callbacks: list[Callback] = field(default_factory=list)
    functions: list[Function] = field(default_factory=list)
    variables: list[Member] = field(default_factory=list)


class HeaderError(Exception):
    """The header could not be read, or holds something that this reader does not know."""


def read(header: Path, compiler: str = "clang-14") -> Header:
    """Everything that the header, and what it includes beside it, declares."""
    tree = json.loads(_syntax_tree(header, compiler))
    result = Header()
    for node in _own_declarations(tree, header.parent.resolve()):
        _READERS.get(node["kind"], _unknown)(node, result)
    return result


def _syntax_tree(header: Path, compiler: str) -> str:
    command = [compiler, "-x", "c", "-std=c11", "-fsyntax-only", "-fparse-all-comments", "-Werror"]
    command += ["-Xclang", "-ast-dump=json", str(header)]
    try:
        done = subprocess.run(command, capture_output=True, text=True, check=False)
    except FileNotFoundError as error:
        raise HeaderError(f"{compiler} is not installed (apt-get install {compiler})") from error
    if done.returncode != 0:
        raise HeaderError(f"{header} does not compile:\n{done.stderr}")
    return done.stdout


def _own_declarations(tree: Node, directory: Path) -> Iterator[Node]:
    """The top-level declarations of our own files.

    The compiler names a file only where it differs from the one that it named before, anywhere in its output. So all
    of it is walked in order, and a declaration's file is what was named last when its location has been passed.
    """
    current = ""

    def walk(value: Any) -> None:
        nonlocal current
        if isinstance(value, dict):
            for key, inner in value.items():
                if key == "file":
                    current = inner
                elif key != "includedFrom":
                    walk(inner)
        elif isinstance(value, list):
            for inner in value:
                walk(inner)

    for node in tree["inner"]:
        walk(node.get("loc"))
        mine = current and Path(current).resolve().parent == directory
        walk({key: value for key, value in node.items() if key != "loc"})
        if mine and not node.get("isImplicit"):
            yield node


def _text(node: Node) -> str:
    """The words of a comment's node, without those of commands inside it."""
    if node["kind"] == "TextComment":
        return str(node["text"])
    return " ".join(
        _text(inner)
        for inner in node.get("inner", [])
        if inner["kind"] not in ("BlockCommandComment", "ParamCommandComment")
    )


def _words(text: str) -> str:
    return " ".join(text.split())


def _doc(node: Node) -> Doc:
    result = Doc()
    for comment in node.get("inner", []):
        if comment["kind"] != "FullComment":
            continue
        paragraphs = []
        for part in comment.get("inner", []):
            words = _words(_text(part))
            if part["kind"] == "ParagraphComment":
                paragraphs.append(words)
            elif part["kind"] == "ParamCommandComment":
                result.parameters[part["param"]] = words
            elif part["kind"] == "BlockCommandComment" and part["name"] == "return":
                result.result = words
            elif not (part["kind"] == "BlockCommandComment" and part["name"] == "file"):
                raise HeaderError(f"a comment of {node.get('name')} uses {part['kind']}")
        result.text = "\n\n".join(paragraph for paragraph in paragraphs if paragraph)
    return result


def _type(node: Node) -> str:
    return str(node["type"]["qualType"]).replace("_Bool", "bool")


def _members(node: Node, kind: str) -> list[Member]:
    return [
        Member(inner["name"], _type(inner), _doc(inner).text)
        for inner in node.get("inner", [])
        if inner["kind"] == kind
    ]


def _enumeration(node: Node, header: Header) -> None:
    values: list[Value] = []
    for inner in node["inner"]:
        if inner["kind"] != "EnumConstantDecl":
            continue
        stated = [child for child in inner.get("inner", []) if child["kind"] == "ConstantExpr"]
        number = int(stated[0]["value"]) if stated else (values[-1].value + 1 if values else 0)
        values.append(Value(inner["name"], number, _doc(inner).text))
    header.enumerations.append(Enumeration(node["name"], _doc(node).text, values))


def _record(node: Node, header: Header) -> None:
    if node.get("completeDefinition"):
        header.records.append(Record(node["name"], _doc(node).text, _members(node, "FieldDecl")))


def _typedef(node: Node, header: Header) -> None:
    if "(*)" in _type(node):
        header.callbacks.append(Callback(node["name"], _doc(node).text, _type(node)))


def _function(node: Node, header: Header) -> None:
    result = _type(node).split("(", 1)[0].strip()
    header.functions.append(Function(node["name"], result, _members(node, "ParmVarDecl"), _doc(node)))


def _variable(node: Node, header: Header) -> None:
    header.variables.append(Member(node["name"], _type(node), _doc(node).text))


def _unknown(node: Node, header: Header) -> None:
    raise HeaderError(f"the header declares a {node['kind']} ({node.get('name')}), which the generator does not know")


_READERS = {
    "EnumDecl": _enumeration,
    "RecordDecl": _record,
    "TypedefDecl": _typedef,
    "FunctionDecl": _function,
    "VarDecl": _variable,
}
