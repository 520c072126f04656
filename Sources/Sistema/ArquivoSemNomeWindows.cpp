#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cerrno>
#include <random>

#include "Sistema/ArquivoSemNome.h"
#include "Sistema/FalhaDeArquivo.h"
#include "Sistema/TextoDoWindows.h"

namespace cotepe {
namespace {

// The name exists only while the file is open, however its owner ends.
Descritor comNomePassageiro(const std::string& caminho) {
  const HANDLE puxador =
      CreateFileW(caminhoLargo(caminho).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (puxador == INVALID_HANDLE_VALUE) {
    anotaErro();
    return {};
  }
  const int numero = _open_osfhandle(reinterpret_cast<intptr_t>(puxador), _O_RDWR | _O_BINARY);
  if (numero < 0) CloseHandle(puxador);
  return Descritor(numero);
}

}  // namespace

ArquivoSemNome::ArquivoSemNome(const std::string& pasta) {
  std::random_device acaso;
  do {
    caminho_ = pasta + "/cotepe-" + std::to_string(acaso()) + ".tmp";
    arquivo_ = comNomePassageiro(caminho_);
  } while (!arquivo_.aberto() && errno == EEXIST);
  if (!arquivo_.aberto()) throw FalhaDeArquivo(PassoDeArquivo::NaoCria, pasta, errno);
}

std::string ArquivoSemNome::caminho() const { return caminho_; }

}  // namespace cotepe
