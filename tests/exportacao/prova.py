"""What cotepe export makes, read by others: nothing is lost, and the views say what the report says."""

import csv
import datetime
import os
import pathlib
import random
import sqlite3
import subprocess
import sys
import tempfile
import unittest
import zipfile

PULADO = 77
try:
    import sqlite_utils
    from reescrita import reescreve
except ImportError:
    print("SKIPPED: sqlite-utils is not installed; scripts/install-deps installs it")
    sys.exit(PULADO)

PROGRAMA = os.environ["PROGRAMA"]
DOURADOS = pathlib.Path(os.environ["FONTES"]) / "tests" / "golden"
RELATORIOS = pathlib.Path(os.environ["FONTES"]) / "tests" / "apoio" / "relatorios"


class Pasta(unittest.TestCase):
    def setUp(self):
        pasta = tempfile.TemporaryDirectory()
        self.addCleanup(pasta.cleanup)
        self.pasta = pathlib.Path(pasta.name)

    def roda(self, *argumentos, situacao=0, entrada=None):
        feito = subprocess.run([PROGRAMA, *map(str, argumentos)], cwd=self.pasta, input=entrada, capture_output=True)
        self.assertEqual(feito.returncode, situacao, feito.stderr)
        return feito.stderr.decode()

    def exporta(self, conteudo, nome="r.txt"):
        (self.pasta / nome).write_bytes(conteudo)
        self.roda("export", nome, "--to", "sqlite", "-o", "r.db", "--force", "--quiet")
        return self.pasta / "r.db"

    def exige_inteiro(self, conteudo):
        self.assertEqual(reescreve(self.exporta(conteudo)), conteudo)

    def amostra(self, leiaute, *mais, semente=1):
        if not (self.pasta / f"{semente}.db").exists():
            self.roda("sample", f"{semente}.db", "--days", 3, "--coupons-per-day", 9, "--seed", semente, "--quiet")
        nome = f"{semente}-{leiaute}.txt"
        self.roda("generate", "--db", f"{semente}.db", "--from", "2024-01-01", "--to", "2024-01-31", "--layout",
                  leiaute, "--output", nome, "--force", "--quiet", *mais)
        return (self.pasta / nome).read_bytes()


