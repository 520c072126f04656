// A folder with a report of the sample shop and keys.
#pragma once

#include "Cena.h"

class CenaDeAssinatura : public Cena {
 protected:
  /// "r.txt", plain; "k.pem", "p.pem" and "p.xml".
  CenaDeAssinatura();

  Fim comando(const std::vector<std::string>& argumentos) const { return roda(argumentos, pasta()); }
  Fim assina(const std::vector<std::string>& mais) const;
  Fim confere(const std::string& relatorio, const std::vector<std::string>& mais = {}) const;

  /// A command of the shell in the folder; fails the test when it fails. What it printed.
  std::string shell(const std::string& comando) const;
};
