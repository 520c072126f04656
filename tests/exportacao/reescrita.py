"""The lines of a report written again from an exported database, knowing nothing but its tables."""

import sqlite_utils

PULADO = 77


def campos_de(banco):
    """Of each register and form its columns in order."""
    formas = {}
    for campo in banco["campo"].rows_where(order_by="registro, forma, ordem"):
        formas.setdefault((campo["registro"], campo["forma"]), []).append(campo)
    return formas


def bytes_do_campo(campo, linha):
    valor, largura, tipo = linha[campo["coluna"]], campo["largura"], campo["tipo"]
    if tipo in ("data", "hora"):
        texto = "" if valor is None else valor.replace("-", "").replace(":", "")
        return texto.ljust(largura)
    if tipo in ("inteiro", "centavos"):
        return str(valor).zfill(largura)
    if tipo == "decimal":
        casas = 3 if linha[campo["coluna_das_casas"]] == 3 else 2
        return str(round(valor * 10**casas)).zfill(largura)
    return valor.ljust(largura)


def reescreve(caminho, arquivo=1):
    """All bytes of a report."""
    banco = sqlite_utils.Database(caminho)
    formas = campos_de(banco)
    fim = banco["arquivo"].get(arquivo)["fim_de_linha"].encode()
    linhas = {}
    for registro in sorted({registro for registro, _ in formas}):
        for linha in banco[registro].rows_where("arquivo = ? AND forma IS NOT NULL", [arquivo]):
            texto = "".join(bytes_do_campo(campo, linha) for campo in formas[registro, linha["forma"]])
            linhas[linha["linha"]] = texto.encode("ascii") + fim
    for literal in banco["linha_literal"].rows_where("arquivo = ?", [arquivo]):
        assert literal["linha"] not in linhas, "a line that is there twice"
        linhas[literal["linha"]] = literal["bytes"]
    assert sorted(linhas) == list(range(1, len(linhas) + 1)), "a line is missing"
    return b"".join(linhas[numero] for numero in sorted(linhas))
