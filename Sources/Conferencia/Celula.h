// One value of the database, checked against the form of its column and the fields that it ends up in.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "BancoFiscal/FormasDasTabelas.h"
#include "Conferencia/Destinos.h"
#include "Conferencia/RegrasDoBanco.h"

namespace cotepe {

/// What is known of a column before its rows are read.
struct ColunaVerificada {
  std::string nome;
  FormaDaColuna forma;
  std::vector<Destino> destinos;
  std::string leitores;  // the registers that read it, in words
  bool filtra = false;   // it decides which rows are in the period
  bool maximo = false;   // E02 takes its maximum
};

/// One value; `texto` is what the generator would get.
struct Celula {
  std::string_view texto;
  bool nulo = false;
  bool real = false;             // stored as a binary number
  int casas = 2;                 // decimal places that its row declares
  const char* foraDe = nullptr;  // the register that leaves its row out
};

/// The reports and the period to check for.
struct Meta {
  Alcance alcance;
  std::string primeiroDia;  // YYYY-MM-DD; empty without a period
};

/// Something wrong with a value. Without `destino` it concerns no field.
struct Problema {
  const Regra* regra;
  std::string encontrado, esperado;
  const Destino* destino = nullptr;
  std::vector<const Destino*> outros;  // affected in the same way
  const char* conserto = nullptr;  // what to do, when the rule's own advice does not fit; to be translated
};

/// Finds everything wrong with a value, one problem for each rule that it breaks.
void confereCelula(const ColunaVerificada& coluna, const Celula& celula, const Meta& meta,
                   std::vector<Problema>& problemas);

/// The parts of it, by form. Each adds to `problemas`, which, like the others, must live as long as the
/// object.
class ConferenciaDaCelula {
 public:
  ConferenciaDaCelula(const ColunaVerificada& coluna, const Celula& celula, const Meta& meta,
                      std::vector<Problema>& problemas)
      : coluna_(coluna), celula_(celula), meta_(meta), problemas_(problemas) {}

  /// By the form of the column.
  void porForma();

 private:
  // For one field; null when the column reaches none.
  void texto(const Destino& destino);
  void inteiro(const Destino* destino);
  void dinheiro(const Destino* destino);
  void numeroFiscal(const Destino* destino);
  void letra(const Destino* destino);
  // For the value.
  void nulo();
  void controle();
  void codigo(std::initializer_list<std::string_view> codigos, const char* esperado);
  void digitosVerificadores();
  void data();

  void grandeTotalDoE02(const Destino& destino);
  void acha(const Regra& regra, const Destino* destino, std::string encontrado, std::string esperado,
            const char* conserto = nullptr);
  void paraCada(void (ConferenciaDaCelula::*parte)(const Destino*));
  bool vale(const Destino& destino) const;
  const Destino* primeiro(bool (*serve)(const Campo&)) const;
  std::string valor() const;
  std::string valorCom(const char* consequencia) const;
  std::string escrito(const Destino& destino) const;
  std::string comoEscrito(const Destino* destino) const;
  bool ultimoDaLinha(const Destino& destino) const;

  const ColunaVerificada& coluna_;
  const Celula& celula_;
  const Meta& meta_;
  std::vector<Problema>& problemas_;
};

/// "E15.6, E16.4 and E21.6".
std::string enumera(const std::vector<const Destino*>& destinos);

}  // namespace cotepe
