"""What cotepe report makes: a page that is valid, loads nothing, says what the report says and leaves nothing out."""

import hashlib
import html.parser
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import unittest

PULADO = 77
PROGRAMA = os.environ["PROGRAMA"]
FONTES = pathlib.Path(os.environ["FONTES"])
BOM = (FONTES / "tests" / "apoio" / "relatorios" / "leiaute1.txt").read_bytes()


class Elementos(html.parser.HTMLParser):
    """The elements of a page: identities, links, cells and bars, and the text."""

    def __init__(self, fonte):
        super().__init__(convert_charrefs=True)
        self.ids, self.links, self.atributos, self.marcas = [], [], [], []
        self.texto, self._fora = [], 0
        self.feed(fonte)

    def handle_starttag(self, marca, atributos):
        dados = dict(atributos)
        self.marcas.append((marca, dados))
        self.atributos += atributos
        if marca in ("style", "script"):
            self._fora += 1
        if "id" in dados:
            self.ids.append(dados["id"])
        if marca == "a":
            self.links.append(dados.get("href"))

    def handle_endtag(self, marca):
        if marca in ("style", "script"):
            self._fora -= 1

    def handle_data(self, dado):
        if not self._fora:
            self.texto.append(dado)


class Pasta(unittest.TestCase):
    def setUp(self):
        pasta = tempfile.TemporaryDirectory()
        self.addCleanup(pasta.cleanup)
        self.pasta = pathlib.Path(pasta.name)

    def roda(self, *argumentos, situacao=0, ambiente=None):
        feito = subprocess.run([PROGRAMA, *map(str, argumentos)], cwd=self.pasta, capture_output=True,
                               env={**os.environ, **(ambiente or {})})
        self.assertEqual(feito.returncode, situacao, feito.stderr)
        return feito.stderr.decode()

    def pagina(self, conteudo=BOM, *mais, ambiente=None):
        (self.pasta / "r.txt").write_bytes(conteudo)
        self.roda("report", "r.txt", "-o", "p.html", "--force", "--quiet", *mais, ambiente=ambiente)
        return (self.pasta / "p.html").read_text(encoding="utf-8")

    def amostra(self, dias, cupons, *mais):
        if not (self.pasta / "a.db").exists():
            self.roda("sample", "a.db", "--days", dias, "--coupons-per-day", cupons, "--quiet")
        self.roda("generate", "--db", "a.db", "--from", "2024-01-01", "--to", "2024-12-31", "--output", "a.txt",
                  "--force", "--quiet", *mais)
        return (self.pasta / "a.txt").read_bytes()

    def exige_valida(self, fonte):
        try:
            import html5lib
        except ImportError:
            self.fail("python3-html5lib is not installed; scripts/install-deps installs it")
        html5lib.HTMLParser(strict=True).parse(fonte)
        dito = subprocess.run(["tidy", "-q", "-e", "--drop-empty-elements", "no"], input=fonte.encode(),
                              capture_output=True).stderr.decode()
        self.assertEqual(dito, "")


