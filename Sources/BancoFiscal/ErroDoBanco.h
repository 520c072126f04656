// What went wrong with a fiscal database: structure first, text second.
#pragma once

#include <exception>
#include <memory>
#include <string>

namespace cotepe {

// Thrown by the functions on fiscal databases. what() is one line made of all the parts, which are in the
// user's language; copying never throws.
class ErroDoBanco : public std::exception {
 public:
  struct Partes {
    std::string oQue;        // what could not be done
    std::string onde;        // the file, option or table
    std::string encontrado;  // what was found there
    std::string esperado;    // what was expected instead
    std::string oQueFazer;   // what the user can do
  };

  explicit ErroDoBanco(Partes partes);
  const char* what() const noexcept override { return conteudo_->texto.c_str(); }
  const Partes& partes() const noexcept { return conteudo_->partes; }

 private:
  struct Conteudo {
    Partes partes;
    std::string texto;
  };
  std::shared_ptr<const Conteudo> conteudo_;
};

}  // namespace cotepe