class NadaSePerde(Pasta):
    def test_every_golden_case(self):
        casos = sorted(DOURADOS.glob("*/esperado.txt"))
        self.assertGreater(len(casos), 20)
        for caso in casos:
            with self.subTest(caso=caso.parent.name):
                self.exige_inteiro(caso.read_bytes())

    def test_random_samples(self):
        for semente in range(1, 6):
            for leiaute in (1, 2):
                for mais in ((), ("--cat52",)):
                    with self.subTest(semente=semente, leiaute=leiaute, mais=mais):
                        self.exige_inteiro(self.amostra(leiaute, *mais, semente=semente))

    def test_of_a_good_report_few_lines_are_kept_as_they_stand(self):
        for leiaute, literais in ((1, []), (2, ["E11"])):
            banco = sqlite_utils.Database(self.exporta(self.amostra(leiaute, semente=7)))
            self.assertEqual([linha["bytes"][:3].decode() for linha in banco["linha_literal"].rows], literais)

    def test_random_bytes_in_it(self):
        acaso = random.Random(20240101)
        bom = (RELATORIOS / "leiaute1.txt").read_bytes()
        for vez in range(150):
            estragado = bytearray(bom)
            for _ in range(acaso.randint(1, 40)):
                onde = acaso.randrange(len(estragado))
                estragado[onde] = acaso.choice((acaso.randrange(256), 0, 10, 13, 32, 48, 57, 0xE7))
            for _ in range(acaso.randint(0, 3)):
                onde = acaso.randrange(len(estragado))
                if acaso.random() < 0.5:
                    del estragado[onde]
                else:
                    estragado[onde:onde] = bytes(acaso.randrange(256) for _ in range(acaso.randint(1, 5)))
            with self.subTest(vez=vez):
                self.exige_inteiro(bytes(estragado))

    def test_line_ends_and_what_stands_behind_a_line(self):
        linhas = (RELATORIOS / "leiaute2.txt").read_bytes().splitlines()
        for nome, conteudo in {
            "CR LF": b"".join(linha + b"\r\n" for linha in linhas),
            "no end": b"\n".join(linhas),
            "mixed": b"".join(linha + (b"\r\n" if i % 3 else b"\n") for i, linha in enumerate(linhas)),
            "extra bytes": b"".join(linha + b"  X\n" for linha in linhas),
            "empty lines": b"\n\r\n" + b"\n\n".join(linhas) + b"\n\n\r",
            "unknown lines": b"E99 what is this\n" + b"".join(linha + b"\nEAD0123\n" for linha in linhas),
            "only an end": b"\n",
            "nothing": b"",
        }.items():
            with self.subTest(nome):
                self.exige_inteiro(conteudo)

    def test_bytes_that_are_no_text(self):
        linhas = (RELATORIOS / "leiaute1.txt").read_bytes().splitlines()
        linhas[1] = linhas[1].replace(b"LOJA DE EXEMPLO LTDA", b"PADARIA S\xc3O JO\xc3O\0X  ")
        conteudo = b"\n".join(linhas) + b"\n"
        self.exige_inteiro(conteudo)
        (valor,) = sqlite3.connect(self.pasta / "r.db").execute("SELECT razao_social FROM E02").fetchone()
        self.assertEqual(valor, "PADARIA SÃO JOÃO\0X")

    def test_several_users_and_versions_of_e01(self):
        e01 = b"E01SERIAL".ljust(23) + b" ECF-IF " + b"MARCA".ljust(20) + b"MODELO".ljust(20)
        e01 += b"01.00.00  20230615092000" + b"001" + b"11222333000181" + b"99888777000166" + b"TDM"
        e01 += b"000010000011" + b"20240102" + b"20240103" + b"02.00.02" + b"AC1704 01.00.00"
        self.exige_inteiro(e01 + b"\n")
        repetidos = sqlite_utils.Database(self.pasta / "r.db")["repetido"].rows
        self.assertEqual([(r["coluna"], r["vez"], r["valor"]) for r in repetidos],
                         [("cnpj_usuario", 1, "11222333000181"), ("cnpj_usuario", 2, "99888777000166")])


