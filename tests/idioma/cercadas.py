#!/usr/bin/env python3
"""cercadas.py FOLDER PROGRAM [MESSAGE]: every sentence that the program prints came through the catalogue.

The program is moved into FOLDER, with a catalogue that puts each message between brackets; what it then says outside
of brackets must be no sentence. MESSAGE is left out of the catalogue.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

from frases import ROTULOS, ingles, textos
from po import entradas

COMANDOS = ["generate", "sample", "schema", "layout", "check", "validate", "show", "explain", "diff", "verify", "sign", "verify-signature",
            "public-key"]
CABECA = r'''msgid ""
msgstr "Content-Type: text/plain; charset=UTF-8\nPlural-Forms: nplurals=2; plural=(n > 1);\n"
'''
# Places before a colon, commands, and the words of SQLite.
NOMES = re.compile(r"\S+:(?=\s|$)|cotepe \w+|no such table: \w+")
PERIODO = ["--from", "2024-01-01", "--to", "2024-01-31"]
# Arguments, and the status they end with.
PREPARO = [
    (["sample", "--days", "2", "loja.db"], 0),
    (["generate", "--db", "loja.db", *PERIODO, "--output", "loja.txt"], 0),
]
VEZES = [(["--help"], 0)] + [([comando, "--help"], 0) for comando in COMANDOS] + [
    (["sample", "loja.db"], 3),
    (["sample", "--days", "0", "x.db"], 2),
    (["sample", "--days", "x", "x.db"], 2),
    (["sample", "--seed", "x", "x.db"], 2),
    (["sample", "--start", "1800-01-01", "x.db"], 2),
    (["generate", "--db", "loja.db", *PERIODO, "--output", "loja.txt"], 3),
    (["generate", "--db", "loja.db", *PERIODO, "--output", "loja.db", "--force"], 2),
    (["generate", "--db", "loja.db", *PERIODO, "--output", "-", "--keep-partial"], 2),
    (["generate", "--db", "loja.db", *PERIODO, "--output", "."], 3),
    (["generate", "--db", "loja.db", *PERIODO, "--serial", "123456789012345678901"], 2),
    (["generate", "--db", "loja.txt", *PERIODO], 3),
    (["generate", "--db", "vazio.db", *PERIODO], 5),
    (["generate", "--db", "loja.db", "--from", "2024-02-01", "--to", "2024-01-01"], 2),
    (["generate", "--db", "loja.db", "--from", "x", "--to", "y"], 2),
    (["layout"], 0),
    (["layout", "--cat52", "--format", "markdown"], 0),
    (["layout", "E22", "--layout", "1"], 2),
    (["layout", "E99"], 2),
    (["check", "--db", "loja.db"], 0),
    (["check", "--db", "quebrado.db"], 1),
    (["check", "--rules"], 0),
    (["check", "--db", "loja.db", "--disable", "x"], 2),
    (["check", "--db", "loja.db", "--from", "2024-01-01"], 2),
    (["check"], 2),
    (["validate", "loja.txt"], 0),
    (["validate", "outro.txt"], 1),
    (["validate", "--rules"], 0),
    (["validate"], 2),
    (["diff", "loja.txt", "outro.txt"], 1),
    (["diff", "-", "-"], 2),
    (["verify", "--db", "loja.db", "loja.txt"], 0),
    (["verify", "--db", "loja.db", "outro.txt"], 1),
    (["verify", "--db", "loja.db", "-"], 2),
    *[(["explain", f"loja.txt:{linha}", "--db", "loja.db"], 0) for linha in range(1, 20)],
    (["explain", "outro.txt:2", "--db", "loja.db"], 1),
    (["explain", "loja.txt:9999"], 2),
    (["explain", "loja.txt:1:9999"], 2),
    (["explain", "loja.txt"], 2),
    (["show", "loja.txt", "--table", "--format", "csv"], 2),
    (["show", "loja.txt", "--line", "9999"], 2),
    (["show", "none.txt"], 2),
    (["show", "loja.txt", "x", "y"], 2),
    (["show", "loja.txt", "--register", "E99"], 2),
    (["nothing"], 2),
    (["show", "--coo"], 2),
    (["show", "--mask=x", "loja.txt"], 2),
    (["show", "--line", "1", "--line", "2", "loja.txt"], 2),
    ([], 2),
]


def literal(texto):
    return '"' + texto.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"'


def entrada(formas):
    ingleses, cercadas = map(literal, formas), [literal(f"⟦{forma}⟧") for forma in formas]
    if len(formas) == 1:
        return "\nmsgid {}\nmsgstr {}\n".format(*ingleses, *cercadas)
    return "\nmsgid {}\nmsgid_plural {}\nmsgstr[0] {}\nmsgstr[1] {}\n".format(*ingleses, *cercadas)


def monta(pasta, programa, sem):
    (pasta / "bin").mkdir()
    shutil.copy(programa, pasta / "bin/cotepe")
    onde = pasta / "share/locale/pt_BR/LC_MESSAGES"
    onde.mkdir(parents=True)
    with open(pasta / "cercadas.po", "w", encoding="utf-8") as po:
        po.write(CABECA)
        po.writelines(entrada(formas) for formas, _, _ in entradas("po/pt_BR.po") if formas[0] != sem)
    subprocess.run(["msgfmt", "-o", onde / "cotepe.mo", pasta / "cercadas.po"], check=True)


def fora(texto):
    """What stands in no bracket, a line for each bracket left out."""
    saida, fundo = [], 0
    for c in texto:
        fundo += (c == "⟦") - (c == "⟧")
        saida.append("\n" if c == "⟧" else "" if fundo else c)
    return "".join(saida)


def prepara(pasta):
    """What later steps are run on, once the sample and its report are there."""
    (pasta / "vazio.db").touch()
    linhas = (pasta / "loja.txt").read_bytes().splitlines(keepends=True)
    linhas[1] = linhas[1].replace(b"E02", b"E02x", 1)
    linhas[-1] = linhas[-1][:-3] + b"\r\n"
    (pasta / "outro.txt").write_bytes(b"".join(linhas[:4] + linhas[5:]) + b"XYZ\n")
    shutil.copy(pasta / "loja.db", pasta / "quebrado.db")
    subprocess.run(["sqlite3", pasta / "quebrado.db", "PRAGMA ignore_check_constraints = 1; DROP TABLE moeda;"
                    "UPDATE reducao_z SET data_movimento = 'x'; UPDATE cupom_fiscal SET valor_total = -1, cont_coo = 7"
                    " WHERE rowid < 3"], check=False)


class Pratica:
    def __init__(self, pasta):
        self.pasta, self.cercas, self.achadas = pasta, 0, 0
        rotulos = {texto for texto in textos(ROTULOS) if " " in texto.strip() and texto[0].isupper()}
        self.rotulos = sorted(rotulos, key=len, reverse=True)
        self.ambiente = {**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": "pt_BR"}

    def acha(self, argumentos, texto):
        print(f"{' '.join(argumentos)}: {texto}")
        self.achadas += 1

    def roda(self, argumentos, situacao):
        fim = subprocess.run([self.pasta / "bin/cotepe", *argumentos], cwd=self.pasta, env=self.ambiente, check=False,
                             capture_output=True, text=True, errors="replace", stdin=subprocess.DEVNULL)
        dito = fim.stdout + fim.stderr
        self.cercas += dito.count("⟦")
        if fim.returncode != situacao:
            self.acha(argumentos, f"status {fim.returncode} instead of {situacao}: {dito[-300:]}")
        for linha in fora(dito).splitlines():
            linha = re.sub(r"\b([A-Z][a-z]+) +(?i:\1)\b", "", linha)  # a label of one word, and its key
            for rotulo in self.rotulos:
                linha = linha.replace(rotulo, "")
            if ingles(NOMES.sub(" ", linha)):
                self.acha(argumentos, f"not of the catalogue: {linha.strip()}")


def main():
    pratica = Pratica(pathlib.Path(sys.argv[1]))
    monta(pratica.pasta, sys.argv[2], "".join(sys.argv[3:]))
    for vez in PREPARO:
        pratica.roda(*vez)
    prepara(pratica.pasta)
    for vez in VEZES:
        pratica.roda(*vez)
    print(f"{len(PREPARO) + len(VEZES)} runs, {pratica.cercas} messages")
    return 1 if pratica.achadas or pratica.cercas < len(VEZES) else 0


if __name__ == "__main__":
    sys.exit(main())
