#include "Leiaute/Registro.h"

#include <cstring>

#include "Leiaute/Composicao.h"

namespace cotepe {
namespace {

unsigned comandoDe(const char* texto) {
  static constexpr struct {
    const char* texto;
    Comandos comando;
  } kComandos[] = {{"MF", kMF}, {"MFD", kMFD}, {"TDM", kTDM}, {"RZ", kRZ}};
  for (const auto& conhecido : kComandos)
    if (std::strcmp(texto, conhecido.texto) == 0) return conhecido.comando;
  return kOutro;
}

void gravaVazioSeTem(Execucao& execucao, const Registro& registro) {
  if (registro.temVazio(execucao.ajustes().cat52)) gravaVazio(execucao, registro.camposVazios);
}

}  // namespace

bool Registro::despachado(const char* comando, int versao) const {
  return (comandos & comandoDe(comando)) != 0 && (!soNaVersao2 || versao == 2);
}

bool completou(Execucao& execucao, const Registro& registro, Leitura& leitura, int consulta) {
  if (leitura.completa()) return true;
  if (registro.finalizaAntesDeRegistrar) leitura.finaliza();
  execucao.falha(registro.consultas[consulta].falha);
  leitura.finaliza();
  return false;
}

bool encerra(Execucao& execucao, const Registro& registro, Leitura& leitura, long linhas, int consulta) {
  if (!completou(execucao, registro, leitura, consulta)) return false;
  if (linhas == 0) gravaVazioSeTem(execucao, registro);
  leitura.finaliza();
  return true;
}

void escreveTabela(Execucao& execucao, const Registro& registro) {
  if (registro.consultas[0].sql == nullptr) return gravaVazioSeTem(execucao, registro);
  const auto leitura = execucao.consulta(registro.consultas[0].sql);
  const long linhas = gravaLinhas(execucao, registro.campos, *leitura, *leitura);
  encerra(execucao, registro, *leitura, linhas);
}

bool acrescentaLinhas(Execucao& execucao, const Registro& registro, int consulta, Linha& linha, Campos campos,
                      Campos vazio, const std::function<bool(const Fonte&)>& aceita) {
  const auto leitura = execucao.consulta(registro.consultas[consulta].sql);
  bool alguma = false;
  while (leitura->avanca()) {
    if (aceita && !aceita(*leitura)) continue;
    compoe(linha, campos, *leitura, execucao);
    alguma = true;
  }
  if (!completou(execucao, registro, *leitura, consulta)) return false;
  if (!alguma) compoeVazio(linha, vazio, execucao);
  return true;
}

}  // namespace cotepe
