#include "Conferencia/Partes.h"

#include <algorithm>

#include "BancoFiscal/ErroDoBanco.h"
#include "Idioma/Idioma.h"

namespace cotepe {

Pergunta::Pergunta(sqlite3* banco, const std::string& sql) : banco_(banco) {
  const int resultado =
      sqlite3_prepare_v2(banco, sql.c_str(), static_cast<int>(sql.size() + 1), &declaracao_, nullptr);
  if (resultado != SQLITE_OK) falha();
}

void Pergunta::vincula(int parametro, const std::string& texto) {
  if (parametro > sqlite3_bind_parameter_count(declaracao_)) return;
  if (sqlite3_bind_text(declaracao_, parametro, texto.c_str(), -1, SQLITE_TRANSIENT) != SQLITE_OK) falha();
}

bool Pergunta::avanca() {
  const int resultado = sqlite3_step(declaracao_);
  if (resultado == SQLITE_ROW) return true;
  if (resultado != SQLITE_DONE) falha();
  return false;
}

std::string_view Pergunta::texto(int coluna) const {
  const unsigned char* texto = sqlite3_column_text(declaracao_, coluna);
  if (texto == nullptr) {
    if (sqlite3_errcode(banco_) == SQLITE_NOMEM) falha();
    return "";
  }
  return {reinterpret_cast<const char*>(texto),
          static_cast<std::size_t>(sqlite3_column_bytes(declaracao_, coluna))};
}

void Pergunta::falha() const {
  throw ErroDoBanco({traduz("cannot check the database"), traduz("a query"), sqlite3_errmsg(banco_),
                     traduz("a database that can be read to its end"), traduz("restore it from a copy")});
}

std::vector<std::string> Contexto::colunas(const std::string& tabela) const {
  std::vector<std::string> nomes;
  // With the generated columns, which SELECT * has too; without the hidden ones of virtual tables.
  Pergunta pergunta(banco_, "SELECT name FROM pragma_table_xinfo('" + tabela + "') WHERE hidden <> 1");
  while (pergunta.avanca()) nomes.emplace_back(pergunta.texto(0));
  return nomes;
}

bool Contexto::tem(const std::string& tabela, const std::string& coluna) const {
  const std::vector<std::string> nomes = colunas(tabela);
  return std::any_of(nomes.begin(), nomes.end(), [&](const std::string& nome) {
    return sqlite3_stricmp(nome.c_str(), coluna.c_str()) == 0;
  });
}

std::string Contexto::leitores(std::string_view tabela, std::string_view coluna) const {
  std::string codigos = registrosQueLeem(tabela, coluna, opcoes_.alcance);
  if (codigos.empty() && !destinosDe(tabela, coluna, opcoes_.alcance).empty()) codigos = traduz("E01 to E22");
  return codigos;
}

void Contexto::relata(const Regra& regra, const Lugar& lugar, const std::string& registro,
                      const Destino* destino, std::string encontrado, std::string esperado,
                      const char* conserto) const {
  if (!ligada(regra)) return;
  Achado achado = achadoDe(regra, opcoes_.arquivo);
  achado.tabela = lugar.tabela;
  achado.chave = lugar.chave;
  achado.coluna = lugar.coluna;
  achado.registro = registro;
  if (destino != nullptr) {
    achado.registro = destino->registro->codigo;
    achado.campo = destino->campo->rotulo;
    achado.numero = destino->numero;
  }
  achado.encontrado = std::move(encontrado);
  achado.esperado = std::move(esperado);
  if (conserto != nullptr) achado.conserto = traduz(conserto);
  recebe_.recebe(achado);
}

std::vector<std::string> separa(std::string_view lista) {
  std::vector<std::string> partes;
  while (!lista.empty()) {
    const std::size_t virgula = std::min(lista.find(','), lista.size());
    partes.emplace_back(lista.substr(0, virgula));
    lista.remove_prefix(std::min(virgula + 1, lista.size()));
  }
  return partes;
}

}  // namespace cotepe
