#include "HospedeiroDaInterface.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <string_view>

#include "Leiaute/Registro.h"
#include "Leiaute/Releitura.h"
#include "Sistema/Numeros.h"

namespace cotepe {
namespace {

void continua(int pedido) {
  if (pedido != 0) throw Cancelamento();
}

const char* ouVazio(const char* texto) { return texto != nullptr ? texto : ""; }

// Zero-filled; returns the position after it. A number that does not fit leaves bytes that are not digits.
char* escreveNumero(char* saida, int valor, int largura) {
  const bool negativo = valor < 0;
  for (int i = largura; i-- > 0; valor /= 10) saida[i] = static_cast<char>('0' + valor % 10);
  if (negativo || valor != 0) saida[0] = '?';
  return saida + largura;
}

// Zeros if the system has no local time. A leap second becomes the second before it.
cotepe_time doSistema() {
  const std::time_t agora = std::time(nullptr);
  std::tm local{};
  if (!horaLocal(agora, local)) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     std::min(local.tm_sec, 59)};
}

}  // namespace

void HospedeiroDaInterface::fixaIdentidade(const char* serial, const char* modelo, const char* tipo) {
  std::string novos[] = {ouVazio(serial), ouVazio(modelo), ouVazio(tipo)};
  serial_.swap(novos[0]);
  modelo_.swap(novos[1]);
  tipo_.swap(novos[2]);
}

void HospedeiroDaInterface::fixaRelogio(cotepe_clock_callback relogio, void* usuario) {
  relogio_ = {relogio, usuario};
  fixo_ = {};
}

void HospedeiroDaInterface::fixaMomento(const cotepe_time* momento) {
  fixo_ = momento != nullptr ? carimbo(*momento) : Carimbo{};
  relogio_ = {};
}

void HospedeiroDaInterface::falhaSemMensagem() { motivo_ = sqlite3_errmsg(banco_); }

void HospedeiroDaInterface::registraLog(const char* mensagem) {
  falhaSemMensagem();
  if (log_.funcao != nullptr) continua(log_.funcao(log_.usuario, mensagem));
}

void HospedeiroDaInterface::dataHoraAtual(char* saida) {
  Carimbo agora = fixo_;
  if (agora[0] == '\0') {
    cotepe_time momento{};
    if (relogio_.funcao != nullptr)
      continua(relogio_.funcao(relogio_.usuario, &momento));
    else
      momento = doSistema();
    agora = carimbo(momento);
  }
  std::memcpy(saida, agora.data(), agora.size());
}

void HospedeiroDaInterface::preenche(char* texto, char* destino, int largura) {
  const auto bytes = static_cast<std::size_t>(largura);
  const std::size_t usados = strnlen(texto, bytes);
  std::memcpy(destino, texto, usados);
  std::memset(destino + usados, ' ', bytes - usados);
}

void HospedeiroDaInterface::conclui(const char* registro, long linhas, bool completo) {
  completa_ = completa_ && completo;
  if (aviso_.funcao != nullptr) continua(aviso_.funcao(aviso_.usuario, registro, linhas, completo ? 1 : 0));
}

HospedeiroDaInterface::Carimbo HospedeiroDaInterface::carimbo(const cotepe_time& momento) {
  Carimbo texto{};
  char* p = escreveNumero(texto.data(), momento.year, 4);
  p = escreveNumero(p, momento.month, 2);
  p = escreveNumero(p, momento.day, 2);
  *p++ = ' ';
  p = escreveNumero(p, momento.hour, 2);
  p = escreveNumero(p, momento.minute, 2);
  escreveNumero(p, momento.second, 2);
  const std::string_view lido(texto.data(), texto.size() - 1);
  if (!dataPossivel(lido.substr(0, 8)) || !horaPossivel(lido.substr(9))) throw RelogioInvalido();
  return texto;
}

}  // namespace cotepe
