#include "Sistema/TextoEmArquivo.h"

#include "Sistema/Descritor.h"
#include "Sistema/PalavrasDoArquivo.h"

namespace cotepe::programa {

TextoEmArquivo::TextoEmArquivo(const std::string& destino, std::string nome)
    : destino_(destino),
      nome_(std::move(nome)),
      seguro_(emPalavras([&destino] { return std::make_unique<ArquivoSeguro>(destino); })),
      bloco_(std::make_unique<char[]>(kBloco)) {}

void TextoEmArquivo::despeja() {
  escreveTudo(seguro_->numero(), {bloco_.get(), cheio_}, nome_.c_str());
  gravados_ += cheio_;
  cheio_ = 0;
}

void TextoEmArquivo::escreveLongo(std::string_view texto) {
  despeja();
  if (texto.size() <= kBloco) return escreve(texto);
  escreveTudo(seguro_->numero(), texto, nome_.c_str());
  gravados_ += texto.size();
}

void TextoEmArquivo::publica(bool substitui) {
  despeja();
  emPalavras([this, substitui] { seguro_->publica(destino_, substitui); });
}

}  // namespace cotepe::programa
