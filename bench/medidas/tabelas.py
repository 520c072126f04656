"""The tables of docs/measured/performance.md, out of what was measured."""
from statistics import median


def tabela(cabecalho, linhas):
    """Markdown: the first column left, the others right."""
    separador = ["---"] + ["--:"] * (len(cabecalho) - 1)
    return "\n".join("| " + " | ".join(str(c) for c in linha) + " |" for linha in [cabecalho, separador, *linhas])


def _inteiro(n):
    return f"{n:,.0f}".replace(",", " ")


def _indices(caso):
    return "with" if caso.indices else "without"


def _cpu(corridas):
    return median(r["ns"][1] for r in corridas)


def da_maquina(descricao):
    return tabela(["", "Measured on"], descricao)


def das_corridas(medidas):
    """A line for each case: whole runs."""
    linhas = []
    for m in medidas:
        c = m.caso
        piso, gerador = _cpu(m.piso), _cpu(m.gerador)
        vantagem = m.vantagem()
        linhas.append([_inteiro(c.itens), _indices(c), c.versao, c.comando, _inteiro(m.linhas),
                       _inteiro(m.linhas / gerador * 1e9), _inteiro(piso / m.linhas), _inteiro(gerador / m.linhas),
                       f"**{m.razao():.2f}**" if len(m.piso) > 1 else f"{m.razao():.2f}", f"{min(m.razoes()):.2f} to {max(m.razoes()):.2f}", f"{m.razao(0):.2f}",
                       f"{vantagem:.2f}" if vantagem else "", len(m.piso)])
    return tabela(["Items", "Indexes", "Layout", "Command", "Rows", "Rows/s", "Floor, ns/row", "Generator, ns/row",
                   "Ratio", "lowest to highest", "of elapsed time", "printf writer / generator", "Pairs"], linhas)


def do_documento(medidas):
    """The one table of docs/performance.md: whole runs of TDM over the largest database."""
    linhas = [[_indices(m.caso), m.caso.versao, _inteiro(m.linhas / _cpu(m.gerador) * 1e9), f"**{m.razao():.2f}**",
               f"{min(m.razoes()):.2f} to {max(m.razoes()):.2f}", f"{m.vantagem():.2f}"] for m in medidas]
    return tabela(["Indexes", "Layout", "Rows/s", "Ratio to the floor", "lowest to highest",
                   "printf writer / generator"], linhas)


def da_memoria(medidas):
    """Peak memory of whole runs, MiB."""
    linhas = []
    for m in medidas:
        c = m.caso
        piso, gerador = (max(r["kib"] for r in corridas) / 1024 for corridas in (m.piso, m.gerador))
        sqlite = max(r["sqlite_kib"] for r in m.gerador) / 1024
        linhas.append([_inteiro(c.itens), _indices(c), c.versao, f"{piso:.1f}", f"{gerador:.1f}", f"{sqlite:.1f}"])
    return tabela(["Items", "Indexes", "Layout", "Floor, MiB", "Generator, MiB", "SQLite's own in it, MiB"], linhas)


def dos_registros(medidas):
    """Every register of some cases with rows enough to time."""
    linhas = []
    for m in medidas:
        c = m.caso
        for codigo in sorted(m.gerador[0]["registros"]):
            quantas, piso, gerador, razao = m.do_registro(codigo)
            if quantas < 1000:
                continue
            linhas.append([codigo, _indices(c), c.versao, _inteiro(quantas), _inteiro(quantas / gerador * 1e9),
                           _inteiro(piso / quantas), _inteiro(gerador / quantas), f"{razao:.2f}"])
    linhas.sort(key=lambda linha: linha[0])
    return tabela(["Register", "Indexes", "Layout", "Rows", "Rows/s", "Floor, ns/row", "Generator, ns/row", "Ratio"],
                  linhas)


def das_instrucoes(contagens):
    """Pairs of measure and its two counts, floor and generator."""
    linhas = []
    for m, piso, gerador in contagens:
        c = m.caso
        linhas.append([_inteiro(c.itens), _indices(c), c.versao, _inteiro(piso.total / m.linhas),
                       _inteiro(gerador.total / m.linhas), f"**{gerador.total / piso.total:.3f}**",
                       f"{100 * gerador.no_sqlite / gerador.total:.1f} %",
                       _inteiro((gerador.total - gerador.no_sqlite) / m.linhas)])
    return tabela(["Items", "Indexes", "Layout", "Floor, per row", "Generator, per row", "Ratio",
                   "Inside SQLite", "Outside, per row"], linhas)


def do_programa(medidas):
    """Cases with the times of `cotepe generate`."""
    linhas = []
    for m, tempos in medidas:
        c = m.caso
        decorrido, trabalhado = (median(t[i] for t in tempos) for i in (0, 1))
        linhas.append([_inteiro(c.itens), _indices(c), c.versao, f"{_cpu(m.piso) / 1e9:.3f}",
                       f"{_cpu(m.gerador) / 1e9:.3f}", f"{trabalhado / 1e9:.3f}", f"{decorrido / 1e9:.3f}"])
    return tabela(["Items", "Indexes", "Layout", "Floor, CPU s", "Library, CPU s", "cotepe generate, CPU s",
                   "cotepe generate, elapsed s"], linhas)


def das_preparacoes(resultados):
    """Settings of the handle or of the database, each alone against none."""
    linhas = []
    for nome, razoes, instrucoes, kib in resultados:
        menor, maior = min(razoes), max(razoes)
        linhas.append([nome, f"**{median(razoes):.3f}**", f"{menor:.3f} to {maior:.3f}",
                       f"{instrucoes:.3f}" if instrucoes else "", f"{kib / 1024:.1f}"])
    return tabela(["Alone against the default", "CPU time", "lowest to highest", "Instructions", "Peak, MiB"], linhas)


def dos_micros(benchmarks):
    """Google Benchmark's own figures: ns a field, a record, an amount."""
    linhas = []
    for b in benchmarks:
        registro = "items_per_second" in b
        linhas.append([b["name"], f"{1e9 / b['items_per_second'] if registro else b['cpu_time']:.1f}"])
    return tabela(["Of a field, a whole record, an amount", "ns"], linhas)
