#!/usr/bin/env python3
"""catalogo.py POT: the messages extracted into POT are those of po/cotepe.pot, each translated in po/pt_BR.po."""
import re
import sys

from po import entradas

FEITO, TRADUZIDO = "po/cotepe.pot", "po/pt_BR.po"


def lugares(texto):
    return set(re.findall(r"\{[1-9n]\}", texto))


def faltas(extraidas):
    guardadas = {tuple(ingles) for ingles, _, _ in entradas(FEITO)}
    traduzidas = {tuple(ingles): (outras, duvidosa) for ingles, outras, duvidosa in entradas(TRADUZIDO)}
    for ingles in sorted(extraidas ^ guardadas):
        yield f"{ingles[0]!r}: {FEITO} is not of these sources: run scripts/messages"
    for ingles in sorted(extraidas):
        outras, duvidosa = traduzidas.get(ingles, ([], False))
        if len(outras) != len(ingles) or not all(outras) or duvidosa:
            yield f"{ingles[0]!r}: not translated in {TRADUZIDO}"
        elif lugares(outras[-1]) != lugares(ingles[-1]) or lugares(outras[0]) not in map(lugares, ingles):
            yield f"{ingles[0]!r}: other places in {TRADUZIDO}"
    for ingles in sorted(set(traduzidas) - extraidas):
        yield f"{ingles[0]!r}: in {TRADUZIDO} and no message"


def main():
    extraidas = {tuple(ingles) for ingles, _, _ in entradas(sys.argv[1])}
    achadas = list(faltas(extraidas))
    print(*achadas, f"{len(extraidas)} messages", sep="\n")
    return 1 if achadas or not extraidas else 0


if __name__ == "__main__":
    sys.exit(main())
