#include "SaidaDaExplicacao.h"

#include <ostream>

#include "Achados/Json.h"
#include "Idioma/Idioma.h"
#include "Leitor/Trecho.h"

namespace cotepe::programa {
namespace {

constexpr char kForte[] = "\033[1m", kNormal[] = "\033[0m";

std::string coluna(const Achada& achada) { return mostravel(achada.tabela + '.' + achada.coluna); }

std::string linhaDaTabela(const Achada& achada) {
  if (achada.linhas > 1) {
    const std::string quantas = std::to_string(achada.linhas);
    return achada.rowids.empty() ? frase("{1} rows", {quantas})
                                 : frase("{1} rows (rowid {2})", {quantas, achada.rowids});
  }
  const std::string chave = mostravel(achada.chave);
  if (chave.empty())
    return achada.rowid.empty() ? traduz("a row without a key") : frase("rowid {1}", {achada.rowid});
  return achada.rowid.empty() ? frase("row {1}", {chave})
                              : frase("row {1} (rowid {2})", {chave, achada.rowid});
}

std::string origem(const Procedencia& procedencia) {
  if (!procedencia.texto.empty()) return procedencia.texto;
  const Achada& achada = procedencia.coluna;
  const std::string lugar = coluna(achada) + ", " + linhaDaTabela(achada);
  return achada.linhas > 0 ? frase("the sum of {1}", {lugar}) : lugar + ": " + mostravel(achada.valor);
}

void item(std::ostream& saida, const char* nome, const std::string& texto) {
  if (!texto.empty()) saida << "  " << nome << texto << '\n';
}

std::string cabecalho(const LinhaExplicada& linha) {
  const ExplicacaoDaLinha& e = linha.explicacao;
  return linha.arquivo + ':' + std::to_string(linha.linha) + ": " + e.registro->codigo + ' ' +
         e.registro->nome;
}

void escreveCampo(std::ostream& saida, const LinhaExplicada& linha, std::size_t i, bool cores) {
  const ExplicacaoDoCampo& campo = linha.explicacao.campos[i];
  const std::string de = std::to_string(campo.de), ate = std::to_string(campo.ate);
  saida << '\n'
        << (cores ? kForte : "") << linha.explicacao.registro->codigo << '.' << campo.numero << " \""
        << campo.rotulo << "\", " << (de == ate ? frase("byte {1}", {de}) : frase("bytes {1}-{2}", {de, ate}))
        << (cores ? kNormal : "") << '\n';
  item(saida, traduz("rule:    "), campo.regra);
  item(saida, traduz("source:  "), campo.fonte);
  item(saida, traduz("bytes:   "), '"' + mostravel(campo.bytes) + '"');
  item(saida, traduz("meaning: "), campo.significado);
  item(saida, traduz("note:    "), campo.nota);
  if (i < linha.procedencias.size()) item(saida, traduz("from:    "), origem(linha.procedencias[i]));
}

void escreveOrigemJson(std::ostream& saida, const Procedencia& procedencia) {
  ObjetoJson objeto(saida);
  const Achada& achada = procedencia.coluna;
  if (!procedencia.texto.empty()) {
    objeto.texto("text", procedencia.texto);
  } else {
    objeto.texto("table", achada.tabela).texto("column", achada.coluna);
    objeto.numeroSeHouver("rows", achada.linhas).textoSeHouver("rowids", achada.rowids);
    if (achada.linhas == 0)
      objeto.textoSeHouver("key", achada.chave)
          .textoSeHouver("rowid", achada.rowid)
          .texto("value", achada.valor);
  }
  objeto.fecha();
}

void escreveCampoJson(std::ostream& saida, const LinhaExplicada& linha, std::size_t i) {
  const ExplicacaoDoCampo& campo = linha.explicacao.campos[i];
  ObjetoJson objeto(saida);
  objeto.numero("field", campo.numero).texto("label", campo.rotulo);
  objeto.numero("from", campo.de).numero("to", campo.ate);
  objeto.texto("rule", campo.regra).texto("source", campo.fonte);
  objeto.texto("bytes", campo.bytes).texto("meaning", campo.significado).textoSeHouver("note", campo.nota);
  if (i < linha.procedencias.size()) {
    saida << ",\"origin\":";
    escreveOrigemJson(saida, linha.procedencias[i]);
  }
  objeto.fecha();
}

}  // namespace

void escreveTexto(std::ostream& saida, const LinhaExplicada& linha, bool cores) {
  const ExplicacaoDaLinha& e = linha.explicacao;
  saida << (cores ? kForte : "") << cabecalho(linha) << (cores ? kNormal : "") << '\n';
  const std::string versao = std::to_string(e.leiaute.versao);
  item(saida, traduz("layout:  "), e.leiaute.cat52 ? frase("{1}, CAT52 mode", {versao}) : versao);
  for (const std::string& nota : e.notas) item(saida, traduz("note:    "), nota);
  for (std::size_t i = 0; i < e.campos.size(); ++i)
    if (linha.so < 0 || static_cast<std::size_t>(linha.so) == i) escreveCampo(saida, linha, i, cores);
}

void escreveJson(std::ostream& saida, const LinhaExplicada& linha) {
  const ExplicacaoDaLinha& e = linha.explicacao;
  ObjetoJson objeto(saida);
  objeto.texto("file", linha.arquivo).numero("line", linha.linha);
  objeto.texto("register", e.registro->codigo).texto("name", e.registro->nome);
  objeto.numero("layout", e.leiaute.versao);
  saida << (e.leiaute.cat52 ? ",\"cat52\":true" : "") << ",\"notes\":[";
  for (std::size_t i = 0; i < e.notas.size(); ++i) saida << (i == 0 ? "" : ",") << textoJson(e.notas[i]);
  saida << "],\"fields\":[";
  bool primeiro = true;
  for (std::size_t i = 0; i < e.campos.size(); ++i) {
    if (linha.so >= 0 && static_cast<std::size_t>(linha.so) != i) continue;
    saida << (primeiro ? "" : ",");
    escreveCampoJson(saida, linha, i);
    primeiro = false;
  }
  saida << ']';
  objeto.fecha();
  saida << '\n';
}

}  // namespace cotepe::programa