class Pagina(Pasta):
    def test_it_is_valid_with_and_without_findings(self):
        self.exige_valida(self.pagina())
        self.exige_valida(self.pagina(BOM.replace(b"00000000003800S", b"00000000003801S")))
        self.exige_valida(self.pagina(self.amostra(6, 5, "--layout", 2), "--db", "a.db"))

    def test_nothing_is_left_out(self):
        for conteudo in (BOM, b"E99 unknown\n" + BOM + b"\nE14short\nE15\n", self.amostra(3, 8, "--layout", 2)):
            elementos = Elementos(self.pagina(conteudo))
            linhas = [int(i[1:]) for i in elementos.ids if re.fullmatch(r"l\d+", i)]
            self.assertEqual(sorted(linhas), list(range(1, len(conteudo.splitlines()) + 1)))
            self.assertEqual(len(elementos.ids), len(set(elementos.ids)))

    def test_links_resolve(self):
        estragado = BOM.replace(b"00000000003800S", b"00000000003801S").replace(b"01T1800N", b"01T1800X")
        elementos = Elementos(self.pagina(estragado))
        ancoras = [link for link in elementos.links if link.startswith("#l")]
        self.assertGreater(len(ancoras), 2)
        for link in elementos.links:
            self.assertTrue(link.startswith("#"), link)
            self.assertIn(link[1:], elementos.ids)

    def test_findings_stand_before_the_numbers(self):
        fonte = self.pagina(BOM.replace(b"00000000003800S", b"00000000003801S"))
        self.assertLess(fonte.index('id="achados"'), fonte.index('id="dias"'))
        self.assertIn('href="#l10"', fonte)
        self.assertIn("1 error", fonte)

    def test_many_findings_are_counted(self):
        muitas = b"".join(b"E99 unknown\n" for _ in range(120))
        self.assertIn("70 more of this rule are not shown", "".join(Elementos(self.pagina(BOM + muitas)).texto))

    def test_the_amounts_are_the_reports(self):
        fonte = self.pagina()
        for valor in ("45,00", "34,00", "1,00", "10,00", "11.222.333/0001-81", "02/01/2024", "1.045,00"):
            self.assertIn(valor, fonte)
        dois, = re.findall(r'<tr><th scope="row" data-v="20240102">.*?</tr>', fonte)
        self.assertEqual(re.findall(r'data-v="(\d+)"', dois)[:6], ["20240102", "3800", "100", "0", "300", "3400"])

    def test_plots_show_what_the_tables_say(self):
        fonte = self.pagina(self.amostra(12, 6))
        dias = fonte[fonte.index('id="dias"'):fonte.index("</section>", fonte.index('id="dias"'))]
        barras = re.findall(r'data-centavos="(\d+)"><title>([^<]*): ([\d.,]+)</title>', dias)
        tabela = re.findall(r'<th scope="row" data-v="\d{8}">([^<]*)</th><td class="n" data-v="(\d+)">([\d.,]+)</td>', dias)
        self.assertEqual(len(barras), 12)
        self.assertEqual([(nome, centavos, reais) for centavos, nome, reais in barras], tabela)
        totais = fonte[fonte.index('id="totais"'):fonte.index("</section>", fonte.index('id="totais"'))]
        celulas = dict(re.findall(r'<th scope="row">([^<]*)</th><td class="n" data-v="(\d+)">', totais))
        barras = re.findall(r'data-centavos="(\d+)"><title>([^<]*): ', totais)
        self.assertGreater(len(barras), 6)
        for centavos, nome in barras:
            self.assertEqual(celulas[nome], centavos, nome)

    def test_digests_are_those_of_the_file(self):
        for conteudo in (BOM, BOM.replace(b"\n", b"\r\n"), BOM[:-1]):
            fonte = self.pagina(conteudo)
            if "without OpenSSL" in fonte:
                self.skipTest("built without OpenSSL")
            self.assertIn(hashlib.md5(conteudo).hexdigest(), fonte)
            self.assertIn(hashlib.sha256(conteudo).hexdigest(), fonte)

    def test_hostile_texts_are_text(self):
        hostil = {b"ARROZ               ": b"<script>alert(1)</s", b"PAO                 ": b"\"><img src=x onerr=",
                  b"QUEIJO              ": b"p\xe3o \x00\x01\x1b\x7f&amp; 'x'  ", b"MARIA DA SILVA   ": b"</td><a href=//x>"}
        conteudo = BOM
        for de, para in hostil.items():
            para = para[:len(de)].ljust(len(de))
            self.assertIn(de, conteudo)
            conteudo = conteudo.replace(de, para)
        fonte = self.pagina(conteudo)
        elementos = Elementos(fonte)
        marcas = {marca for marca, _ in elementos.marcas}
        self.assertNotIn("img", marcas)
        self.assertEqual([marca for marca, _ in elementos.marcas].count("script"), 1)
        for nome, _ in elementos.atributos:
            self.assertFalse(nome.startswith("on"), nome)
        texto = "".join(elementos.texto)
        for visto in ("<script>alert(1)</s", '"><img src=x', "p\xe3o \u2400\u2401\u241b\u2421&amp; 'x'", "</td><a href=//x>"):
            self.assertIn(visto, texto)
        self.assertFalse(re.search(r"[\x00-\x08\x0b-\x1f\x7f-\x9f]", fonte))

    def test_the_policy_lets_nothing_be_loaded(self):
        fonte = self.pagina()
        politica, = re.findall(r'http-equiv="Content-Security-Policy" content="([^"]*)"', fonte)
        self.assertIn("default-src 'none'", politica)
        self.assertNotIn("unsafe", politica)
        self.assertNotRegex(fonte, r"(?i)https?:|//[a-z]+\.|@import|url\(|\bsrc=| style=")

    def test_mask_hides_consumers(self):
        fonte = self.pagina(BOM.replace(b"00052998224725", b"00052998224726"))
        self.assertIn("MARIA DA SILVA", fonte)
        self.assertIn("52998224726", fonte)
        fonte = self.pagina(BOM.replace(b"00052998224725", b"00052998224726"), "--mask")
        self.assertNotIn("MARIA DA SILVA", fonte)
        self.assertNotIn("52998224726", fonte)
        self.assertIn("***** ** *****", fonte)

    def test_portuguese(self):
        fonte = self.pagina(BOM, ambiente={"LC_ALL": "C.UTF-8", "LANGUAGE": "pt_BR"})
        if 'lang="en"' in fonte:
            self.skipTest("the catalogue is not built")
        self.assertIn('<html lang="pt-BR">', fonte)
        self.assertIn("Venda bruta por dia", fonte)
        self.assertIn("O relat\xf3rio cumpre todas as regras.", fonte)

    def test_two_periods_side_by_side(self):
        (self.pasta / "um.txt").write_bytes(BOM)
        (self.pasta / "dois.txt").write_bytes(BOM.replace(b"0000000000700S", b"0000000000900S"))
        self.roda("report", "um.txt", "dois.txt", "-o", "p.html", "--quiet")
        fonte = (self.pasta / "p.html").read_text()
        self.exige_valida(fonte)
        linha, = re.findall(r'<tr><th scope="row">Gross sales</th>(.*?)</tr>', fonte)
        self.assertEqual(re.findall(r">([^<]+)<", linha), ["45,00", "47,00", "\u22122,00", "\u22124,25 %"])
        self.roda("report", "um.txt", "um.txt", "um.txt", "-o", "q.html", situacao=2)

    def test_the_database_gives_hours_grand_totals_and_a_verdict(self):
        fonte = self.pagina(self.amostra(6, 5), "--db", "a.db")
        self.assertIn("The report is what the database says.", fonte)
        self.assertIn("Net sales by hour", fonte)
        self.assertNotIn("give the database with --db", fonte)
        estragado = (self.pasta / "a.txt").read_bytes().replace(b"DINHEIRO", b"DINHEIRA", 1)
        self.assertNotIn("The report is what the database says.", self.pagina(estragado, "--db", "a.db"))
        self.assertIn("give the database with --db to have the hours", self.pagina(estragado))

    def test_the_state_of_the_signature(self):
        (self.pasta / "r.txt").write_bytes(BOM)
        feito = subprocess.run([PROGRAMA, "sign", "--help"], capture_output=True)
        if feito.returncode != 0 or not shutil.which("openssl"):
            self.skipTest("built without signatures, or there is no openssl")
        subprocess.run(["openssl", "genrsa", "-traditional", "-out", "k.pem", "1024"], cwd=self.pasta, check=True, capture_output=True)
        subprocess.run(["openssl", "rsa", "-in", "k.pem", "-pubout", "-out", "p.pem"], cwd=self.pasta, check=True,
                       capture_output=True)
        self.roda("sign", "r.txt", "--key", "k.pem", "--output", "s.txt")
        assinado = (self.pasta / "s.txt").read_bytes()
        self.assertNotIn("<dt>Signature</dt>", self.pagina(BOM))
        self.assertIn("<dt>Signature</dt><dd>there is one, not verified", self.pagina(assinado))
        self.assertIn("<dt>Signature</dt><dd>valid: ", self.pagina(assinado, "--public-key", "p.pem"))
        self.assertIn("<dt>Signature</dt><dd>changed: ",
                      self.pagina(assinado.replace(b"ARROZ", b"ARROS"), "--public-key", "p.pem"))

    def test_an_outlier_is_marked(self):
        def linha(dia, venda, cancelado):
            crz = f"{dia:06d}"
            return (b"E12SERIAL               MODELO              01" + f"{crz}000105000001202401{dia:02d}202401"
                    f"{dia:02d}200100{venda:014d}S\n".encode(),
                    b"E13SERIAL               MODELO              01" + f"{crz}Can-T  {cancelado:013d}\n".encode())
        dias = [linha(dia, 10000, 5000 if dia == 4 else 100) for dia in range(1, 10)]
        fonte = self.pagina(b"".join(d[0] for d in dias) + b"".join(d[1] for d in dias))
        marcados = re.findall(r'data-v="(\d{8})">[^<]*</th>(?:(?!</tr>).)*outlier', fonte)
        self.assertEqual(marcados, ["20240104"])


