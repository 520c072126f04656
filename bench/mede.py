"""Measures floor, generator and rivals; writes docs/measured/performance.md and the one table of docs/performance.md."""
import argparse
import json
import os
import subprocess
import sys
import time
from dataclasses import dataclass

from medidas import instrucoes, maquina, preparacoes, tabelas
from medidas.bancos import Bancos
from medidas.corridas import Caso, Corridas

DOCUMENTO, MEDIDO = "docs/performance.md", "docs/measured/performance.md"
CABECA = ("# Performance, as measured\n\nWritten by `scripts/bench`. [Performance](../performance.md) says how it is "
          "measured and what it means.\n\n")
INICIO, FIM = "<!-- written by scripts/bench -->", "<!-- end of what scripts/bench writes -->"


@dataclass
class Extensao:
    """How much is measured."""
    tamanhos: tuple
    pares: dict          # by items: pairs of TDM
    pares_dos_outros: dict  # and of the other commands
    rivais: int          # rounds with the printf writer
    pares_do_programa: int
    pares_das_preparacoes: int
    tamanho_contado: int  # of the databases on which the instructions of these are counted
    segundos_do_micro: float
    megabytes_assinados: int


INTEIRA = Extensao((1000, 100_000, 1_000_000), {1000: 31, 100_000: 15, 1_000_000: 7},
                   {1000: 11, 100_000: 5, 1_000_000: 1}, 3, 3, 7, 100_000, 0.1, 512)
CURTA = Extensao((1000, 100_000), {1000: 11, 100_000: 7}, {1000: 3, 100_000: 1}, 3, 3, 3, 1000, 0.01, 64)


def anuncia(texto):
    print(f"[{time.strftime('%H:%M:%S')}] {texto}", file=sys.stderr, flush=True)


def casos(bancos, extensao):
    for itens in extensao.tamanhos:
        for indices in (True, False):
            banco = bancos.com_indices(itens) if indices else bancos.sem_indices(itens)
            for versao in (1, 2):
                for comando in ("TDM", "MF", "MFD", "RZ"):
                    yield Caso(bancos.itens(banco), indices, banco, versao, comando), itens


def mede_corridas(corridas, bancos, extensao):
    """All cases; of those of TDM `cotepe generate` as well."""
    medidas, programas = [], []
    for caso, tamanho in casos(bancos, extensao):
        anuncia(f"{caso.itens} items, {'with' if caso.indices else 'without'} indexes, layout {caso.versao}, "
                f"{caso.comando}")
        corridas.doura(caso)
        inteiro = caso.comando == "TDM"
        pares = (extensao.pares if inteiro else extensao.pares_dos_outros)[tamanho]
        medidas.append(corridas.mede(caso, pares, extensao.rivais if inteiro else 0))
        if inteiro:
            programas.append((medidas[-1], corridas.programa(caso, extensao.pares_do_programa)))
    return medidas, programas


def conta_instrucoes(corridas, medidas):
    contagens = []
    for medida in medidas:
        anuncia(f"instructions: {medida.caso.itens} items, layout {medida.caso.versao}")
        contagens.append((medida, *(instrucoes.conta(corridas.argumentos(motor, medida.caso, "/dev/null"))
                                    for motor in ("piso", "gerador"))))
    return contagens


def mede_micro(construcao, segundos):
    anuncia("fields, records and amounts")
    saida = subprocess.run([os.path.join(construcao, "bench", "micro"), "--benchmark_format=json",
                            f"--benchmark_min_time={segundos}"], check=True, capture_output=True)
    return json.loads(saida.stdout)["benchmarks"]


def mede_assinatura(construcao, megabytes):
    """Signing beside md5sum over the same file, in pairs, and the memory that it needs."""
    anuncia("signatures")
    saida = subprocess.run([os.path.join(construcao, "bench", "assinatura"), str(megabytes), construcao], check=True,
                           capture_output=True, text=True).stdout
    return "```\n" + saida + "```"


def prepara(corridas, bancos, extensao):
    """The settings on the database of 10^5 items."""
    tamanho = extensao.tamanho_contado
    medido, contado = (Caso(n, True, bancos.com_indices(n), 1) for n in (100_000, tamanho))
    return preparacoes.mede(corridas, bancos, medido, extensao.pares_das_preparacoes, tamanho, contado, anuncia)


def texto(construcao, curta):
    extensao = CURTA if curta else INTEIRA
    inicio = time.monotonic()
    with Corridas(construcao) as corridas:
        bancos = Bancos(os.path.join(construcao, "dados"), os.path.join(construcao, "Tools", "cotepe", "cotepe"))
        descricao = maquina.descreve(construcao, corridas.sqlite())
        medidas, programas = mede_corridas(corridas, bancos, extensao)
        tdm = [m for m in medidas if m.caso.comando == "TDM"]
        maiores = [m for m in tdm if m.caso.banco.endswith(f"-{extensao.tamanhos[-1]}.db")]
        contadas = [m for m in tdm if m.caso.itens < (50_000 if curta and not m.caso.indices else 500_000)]
        secoes = [
            ("Whole runs", tabelas.das_corridas(medidas)),
            ("Registers, on the largest database", tabelas.dos_registros(maiores)),
            ("Instructions", tabelas.das_instrucoes(conta_instrucoes(corridas, contadas))),
            ("Peak memory", tabelas.da_memoria(tdm)),
            ("The program as a whole process", tabelas.do_programa(programas)),
            ("Settings of the handle and of the database", tabelas.das_preparacoes(prepara(corridas, bancos, extensao))),
            ("Fields, records, amounts", tabelas.dos_micros(mede_micro(construcao, extensao.segundos_do_micro))),
            ("Signatures", mede_assinatura(construcao, extensao.megabytes_assinados))]
    minutos = (time.monotonic() - inicio) / 60
    forma = "short" if curta else "full"
    cabeca = [("Form", f"{forma}, {minutos:.0f} minutes"), *descricao]
    principal = f"TDM of {maiores[0].caso.itens} items, revision {dict(descricao)['Revision']}:\n\n"
    medido = "\n\n".join([tabelas.da_maquina(cabeca)] + [f"## {titulo}\n\n{t}" for titulo, t in secoes])
    return medido, principal + tabelas.do_documento(maiores)


def substitui(arquivo, texto):
    with open(arquivo + ".novo", "w", encoding="utf-8") as saida:
        saida.write(texto)
    os.rename(arquivo + ".novo", arquivo)


def escreve(medido, principal):
    substitui(MEDIDO, CABECA + medido + "\n")
    with open(DOCUMENTO, encoding="utf-8") as arquivo:
        antes, resto = arquivo.read().split(INICIO)
    depois = resto.split(FIM)[1]
    substitui(DOCUMENTO, f"{antes}{INICIO}\n\n{principal}\n\n{FIM}{depois}")


def main():
    opcoes = argparse.ArgumentParser(prog="scripts/bench", description=__doc__)
    opcoes.add_argument("construcao", metavar="BUILD", help=argparse.SUPPRESS)
    opcoes.add_argument("--short", action="store_true", help="10^3 and 10^5 items and fewer pairs")
    opcoes.add_argument("--print", action="store_true", help="print the tables instead of writing them")
    escolhas = opcoes.parse_args()
    medido, principal = texto(escolhas.construcao, escolhas.short)
    if escolhas.print:
        print(medido)
    else:
        escreve(medido, principal)
        anuncia(f"written: {MEDIDO} and {DOCUMENTO}")


if __name__ == "__main__":
    main()
