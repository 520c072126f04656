"""What lowers the floor itself: settings of the handle and of the database, each alone against none."""
import zlib
from dataclasses import replace

from . import instrucoes

DO_PUNHO = {
    "SQLITE_OPEN_NOMUTEX": ("nomutex",),
    "PRAGMA cache_size = -65536": ("PRAGMA cache_size = -65536",),
    "PRAGMA cache_size = -262144": ("PRAGMA cache_size = -262144",),
    "PRAGMA temp_store = MEMORY": ("PRAGMA temp_store = MEMORY",),
    "PRAGMA mmap_size = 2147418112": ("PRAGMA mmap_size = 2147418112",),
    "PRAGMA threads = 2": ("PRAGMA threads = 2",),
    "lookaside of 512 slots of 1200 bytes": ("lookaside 1200 512",),
    "PRAGMA cell_size_check = ON": ("PRAGMA cell_size_check = ON",),
    "BEGIN: one transaction": ("BEGIN",),
    "what cotepe generate keeps": ("nomutex", "PRAGMA cell_size_check = ON", "PRAGMA cache_size = -65536", "BEGIN"),
}

DO_BANCO = {
    "VACUUM": "VACUUM",
    "page size of 8192": "PRAGMA page_size = 8192; VACUUM",
    "page size of 16384": "PRAGMA page_size = 16384; VACUUM",
    "without ANALYZE": "DROP TABLE sqlite_stat1",
    "indexes on the order (cont_ccf, cont_coo, cont_gnf)":
        "CREATE INDEX por_ccf ON cupom_fiscal (cont_ccf); CREATE INDEX por_coo ON outros_documentos (cont_coo);"
        "CREATE INDEX por_gnf ON cupom_nf (cont_gnf); ANALYZE",
}


def _compara(corridas, padrao, mudado, pares):
    """The generator with and without a change, in turn. Both files are the golden engine's of the default."""
    razoes, kib = [], 0
    corridas.corre("gerador", mudado)
    for _ in range(pares):
        antes, depois = corridas.corre("gerador", padrao), corridas.corre("gerador", mudado)
        razoes.append(depois["ns"][1] / antes["ns"][1])
        kib = max(kib, depois["kib"])
    return razoes, kib


def mede(corridas, bancos, caso, pares, tamanho, contado, anuncia):
    """`contado`: the case on which instructions are counted, of the size `tamanho`. A list of name, ratios,
    ratio of instructions and peak KiB."""

    def conta(este):
        return instrucoes.conta(corridas.argumentos("gerador", este, "/dev/null")).total

    corridas.doura(caso)
    base, resultados = conta(contado), []
    for nome, preparo in [("nothing (the noise)", ()), *DO_PUNHO.items()]:
        anuncia(nome)
        razoes, kib = _compara(corridas, caso, replace(caso, preparo=preparo), pares)
        resultados.append((nome, razoes, conta(replace(contado, preparo=preparo)) / base if preparo else None, kib))
    for nome, sql in DO_BANCO.items():
        anuncia(nome)
        outro = f"variante-{zlib.crc32(sql.encode()):08x}"  # another one when the SQL changes
        mudado = replace(caso, banco=bancos.variante(outro, 100_000, sql))
        razoes, kib = _compara(corridas, caso, mudado, pares)
        menor = replace(contado, banco=bancos.variante(outro, tamanho, sql))
        resultados.append((nome, razoes, conta(menor) / base, kib))
    return resultados