class EmPasta(Pasta):
    def test_a_page_a_day(self):
        conteudo = self.amostra(4, 6, "--layout", 2)
        self.roda("report", "a.txt", "--split", "-o", "folhas", "--quiet")
        nomes = sorted(os.listdir(self.pasta / "folhas"))
        self.assertEqual(nomes, [f"2024-01-0{d}.html" for d in (1, 2, 3, 4)] + ["index.html", "registros-1.html"])
        ids = {}
        for nome in nomes:
            fonte = (self.pasta / "folhas" / nome).read_text()
            self.exige_valida(fonte)
            ids[nome] = Elementos(fonte)
        linhas = sorted(int(i[1:]) for e in ids.values() for i in e.ids if re.fullmatch(r"l\d+", i))
        self.assertEqual(linhas, list(range(1, len(conteudo.splitlines()) + 1)))
        for nome, elementos in ids.items():
            for link in elementos.links:
                alvo, _, ancora = link.partition("#")
                self.assertIn(alvo or nome, ids)
                if ancora:
                    self.assertIn(ancora, ids[alvo or nome].ids)

    def test_pages_stay_below_five_megabytes(self):
        cupom, item = BOM.splitlines()[19], BOM.splitlines()[22]
        (self.pasta / "r.txt").write_bytes(cupom + b"\n" + (item + b"\n") * 60000)
        self.roda("report", "r.txt", "--split", "-o", "folhas", "--quiet")
        tamanhos = {nome: (self.pasta / "folhas" / nome).stat().st_size for nome in os.listdir(self.pasta / "folhas")}
        self.assertIn("2024-01-02-2.html", tamanhos)
        self.assertLess(max(tamanhos.values()), 5_000_000)
        linhas = sum((self.pasta / "folhas" / nome).read_text().count('<tr id="l') for nome in tamanhos)
        self.assertEqual(linhas, 60000)

    def test_findings_link_into_the_pages(self):
        (self.pasta / "r.txt").write_bytes(BOM.replace(b"01T1800N", b"01T1800X", 1))
        self.roda("report", "r.txt", "--split", "-o", "folhas", "--quiet")
        self.assertIn('href="2024-01-02.html#l23"', (self.pasta / "folhas" / "index.html").read_text())

    def test_what_is_there_is_kept(self):
        (self.pasta / "r.txt").write_bytes(BOM)
        (self.pasta / "p.html").write_text("precious")
        self.assertIn("--force", self.roda("report", "r.txt", "-o", "p.html", situacao=3))
        self.roda("report", "none.txt", "-o", "q.html", situacao=2)
        self.assertEqual(sorted(os.listdir(self.pasta)), ["p.html", "r.txt"])
        self.assertEqual((self.pasta / "p.html").read_text(), "precious")