class Consultas(Pasta):
    """Over tests/apoio/relatorios/leiaute1.txt; the amounts are those of its lines, in cents."""

    def setUp(self):
        super().setUp()
        self.banco = sqlite_utils.Database(self.exporta((RELATORIOS / "leiaute1.txt").read_bytes()))

    def linhas(self, sql):
        return [tuple(linha.values()) for linha in self.banco.query(sql)]

    def test_types(self):
        self.assertEqual(
            self.linhas("SELECT ccf, coo, data_emissao, subtotal, desconto, cancelado, nome_consumidor,"
                        " cpf_cnpj_consumidor FROM E14 WHERE ccf = 31"),
            [(31, 102, "2024-01-02", 3000, 100, "N", "MARIA DA SILVA", "00052998224725")])
        self.assertEqual(self.linhas("SELECT quantidade, valor_unitario, desconto, unidade FROM E15 WHERE ccf = 31"),
                         [(2.0, 10.0, 0, "UN"), (1.25, 8.0, 0, "KG")])
        self.assertEqual(self.linhas("SELECT hora_intervencao, data_intervencao FROM E09"), [("07:00:00", "2023-06-01")])

    def test_days(self):
        self.assertEqual(
            self.linhas("SELECT data, venda_bruta, descontos, cancelamentos, venda_liquida, cupons, cupons_cancelados,"
                        " total_dos_cupons, crz_inicial, coo_inicial, coo_final FROM dia"),
            [("2024-01-02", 3800, 100, 300, 3400, 2, 0, 3400, 10, 102, 103),
             ("2024-01-03", 700, None, 700, 0, 1, 1, None, 11, 106, 106)])

    def test_coupons_and_items(self):
        self.assertEqual(self.linhas("SELECT ccf, total, cancelado, itens FROM cupom ORDER BY ccf"),
                         [(31, 2900, 0, 2), (32, 500, 0, 2), (33, 700, 1, 1)])
        self.assertEqual(self.linhas("SELECT data, descricao, total, cancelado FROM item ORDER BY ccf, numero_item"),
                         [("2024-01-02", "ARROZ", 2000, 0), ("2024-01-02", "QUEIJO", 1000, 0),
                          ("2024-01-02", "PAO", 500, 0), ("2024-01-02", "LEITE", 300, 1),
                          ("2024-01-03", "CAFE", 700, 1)])

    def test_payments_and_tax_codes(self):
        self.assertEqual(self.linhas("SELECT meio, acumulado, pagamentos, pago, estornado FROM pagamento_por_meio"),
                         [("CARTAO", 1300, 2, 1300, 0), ("DINHEIRO", 4100, 2, 6200, 0), ("TROCO", None, 1, 2100, 0)])
        self.assertEqual(
            self.linhas("SELECT totalizador, acumulado, itens, dos_itens FROM totalizador_por_aliquota"),
            [("01T1800", 3400, 3, 3500), ("AT", 0, None, None), ("Can-T", 1000, None, None),
             ("DT", 100, None, None), ("OPNF", 2000, None, None)])

    def test_placeholders_are_marked_and_not_counted(self):
        vazio = (DOURADOS / "vazio_TDM_v1" / "esperado.txt").read_bytes()
        banco = sqlite_utils.Database(self.exporta(vazio))
        self.assertEqual([tuple(r.values()) for r in banco.query("SELECT count(*), sum(vazio) FROM E14")], [(1, 1)])
        for visao in ("dia", "cupom", "item", "pagamento_por_meio", "totalizador_por_aliquota"):
            self.assertEqual(list(banco.query(f"SELECT * FROM {visao}")), [], visao)

    def test_several_reports_in_one_database(self):
        (self.pasta / "dois.txt").write_bytes((RELATORIOS / "leiaute2.txt").read_bytes())
        dito = self.roda("export", "r.txt", "dois.txt", "--to", "sqlite", "-o", "dois.db")
        self.assertRegex(dito, r"^cotepe: dois\.db: 2 reports, \d+ lines, 1 of them kept as they stand, \d+\.\d s\n$")
        for numero, nome in ((1, "r.txt"), (2, "dois.txt")):
            self.assertEqual(reescreve(self.pasta / "dois.db", numero), (self.pasta / nome).read_bytes())
        banco = sqlite_utils.Database(self.pasta / "dois.db")
        self.assertEqual([(a["nome"], a["leiaute"], a["numero_fabricacao"]) for a in banco["arquivo"].rows],
                         [("r.txt", 1, "SERIAL"), ("dois.txt", 2, "SERIAL")])
        self.assertEqual([d["arquivo"] for d in banco.query("SELECT arquivo FROM dia")], [1, 1, 2, 2])

    def test_indexes_lead_to_a_document(self):
        for registro, colunas in {"E14": {"ccf", "coo"}, "E15": {"ccf", "coo"}, "E12": {"crz", "coo"}}.items():
            achados = {indice.columns[0] for indice in self.banco[registro].indexes}
            self.assertLessEqual(colunas, achados, registro)
        banco = sqlite_utils.Database(self.exporta(self.amostra(1)))
        (plano,) = banco.query("EXPLAIN QUERY PLAN SELECT * FROM E15 WHERE arquivo = 1 AND coo = 102")
        self.assertIn("USING INDEX", plano["detail"])
        self.assertEqual(self.linhas("PRAGMA integrity_check"), [("ok",)])


