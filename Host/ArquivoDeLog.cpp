#include "ArquivoDeLog.h"

#include <array>
#include <string>

#include "RtcClasses.h"

namespace {

void acrescentaEscapado(std::string& linha, const char* texto) {
  static constexpr char kHexadecimais[] = "0123456789abcdef";
  for (; *texto != '\0'; ++texto) {
    const auto byte = static_cast<unsigned char>(*texto);
    if (byte == '\\')
      linha += "\\\\";
    else if (byte == '\n')
      linha += "\\n";
    else if (byte == '\r')
      linha += "\\r";
    else if (byte == '\t')
      linha += "\\t";
    else if (byte < 32 || byte == 127)
      (linha += "\\x") += {kHexadecimais[byte / 16], kHexadecimais[byte % 16]};
    else
      linha += *texto;
  }
}

std::string agora() {
  char data[] = "yyyy-mm-dd", hora[] = "hh:mm:ss";
  std::array<char, 20> saida{};
  RtcAbsoluteTime relogio;
  relogio.GetCurrentDateTime();
  relogio.ToStrDateTime(data, hora, saida.data());
  return saida.data();
}

}  // namespace

bool ArquivoDeLog::abre(const char* caminho) {
  FILE* arquivo = std::fopen(caminho, "a");
  if (arquivo == nullptr) return false;
  toma(arquivo);
  return true;
}

bool ArquivoDeLog::escreve(const char* mensagem) {
  std::string linha = agora() + ' ';
  acrescentaEscapado(linha, mensagem);
  linha += '\n';
  FILE* destino = arquivo_ != nullptr ? arquivo_.get() : stderr;
  return std::fwrite(linha.data(), 1, linha.size(), destino) == linha.size() && std::fflush(destino) == 0;
}

ArquivoDeLog& logDoAplicativo() {
  static ArquivoDeLog log;
  return log;
}
