"""The databases of the measurements: sample shops of a known number of items, with and without indexes."""
import filecmp
import os
import subprocess

# Items, and the days and coupons a day that give about so many: a coupon has four.
TAMANHOS = {1000: (10, 25), 100_000: (100, 250), 1_000_000: (1000, 250)}
PERIODO = ("01012020", "31122030")


def _faz(cotepe, arquivo, itens):
    dias, cupons = TAMANHOS[itens]
    subprocess.run([cotepe, "sample", arquivo, "--days", str(dias), "--coupons-per-day", str(cupons), "--quiet"],
                   check=True)


def _sqlite(arquivo, sql):
    return subprocess.run(["sqlite3", arquivo], input=sql, text=True, check=True, capture_output=True).stdout


def _despe(com, sem):
    """The same rows in tables without key or index, and without what ANALYZE knows of them."""
    tabelas = _sqlite(com, "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite_%'")
    copia = "".join(f"CREATE TABLE {t} AS SELECT * FROM com.{t};\n" for t in tabelas.split())
    _sqlite(sem, f"PRAGMA journal_mode = OFF; ATTACH '{com}' AS com; BEGIN; {copia} COMMIT;")


class Bancos:
    """Kept from run to run; made anew when the sample program makes another small database than before."""

    def __init__(self, pasta, cotepe):
        self._pasta, self._cotepe = pasta, cotepe
        os.makedirs(pasta, exist_ok=True)
        novo, antigo = self._nome("prova", 1000), self._nome("com", 1000)
        self._remove(novo)
        _faz(cotepe, novo, 1000)
        if not (os.path.exists(antigo) and filecmp.cmp(novo, antigo, shallow=False)):
            for nome in os.listdir(pasta):
                if nome.endswith(".db") and nome != os.path.basename(novo):
                    os.remove(os.path.join(pasta, nome))
        self._remove(novo)

    def com_indices(self, itens):
        return self._feito("com", itens, lambda arquivo: _faz(self._cotepe, arquivo, itens))

    def sem_indices(self, itens):
        com = self.com_indices(itens)
        return self._feito("sem", itens, lambda arquivo: _despe(com, arquivo))

    def variante(self, nome, itens, sql):
        """The database with indexes after some SQL."""
        return self._feito(nome, itens, lambda arquivo: self._muda(arquivo, itens, sql))

    def itens(self, banco):
        return int(_sqlite(banco, "SELECT count(*) FROM item_cupom_fiscal"))

    def _muda(self, arquivo, itens, sql):
        subprocess.run(["cp", self.com_indices(itens), arquivo], check=True)
        _sqlite(arquivo, sql)

    def _feito(self, nome, itens, faz):
        arquivo = self._nome(nome, itens)
        if not os.path.exists(arquivo):
            self._remove(arquivo + ".novo")
            faz(arquivo + ".novo")
            os.rename(arquivo + ".novo", arquivo)
        with open(arquivo, "rb") as banco:  # into the page cache
            while banco.read(1 << 24):
                pass
        return arquivo

    def _nome(self, nome, itens):
        return os.path.join(self._pasta, f"{nome}-{itens}.db")

    @staticmethod
    def _remove(arquivo):
        if os.path.exists(arquivo):
            os.remove(arquivo)