class EmCsv(Pasta):
    def le(self, nome):
        with open(self.pasta / "saida" / nome, newline="", encoding="utf-8") as arquivo:
            return list(csv.DictReader(arquivo))

    def test_a_file_a_register(self):
        bom = (RELATORIOS / "leiaute1.txt").read_bytes()
        (self.pasta / "r.txt").write_bytes(bom + b'E99 "quoted", and a comma \xe7\n')
        self.roda("export", "r.txt", "--to", "csv", "-o", "saida", "--quiet")
        registros = sorted({linha[:3].decode() for linha in bom.splitlines()})
        self.assertEqual(sorted(os.listdir(self.pasta / "saida")),
                         [f"{r}.csv" for r in registros] + ["arquivos.csv", "linhas_literais.csv"])
        (maria,) = [linha for linha in self.le("E14.csv") if linha["ccf"] == "31"]
        self.assertEqual((maria["linha"], maria["data_emissao"], maria["subtotal"], maria["valor_total_liquido"],
                          maria["nome_consumidor"], maria["cpf_cnpj_consumidor"]),
                         ("20", "2024-01-02", "30.00", "29.00", "MARIA DA SILVA", "00052998224725"))
        self.assertEqual([linha["quantidade"] for linha in self.le("E15.csv")],
                         ["2.00", "1.250", "1.00", "1.00", "1.00"])
        (estranha,) = self.le("linhas_literais.csv")
        self.assertEqual(estranha["bytes"].encode("latin-1"), b'E99 "quoted", and a comma \xe7\n')

    def test_as_many_rows_as_lines(self):
        (self.pasta / "r.txt").write_bytes(self.amostra(2))
        self.roda("export", "r.txt", "--to", "csv", "-o", "saida", "--quiet")
        linhas = (self.pasta / "r.txt").read_bytes().splitlines()
        for nome in os.listdir(self.pasta / "saida"):
            if nome.startswith("E"):
                iguais = sum(linha[:3].decode() == nome[:3] for linha in linhas)
                self.assertEqual(len(self.le(nome)), iguais, nome)


class EmPlanilha(Pasta):
    def abre(self, conteudo):
        (self.pasta / "r.txt").write_bytes(conteudo)
        feito = subprocess.run([PROGRAMA, "export", "r.txt", "--to", "xlsx", "-o", "r.xlsx", "--force", "--quiet"],
                               cwd=self.pasta, capture_output=True)
        if b"without libxlsxwriter" in feito.stderr:
            self.skipTest("built without libxlsxwriter")
        self.assertEqual(feito.returncode, 0, feito.stderr)
        try:
            import openpyxl
        except ImportError:
            self.skipTest("python3-openpyxl is not installed; scripts/install-deps installs it")
        return openpyxl.load_workbook(self.pasta / "r.xlsx")

    def linhas(self, folha):
        titulos, *linhas = folha.iter_rows(values_only=True)
        return [dict(zip(titulos, linha)) for linha in linhas]

    def test_a_sheet_a_register_and_the_views(self):
        bom = (RELATORIOS / "leiaute1.txt").read_bytes()
        livro = self.abre(bom)
        registros = sorted({linha[:3].decode() for linha in bom.splitlines()})
        self.assertEqual(livro.sheetnames, ["arquivo", "dia", "cupom", "item", "pagamento_por_meio",
                                            "totalizador_por_aliquota", *registros])
        maria = self.linhas(livro["E14"])[0]
        self.assertEqual((maria["linha"], maria["ccf"], maria["subtotal"], maria["nome_consumidor"],
                          maria["cpf_cnpj_consumidor"], maria["data_emissao"]),
                         (20, 31, 30.0, "MARIA DA SILVA", "00052998224725", datetime.datetime(2024, 1, 2)))
        self.assertEqual([linha["quantidade"] for linha in self.linhas(livro["E15"])], [2, 1.25, 1, 1, 1])
        self.assertEqual([(d["venda_bruta"], d["venda_liquida"]) for d in self.linhas(livro["dia"])], [(38, 34), (7, 0)])
        self.assertEqual(livro["dia"]["F2"].number_format, "#,##0.00")

    def test_hostile_texts_are_texts(self):
        bom = (RELATORIOS / "leiaute1.txt").read_bytes()
        livro = self.abre(bom.replace(b"ARROZ       ", b"=1+1\0\x01\xe7   ") + b"E99 \xe7\x00\n")
        celulas = [c for linha in livro["E15"].iter_rows() for c in linha if str(c.value).startswith("=1+1")]
        self.assertEqual(len(celulas), 1)
        with zipfile.ZipFile(self.pasta / "r.xlsx") as pacote:  # a formula would stand in an element of its own
            folhas = [nome for nome in pacote.namelist() if nome.startswith("xl/worksheets/sheet")]
            self.assertGreater(len(folhas), 20)
            self.assertFalse([nome for nome in folhas if b"<f>" in pacote.read(nome)])
        self.assertIn("\u2400", celulas[0].value)
        self.assertIn("E99 \xe7\u2400", livro["linha_literal"]["C3"].value + livro["linha_literal"]["C2"].value)


