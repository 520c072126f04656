// Rows and a run that cost nothing, so that what is measured is the writing of records.
#pragma once

#include <array>
#include <memory>

#include "Leiaute/Execucao.h"
#include "Leiaute/Registro.h"

namespace bench {

// A full row for a register: each column holds a text suitable for the field that reads it.
class LinhaDeExemplo final : public cotepe::Leitura {
 public:
  // Returns `linhas` rows.
  LinhaDeExemplo(cotepe::Campos campos, long linhas);

  bool avanca() override { return restam_-- > 0; }
  bool completa() const override { return true; }
  void finaliza() override {}
  const char* texto(int coluna) const override { return textos_[static_cast<std::size_t>(coluna)]; }
  int bytes(int /*coluna*/) const override { return 1; }

 private:
  std::array<const char*, 32> textos_;
  long restam_;
};

// Gives each query of a register the same number of rows and throws the records away.
class ExecucaoDeExemplo final : public cotepe::Execucao {
 public:
  ExecucaoDeExemplo(const cotepe::Ajustes& ajustes, cotepe::Hospedeiro& hospedeiro, cotepe::Campos campos,
                    long linhas)
      : Execucao(ajustes, hospedeiro), campos_(campos), linhas_(linhas) {}

  std::unique_ptr<cotepe::Leitura> consulta(const char* sql) override;
  void grava(cotepe::Linha& linha) override;
  void falha(const char* /*mensagem*/) override {}

  long bytes() const { return bytes_; }

 private:
  cotepe::Campos campos_;
  long linhas_;
  long bytes_ = 0;
};

// What the runs of the example know about their printer.
cotepe::Ajustes ajustesDeExemplo(int versao);

}  // namespace bench
