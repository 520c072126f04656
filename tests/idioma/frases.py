#!/usr/bin/env python3
"""frases.py POT PERMITIDAS [FILE...]: no sentence of English in the sources is left out of the catalogue POT.

A string literal that reads as a sentence must be an argument of a marking call, and a message of POT, or stand in
PERMITIDAS: lines "file: text: reason". Without files it reads those that the program's messages come from; a line of
PERMITIDAS that excuses nothing there is a finding too.
"""
import pathlib
import re
import sys

from po import mensagens

MARCAS = {"traduz", "frase", "fraseDe", "marca"}
NUNCA_FALAM = {"Assinatura", "CotepeManager", "Idioma", "InterfaceC"}  # the libraries are not translated
PASTAS = [str(p) for p in sorted(pathlib.Path("Sources").iterdir()) if p.name not in NUNCA_FALAM] + ["Tools/cotepe"]
PECAS = re.compile(
    r'//[^\n]*|/\*.*?\*/|^\#[^\n]*'  # comments and directives
    r'|(?P<cru>R"(?P<cerca>[^(]*)\((?P<texto>.*?)\)(?P=cerca)")'
    r'|(?P<literal>"(?:[^"\\\n]|\\.)*")'
    r"|(?P<char>'(?:[^'\\\n]|\\.)+')"
    r"|(?P<nome>[A-Za-z_]\w*(?:<[\w:, ]*>)?)|(?P<sinal>[(){}\[\],;?:+<>=&|.!*/%~^-])",
    re.S | re.M)
ROTULOS = "Sources/CotepeManager"  # the law's words, Portuguese in every language
FRASE = re.compile(r"[A-Za-z]*[a-z]{2,}[,;:.]? +[({\"'-]*[a-z]{2,}")
# A tag of a page, whole or begun here, or ended here.
TAG = re.compile(r"<[^<>]*(>|$)|^[^<>]*>")
SQL = re.compile(r"\b(PRIMARY KEY|ORDER BY|SELECT|FROM|WHERE|JOIN|PRAGMA|INSERT|UPDATE|DELETE|CREATE|BEGIN)\b|^[a-z_]+\([a-z_, ]+\)$")


def sem_fugas(literal):
    return re.sub(r"\\(.)", lambda m: {"n": "\n", "t": "\t"}.get(m[1], m[1]), literal[1:-1])


def literais(fonte):
    """Each run of adjacent literals: the line, the text and the function it is an argument of."""
    chamadas, anterior, atual = [], "", None
    for peca in PECAS.finditer(fonte):
        if peca["literal"] or peca["cru"]:
            texto = peca["texto"] if peca["cru"] else sem_fugas(peca["literal"])
            if atual is None:
                atual = [fonte.count("\n", 0, peca.start()) + 1, texto, chamadas[-1] if chamadas else ""]
            else:
                atual[1] += texto
            continue
        if not (peca["nome"] or peca["sinal"] or peca["char"]):
            continue  # a comment may stand between two literals
        if atual is not None:
            yield tuple(atual)
            atual = None
        if peca["sinal"] in ("(", "{", "["):
            chamadas.append(anterior if peca["sinal"] == "(" else "")
        elif peca["sinal"] in (")", "}", "]") and chamadas:
            chamadas.pop()
        anterior = peca["nome"] or ""


def textos(pasta):
    for arquivo in fontes(pasta):
        yield from (texto for _, texto, _ in literais(pathlib.Path(arquivo).read_text(encoding="utf-8")))


def fontes(pasta):
    return sorted(str(a) for a in pathlib.Path(pasta).rglob("*") if a.suffix in (".h", ".cpp"))


def ingles(texto):
    texto = TAG.sub(" ", texto)
    return FRASE.search(texto) and texto.isascii() and not SQL.search(texto)


def soltas(arquivo, catalogo):
    for linha, texto, funcao in literais(pathlib.Path(arquivo).read_text(encoding="utf-8")):
        if ingles(texto) and not (funcao in MARCAS and texto in catalogo):
            yield linha, texto


def main():
    catalogo = set(mensagens(sys.argv[1]))
    permitidas = dict(l.rsplit(": ", 1) for l in open(sys.argv[2], encoding="utf-8").read().splitlines() if l)
    rotulos = set(textos(ROTULOS))
    usadas, achadas = set(), 0
    for arquivo in sys.argv[3:] or [a for pasta in PASTAS for a in fontes(pasta)]:
        for linha, texto in soltas(arquivo, catalogo):
            if texto in rotulos:
                continue
            chave = f"{arquivo}: {texto!r}"
            usadas.add(chave)
            if chave not in permitidas:
                achadas += 1
                print(f"{arquivo}:{linha}: not marked for the catalogue: {texto!r}")
    for chave in [] if sys.argv[3:] else sorted(set(permitidas) - usadas):
        achadas += 1
        print(f"{sys.argv[2]}: excuses nothing: {chave}")
    return 1 if achadas else 0


if __name__ == "__main__":
    sys.exit(main())