class InteiroOuNada(Pasta):
    def setUp(self):
        super().setUp()
        (self.pasta / "r.txt").write_bytes((RELATORIOS / "leiaute1.txt").read_bytes())

    def test_what_is_there_is_kept_without_force(self):
        (self.pasta / "r.db").write_text("precious")
        self.assertIn("--force", self.roda("export", "r.txt", "--to", "sqlite", "-o", "r.db", situacao=3))
        self.assertEqual((self.pasta / "r.db").read_text(), "precious")
        self.roda("export", "r.txt", "--to", "sqlite", "-o", "r.db", "--force", "--quiet")
        self.assertEqual(sqlite_utils.Database(self.pasta / "r.db")["E14"].count, 3)

    def test_a_folder_is_replaced_where_all_in_it_is_ours(self):
        self.roda("export", "r.txt", "--to", "csv", "-o", "saida", "--quiet")
        self.assertIn("--force", self.roda("export", "r.txt", "--to", "csv", "-o", "saida", situacao=3))
        self.roda("export", "r.txt", "--to", "csv", "-o", "saida/", "--force", "--quiet")
        (self.pasta / "saida" / "thesis.doc").write_text("precious")
        self.assertIn("thesis.doc", self.roda("export", "r.txt", "--to", "csv", "-o", "saida", "--force", situacao=3))
        self.assertTrue((self.pasta / "saida" / "thesis.doc").exists())
        self.assertEqual(sorted(os.listdir(self.pasta)), ["r.txt", "saida"])

    def test_a_report_that_cannot_be_read_leaves_nothing(self):
        for formato in ("sqlite", "csv", "xlsx"):
            self.roda("export", "r.txt", "none.txt", "--to", formato, "-o", "saida", situacao=2)
            self.assertEqual(os.listdir(self.pasta), ["r.txt"])

    def test_a_full_disk_leaves_nothing(self):
        self.roda("sample", "a.db", "--days", 5, "--quiet")
        self.roda("generate", "--db", "a.db", "--from", "2024-01-01", "--to", "2024-01-31", "--output", "a.txt", "--quiet")
        for formato in ("sqlite", "csv"):
            comando = f'ulimit -f 64; "{PROGRAMA}" export a.txt --to {formato} -o saida'
            feito = subprocess.run(["sh", "-c", comando], cwd=self.pasta, capture_output=True)
            self.assertEqual(feito.returncode, 4, feito.stderr)
            self.assertEqual(sorted(os.listdir(self.pasta)), ["a.db", "a.txt", "r.txt"])

    def test_a_killed_run_leaves_what_the_next_one_removes(self):
        (self.pasta / ".saida.cotepe-abcdef.tmp").write_text("")
        (self.pasta / ".saida.cotepe-abcdef.tmp.d").mkdir()
        (self.pasta / ".saida.cotepe-abcdef.tmp.d" / "E01.csv").write_text("half")
        self.roda("export", "r.txt", "--to", "csv", "-o", "saida", "--quiet")
        self.assertEqual(sorted(os.listdir(self.pasta)), ["r.txt", "saida"])

    def test_the_report_itself_is_no_output(self):
        self.roda("export", "r.txt", "--to", "sqlite", "-o", "./r.txt", "--force", situacao=2)
        self.assertEqual((self.pasta / "r.txt").read_bytes(), (RELATORIOS / "leiaute1.txt").read_bytes())

    def test_a_line_too_long_to_be_kept_is_refused(self):
        (self.pasta / "longa.txt").write_bytes(b"E99" + b"x" * (5 << 20) + b"\n")
        self.assertIn("5242883 bytes", self.roda("export", "longa.txt", "--to", "sqlite", "-o", "l.db", situacao=2))
        self.assertFalse((self.pasta / "l.db").exists())

    def test_stdin(self):
        bom = (RELATORIOS / "leiaute1.txt").read_bytes()
        self.roda("export", "-", "--to", "sqlite", "-o", "e.db", "--quiet", entrada=bom)
        self.assertEqual(reescreve(self.pasta / "e.db"), bom)


if __name__ == "__main__":
    unittest.main()
