// What a report that is there already is called when it is handed in.
#pragma once

#include <string>

namespace cotepe::programa {

/// Whether a file name, without its folder, is one by the law's pattern, as in
/// MFxxxxxx_aaaammdd_hhmmss.TXT.
bool nomeDaLei(const std::string& nome);

/// The file name under which a report is handed in: its own where that is the law's; else the one of the
/// command and the manufacture number in E01 and the date and hour in E11, or of the file where there is no
/// E11. Its own again where it has no E01. Throws Falha (kUsoErrado) where it cannot be read.
std::string nomeDaEntrega(const std::string& relatorio);

}  // namespace cotepe::programa
