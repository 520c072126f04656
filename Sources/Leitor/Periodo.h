// Which records of a report belong to a period of days.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// Looks at every record of a report, in the order of the file. A record belongs to the period when one of
/// its dates is in it; one without a date goes with what it is part of: E13, E17 and E18 with their reduction
/// (E12, or in a report without any its document in E16), E15 with its coupon (E14), E20 with its non-fiscal
/// coupon (E19), E21 with either. Memory: two numbers for each time that the file's documents enter the
/// period, which is once if they are in the order of their counters.
class Periodo {
 public:
  /// AAAAMMDD, both included; empty for no bound.
  Periodo(std::string de, std::string ate) : de_(std::move(de)), ate_(std::move(ate)) {}

  /// Whether the record belongs to the period; to be called for every record in turn.
  bool aceita(const RegistroLido& lido);

 private:
  /// The counters of the documents in the period, as runs of documents that follow each other in the file.
  class Contadores {
   public:
    void anota(std::int64_t contador, bool dentro);
    bool tem(std::int64_t contador) const;

   private:
    struct Faixa {
      std::int64_t de, ate;
    };
    std::vector<Faixa> faixas_;
    bool aberta_ = false;
  };

  bool temData(const RegistroLido& lido) const;
  void anota(const RegistroLido& lido, bool dentro);
  bool comSeuDocumento(const RegistroLido& lido) const;

  std::string de_, ate_;
  Contadores reducoes_, cupons_, naoFiscais_;  // by CRZ, CCF and GNF
  bool comReducoes_ = false;
};

}  // namespace cotepe
