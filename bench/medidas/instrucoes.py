"""Instructions of a run as callgrind counts them: the same on a busy machine as on an idle one."""
import os
import re
import subprocess
import tempfile
from collections import defaultdict
from dataclasses import dataclass

_NOME = re.compile(r"\((\d+)\)(?: (.*))?$")


@dataclass
class Contagem:
    total: int
    no_sqlite: int  # from the generator's (or the floor's) calls into SQLite to their return


def _le(arquivo):
    """Self cost of each object, and inclusive cost of the calls from one object to another."""
    nomes, proprio, chamado = {}, defaultdict(int), defaultdict(int)
    objeto = destino = None
    da_chamada = False
    for linha in arquivo:
        if linha.startswith(("ob=", "cob=")):
            chave, resto = linha.rstrip().split("=", 1)
            numero, nome = _NOME.match(resto).groups()
            if nome is not None:
                nomes[numero] = nome
            if chave == "ob":
                objeto = nomes[numero]
            else:
                destino = nomes[numero]
        elif linha.startswith("calls="):
            da_chamada = True
        elif linha[0] in "0123456789+-*":
            custo = int(linha.split()[-1])
            if da_chamada:
                chamado[objeto, destino or objeto] += custo
                da_chamada, destino = False, None
            else:
                proprio[objeto] += custo
    return proprio, chamado


def conta(argumentos):
    """Runs a program under callgrind."""
    with tempfile.TemporaryDirectory() as pasta:
        perfil = os.path.join(pasta, "perfil")
        subprocess.run(["valgrind", "-q", "--tool=callgrind", f"--callgrind-out-file={perfil}", *argumentos],
                       check=True, stdout=subprocess.DEVNULL)
        with open(perfil, encoding="utf-8") as arquivo:
            proprio, chamado = _le(arquivo)
    programa = os.path.abspath(argumentos[0])
    no_sqlite = sum(custo for (de, para), custo in chamado.items() if de == programa and "libsqlite3" in para)
    return Contagem(sum(proprio.values()), no_sqlite)
