// A file that appears under its name only when it is whole.
#pragma once

#include <string>

namespace cotepe {

// Creates an empty file under a temporary name beside `caminho`, for others to fill; `publica` brings it to
// the disk and gives it its name. Destroyed without that, it removes the temporary file; what a killed
// process left behind is removed by the next one for the same name. Throws ErroDoBanco.
class ArquivoNovo {
 public:
  explicit ArquivoNovo(std::string caminho);
  ~ArquivoNovo();
  ArquivoNovo(const ArquivoNovo&) = delete;
  ArquivoNovo& operator=(const ArquivoNovo&) = delete;

  // Where to write until then; never begins with "file:", which SQLite would take for a URI.
  const std::string& temporario() const noexcept { return temporario_; }

  // To be called once, when nobody holds the file open. An existing file is never replaced.
  void publica();

 private:
  bool cria();

  std::string caminho_;
  std::string temporario_;
  int trava_ = -1;  // the temporary file, locked for as long as its writer lives
};

}  // namespace cotepe