CHROMIUM = shutil.which("chromium")
OPCOES = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
          "--disable-background-networking", "--disable-component-update", "--disable-sync",
          "--disable-features=NetworkTimeServiceQuerying", "--allow-file-access-from-files", "--enable-logging=stderr", "--hide-scrollbars"]


class Escuta(threading.Thread):
    """Takes every connection that a browser with it as its proxy makes."""

    def __init__(self):
        super().__init__(daemon=True)
        self.porta = socket.create_server(("127.0.0.1", 0))
        self.endereco = f"127.0.0.1:{self.porta.getsockname()[1]}"
        self.pedidos = []
        self.start()

    def run(self):
        while True:
            try:
                conexao, _ = self.porta.accept()
            except OSError:
                return
            with conexao:
                conexao.settimeout(5)
                try:
                    self.pedidos.append(conexao.recv(200).split(b"\r\n")[0].decode("latin-1"))
                except OSError:
                    pass


class Navegador(Pasta):
    def setUp(self):
        super().setUp()
        self.escuta = Escuta()
        self.addCleanup(self.escuta.porta.close)

    def abre(self, nome, *mais):
        """What the browser has of the page after its scripts ran, and what its console says."""
        with tempfile.TemporaryDirectory() as perfil:
            feito = subprocess.run(
                [CHROMIUM, *OPCOES, f"--user-data-dir={perfil}", f"--proxy-server={self.escuta.endereco}",
                 "--proxy-bypass-list=<-loopback>", "--virtual-time-budget=4000", "--dump-dom", *mais,
                 (self.pasta / nome).as_uri()], capture_output=True, timeout=180)
        console = [linha for linha in feito.stderr.decode("utf-8", "replace").splitlines() if "CONSOLE" in linha]
        return feito.stdout.decode(), console

    def pedidos(self):
        """Those for the page's sake: to other hosts than those that the browser asks while it shows nothing."""
        ate = len(self.escuta.pedidos)
        (self.pasta / "nada.html").write_text("<title>nothing</title>")
        self.abre("nada.html")
        hospede = re.compile(r"\w+ (?:\w+://)?([^/: ]*)")
        proprios = {hospede.match(pedido).group(1) for pedido in self.escuta.pedidos[ate:] if hospede.match(pedido)}
        return [p for p in self.escuta.pedidos[:ate] if not hospede.match(p) or hospede.match(p).group(1) not in proprios]

    def test_no_request_and_no_error(self):
        self.pagina(self.amostra(5, 5), "--db", "a.db")
        dom, console = self.abre("p.html")
        self.assertIn("Gross sales", dom)
        self.assertEqual(console, [])
        self.assertEqual(self.pedidos(), [])

    def test_a_request_would_be_seen_and_the_policy_stops_it(self):
        fonte = self.pagina()
        plantada = fonte.replace("<main>", '<main><img src="http://planted.invalid/x.png">')
        (self.pasta / "com.html").write_text(plantada)
        _, console = self.abre("com.html")
        self.assertTrue(any("Content Security Policy" in linha for linha in console), console)
        self.assertEqual(self.pedidos(), [])
        (self.pasta / "sem.html").write_text(re.sub(r'<meta http-equiv="Content-Security-Policy"[^>]*>', "", plantada))
        self.abre("sem.html")
        self.assertTrue(any("planted.invalid" in pedido for pedido in self.pedidos()), self.escuta.pedidos)

    def pergunta(self, javascript, largura=1280):
        """What a script says that looks at the page from outside."""
        (self.pasta / "fora.html").write_text(
            f'<iframe id=f src="p.html" width={largura} height=900 style="border:0"></iframe><pre id=r>none</pre><script>'
            'document.getElementById("f").onload=function(){var w=this.contentWindow,d=this.contentDocument;'
            f'document.getElementById("r").textContent=String((function(){{{javascript}}})());}}</script>')
        dom, _ = self.abre("fora.html", f"--window-size={largura + 40},1000")
        return re.search(r'<pre id="r">(.*?)</pre>', dom, re.S).group(1)

    def test_the_page_fits_three_widths(self):
        self.pagina(self.amostra(40, 3), "--db", "a.db")
        for largura in (360, 820, 1280):
            largo = int(self.pergunta("return d.documentElement.scrollWidth", largura))
            self.assertLessEqual(largo, largura)

    def test_tables_sort_and_documents_filter(self):
        self.pagina(self.amostra(6, 4))
        self.assertEqual(
            self.pergunta("var t=d.querySelector('table.dias'),b=t.tHead.rows[0].cells[1].querySelector('button');b.click();"
                          "var v=Array.from(t.tBodies[0].rows).map(function(r){return +r.cells[1].getAttribute('data-v')});"
                          "return v.length+' '+v.every(function(x,i){return i==0||v[i-1]<=x})"), "6 true")
        self.assertEqual(
            self.pergunta("var i=d.querySelector('#filtro input');i.value='no such words';i.dispatchEvent(new Event('input'));"
                          "var n=d.querySelectorAll('details.doc:not([hidden])').length;"
                          "i.value='';i.dispatchEvent(new Event('input'));"
                          "return n+' '+(d.querySelectorAll('details.doc:not([hidden])').length>20)"), "0 true")

    def test_a_link_opens_what_its_record_stands_in(self):
        self.pagina(BOM.replace(b"00000000003800S", b"00000000003801S"))
        self.assertEqual(self.pergunta("w.location.hash='l10';w.dispatchEvent(new Event('hashchange'));"
                                       "return d.getElementById('l10').closest('details').open"), "true")


def faltam():
    ferramentas = [("tidy", shutil.which("tidy"))] + ([("chromium", CHROMIUM)] if "Navegador" in sys.argv else [])
    return [nome for nome, onde in ferramentas if not onde]


if __name__ == "__main__":
    if faltam():
        print("SKIPPED:", ", ".join(faltam()), "not installed; scripts/install-deps tidy python3-html5lib chromium installs them")
        sys.exit(PULADO)
    unittest.main()
