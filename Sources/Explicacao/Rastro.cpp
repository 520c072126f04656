#include "Explicacao/Rastro.h"

#include <algorithm>

#include "BancoFiscal/ConsultaAnalisada.h"
#include "Leiaute/Linha.h"

namespace cotepe {
namespace {

// How many columns of a row count: those of the query, or for "*" those that the register reads.
int quantasColunas(const Registro& registro, const char* sql) {
  const std::vector<SelectAnalisado> selects = analisa(sql);
  if (!selects.front().lista.empty()) return static_cast<int>(selects.front().lista.size());
  int colunas = 0;
  for (const Campo& campo : registro.campos)
    if (campo.origem.deColuna()) colunas = std::max(colunas, campo.origem.coluna + 1);
  return colunas;
}

}  // namespace

class Rastro::LeituraLembrada final : public Leitura {
 public:
  LeituraLembrada(Rastro& rastro, std::unique_ptr<Leitura> leitura, int consulta, int colunas)
      : rastro_(rastro), leitura_(std::move(leitura)), consulta_(consulta), colunas_(colunas) {}

  bool avanca() override {
    if (rastro_.achada_ || !leitura_->avanca()) return false;
    rastro_.lembra(consulta_, *leitura_, colunas_);
    return true;
  }
  bool completa() const override { return rastro_.achada_ || leitura_->completa(); }
  void finaliza() override { leitura_->finaliza(); }
  const char* texto(int coluna) const override { return leitura_->texto(coluna); }
  int bytes(int coluna) const override { return leitura_->bytes(coluna); }

 private:
  Rastro& rastro_;
  std::unique_ptr<Leitura> leitura_;
  int consulta_, colunas_;
};

Rastro::Rastro(sqlite3* banco, const Registro& registro, const Ajustes& ajustes, Hospedeiro& hospedeiro,
               std::string procurada, long vez)
    : Execucao(ajustes, hospedeiro),
      registro_(registro),
      banco_(banco, nullptr, ajustes, hospedeiro),
      procurada_(std::move(procurada)),
      vez_(vez),
      guardaTodas_(registro.temGrupos()) {}

std::unique_ptr<Leitura> Rastro::consulta(const char* sql) {
  int indice = 0;
  while (registro_.consultas[indice].sql != sql) ++indice;
  if (!achada_) ultima_ = indice;
  return std::make_unique<LeituraLembrada>(*this, banco_.consulta(sql), indice,
                                           quantasColunas(registro_, sql));
}

std::string Rastro::comPeriodo(std::string sql) const {
  constexpr std::string_view kMarca = "%s";
  bool inicial = true;
  for (std::size_t i; (i = sql.find(kMarca)) != std::string::npos; inicial = !inicial)
    sql.replace(i, kMarca.size(), inicial ? ajustes().dataHoraInicial : ajustes().dataHoraFinal);
  return sql;
}

void Rastro::lembra(int consulta, const Fonte& fonte, int colunas) {
  std::vector<Fila>& filas = filas_[static_cast<std::size_t>(consulta)];
  if (guardaTodas_ || filas.empty()) filas.emplace_back(static_cast<std::size_t>(colunas));
  Fila& fila = filas.back();
  for (int i = 0; i < colunas; ++i) fila[static_cast<std::size_t>(i)] = fonte.texto(i);
}

void Rastro::grava(Linha& linha) {
  if (achada_ || linha.texto() != procurada_) return;
  if (ultima_ >= 0 && !filas(ultima_).empty()) iguais_.push_back(filas(ultima_).back());
  achada_ = ++vezes_ == vez_;
}

void Rastro::falha(const char* mensagem) {
  completa_ = false;
  if (mensagem != nullptr) return hospedeiro().registraLog(mensagem);
  hospedeiro().falhaSemMensagem();
}

long Rastro::vezDaFila(int consulta, std::size_t fila) const {
  const Fila& esta = filas(consulta)[fila];
  if (guardaTodas_)
    return static_cast<long>(std::count(
        filas(consulta).begin(), filas(consulta).begin() + static_cast<std::ptrdiff_t>(fila) + 1, esta));
  return consulta == ultima_ ? static_cast<long>(std::count(iguais_.begin(), iguais_.end(), esta)) : 1;
}

}  // namespace cotepe
