#include "SaidaDaExplicacao.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "Achados/Citacao.h"
#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"

namespace cotepe::programa {
namespace {

using nlohmann::ordered_json;

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

ordered_json origemEmJson(const Procedencia& procedencia) {
  if (!procedencia.texto.empty()) return {{"text", emUtf8(procedencia.texto)}};
  const Achada& achada = procedencia.coluna;
  ordered_json objeto = {{"table", emUtf8(achada.tabela)}, {"column", emUtf8(achada.coluna)}};
  const auto texto = [&objeto](const char* nome, const std::string& valor) {
    if (!valor.empty()) objeto[nome] = emUtf8(valor);
  };
  if (achada.linhas != 0) objeto["rows"] = achada.linhas;
  texto("rowids", achada.rowids);
  if (achada.linhas != 0) return objeto;
  texto("key", achada.chave);
  texto("rowid", achada.rowid);
  objeto["value"] = emUtf8(achada.valor);
  return objeto;
}

ordered_json campoEmJson(const LinhaExplicada& linha, std::size_t i) {
  const ExplicacaoDoCampo& campo = linha.explicacao.campos[i];
  ordered_json objeto = {{"field", campo.numero},
                         {"label", campo.rotulo},
                         {"from", campo.de},
                         {"to", campo.ate},
                         {"rule", campo.regra},
                         {"source", campo.fonte},
                         {"bytes", emUtf8(campo.bytes)},
                         {"meaning", emUtf8(campo.significado)}};
  if (!campo.nota.empty()) objeto["note"] = campo.nota;
  if (i < linha.procedencias.size()) objeto["origin"] = origemEmJson(linha.procedencias[i]);
  return objeto;
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
  ordered_json objeto = {{"file", emUtf8(linha.arquivo)},
                         {"line", linha.linha},
                         {"register", e.registro->codigo},
                         {"name", e.registro->nome},
                         {"layout", e.leiaute.versao}};
  if (e.leiaute.cat52) objeto["cat52"] = true;
  objeto["notes"] = e.notas;
  ordered_json& campos = objeto["fields"] = ordered_json::array();
  for (std::size_t i = 0; i < e.campos.size(); ++i)
    if (linha.so < 0 || static_cast<std::size_t>(linha.so) == i) campos.push_back(campoEmJson(linha, i));
  saida << objeto.dump() << '\n';
}

}  // namespace cotepe::programa
