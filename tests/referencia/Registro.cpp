// The record buffer and the statement of the second reading.
#include "referencia/Registro.h"

#include <algorithm>

namespace referencia {

void Registro::limpa() {
  bytes_.clear();
  index_ = 0;
}

void Registro::escreve(std::size_t posicao, const std::string& texto) {
  const std::size_t fim = posicao + texto.size() + 1;
  if (bytes_.size() < fim) bytes_.resize(fim, '\0');
  bytes_.replace(posicao, texto.size(), texto);
  bytes_[fim - 1] = '\0';
}

void Registro::campo(const std::string& texto, int largura) {
  escreve(texto);
  index_ += static_cast<std::size_t>(largura);
}

void Registro::campoNuncaCortado(const std::string& texto, int largura) {
  campo(texto, std::max(largura, static_cast<int>(texto.size())));
}

Consulta::Consulta(sqlite3* banco, const std::string& sql) {
  if (sqlite3_prepare_v2(banco, sql.c_str(), static_cast<int>(sql.size()) + 1, &stmt_, nullptr) != SQLITE_OK)
    passo_ = SQLITE_ERROR;
}

Consulta::~Consulta() { sqlite3_finalize(stmt_); }

bool Consulta::linha() {
  if (stmt_ == nullptr) {
    passo_ = SQLITE_ERROR;
    return false;
  }
  passo_ = sqlite3_step(stmt_);
  return passo_ == SQLITE_ROW;
}

std::string Consulta::texto(int coluna) {
  const unsigned char* texto = sqlite3_column_text(stmt_, coluna);
  return texto == nullptr ? "" : reinterpret_cast<const char*>(texto);
}

bool Consulta::nula(int coluna) { return sqlite3_column_text(stmt_, coluna) == nullptr; }

int Consulta::bytes(int coluna) { return sqlite3_column_bytes(stmt_, coluna); }

}  // namespace referencia
