"""Whole runs in processes of their own: floor and generator in turn, and every file against the golden engine's."""
import filecmp
import json
import os
import resource
import shutil
import subprocess
import time
from dataclasses import dataclass, field
from statistics import median

from .bancos import PERIODO


@dataclass
class Caso:
    """A setting of the measurement."""
    itens: int
    indices: bool
    banco: str
    versao: int
    comando: str = "TDM"
    preparo: tuple = ()


@dataclass
class Medida:
    """What the pairs of a case gave. Times are CPU time in ns; ratios are medians over the pairs."""
    caso: Caso
    linhas: int = 0
    piso: list = field(default_factory=list)     # JSON of each run, in the order of the pairs
    gerador: list = field(default_factory=list)
    printf: list = field(default_factory=list)

    def razao(self, relogio=1):
        return median(self.razoes(relogio))

    def razoes(self, relogio=1):
        return [g["ns"][relogio] / p["ns"][relogio] for g, p in zip(self.gerador, self.piso)]

    def vantagem(self):
        """How many times faster than the printf writer."""
        return median(r["ns"][1] / g["ns"][1] for r, g in zip(self.printf, self.gerador)) if self.printf else None

    def do_registro(self, codigo):
        """Lines, ns of the floor, ns of the generator, median ratio."""
        pisos = [p["registros"][codigo]["ns"][1] for p in self.piso]
        geradores = [g["registros"][codigo]["ns"][1] for g in self.gerador]
        razao = median(g / p for g, p in zip(geradores, pisos))
        return self.gerador[0]["registros"][codigo]["linhas"], median(pisos), median(geradores), razao


def _mais_espacosa(pasta):
    """A folder in memory where there is one with room, so that no disk is part of a run."""
    memoria = "/dev/shm"
    if os.path.isdir(memoria) and shutil.disk_usage(memoria).free > 4 << 30:
        return memoria
    return pasta


class Corridas:
    def __init__(self, construcao):
        self._construcao = construcao
        pasta = _mais_espacosa(construcao)
        self._relatorio = os.path.join(pasta, f"cotepe-bench-{os.getpid()}.txt")
        self._dourado = os.path.join(pasta, f"cotepe-bench-{os.getpid()}-golden.txt")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._remove(self._relatorio)
        self._remove(self._dourado)

    def argumentos(self, motor, caso, relatorio, rival=False):
        programa = os.path.join(self._construcao, "bench", "corrida_printf" if rival else "corrida")
        return [programa, motor, caso.banco, str(caso.versao), caso.comando, *PERIODO, relatorio, *caso.preparo]

    def sqlite(self):
        """The version of SQLite that the programs run with."""
        programa = os.path.join(self._construcao, "bench", "corrida")
        return subprocess.run([programa, "--sqlite"], check=True, capture_output=True, text=True).stdout.strip()

    def doura(self, caso):
        """The golden engine's file for a case; the runs that follow are compared with it."""
        self._remove(self._dourado)
        subprocess.run(self.argumentos("referencia", caso, self._dourado), check=True, stdout=subprocess.DEVNULL)

    def corre(self, motor, caso, rival=False):
        """One run. SystemExit when its file is not the golden one."""
        self._remove(self._relatorio)  # writing over a file costs more than writing a new one
        saida = subprocess.run(self.argumentos(motor, caso, self._relatorio, rival), check=True, capture_output=True)
        if motor == "gerador" and not filecmp.cmp(self._relatorio, self._dourado, shallow=False):
            raise SystemExit(f"the report differs from the golden engine's: {caso}")
        return json.loads(saida.stdout)

    def mede(self, caso, pares, rivais):
        """Floor, generator (and printf writer in the first `rivais` rounds) in turn. Needs `doura` before."""
        medida = Medida(caso)
        self.corre("piso", caso)  # once unmeasured, to warm
        for rodada in range(pares):
            medida.piso.append(self.corre("piso", caso))
            medida.gerador.append(self.corre("gerador", caso))
            if rodada < rivais:
                medida.printf.append(self.corre("gerador", caso, rival=True))
        medida.linhas = sum(r["linhas"] for r in medida.gerador[0]["registros"].values())
        return medida

    def programa(self, caso, pares):
        """`cotepe generate` as a whole process, start to end, to a file on the disk: a list of [wall, CPU] in ns."""
        cotepe = os.path.join(self._construcao, "Tools", "cotepe", "cotepe")
        destino = os.path.join(self._construcao, "bench-generate.txt")
        tempos = []
        for _ in range(pares):
            self._remove(destino)
            antes, inicio = resource.getrusage(resource.RUSAGE_CHILDREN), time.monotonic_ns()
            subprocess.run([cotepe, "generate", "--db", caso.banco, "--from", PERIODO[0], "--to", PERIODO[1],
                            "--command", caso.comando, "--layout", str(caso.versao), "--output", destino, "--quiet"],
                           check=True)
            fim, depois = time.monotonic_ns(), resource.getrusage(resource.RUSAGE_CHILDREN)
            cpu = depois.ru_utime + depois.ru_stime - antes.ru_utime - antes.ru_stime
            tempos.append([fim - inicio, cpu * 1e9])
            if os.path.getsize(destino) != os.path.getsize(self._dourado):
                raise SystemExit("cotepe generate wrote a file of another size than the golden engine's")
        self._remove(destino)
        return tempos

    @staticmethod
    def _remove(arquivo):
        if os.path.exists(arquivo):
            os.remove(arquivo)
